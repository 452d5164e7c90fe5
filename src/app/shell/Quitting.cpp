#include "app/shell/Quitting.h"

#include "core/Localisation.h"
#include "editor/output/QuickExport.h"

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds exportPoll(50);
constexpr std::chrono::milliseconds noticeTime(3000);
constexpr std::size_t mostNames = 6;

QString namesOf(const std::vector<OpenDocument>& documents) {
    QStringList names;
    for (const OpenDocument& each : documents)
        names << Kestrio::tr("“%1”").arg(each.name);
    if (documents.size() <= mostNames) return names.join(QStringLiteral("\n"));
    names = names.mid(0, mostNames);
    names << Kestrio::tr("and %n more", nullptr, static_cast<int>(documents.size() - mostNames));
    return names.join(QStringLiteral("\n"));
}

AlertRequest question(const std::vector<OpenDocument>& documents) {
    AlertRequest request;
    request.style = AlertStyle::warning;
    const bool isOne = documents.size() == 1;
    request.title = isOne ? Kestrio::tr("Save the changes before quitting?")
                          : Kestrio::tr("Save the changes to %n pictures before quitting?", nullptr,
                                        static_cast<int>(documents.size()));
    request.text =
        Kestrio::tr("Changed since it last left the editor:\n%1").arg(namesOf(documents));
    request.buttons = {isOne ? Kestrio::tr("Save") : Kestrio::tr("Save All"),
                       Kestrio::tr("Discard"), Kestrio::tr("Cancel")};
    return request;
}

}  // namespace

Quitting::Quitting(Collaborators collaborators, std::function<void()> end, QObject* parent)
    : QObject(parent), with_(std::move(collaborators)), end_(std::move(end)) {}

Quitting::~Quitting() {
    stop_.request_stop();
}

void Quitting::request() {
    if (!isUnderWay_) launch(run(), this);
}

Task<> Quitting::run() {
    const QPointer<Quitting> self(this);
    isUnderWay_ = true;
    bool mayEnd = false;
    try {
        auto settling = settleDocuments();
        mayEnd = co_await settling;
    } catch (const Cancelled&) {
    }
    if (!self) co_return;
    isUnderWay_ = false;
    if (mayEnd) end_();
}

Task<bool> Quitting::settleDocuments() {
    const QPointer<Quitting> self(this);
    auto waiting = waitForExports();
    co_await waiting;
    if (!self) co_return false;
    const std::vector<OpenDocument> documents = with_.editors->unexportedDocuments();
    if (documents.empty()) co_return true;
    auto asking = ask(documents);
    const Answer answer = co_await asking;
    if (!self || answer == Answer::cancel) co_return false;
    if (answer == Answer::discard) {
        with_.editors->discardDrafts();
        co_return true;
    }
    auto saving = saveAll(documents);
    co_return co_await saving;
}

// The user can cancel an export in its window, so that this ends.
Task<> Quitting::waitForExports() {
    const auto editors = with_.editors;
    if (editors->isExporting()) {
        with_.toasts->show(Kestrio::tr("Kestrio quits as soon as the picture is written"),
                           noticeTime);
    }
    while (editors->isExporting()) {
        const auto pause = sleepFor(exportPoll, stop_.get_token());
        co_await pause;
    }
}

Task<Quitting::Answer> Quitting::ask(std::vector<OpenDocument> documents) {
    auto asking = with_.alerts->show(question(documents), stop_.get_token());
    const int button = co_await asking;
    co_return button == 0 ? Answer::save : button == 1 ? Answer::discard : Answer::cancel;
}

Task<bool> Quitting::saveAll(std::vector<OpenDocument> documents) {
    const QPointer<Quitting> self(this);
    for (const OpenDocument& each : documents) {
        if (!each.editor) continue;  // closed meanwhile, by an answer of its own
        QString failure;
        try {
            auto saving = quickExport(*each.editor, with_.settings->load());
            co_await saving;
        } catch (const std::exception& error) {
            failure = describeFailure(error);
        }
        if (!self) co_return false;
        if (failure.isEmpty()) continue;
        auto telling = reportFailure(each, failure);
        co_await telling;
        co_return false;
    }
    co_return true;
}

Task<> Quitting::reportFailure(OpenDocument document, QString reason) {
    const auto editors = with_.editors;
    AlertRequest request;
    request.style = AlertStyle::warning;
    request.title = Kestrio::tr("“%1” Was Not Saved").arg(document.name);
    request.text =
        Kestrio::tr("%1\nKestrio goes on, so that you can save it elsewhere.").arg(reason);
    request.buttons = {Kestrio::tr("OK")};
    auto shown = with_.alerts->show(std::move(request), stop_.get_token());
    co_await shown;
    if (document.editor) editors->bringToFront(document.editor);
}

}  // namespace kestrio
