#include "AlertView.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace pomwick {

AlertView::AlertView(QString title, QString message, QString cancelButtonTitle)
    : title_(std::move(title)), message_(std::move(message)),
      cancelButtonTitle_(std::move(cancelButtonTitle)) {}

// One alert at a time: while one is up, another asks for it only to come forward. It is modal to
// its window, and the window's focus is where it was once it goes.
void AlertView::show() {
    static QPointer<QMessageBox> showing;
    if (showing && showing->isVisible()) {
        showing->raise();
        showing->activateWindow();
        return;
    }
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr)
        if (QWidget* focus = QApplication::focusWidget())
            window = focus->window();
    auto* box =
        new QMessageBox(QMessageBox::NoIcon, title_, message_, QMessageBox::NoButton, window);
    box->setObjectName("AlertView");
    box->addButton(cancelButtonTitle_, QMessageBox::RejectRole);
    if (window != nullptr) {
        box->setPalette(window->palette());
        box->setFont(window->font());
    }
    box->setWindowModality(window != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    showing = box;
    box->show();
}

} // namespace pomwick
