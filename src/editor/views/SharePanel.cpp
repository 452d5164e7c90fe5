#include "editor/views/SharePanel.h"

#include <QBuffer>
#include <QPixmap>

namespace kestrio {

namespace {

constexpr int iconSide = 32;  // pixels, for 16 points on dense displays too
constexpr std::size_t mostPrograms = 12;

QString iconUrl(const QIcon& icon) {
    const QPixmap picture = icon.pixmap(iconSide);
    if (picture.isNull()) return {};
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return QStringLiteral("data:image/png;base64,") + QString::fromLatin1(png.toBase64());
}

}  // namespace

SharePanel::SharePanel(EditorViewModel& editor, EditorServices services, QString name,
                       QObject* parent)
    : QObject(parent), sharing_(editor, std::move(services), std::move(name)) {
    connect(&sharing_, &DocumentSharing::isSharingChanged, this, &SharePanel::busyChanged);
}

QVariantList SharePanel::programs() const {
    QVariantList rows;
    std::vector<SharingProgram> programs = sharing_.programs();
    programs.resize(std::min(programs.size(), mostPrograms));
    for (const SharingProgram& each : programs) {
        rows << QVariantMap{{QStringLiteral("id"), each.id},
                            {QStringLiteral("name"), each.name},
                            {QStringLiteral("icon"), iconUrl(each.icon)}};
    }
    return rows;
}

}  // namespace kestrio
