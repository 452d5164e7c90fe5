#include "app/instance/InstanceClient.h"

#include "app/instance/PeerCheck.h"
#include "core/Localisation.h"

#include <QElapsedTimer>
#include <thread>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds retryPause(20);
constexpr int connectMilliseconds = 2000;

InstanceReply replyFrom(const QByteArray& received) {
    LineReader lines(longestMessage);
    lines.append(received);
    try {
        if (const auto line = lines.takeLine()) return decodeJsonText<InstanceReply>(*line);
    } catch (const JsonError&) {
    }
    return InstanceReply::failed(Kestrio::tr("the running Kestrio ended before it was done"));
}

}  // namespace

InstanceClient::InstanceClient(QObject* parent) : QObject(parent) {}

bool InstanceClient::connectTo(const QString& socket, std::chrono::milliseconds patience) {
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        socket_.connectToServer(socket);
        if (socket_.waitForConnected(connectMilliseconds)) {
            if (isPeerOfThisUser(static_cast<int>(socket_.socketDescriptor()))) return true;
            socket_.abort();
        }
        if (waiting.elapsed() >= patience.count()) return false;
        std::this_thread::sleep_for(retryPause);
    }
}

Task<InstanceReply> InstanceClient::ask(InstanceRequest request, std::stop_token stop) {
    const Completion<> ended(std::move(stop));
    connect(&socket_, &QLocalSocket::disconnected, this, [ended] { ended.succeed(); });
    if (socket_.state() != QLocalSocket::ConnectedState) ended.succeed();
    socket_.write(messageLine(request));
    socket_.flush();
    co_await ended;
    co_return replyFrom(socket_.readAll());
}

}  // namespace kestrio
