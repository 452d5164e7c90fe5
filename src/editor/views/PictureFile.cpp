#include "editor/views/PictureFile.h"

#include "imaging/codecs/ImageDecoder.h"

#include <QPointer>

namespace kestrio {

namespace {

Task<> read(QPointer<EditorViewModel> editor, QString path,
            std::function<void(const PictureFile&)> use) {
    auto work = [path] {
        PictureFile file{path, readImageFile(path), {}};
        file.bitmap = decodeImage(file.data);
        return file;
    };
    QString failure;
    try {
        const auto reading = runInBackground(std::move(work));
        const PictureFile file = co_await reading;
        if (editor) use(file);
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (editor && !failure.isEmpty()) editor->set_errorMessage(failure);
}

}  // namespace

void readPictureFile(EditorViewModel& editor, const QString& path,
                     std::function<void(const PictureFile&)> use) {
    launch(read(&editor, path, std::move(use)), &editor);
}

}  // namespace kestrio
