#include "editor/views/PictureFile.h"

#include "imaging/codecs/PictureLoading.h"

#include <QPointer>

namespace kestrio {

namespace {

Task<> read(QPointer<EditorViewModel> editor, QString path,
            std::function<void(const PictureFile&)> use) {
    QString failure;
    try {
        auto loading = loadPicture(path);
        const LoadedPicture picture = co_await loading;
        if (editor) use({path, picture.data, picture.bitmap});
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
