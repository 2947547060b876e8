#include "AlertView.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace pomwick {

AlertView::AlertView(QString title, QString message, QString cancelButtonTitle)
    : title_(std::move(title)), message_(std::move(message)),
      cancelButtonTitle_(std::move(cancelButtonTitle)) {}

void AlertView::show() {
    auto* box = new QMessageBox(QMessageBox::NoIcon, title_, message_, QMessageBox::NoButton,
                                QApplication::activeWindow());
    box->setObjectName("AlertView");
    box->addButton(cancelButtonTitle_, QMessageBox::RejectRole);
    box->setWindowModality(Qt::NonModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->show();
}

} // namespace pomwick
