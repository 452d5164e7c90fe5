// A window with a page that scrolls, for tests of scrolling captures and for people who try them.
#include "core/Descriptor.h"
#include "support/ScrollingPage.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <optional>

#include <sys/signalfd.h>
#include <unistd.h>

namespace kestrio {
namespace {

constexpr int clickPoints = 60;  // by which one click of the wheel moves
constexpr int barWidth = 12;
constexpr int frameInterval = 8;           // milliseconds
constexpr double animationLength = 200.0;  // milliseconds
constexpr int usageError = 2;

struct Options {
    ScrollingPage page;
    QSize window{800, 600};
    QPoint position{100, 100};
    bool isSmooth = false;
    bool isFrameless = false;
    bool hasScrollBar = false;
    double speed = 0;  // points a second; 0 for none
    QString pageFile;
};

class PageWindow : public QRasterWindow {
  public:
    explicit PageWindow(const Options& options)
        : options_(options),
          page_(paintScrollingPage(options.page)),
          header_(paintScrollingHeader(options.page)),
          footer_(paintScrollingFooter(options.page)) {
        for (QImage* each : {&page_, &header_, &footer_})
            each->setDevicePixelRatio(options.page.scale);
        setTitle(QStringLiteral("Scrolling page"));
        if (options.isFrameless) setFlag(Qt::FramelessWindowHint);
        // Wholly on the screen, as its size allows.
        const QRect available = screen()->geometry();
        const QPoint last = available.bottomRight() -
                            QPoint(options.window.width() - 1, options.window.height() - 1);
        const QPoint place(
            std::clamp(options.position.x(), available.left(),
                       std::max(last.x(), available.left())),
            std::clamp(options.position.y(), available.top(), std::max(last.y(), available.top())));
        setGeometry({place, options.window});
        setMinimumSize(options.window);
        setMaximumSize(options.window);
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setInterval(frameInterval);
        QObject::connect(&timer_, &QTimer::timeout, this, [this] { animate(); });
    }

    /// By itself, or no longer where it does.
    void toggleSpeed() {
        if (options_.speed <= 0) return;
        isSpeeding_ = !isSpeeding_;
        begin(isSpeeding_ ? end() : offset_);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const int top = options_.page.headerHeight;
        painter.setClipRect(0, top, width(), viewHeight());
        painter.drawImage(QPoint(0, top - offset_), page_);
        painter.setClipping(false);
        if (options_.hasScrollBar) paintBar(painter);
        painter.drawImage(QPoint(), header_);
        painter.drawImage(QPoint(0, height() - options_.page.footerHeight), footer_);
        if (std::exchange(isReady_, true)) return;
        QTimer::singleShot(0, this, [] { std::puts("ready"), std::fflush(stdout); });
    }

    void wheelEvent(QWheelEvent* event) override {
        turned_ += event->angleDelta().y();
        const int clicks = turned_ / QWheelEvent::DefaultDeltasPerStep;
        turned_ -= clicks * QWheelEvent::DefaultDeltasPerStep;
        scrollTo(target_ - clicks * clickPoints);
    }

    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
            case Qt::Key_Home:
                return scrollTo(0);
            case Qt::Key_End:
                return scrollTo(end());
            case Qt::Key_PageUp:
                return scrollTo(target_ - viewHeight() + clickPoints);
            case Qt::Key_PageDown:
                return scrollTo(target_ + viewHeight() - clickPoints);
            case Qt::Key_Up:
                return scrollTo(target_ - clickPoints);
            case Qt::Key_Down:
                return scrollTo(target_ + clickPoints);
            default:
                return;
        }
    }

    void mousePressEvent(QMouseEvent*) override { toggleSpeed(); }

  private:
    int viewHeight() const {
        return height() - options_.page.headerHeight - options_.page.footerHeight;
    }
    int end() const { return std::max(options_.page.size.height() - viewHeight(), 0); }

    /// Beside header, page and footer.
    void paintBar(QPainter& painter) const {
        const int left = width() - barWidth;
        painter.fillRect(left, 0, barWidth, height(), QColor(240, 240, 240));
        const int thumb = std::max(height() * viewHeight() / (viewHeight() + end()), 20);
        const int way = end() > 0 ? (height() - thumb) * offset_ / end() : 0;
        painter.fillRect(left + 2, way, barWidth - 4, thumb, QColor(150, 150, 150));
    }

    void begin(int target) {
        start_ = offset_;
        target_ = std::clamp(target, 0, end());
        clock_.start();
        timer_.start();
    }

    void scrollTo(int target) {
        isSpeeding_ = false;
        begin(target);
        if (!options_.isSmooth) showAt(target_);
    }

    void showAt(int offset) {
        if (offset == target_) {
            timer_.stop();
            isSpeeding_ = false;
        }
        if (std::exchange(offset_, offset) != offset) update();
    }

    void animate() {
        const double elapsed = static_cast<double>(clock_.nsecsElapsed()) / 1e6;
        if (isSpeeding_) {
            const double way = elapsed / 1000 * options_.speed;
            showAt(static_cast<int>(std::min<double>(start_ + way, target_)));
            return;
        }
        const double rest = std::max(1 - elapsed / animationLength, 0.0);
        showAt(target_ - static_cast<int>(std::lround((target_ - start_) * rest * rest * rest)));
        if (rest == 0) showAt(target_);
    }

