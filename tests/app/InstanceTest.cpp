#include "app/CaptureFixture.h"
#include "app/instance/InstanceAddress.h"
#include "app/instance/InstanceClient.h"
#include "app/instance/InstanceCommands.h"
#include "app/instance/InstanceLock.h"
#include "app/instance/InstanceServer.h"
#include "imaging/codecs/ImageEncoder.h"

#include "support/MemoryPasteboard.h"

#include <sys/stat.h>
#include <unistd.h>
#include <QDir>
#include <QFile>
#include <QLocalSocket>

namespace kestrio {
namespace {

struct InstanceTest : CaptureFixture {
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    int activations = 0;
    InstanceCommands commands{*captures, pasteboard, [this] { ++activations; }};
    std::unique_ptr<InstanceServer> server =
        std::make_unique<InstanceServer>([this](InstanceRequest request, std::stop_token stop) {
            return commands.run(std::move(request), std::move(stop));
        });
    QString socket = folder.filePath(QStringLiteral("socket"));

    InstanceReply ask(const InstanceRequest& request, std::stop_token stop = {}) {
        InstanceClient client;
        EXPECT_TRUE(client.connectTo(socket, std::chrono::milliseconds(0)));
        return runUntilDone(client.ask(request, std::move(stop)));
    }

    static CaptureVerb pinning() {
        CaptureVerb verb;
        verb.action = CaptureAction::pin;
        return verb;
    }

    /// Once the capture is under way.
    template <typename Action>
    void later(Action action) {
        later(action, *service);
    }
    template <typename Action>
    void laterScrolling(Action action) {
        later(action, *scrollingService);
    }

