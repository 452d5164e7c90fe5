#include "platform/linux/QtDisplays.h"
#include "support/Contract.h"
#include "support/ScriptedDisplays.h"
#include "support/Waiting.h"

#include <QCursor>
#include <QProcess>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

/// Monitors that come and go, and a pointer.
struct Desk {
    virtual ~Desk() = default;
    virtual Displays& displays() = 0;
    virtual void addMonitor(const char* name, QRect pixels) = 0;
    virtual void movePointer(QPoint point) = 0;
};

struct ScriptedDesk : Desk {
    ScriptedDisplays service;

    ScriptedDesk() {
        service.setDisplays({{QStringLiteral("main"), {0, 0, 900, 900}, {}, {}, 1, true}});
    }
    Displays& displays() override { return service; }
    void addMonitor(const char* name, QRect pixels) override {
        auto all = service.displays();
        all.insert(all.begin(), {QString::fromLatin1(name), pixels, pixels, pixels});
        service.setDisplays(all);
    }
    void movePointer(QPoint point) override { service.pointer = point; }
};

void runXrandr(const QStringList& arguments) {
    ASSERT_EQ(QProcess::execute(QStringLiteral("xrandr"), arguments), 0);
}

QString placeOf(QRect pixels) {
    return QStringLiteral("%1/100x%2/100+%3+%4")
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(pixels.x())
        .arg(pixels.y());
}

struct XServerDesk : Desk {
    QtDisplays service{std::make_shared<XcbConnection>()};
    QStringList added;

    ~XServerDesk() override {
        for (const QString& name : added)
            runXrandr({QStringLiteral("--delmonitor"), name});
        EXPECT_TRUE(waitUntil([this] { return service.displays().size() == 1; }));
    }
    Displays& displays() override { return service; }
    void addMonitor(const char* name, QRect pixels) override {
        added << QString::fromLatin1(name);
        runXrandr({QStringLiteral("--setmonitor"), added.back(), placeOf(pixels),
                   QStringLiteral("none")});
    }
    void movePointer(QPoint point) override { QCursor::setPos(point); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XServerDesk>("xserver"),
};

class DisplaysContract : public testing::TestWithParam<Candidate<Desk>> {};

TEST_P(DisplaysContract, FollowMonitorsWithThePrimaryOneFirst) {
    const auto desk = GetParam().make();
    Displays& displays = desk->displays();
    const Display main = displays.displays().at(0);
    EXPECT_TRUE(main.isPrimary);
    int changes = 0;
    QObject::connect(&displays, &Displays::changed, [&] { ++changes; });
    const QRect place(main.bounds.toRect().topRight() + QPoint(101, 40), QSize(301, 203));
    desk->addMonitor("beside", place);
    ASSERT_TRUE(waitUntil([&] { return displays.displays().size() == 2 && changes > 0; }));
    EXPECT_EQ(displays.displays()[0], main);
    const Display beside = displays.displays()[1];
    EXPECT_EQ(beside.name, QStringLiteral("beside"));
    EXPECT_EQ(beside.bounds, QRectF(place));
    EXPECT_EQ(beside.pixels, place);
    EXPECT_EQ(beside.scale, 1);
    EXPECT_FALSE(beside.isPrimary);
    EXPECT_EQ(displays.displayAt(place.center())->name, beside.name);
    EXPECT_EQ(displays.displayAt(place.bottomRight() + QPoint(1, 1)), std::nullopt);
}

TEST_P(DisplaysContract, KnowTheOneUnderThePointer) {
    const auto desk = GetParam().make();
    Displays& displays = desk->displays();
    desk->movePointer({123, 45});
    EXPECT_TRUE(waitUntil([&] { return displays.pointerPosition() == QPointF(123, 45); }));
    EXPECT_EQ(displays.displayUnderPointer(), displays.displays().at(0));
}

INSTANTIATE_TEST_SUITE_P(All, DisplaysContract, testing::ValuesIn(candidates), candidateName);

/// Prints the displays of a program of its own; Qt reads scale factors at its start only.
QStringList displaysUnder(const QString& factors) {
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCREEN_SCALE_FACTORS"), factors);
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--tell-displays")});
    EXPECT_TRUE(program.waitForFinished());
    QStringList lines = QString::fromUtf8(program.readAllStandardOutput()).split(u'\n');
    lines.removeAll(QString());
    return lines;
}

TEST(QtDisplays, KeepPixelsExactUnderMixedScales) {
    XServerDesk desk;
    desk.addMonitor("left", {0, 0, 601, 500});
    desk.addMonitor("right", {601, 20, 399, 701});
    ASSERT_TRUE(waitUntil([&] { return desk.service.displays().size() == 3; }));
    const QStringList lines = displaysUnder(QStringLiteral("left=2;right=1.75"));
    EXPECT_TRUE(lines.contains(QStringLiteral("left 0,0 601x500 scale 2 at 0,0")));
    EXPECT_TRUE(lines.contains(QStringLiteral("right 601,20 399x701 scale 1.75 at 601,20")))
        << lines.join(u'\n').toStdString();
}

}  // namespace
}  // namespace kestrio
