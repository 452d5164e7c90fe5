#include "platform/linux/QtSavePanel.h"

#include "core/Localisation.h"

#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

namespace kestrio {

QString nameFilter(const FileType& type) {
    QStringList patterns;
    for (const QString& suffix : type.suffixes)
        patterns << QStringLiteral("*.") + suffix;
    return type.name + QStringLiteral(" (") + patterns.join(u' ') + u')';
}

QtSavePanel::QtSavePanel(const SavePanelRequest& request)
    : QFileDialog(nullptr, request.title, request.folder),
      types_(request.types),
      // Only a panel that Qt draws has this field.
      isNative_(!findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setOption(DontConfirmOverwrite, !isNative_);
    QStringList filters;
    for (const kestrio::FileType& type : types_)
        filters << nameFilter(type);
    if (!filters.isEmpty()) setNameFilters(filters);
    const QString suffix = QFileInfo(request.suggestedName).suffix();
    for (const kestrio::FileType& type : types_) {
        if (!type.suffixes.contains(suffix, Qt::CaseInsensitive)) continue;
        selectNameFilter(nameFilter(type));
        break;
    }
    if (!request.suggestedName.isEmpty()) selectFile(request.suggestedName);
}

QString QtSavePanel::chosenFile() const {
    const QString typed = selectedFiles().value(0);
    const auto index = static_cast<std::size_t>(nameFilters().indexOf(selectedNameFilter()));
    return withSuffix(typed, index < types_.size() ? types_[index] : kestrio::FileType(), types_);
}

void QtSavePanel::accept() {
    const QString typed = selectedFiles().value(0);
    const QString file = chosenFile();
    // A folder's name leads into the folder, and a native panel has asked about what was typed.
    const bool isSettled = QFileInfo(typed).isDir() || (isNative_ && file == typed);
    if (isSettled || !QFileInfo::exists(file)) return QFileDialog::accept();
    askBeforeReplacing(file);
}

void QtSavePanel::askBeforeReplacing(const QString& file) {
    auto* question = new QMessageBox(
        QMessageBox::Warning, windowTitle(),
        Kestrio::tr("\"%1\" exists already. Replace it?").arg(QFileInfo(file).fileName()),
        QMessageBox::Cancel, this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    const QPushButton* replace =
        question->addButton(Kestrio::tr("Replace"), QMessageBox::AcceptRole);
    connect(question, &QMessageBox::buttonClicked, this, [this, replace](QAbstractButton* button) {
        if (button == replace) return QFileDialog::accept();
        if (isNative_) open();
    });
    question->open();
}

}  // namespace kestrio