  private:
    template <typename Action, typename Service>
    void later(Action action, Service& pending) {
        auto* timer = new QTimer(captures.get());
        QObject::connect(timer, &QTimer::timeout, timer, [&pending, timer, action] {
            if (!pending.isPending()) return;
            timer->stop();
            action();
        });
        timer->start(1);
    }
};

TEST_F(InstanceTest, VerbsAreCarriedOutAndTheirOutcomeComesBack) {
    ASSERT_TRUE(server->listen(socket));
    EXPECT_EQ(ask(ActivateVerb()).status, 0);
    EXPECT_EQ(activations, 1);

    later([this] { service->finish(outcome(CaptureAction::edit)); });
    EXPECT_EQ(ask(pinning()).status, 0);
    EXPECT_EQ(pins->pinned.size(), 1U);

    later([this] { service->fail(CaptureError::Case::cancelled); });
    EXPECT_EQ(ask(pinning()).status, static_cast<int>(ExitStatus::cancelled));

    later([this] { service->fail(CaptureError::Case::windowNotFound); });
    const InstanceReply failed = ask(pinning());
    EXPECT_EQ(failed.status, static_cast<int>(ExitStatus::failed));
    EXPECT_EQ(failed.message, u"Target window not found");
    EXPECT_TRUE(alerts->requests.empty()) << "the command tells of it";
}

TEST_F(InstanceTest, EachVerbIsWrittenWithItsOwnFields) {
    struct Row {
        InstanceRequest request;
        QByteArray line;
    };
    CaptureVerb capture = pinning();
    capture.kind = CaptureKind::window;
    capture.delay = 3;
    capture.output = QStringLiteral("/a.png");
    capture.isUnattended = true;
    CaptureVerb scrolled;
    scrolled.kind = CaptureKind::scrolling;
    scrolled.isAutomatic = true;
    scrolled.region = {1, 2.5, 300, 400};
    const Row rows[] = {
        {ActivateVerb(), R"({"verb":"activate"})"},
        {EditVerb{QStringLiteral("/a.png"), 2}, R"({"verb":"edit","file":"/a.png","density":2})"},
        {capture,
         R"({"verb":"capture","kind":"window","delay":3,"action":"pin","output":"/a.png","isAutomatic":false,"region":[],"isUnattended":true})"},
        {scrolled,
         R"({"verb":"capture","kind":"scrolling","delay":0,"output":"","isAutomatic":true,"region":[1,2.5,300,400],"isUnattended":false})"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(encodeJsonText(row.request), row.line);
        EXPECT_EQ(encodeJsonText(decodeJsonText<InstanceRequest>(row.line)), row.line);
    }
    // As the fields of all verbs were written together once.
    const auto edit = decodeJsonText<InstanceRequest>(
        R"({"verb":"edit","file":"","density":4,"kind":"region","delay":0,"isUnattended":false})");
    EXPECT_EQ(std::get<EditVerb>(edit).density, 4);
}

TEST_F(InstanceTest, RegionsAreFourNumbersWithAnArea) {
    EXPECT_EQ(regionFrom(QStringLiteral("10, -20.5,800,600")),
              (std::vector<double>{10, -20.5, 800, 600}));
    for (const char* text : {"", "10,20,800", "10,20,800,600,1", "10,20,800,x", "10,20,0,600",
                             "10,20,800,-1", "nan,20,800,600", "10,20,inf,600", "1e9,20,800,600"}) {
        EXPECT_TRUE(regionFrom(QString::fromLatin1(text)).empty()) << text;
    }
}

TEST_F(InstanceTest, OnlyScrollingCapturesTakeWhatIsTheirs) {
    const auto verb = [](CaptureKind kind, bool isAutomatic, std::vector<double> region) {
        CaptureVerb made;
        made.kind = kind;
        made.isAutomatic = isAutomatic;
        made.region = std::move(region);
        return made;
    };
    using enum CaptureKind;
    EXPECT_TRUE(faultOf(verb(scrolling, false, {})).isEmpty());
    EXPECT_TRUE(faultOf(verb(scrolling, true, {1, 2, 300, 400})).isEmpty());
    for (const CaptureVerb& faulty :
         {verb(region, true, {}), verb(display, false, {1, 2, 300, 400}),
          verb(scrolling, true, {1, 2, 300}), verb(scrolling, true, {1, 2, 300, -400})}) {
        EXPECT_FALSE(faultOf(faulty).isEmpty());
    }

    const CaptureRequest request = verb(scrolling, true, {1, 2, 300, 400}).captureRequest();
    EXPECT_EQ(request.scrolling.mode, ScrollingCaptureMode::automatic);
    EXPECT_EQ(request.scrolling.region, QRectF(1, 2, 300, 400));
    const CaptureRequest plain = verb(scrolling, false, {}).captureRequest();
    EXPECT_FALSE(plain.scrolling.mode);
    EXPECT_FALSE(plain.scrolling.region);
}

TEST_F(InstanceTest, ScrollingCapturesEndWithTheStatusOfTheirFailure) {
    ASSERT_TRUE(server->listen(socket));
    using Case = ScrollingCaptureError::Case;
    CaptureVerb request = pinning();
    request.kind = CaptureKind::scrolling;
    request.isUnattended = true;
    laterScrolling([this] { scrollingService->fail(Case::cancelled); });
    EXPECT_EQ(ask(request).status, static_cast<int>(ExitStatus::cancelled));
    laterScrolling(
        [this] { scrollingService->fail(ScrollingCaptureError(Case::lowConfidence).reported()); });
    const InstanceReply failed = ask(request);
    EXPECT_EQ(failed.status, static_cast<int>(ExitStatus::failed));
    EXPECT_EQ(failed.message, ScrollingCaptureError(Case::lowConfidence).errorDescription());
    EXPECT_TRUE(alerts->requests.empty()) << "the user has been told";
}

TEST_F(InstanceTest, FailuresThatNobodyWouldReadAreToldOnTheDesktop) {
    ASSERT_TRUE(server->listen(socket));
    CaptureVerb request = pinning();
    request.isUnattended = true;
    later([this] { service->fail(CaptureError::Case::captureTimeout); });
    ask(request);
    EXPECT_EQ(alerts->requests.size(), 1U);
}

TEST_F(InstanceTest, NoWindowOpensOverACaptureThatGoesOn) {
    ASSERT_TRUE(server->listen(socket));
    CaptureVerb request = pinning();
    request.isUnattended = true;
    captures->startScrollingCapture();
    ASSERT_TRUE(scrollingService->isPending());
    EXPECT_EQ(ask(request).status, static_cast<int>(ExitStatus::failed));
    EXPECT_TRUE(alerts->requests.empty());
    EXPECT_TRUE(scrollingService->isPending());
    scrollingService->fail(ScrollingCaptureError::Case::cancelled);
    EXPECT_TRUE(waitForEnd());
}

TEST_F(InstanceTest, PicturesToEditComeFromAFileOrTheClipboard) {
    ASSERT_TRUE(server->listen(socket));
    EditVerb request;
    EXPECT_EQ(ask(request).status, static_cast<int>(ExitStatus::failed));
    pasteboard->readFailure = PasteboardError(PasteboardError::Case::notAnswering);
    EXPECT_EQ(ask(request).message, pasteboard->readFailure->errorDescription());
    pasteboard->readFailure.reset();
    QImage picture(8, 6, QImage::Format_RGB32);
    picture.fill(Qt::green);
    pasteboard->writeImage(picture, {});
    EXPECT_EQ(ask(request).status, 0);
    request.file = folder.filePath(QStringLiteral("my shot.png"));
    request.density = 2;
    EXPECT_EQ(ask(request).status, static_cast<int>(ExitStatus::failed));
    QFile file(request.file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(encodeImage(picture, ExportFormat::png));
    file.close();
    EXPECT_EQ(ask(request).status, 0);
    ASSERT_EQ(editors->opened.size(), 2U);
    EXPECT_EQ(editors->names,
              QStringList({QStringLiteral("Clipboard"), QStringLiteral("my shot")}));
    EXPECT_EQ(editors->opened.back().image.pointSize(), QSizeF(4, 3));
}

TEST_F(InstanceTest, ACommandThatIsInterruptedCancelsItsCapture) {
    ASSERT_TRUE(server->listen(socket));
    std::stop_source stop;
    later([&stop] { stop.request_stop(); });
    EXPECT_THROW(ask(pinning(), stop.get_token()), Cancelled);
    EXPECT_TRUE(waitForEnd());
    EXPECT_TRUE(pins->pinned.empty());
}

TEST_F(InstanceTest, AProgramThatEndsMeanwhileIsToldOf) {
    ASSERT_TRUE(server->listen(socket));
    later([this] { server.reset(); });
    EXPECT_NE(ask(pinning()).status, 0);
}

TEST_F(InstanceTest, GarbageIsAnsweredAndEndlessLinesAreCutOff) {
    ASSERT_TRUE(server->listen(socket));
    for (const QByteArray& text : {QByteArray("hello\n"), QByteArray(1 << 20, 'x')}) {
        QLocalSocket raw;
        raw.connectToServer(socket);
        raw.write(text);
        ASSERT_TRUE(waitUntil([&] { return raw.state() == QLocalSocket::UnconnectedState; }));
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
    EXPECT_EQ(ask(ActivateVerb()).status, 0);
}

TEST_F(InstanceTest, RequestsThatMakeNoSenseAreRefused) {
    ASSERT_TRUE(server->listen(socket));
    const QString picture = folder.filePath(QStringLiteral("x.png"));
    const auto refused = [&](const QByteArray& request) {
        QLocalSocket raw;
        raw.connectToServer(socket);
        raw.write("{\"verb\":" + request + "}\n");
        EXPECT_TRUE(waitUntil([&] { return raw.state() == QLocalSocket::UnconnectedState; }));
        return raw.readAll().contains("\"status\":2");
    };
    const QByteArray capture = R"("capture","kind":"display",)";
    const QByteArray rows[] = {
        R"("destroy")",
        R"(7)",
        capture + R"("output":"x.png")",
        capture + R"("output":"/tmp/x.txt")",
        capture + R"("output":"/tmp/x\u0000.png")",
        capture + R"("output":"/nowhere/at/all/x.png")",
        R"("edit","density":-1)",
        R"("edit","density":"two")",
        R"("edit","file":"x.png")",
        capture + R"("delay":-1)",
        capture + R"("delay":1e9)",
        R"("capture","kind":"everything")",
        capture + R"("action":"destroy")",
        capture + R"("output":["/tmp/x.png"])",
    };
    for (const QByteArray& row : rows)
        EXPECT_TRUE(refused(row)) << row.toStdString();
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("x.png")));
    EXPECT_TRUE(refused(capture + "\"output\":\"" + picture.toUtf8() + '"'));
    EXPECT_TRUE(editors->opened.empty());
    EXPECT_EQ(service->displayCount, 0);
}

TEST_F(InstanceTest, ManyIdleConnectionsKeepNobodyOut) {
    ASSERT_TRUE(server->listen(socket));
    std::vector<std::unique_ptr<QLocalSocket>> idle;
    for (int i = 0; i < 200; ++i) {
        idle.push_back(std::make_unique<QLocalSocket>());
        idle.back()->connectToServer(socket);
    }
    EXPECT_EQ(ask(ActivateVerb()).status, 0);
    const auto isClosed = [](const auto& each) {
        return each->state() == QLocalSocket::UnconnectedState;
    };
    EXPECT_TRUE(waitUntil([&] { return std::ranges::count_if(idle, isClosed) >= 100; }));
}

TEST_F(InstanceTest, ARemovedSocketComesBackWithItsFolder) {
    const QString deep = folder.filePath(QStringLiteral("run"));
    ASSERT_TRUE(QDir().mkpath(deep));
    socket = deep + QStringLiteral("/socket");
    ASSERT_TRUE(server->listen(socket));
    for (const bool withFolder : {false, true}) {
        QFile::remove(socket);
        if (withFolder) QDir().rmdir(deep);
        EXPECT_TRUE(waitUntil([&] { return QFileInfo::exists(socket); }));
        EXPECT_EQ(ask(ActivateVerb()).status, 0);
    }
}

TEST_F(InstanceTest, OneOfManyHoldsTheLock) {
    const InstanceAddress address{folder.filePath(QStringLiteral("lock")), socket,
                                  folder.path().toUtf8()};
    auto first = std::make_unique<InstanceLock>(address);
    EXPECT_TRUE(first->isHeld());
    EXPECT_TRUE(InstanceLock::isTaken(address));
    EXPECT_FALSE(InstanceLock(address).isHeld());
    // Whoever cleans up folders does not let a second one start.
    ASSERT_TRUE(QFile::remove(address.lockFile));
    EXPECT_FALSE(InstanceLock(address).isHeld());
    EXPECT_TRUE(InstanceLock::isTaken(address));
    first.reset();
    EXPECT_FALSE(InstanceLock::isTaken(address));
    EXPECT_TRUE(InstanceLock(address).isHeld());
}

TEST_F(InstanceTest, WithoutALockFileTheGuardCounts) {
    const InstanceAddress address{QStringLiteral("/nowhere/at/all"), socket,
                                  folder.path().toUtf8()};
    const InstanceLock first(address);
    EXPECT_TRUE(first.isHeld());
    EXPECT_FALSE(InstanceLock(address).isHeld());
}

TEST_F(InstanceTest, FoldersThatOthersMayEnterAreNotTrusted) {
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    const QString inner = folder.filePath(QStringLiteral("kestrio"));
    EXPECT_TRUE(InstanceAddress::standard().socket.startsWith(inner));
    ::chmod(qPrintable(inner), 0770);
    EXPECT_THROW(InstanceAddress::standard(), UntrustedFolder);
    ASSERT_TRUE(QDir().rmdir(inner));
    ASSERT_EQ(::symlink("/tmp", qPrintable(inner)), 0);
    EXPECT_THROW(InstanceAddress::standard(), UntrustedFolder);
    qputenv("XDG_RUNTIME_DIR", before);
}

}  // namespace
}  // namespace kestrio
