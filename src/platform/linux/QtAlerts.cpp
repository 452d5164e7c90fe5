#include "platform/linux/QtAlerts.h"

#include "core/Localisation.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>

namespace kestrio {

namespace {

// In points. Qt lets texts break after a few words otherwise.
constexpr int leastTextWidth = 320;
constexpr int fieldWidth = 300;
constexpr int iconSide = 48;

QMessageBox::Icon iconOf(AlertStyle style) {
    switch (style) {
        case AlertStyle::informational:
            return QMessageBox::Information;
        case AlertStyle::warning:
            return QMessageBox::Warning;
        case AlertStyle::critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox* makeBox(const AlertRequest& request) {
    auto* box = new QMessageBox;
    box->setWindowTitle(QStringLiteral("Kestrio"));
    // Pins float over everything else.
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setIcon(iconOf(request.style));
    // A mere notice is recognised by whose it is.
    const QPixmap own = QApplication::windowIcon().pixmap(iconSide);
    if (request.style == AlertStyle::informational && !own.isNull()) box->setIconPixmap(own);
    box->setStyleSheet(QStringLiteral("QLabel#qt_msgbox_informativelabel { min-width: %1px; }")
                           .arg(leastTextWidth));
    box->setTextFormat(Qt::RichText);
    box->setText(QStringLiteral("<b>") + request.title.toHtmlEscaped() + QStringLiteral("</b>"));
    box->setInformativeText(request.text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
    // An overlay that is open meanwhile has to go on taking the pointer.
    box->setWindowModality(Qt::NonModal);
    return box;
}

/// The request's buttons in their order, whatever order the desktop shows them in.
QList<QAbstractButton*> addButtons(QMessageBox* box, const AlertRequest& request) {
    const QStringList titles =
        request.buttons.isEmpty() ? QStringList(Kestrio::tr("OK")) : request.buttons;
    QList<QAbstractButton*> buttons;
    for (const QString& title : titles) {
        const auto role = buttons.isEmpty()                     ? QMessageBox::AcceptRole
                          : buttons.size() + 1 == titles.size() ? QMessageBox::RejectRole
                                                                : QMessageBox::DestructiveRole;
        QPushButton* button = box->addButton(title, role);
        if (buttons.isEmpty()) box->setDefaultButton(button);
        buttons << button;
        box->setEscapeButton(button);
    }
    if (request.escapeButton) box->setEscapeButton(buttons.value(*request.escapeButton));
    return buttons;
}

/// Below the text and above the buttons, for which message boxes know no way.
QLineEdit* addTextField(QMessageBox* box, const AlertRequest& request) {
    auto* field = new QLineEdit(request.textField->text);
    field->setPlaceholderText(request.textField->placeholder);
    field->setAccessibleName(request.title);
    field->setMinimumWidth(fieldWidth);
    field->selectAll();
    auto* grid = qobject_cast<QGridLayout*>(box->layout());
    auto* text = box->findChild<QWidget*>(QStringLiteral("qt_msgbox_informativelabel"));
    auto* buttons = box->findChild<QDialogButtonBox*>();
    int row = 0, column = 0, rows = 1, columns = 1;
    grid->getItemPosition(grid->indexOf(text), &row, &column, &rows, &columns);
    grid->removeWidget(buttons);
    grid->addWidget(field, row + rows, column, 1, columns);
    grid->addWidget(buttons, row + rows + 1, 0, 1, grid->columnCount());
    return field;
}

}  // namespace

Task<AlertAnswer> QtAlerts::ask(AlertRequest request, std::stop_token stop) {
    const QPointer box(makeBox(request));
    const auto cleanup = qScopeGuard([box] {
        if (!box) return;
        box->hide();
        box->deleteLater();
    });
    const QList<QAbstractButton*> buttons = addButtons(box, request);
    QLineEdit* const field = request.textField ? addTextField(box, request) : nullptr;
    const int escapeButton = request.escapeButton.value_or(static_cast<int>(buttons.size()) - 1);
    const Completion<AlertAnswer> done(std::move(stop));
    QObject::connect(box, &QMessageBox::finished, box, [box, buttons, field, done, escapeButton] {
        const auto index = buttons.indexOf(box->clickedButton());
        done.succeed({index < 0 ? escapeButton : static_cast<int>(index),
                      field ? field->text() : QString()});
    });
    QObject::connect(box, &QObject::destroyed, [done, escapeButton] {
        done.succeed({escapeButton, {}});
    });
    QObject::connect(&lifetime_, &QObject::destroyed, box, &QDialog::reject);
    box->show();
    box->raise();
    box->activateWindow();
    // Only now: until it is shown, the first button takes the focus.
    if (field) field->setFocus();
    co_return co_await done;
}

}  // namespace kestrio
