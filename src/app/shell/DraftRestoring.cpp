#include "app/shell/DraftRestoring.h"

#include "core/Localisation.h"
#include "core/Log.h"

#include <QLocale>
#include <QPointer>

namespace kestrio {

namespace {

constexpr std::size_t mostNames = 6;

QString timeText(const QDateTime& moment) {
    const QDateTime local = moment.toLocalTime();
    const QString time = QLocale().toString(local.time(), QLocale::ShortFormat);
    if (local.date() == QDate::currentDate()) return time;
    return QLocale().toString(local.date(), QLocale::ShortFormat) + u' ' + time;
}

QString namesOf(const std::vector<ClaimedDraft>& drafts) {
    QStringList names;
    for (const ClaimedDraft& each : drafts)
        names << Kestrio::tr("“%1”, %2").arg(each.name, timeText(each.changed));
    if (drafts.size() <= mostNames) return names.join(u'\n');
    names = names.mid(0, mostNames);
    names << Kestrio::tr("and %n more", nullptr, static_cast<int>(drafts.size() - mostNames));
    return names.join(u'\n');
}

AlertRequest question(const std::vector<ClaimedDraft>& drafts) {
    AlertRequest request;
    request.style = AlertStyle::warning;
    const bool isOne = drafts.size() == 1;
    request.title = isOne ? Kestrio::tr("Restore the unsaved picture?")
                          : Kestrio::tr("Restore %n unsaved pictures?", nullptr,
                                        static_cast<int>(drafts.size()));
    request.text =
        Kestrio::tr("Kestrio ended before the changes left the editor:\n%1").arg(namesOf(drafts));
    request.buttons = {isOne ? Kestrio::tr("Restore") : Kestrio::tr("Restore All"),
                       Kestrio::tr("Discard"), Kestrio::tr("Later")};
    return request;
}

}  // namespace

DraftRestoring::DraftRestoring(Collaborators collaborators, QObject* parent)
    : QObject(parent), with_(std::move(collaborators)) {}

DraftRestoring::~DraftRestoring() {
    stop_.request_stop();
}

void DraftRestoring::offer() {
    launch(run(), this);
}

Task<> DraftRestoring::run() {
    const QPointer<DraftRestoring> self(this);
    const auto drafts = with_.drafts;
    const auto finding = drafts->claimUnowned();
    const std::vector<ClaimedDraft> found = co_await finding;
    if (!self || found.empty()) co_return;
    auto asking = with_.alerts->show(question(found), stop_.get_token());
    const int button = co_await asking;
    if (!self) co_return;
    if (button == 0) {
        auto restoring = restoreAll(found);
        co_await restoring;
    } else if (button == 1) {
        for (const ClaimedDraft& each : found)
            drafts->remove(each);
    }
}

// The latest comes to the front.
Task<> DraftRestoring::restoreAll(std::vector<ClaimedDraft> drafts) {
    const QPointer<DraftRestoring> self(this);
    std::ranges::reverse(drafts);
    for (const ClaimedDraft& each : drafts) {
        QString failure;
        try {
            const auto reading = with_.drafts->read(each);
            const DraftDocument document = co_await reading;
            if (!self) co_return;
            with_.editors->restore(document, each);
        } catch (const std::exception& error) {
            failure = describeFailure(error);
        }
        if (!self) co_return;
        if (failure.isEmpty()) continue;
        auto telling = reportFailure(each.name, failure);
        co_await telling;
        if (!self) co_return;
    }
}

Task<> DraftRestoring::reportFailure(QString name, QString reason) {
    AlertRequest request;
    request.style = AlertStyle::warning;
    request.title = Kestrio::tr("“%1” Was Not Restored").arg(name);
    request.text = reason;
    request.buttons = {Kestrio::tr("OK")};
    auto shown = with_.alerts->show(std::move(request), stop_.get_token());
    co_await shown;
}

}  // namespace kestrio
