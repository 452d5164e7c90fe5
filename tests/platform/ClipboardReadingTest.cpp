#include "core/Cancelled.h"
#include "imaging/codecs/ImageEncoder.h"
#include "platform/LongestStall.h"
#include "platform/OtherProgram.h"
#include "platform/PlatformServices.h"
#include "platform/XDesk.h"
#include "platform/linux/QtPasteboard.h"
#include "support/NoisePicture.h"

#include <QAbstractNativeEventFilter>
#include <QBuffer>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct ClipboardReading : testing::Test {
    std::shared_ptr<Pasteboard> pasteboard = makePlatformServices().pasteboard;

    PasteboardContents read(PasteboardKinds wanted) {
        return runUntilDone(pasteboard->read(wanted));
    }

    std::optional<PasteboardError::Case> failureOfReading() {
        try {
            read(PasteboardKind::picture);
        } catch (const PasteboardError& error) {
            return error.which();
        }
        return std::nullopt;
    }
};

QByteArray fileOf(const QImage& picture, const char* format) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, format);
    return file.data();
}

TEST_F(ClipboardReading, PicturesComeInWhateverFormatAndSize) {
    const QImage large = noisePicture({1500, 1200}, QImage::Format_RGB32);
    const QByteArray file = encodeImage(large, ExportFormat::png);
    ASSERT_GT(file.size(), 4 << 20) << "it comes in parts";
    {
        const OtherProgram other("image/png", file);
        EXPECT_EQ(read(PasteboardKind::picture).image, large);
        EXPECT_TRUE(read(PasteboardKind::text).isEmpty());
    }
    const QImage small = pattern({30, 20});
    const OtherProgram other("image/bmp", fileOf(small, "BMP"));
    EXPECT_EQ(read({PasteboardKind::picture, PasteboardKind::text}).image, small);
}

TEST_F(ClipboardReading, FilesAreTheLocalOnes) {
    const OtherProgram other("text/uri-list",
                             "# two\r\nfile:///tmp/a%20b.png\r\nhttps://example.org/shot.png\r\n"
                             "file:///tmp/50%25%20%E6%BC%A2.png\r\n");
    EXPECT_EQ(read({PasteboardKind::picture, PasteboardKind::files}).files,
              QStringList({QStringLiteral("/tmp/a b.png"), QStringLiteral("/tmp/50% \u6f22.png")}));
}

TEST_F(ClipboardReading, BytesThatAreNoPictureAreNone) {
    const OtherProgram other("image/png", "\x89PNG and nothing else");
    EXPECT_TRUE(read(PasteboardKind::picture).isEmpty());
}

TEST_F(ClipboardReading, AnOwnerThatIsSilentCostsASecondAndNotTheMainLoop) {
    const OtherProgram other("image/png", "never seen");
    other.fallSilent();
    const LongestStall stall;
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failureOfReading(), PasteboardError::Case::notAnswering);
    EXPECT_GE(clock.elapsed(), 900);
    EXPECT_LT(clock.elapsed(), 1900);
    EXPECT_LT(stall.milliseconds(), noticeableStall);
}

TEST_F(ClipboardReading, AReadIsCalledOffAtOnce) {
    const OtherProgram other("image/png", "never seen");
    other.fallSilent();
    std::stop_source stop;
    QTimer::singleShot(50, [&stop] { stop.request_stop(); });
    QElapsedTimer clock;
    clock.start();
    EXPECT_THROW(runUntilDone(pasteboard->read(PasteboardKind::text, stop.get_token())), Cancelled);
    QtPasteboard ending;
    auto reading = ending.read(PasteboardKind::text);
    EXPECT_LT(clock.elapsed(), 500);
}

/// Keeps the X server's notices of changes of selections from Qt, as they stay away before Qt has
/// asked for them.
class DeafToSelections : public QAbstractNativeEventFilter {
  public:
    DeafToSelections() { QCoreApplication::instance()->installNativeEventFilter(this); }
    bool nativeEventFilter(const QByteArray&, void* event, qintptr*) override {
        constexpr int firstOfExtensions = 64;
        return (static_cast<xcb_generic_event_t*>(event)->response_type & 0x7f) >=
               firstOfExtensions;
    }
};

TEST_F(ClipboardReading, ACopyAfterOneThatWasNotHeardOfIsRepeatedUntilItIsTaken) {
    ASSERT_TRUE(pasteboard->writeText(QStringLiteral("gives Qt a time of the server")));
    const OtherProgram heard("UTF8_STRING", "then");
    const DeafToSelections deaf;
    const OtherProgram other("UTF8_STRING", "later");
    const QImage picture = pattern({30, 20});
    ASSERT_FALSE(pasteboard->writeImage(picture, {})) << "the server finds it older";
    EXPECT_TRUE(runUntilDone(writeImagePatiently(pasteboard, picture, {})));
    EXPECT_TRUE(pasteboard->ownsContents());
}

/// A program of the test's own that starts to answer and then stops.
class HalfAnswering {
  public:
    HalfAnswering() : window_(QRect(0, 0, 5, 5), 0) {
        const xcb_atom_t clipboard = window_.intern("CLIPBOARD");
        xcb_set_selection_owner(window_.handle, window_.id, clipboard, XCB_CURRENT_TIME);
        window_.sync();
        QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { answer(); });
        poll_.start(std::chrono::milliseconds(2));
    }

    bool hasBegun() const { return hasBegun_; }

  private:
    void answer() {
        while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(window_.handle)}) {
            if (event->response_type != XCB_SELECTION_REQUEST) continue;
            const auto& asked = *reinterpret_cast<xcb_selection_request_event_t*>(event.get());
            const xcb_atom_t png = window_.intern("image/png");
            if (asked.target == window_.intern("TARGETS")) {
                put(asked, XCB_ATOM_ATOM, png);
            } else if (asked.target == png) {
                hasBegun_ = true;
                put(asked, window_.intern("INCR"), 1 << 20);
            }
        }
    }

    void put(const xcb_selection_request_event_t& asked, xcb_atom_t type, std::uint32_t value) {
        xcb_change_property(window_.handle, XCB_PROP_MODE_REPLACE, asked.requestor, asked.property,
                            type, 32, 1, &value);
        xcb_selection_notify_event_t answer{};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = asked.requestor;
        answer.selection = asked.selection;
        answer.target = asked.target;
        answer.property = asked.property;
        xcb_send_event(window_.handle, false, asked.requestor, 0,
                       reinterpret_cast<const char*>(&answer));
        xcb_flush(window_.handle);
    }

    ForeignWindow window_;
    QTimer poll_;
    bool hasBegun_ = false;
};

TEST_F(ClipboardReading, AnOwnerThatStopsInTheMiddleIsGivenUp) {
    const HalfAnswering other;
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failureOfReading(), PasteboardError::Case::notAnswering);
    EXPECT_TRUE(other.hasBegun());
    EXPECT_LT(clock.elapsed(), 1900);
}

}  // namespace
}  // namespace kestrio
