#pragma once

#include "editor/text/OCRViewModel.h"

#include <QAbstractListModel>
#include <QQmlEngine>

namespace kestrio {

/// The blocks of recognised text as rows of a list. Main thread.
class TextBlocks : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")

  public:
    explicit TextBlocks(OCRViewModel& text, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    enum Role {
        content = Qt::UserRole,  ///< the text of the block
        isCode,
        codeLanguage,  ///< its name for users; empty where it is not known
        isSelected,
        translated,  ///< empty where there is no translation
        statusText,  ///< what there is to say about the translation
        canTranslateAnyway,
    };
    void refreshRows();

    OCRViewModel& text_;
};

/// What is said about the translation of a block; empty where its text says it.
QString translationStatusText(const OCRTranslationStatus& status);

}  // namespace kestrio
