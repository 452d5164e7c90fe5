#include "app/CaptureFixture.h"
#include "app/instance/InstanceAddress.h"
#include "app/instance/InstanceClient.h"
#include "app/instance/InstanceCommands.h"
#include "app/instance/InstanceLock.h"
#include "app/instance/InstanceServer.h"
#include "imaging/codecs/ImageEncoder.h"

#include "support/MemoryPasteboard.h"

#include <QFile>
#include <QLocalSocket>

namespace kestrio {
namespace {

struct InstanceTest : CaptureFixture {
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    int activations = 0;
    InstanceCommands commands{*captures, pasteboard, [this] { ++activations; }};
    std::unique_ptr<InstanceServer> server = std::make_unique<InstanceServer>(
        [this](InstanceRequest request, std::stop_token stop) {
            return commands.run(std::move(request), std::move(stop));
        });
    QString socket = folder.filePath(QStringLiteral("socket"));

    InstanceReply ask(const InstanceRequest& request, std::stop_token stop = {}) {
        InstanceClient client;
        EXPECT_TRUE(client.connectTo(socket, std::chrono::milliseconds(0)));
        return runUntilDone(client.ask(request, std::move(stop)));
    }

    static InstanceRequest captureRequest() {
        InstanceRequest request;
        request.verb = InstanceVerb::capture;
        request.action = CaptureAction::pin;
        return request;
    }

    /// Once the capture is under way.
    template <typename Action>
    void later(Action action) {
        auto* timer = new QTimer(captures.get());
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, action] {
            if (!service->isPending()) return;
            timer->stop();
            action();
        });
        timer->start(1);
    }
};

TEST_F(InstanceTest, VerbsAreCarriedOutAndTheirOutcomeComesBack) {
    ASSERT_TRUE(server->listen(socket));
    EXPECT_EQ(ask({}).status, 0);
    EXPECT_EQ(activations, 1);

    later([this] { service->finish(outcome(CaptureAction::edit)); });
    EXPECT_EQ(ask(captureRequest()).status, 0);
    EXPECT_EQ(pins->pinned.size(), 1U);

    later([this] { service->fail(CaptureError::Case::cancelled); });
    EXPECT_EQ(ask(captureRequest()).status, static_cast<int>(InstanceStatus::cancelled));

    later([this] { service->fail(CaptureError::Case::windowNotFound); });
    const InstanceReply failed = ask(captureRequest());
    EXPECT_EQ(failed.status, static_cast<int>(InstanceStatus::failed));
    EXPECT_EQ(failed.message, u"Target window not found");
    EXPECT_TRUE(alerts->requests.empty()) << "the command tells of it";
}

TEST_F(InstanceTest, FailuresThatNobodyWouldReadAreToldOnTheDesktop) {
    ASSERT_TRUE(server->listen(socket));
    InstanceRequest request = captureRequest();
    request.isUnattended = true;
    later([this] { service->fail(CaptureError::Case::captureTimeout); });
    ask(request);
    EXPECT_EQ(alerts->requests.size(), 1U);
}

TEST_F(InstanceTest, PicturesToEditComeFromAFileOrTheClipboard) {
    ASSERT_TRUE(server->listen(socket));
    InstanceRequest request;
    request.verb = InstanceVerb::edit;
    EXPECT_EQ(ask(request).status, static_cast<int>(InstanceStatus::failed));
    pasteboard->readFailure = PasteboardError(PasteboardError::Case::notAnswering);
    EXPECT_EQ(ask(request).message, pasteboard->readFailure->errorDescription());
    pasteboard->readFailure.reset();
    QImage picture(8, 6, QImage::Format_RGB32);
    picture.fill(Qt::green);
    pasteboard->writeImage(picture, {});
    EXPECT_EQ(ask(request).status, 0);
    request.file = folder.filePath(QStringLiteral("my shot.png"));
    request.density = 2;
    EXPECT_EQ(ask(request).status, static_cast<int>(InstanceStatus::failed));
    QFile file(request.file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(encodeImage(picture, ExportFormat::png));
    file.close();
    EXPECT_EQ(ask(request).status, 0);
    ASSERT_EQ(editors->opened.size(), 2U);
    EXPECT_EQ(editors->names, QStringList({QStringLiteral("Clipboard"), QStringLiteral("my shot")}));
    EXPECT_EQ(editors->opened.back().image.pointSize(), QSizeF(4, 3));
}

TEST_F(InstanceTest, ACommandThatIsInterruptedCancelsItsCapture) {
    ASSERT_TRUE(server->listen(socket));
    std::stop_source stop;
    later([&stop] { stop.request_stop(); });
    EXPECT_THROW(ask(captureRequest(), stop.get_token()), Cancelled);
    EXPECT_TRUE(waitForEnd());
    EXPECT_TRUE(pins->pinned.empty());
}

TEST_F(InstanceTest, AProgramThatEndsMeanwhileIsToldOf) {
    ASSERT_TRUE(server->listen(socket));
    later([this] { server.reset(); });
    EXPECT_NE(ask(captureRequest()).status, 0);
}

TEST_F(InstanceTest, GarbageIsAnsweredAndEndlessLinesAreCutOff) {
    ASSERT_TRUE(server->listen(socket));
    for (const QByteArray& text : {QByteArray("hello\n"), QByteArray(1 << 20, 'x')}) {
        QLocalSocket raw;
        raw.connectToServer(socket);
        raw.write(text);
        ASSERT_TRUE(waitFor([&] { return raw.state() == QLocalSocket::UnconnectedState; }));
        const QByteArray answer = raw.readAll();
        EXPECT_EQ(answer.contains("\"status\":2"), text.endsWith('\n'));
    }
}

TEST_F(InstanceTest, ASocketThatACrashLeftBehindIsReplaced) {
    {
        QFile stale(socket);
        ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    }
    InstanceClient client;
    EXPECT_FALSE(client.connectTo(socket, std::chrono::milliseconds(0)));
    ASSERT_TRUE(server->listen(socket));
    EXPECT_EQ(ask({}).status, 0);
}

TEST_F(InstanceTest, OneOfManyHoldsTheLock) {
    const QString file = folder.filePath(QStringLiteral("lock"));
    auto first = std::make_unique<InstanceLock>(file);
    EXPECT_TRUE(first->isHeld());
    EXPECT_FALSE(InstanceLock(file).isHeld());
    first.reset();
    EXPECT_TRUE(InstanceLock(file).isHeld());
    EXPECT_FALSE(InstanceLock(QStringLiteral("/nowhere/at/all")).isHeld());
}

}  // namespace
}  // namespace kestrio