    Options options_;
    QImage page_, header_, footer_;
    QTimer timer_;
    QElapsedTimer clock_;
    int offset_ = 0;  // points of the page that lie above what is shown
    int start_ = 0;   // where the present way began
    int target_ = 0;  // and where it leads
    int turned_ = 0;  // eighths of a degree that make no click yet
    bool isSpeeding_ = false;
    bool isReady_ = false;
};

/// The header, all of the page and the footer.
QImage wholePage(const ScrollingPage& page) {
    const QSize size(page.size.width(), page.headerHeight + page.size.height() + page.footerHeight);
    QImage whole(size * page.scale, QImage::Format_RGB32);
    QPainter painter(&whole);
    painter.drawImage(0, 0, paintScrollingHeader(page));
    painter.drawImage(0, page.headerHeight * page.scale, paintScrollingPage(page));
    painter.drawImage(0, (page.headerHeight + page.size.height()) * page.scale,
                      paintScrollingFooter(page));
    return whole;
}

/// Two whole numbers with a character between them.
std::optional<QPoint> pairOf(const QString& text, QChar separator) {
    const QStringList parts = text.split(separator);
    bool isFirst = false;
    bool isSecond = false;
    if (parts.size() != 2) return std::nullopt;
    const QPoint pair(parts[0].toInt(&isFirst), parts[1].toInt(&isSecond));
    return isFirst && isSecond ? std::optional(pair) : std::nullopt;
}

std::optional<Options> parse(const QGuiApplication& application) {
    QCommandLineParser parser;
    const auto option = [&](const char* name, const char* value, const char* text,
                            const char* standard = "") {
        QCommandLineOption added(QString::fromLatin1(name), QString::fromLatin1(text),
                                 QString::fromLatin1(value));
        if (*standard) added.setDefaultValue(QString::fromLatin1(standard));
        parser.addOption(added);
    };
    parser.addHelpOption();
    option("size", "WxH", "of the window, in points", "800x600");
    option("at", "X,Y", "where the window's content lies", "100,100");
    option("rows", "N", "height of the page, in points", "6000");
    option("sticky-header", "H", "points that stand still at the top", "0");
    option("sticky-footer", "H", "points that stand still at the bottom", "0");
    option("smooth", "", "scrolls in 200 ms and not at once");
    option("speed", "N", "points a second, from a click or SIGUSR1 until the next", "0");
    option("scroll-bar", "", "shows one at the right, 12 points wide; the page is narrower by it");
    option("seed", "N", "of the content", "1");
    option("frameless", "", "without a title bar");
    option("write-page", "FILE",
           "writes the header, all of the page and the footer, without the bar");
    parser.process(application);
    const auto value = [&](const char* name) { return parser.value(QString::fromLatin1(name)); };
    const auto isSet = [&](const char* name) { return parser.isSet(QString::fromLatin1(name)); };

    const auto size = pairOf(value("size"), u'x');
    const auto position = pairOf(value("at"), u',');
    if (!size || !position) return std::nullopt;
    Options options;
    options.window = {size->x(), size->y()};
    options.position = *position;
    options.isSmooth = isSet("smooth");
    options.isFrameless = isSet("frameless");
    options.hasScrollBar = isSet("scroll-bar");
    options.speed = value("speed").toDouble();
    options.pageFile = value("write-page");
    ScrollingPage& page = options.page;
    page.size = {size->x() - (options.hasScrollBar ? barWidth : 0), value("rows").toInt()};
    page.headerHeight = value("sticky-header").toInt();
    page.footerHeight = value("sticky-footer").toInt();
    page.seed = value("seed").toUInt();
    page.scale = std::max(qRound(application.devicePixelRatio()), 1);
    const int view = size->y() - page.headerHeight - page.footerHeight;
    const bool isPossible = page.size.width() > 0 && page.size.height() > 0 && view > 0 &&
                            page.headerHeight >= 0 && page.footerHeight >= 0;
    return isPossible ? std::optional(options) : std::nullopt;
}

/// A descriptor that becomes readable with SIGUSR1; before any thread starts.
Descriptor listenToSignal() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return Descriptor(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

int run(int argc, char** argv) {
    const Descriptor signal = listenToSignal();
    QGuiApplication application(argc, argv);
    const auto options = parse(application);
    if (!options) {
        std::fputs("scrolling_page: these numbers make no window; see --help\n", stderr);
        return usageError;
    }
    if (!options->pageFile.isEmpty() && !wholePage(options->page).save(options->pageFile)) {
        std::fputs("scrolling_page: the page cannot be written\n", stderr);
        return EXIT_FAILURE;
    }
    PageWindow window(*options);
    QSocketNotifier notifier(signal.number(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &window, [&] {
        signalfd_siginfo info;
        if (::read(signal.number(), &info, sizeof info) > 0) window.toggleSpeed();
    });
    window.show();
    return QGuiApplication::exec();
}

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    return kestrio::run(argc, argv);
}
