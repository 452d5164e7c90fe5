#include "platform/linux/translation/ApertiumPipe.h"

#include "platform/Translator.h"
#include "platform/linux/translation/ApertiumModes.h"

#include <unistd.h>
#include <QCoreApplication>
#include <csignal>

namespace kestrio {

namespace {

// An engine that goes mad must not fill the memory.
constexpr qsizetype longestAnswer = 1 << 20;

// The pipeline without the engine's own script around it, which does not pass on a text before the
// next one comes. The option leaves out marks at unknown words.
constexpr char script[] = R"(exec bash <("$0" -z "$1") -n '')";

std::exception_ptr failure() {
    return std::make_exception_ptr(TranslationError(TranslationError::Case::failed));
}

}  // namespace

ApertiumPipe::ApertiumPipe(const Program& program)
    : limit_(program.limit), process_(new QProcess(QCoreApplication::instance())) {
    // A group of its own, so that a shell and all that it starts can be ended at once.
    process_->setChildProcessModifier([] { ::setpgid(0, 0); });
    process_->setStandardErrorFile(QProcess::nullDevice());
    connect(process_, &QProcess::readyReadStandardOutput, this, &ApertiumPipe::takeOutput);
    const auto end = [this] {
        takeOutput();
        hasEnded_ = true;
        settle();
    };
    connect(process_, &QProcess::finished, this, end);
    connect(process_, &QProcess::errorOccurred, this, end);
    // Its parts read text in the encoding of the locale.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process_->setProcessEnvironment(environment);
    process_->start(QStringLiteral("bash"), {QStringLiteral("-c"), QString::fromLatin1(script),
                                             program.pipelinePrinter, program.modeFile});
}

ApertiumPipe::~ApertiumPipe() {
    process_->disconnect(this);
    if (process_->state() == QProcess::NotRunning) {
        process_->deleteLater();
        return;
    }
    connect(process_, &QProcess::finished, process_, &QObject::deleteLater);
    // The group bears the number of its first process, which is not free for another one before it
    // has been waited for.
    if (const qint64 group = process_->processId(); group > 0) ::kill(-pid_t(group), SIGKILL);
    process_->kill();
}

void ApertiumPipe::takeOutput() {
    output_ += process_->readAllStandardOutput();
    settle();
}

void ApertiumPipe::settle() {
    if (!waiting_) return;
    const qsizetype end = output_.indexOf(apertiumEnd);
    if (end >= 0) {
        waiting_->succeed(output_.left(end));
        output_.remove(0, end + 1);
    } else if (hasEnded_ || output_.size() > longestAnswer) {
        waiting_->fail(failure());
    } else {
        return;
    }
    waiting_.reset();
}

Task<QString> ApertiumPipe::translate(QString text, std::stop_token stop) {
    const Completion<QByteArray> done(std::move(stop));
    waiting_ = done;
    QTimer timer;
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, &timer, [done] { done.fail(failure()); });
    timer.start(limit_);
    if (!hasEnded_) process_->write(apertiumInput(text));
    settle();
    const QByteArray answer = co_await done;
    co_return apertiumText(answer);
}

}  // namespace kestrio
