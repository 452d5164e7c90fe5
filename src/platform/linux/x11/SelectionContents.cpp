#include "platform/linux/x11/SelectionContents.h"

#include "imaging/codecs/ImageDecoder.h"
#include "platform/linux/x11/SelectionClient.h"

#include <QUrl>

namespace kestrio {

namespace {

// Programs encode a picture when it is asked for; a large one takes the better part of a second.
constexpr std::chrono::milliseconds encodingPatience(3000);

// In the order in which they are tried: exact ones first.
const std::vector<const char*> pictureFormats = {"image/png",    "image/bmp",
                                                 "image/x-bmp",  "image/tiff",
                                                 "image/webp",   "image/gif",
                                                 "image/jpeg",   "image/x-portable-pixmap",
                                                 "image/x-icon", "image/vnd.microsoft.icon"};
const std::vector<const char*> fileFormats = {"text/uri-list"};
const std::vector<const char*> textFormats = {"UTF8_STRING", "text/plain;charset=utf-8",
                                              "text/plain", "STRING"};

/// Those of the formats that are offered.
std::vector<xcb_atom_t> offered(SelectionClient& owner, const std::vector<const char*>& formats,
                                const std::vector<xcb_atom_t>& targets) {
    std::vector<xcb_atom_t> found;
    for (const xcb_atom_t format : owner.atoms(formats))
        if (std::find(targets.begin(), targets.end(), format) != targets.end())
            found.push_back(format);
    return found;
}

QStringList localFiles(const QByteArray& list) {
    QStringList paths;
    for (const QByteArray& line : list.split('\n')) {
        const QByteArray address = line.trimmed();
        if (address.isEmpty() || address.startsWith('#')) continue;
        const QUrl url = QUrl::fromEncoded(address);
        if (url.isLocalFile()) paths << url.toLocalFile();
    }
    return paths;
}

QString textOf(QByteArray bytes, xcb_atom_t format) {
    // Some programs count the end of their string as a part of it.
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return format == XCB_ATOM_STRING ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
}

}  // namespace

PasteboardContents readSelection(const char* selection, PasteboardKinds wanted,
                                 std::function<bool()> isStopped) {
    PasteboardContents contents;
    SelectionClient owner(selection, std::move(isStopped));
    if (!owner.hasOwner()) return contents;
    const auto targets = owner.targets();
    const auto candidates = [&](PasteboardKind kind, const std::vector<const char*>& formats) {
        return wanted.testFlag(kind) ? offered(owner, formats, targets) : std::vector<xcb_atom_t>();
    };
    for (const xcb_atom_t format : candidates(PasteboardKind::picture, pictureFormats)) {
        const auto bytes = owner.fetch(format, encodingPatience);
        contents.image = decodeImageOrNull(bytes);
        if (!contents.isEmpty()) return contents;
    }
    for (const xcb_atom_t format : candidates(PasteboardKind::files, fileFormats)) {
        contents.files = localFiles(owner.fetch(format).value_or(QByteArray()));
        if (!contents.isEmpty()) return contents;
    }
    for (const xcb_atom_t format : candidates(PasteboardKind::text, textFormats)) {
        contents.text = textOf(owner.fetch(format).value_or(QByteArray()), format);
        if (!contents.isEmpty()) return contents;
    }
    return contents;
}

}  // namespace kestrio
