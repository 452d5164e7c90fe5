#include "support/ScrollingPage.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QStringList>
#include <algorithm>

namespace kestrio {

namespace {

constexpr int margin = 24;
constexpr int lineHeight = 20;
constexpr int textSize = 14;

/// Paints one block after the other, from top to bottom.
class PagePainter {
  public:
    PagePainter(QImage& image, const ScrollingPage& page)
        : random_(page.seed), painter_(&image), page_(page) {
        painter_.scale(page.scale, page.scale);
    }

    void paint() {
        painter_.fillRect(QRect(QPoint(), page_.size), Qt::white);
        using Block = void (PagePainter::*)();
        constexpr Block blocks[] = {&PagePainter::paragraph, &PagePainter::paragraph,
                                    &PagePainter::code,      &PagePainter::table,
                                    &PagePainter::list,      &PagePainter::photo,
                                    &PagePainter::blank};
        while (y_ < page_.size.height()) {
            heading();
            for (int i = number(1, 3); i > 0; --i)
                (this->*blocks[number(0, static_cast<int>(std::size(blocks)))])();
        }
    }

  private:
    /// At least `low` and less than `high`.
    int number(int low, int high) { return random_.bounded(low, high); }

    QString words(int count) {
        static const QStringList all =
            QStringLiteral(
                "time year people way day thing world school state family student group country "
                "problem hand part place case week company system program question work number "
                "night point home water room mother area money story fact month lot right study")
                .split(u' ');
        QStringList chosen;
        for (int i = 0; i < count; ++i)
            chosen << all[number(0, static_cast<int>(all.size()))];
        return chosen.join(u' ');
    }

    void text(int x, const QString& text, const char* family = "DejaVu Sans", int size = textSize) {
        QFont font(QString::fromLatin1(family));
        font.setPixelSize(size);
        painter_.setFont(font);
        painter_.setPen(QColor(32, 33, 36));
        painter_.drawText(QPoint(x, y_ + lineHeight - 5), text);
    }

    void heading() {
        y_ += lineHeight;
        text(margin, words(number(2, 6)), "DejaVu Sans", 20);
        y_ += 2 * lineHeight;
    }

    void paragraph() {
        for (int i = number(3, 10); i > 0; --i, y_ += lineHeight)
            text(margin, words(i == 1 ? number(1, 6) : number(8, 14)));
        y_ += lineHeight;
    }

    /// Most lines of code resemble each other, and many are the same.
    void code() {
        const int lines = number(4, 16);
        painter_.fillRect(margin, y_, page_.size.width() - 2 * margin, (lines + 1) * lineHeight,
                          QColor(243, 244, 246));
        y_ += lineHeight / 2;
        for (int i = 0; i < lines; ++i, y_ += lineHeight) {
            const QStringList line = {QStringLiteral("}"), QStringLiteral("    return 0;"),
                                      QStringLiteral("for (int i = 0; i < %1; ++i) {"),
                                      QStringLiteral("    value[i] = %1;"), QString()};
            const QString chosen = line[number(0, static_cast<int>(line.size()))];
            text(2 * margin, chosen.contains(u'%') ? chosen.arg(number(0, 4)) : chosen,
                 "DejaVu Sans Mono", 13);
        }
        y_ += lineHeight;
    }

    void table() {
        const int width = page_.size.width() - 2 * margin;
        const int column = std::max(width / 4, 1);
        const QStringList cells = {words(1), words(1), QStringLiteral("0"), QStringLiteral("yes")};
        const int rows = number(5, 18);
        for (int row = 0; row < rows; ++row, y_ += lineHeight) {
            if (row % 2) painter_.fillRect(margin, y_, width, lineHeight, QColor(232, 240, 254));
            const bool isOwn = number(0, 3) == 0;
            for (int i = 0; i < cells.size(); ++i)
                text(margin + i * column + 6, i == 2 && isOwn ? QString::number(row) : cells[i]);
            painter_.fillRect(margin, y_ + lineHeight - 1, width, 1, QColor(200, 204, 210));
        }
        y_ += lineHeight;
    }

    void list() {
        for (int i = number(3, 8); i > 0; --i, y_ += lineHeight)
            text(margin, QStringLiteral("•  ") + words(number(1, 7)));
        y_ += lineHeight;
    }

    void photo() {
        const QSize size(std::max(page_.size.width() * number(3, 9) / 10, 1), number(60, 220));
        QImage noise(size * page_.scale, QImage::Format_RGB32);
        random_.generate(reinterpret_cast<quint32*>(noise.bits()),
                         reinterpret_cast<quint32*>(noise.bits() + noise.sizeInBytes()));
        painter_.drawImage(QRect(QPoint(margin, y_), size), noise);
        y_ += size.height() + lineHeight;
    }

    void blank() { y_ += number(60, 280); }

    QRandomGenerator random_;
    QPainter painter_;
    const ScrollingPage& page_;
    int y_ = 0;
};

struct Bar {
    int height;
    QColor color;
    const char* text;
};

QImage paintBar(const ScrollingPage& page, const Bar& bar) {
    if (bar.height <= 0) return {};
    QImage image(QSize(page.size.width(), bar.height) * page.scale, QImage::Format_RGB32);
    image.fill(bar.color);
    QPainter painter(&image);
    painter.scale(page.scale, page.scale);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(textSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(margin, 0, page.size.width() - 2 * margin, bar.height), Qt::AlignVCenter,
                     QString::fromLatin1(bar.text));
    return image;
}

}  // namespace

QImage paintScrollingPage(const ScrollingPage& page) {
    QImage image(page.size * page.scale, QImage::Format_RGB32);
    PagePainter(image, page).paint();
    return image;
}

QImage paintScrollingHeader(const ScrollingPage& page) {
    return paintBar(page, {page.headerHeight, QColor(26, 62, 114), "Header  Home  About"});
}

QImage paintScrollingFooter(const ScrollingPage& page) {
    return paintBar(page, {page.footerHeight, QColor(60, 64, 67), "Footer"});
}

}  // namespace kestrio
