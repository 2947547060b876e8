#include "NoticeIndicator.h"

#include <QAccessible>
#include <QPainter>

namespace pomwick {

NoticeIndicator::NoticeIndicator(QSize size, const QString& accessibleName, QWidget* parent)
    : QWidget(parent) {
    setGeometry(QRect(QPoint(), size));
    setAttribute(Qt::WA_TranslucentBackground);
    setAccessibleName(accessibleName);
}

void NoticeIndicator::setPresented(bool presented) {
    if (presented == presented_)
        return;
    presented_ = presented;
    presentedChanged();
}

void NoticeIndicator::refresh() {
    update();
    emit changed();
}

void NoticeIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter);
}

ProgressIndicatorView::ProgressIndicatorView(QSize size, QWidget* parent)
    : NoticeIndicator(size, tr("Progress"), parent) {}

void ProgressIndicatorView::setProgress(float progress) {
    progress_ = progress;
    refresh();
    QAccessibleValueChangeEvent event(this, progress);
    QAccessible::updateAccessibility(&event);
    emit progressChanged();
}

} // namespace pomwick
