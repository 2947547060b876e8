#include "SegmentedControl.h"

#include "Appearance.h"

#include <QAbstractButton>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <utility>

namespace pomwick {
Segment::Segment(const QString& title, SegmentedControl* control) : QAbstractButton(control) {
    setText(title);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Segment::focusInEvent(QFocusEvent* event) {
    // Tab enters the control at its selected segment, as with any set of radio buttons.
    const bool tabbed =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton* selected = group() != nullptr ? group()->checkedButton() : nullptr;
    if (tabbed && selected != nullptr && selected != this) {
        selected->setFocus(event->reason());
        return;
    }
    QAbstractButton::focusInEvent(event);
    parentWidget()->update();
}

// The arrows choose the neighbouring segment; the focus goes first, so that a rebuild the choice
// starts finds it on the chosen segment.
void Segment::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    // Right to left, the segment after this one is on its left.
    const int left = isRightToLeft() ? 1 : -1;
    const int step = key == Qt::Key_Up      ? -1
                     : key == Qt::Key_Down  ? 1
                     : key == Qt::Key_Left  ? left
                     : key == Qt::Key_Right ? -left
                                            : 0;
    if (step == 0 || group() == nullptr) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    if (QAbstractButton* next = group()->button(group()->id(this) + step);
        next != nullptr && next->isEnabled()) {
        next->setFocus(Qt::OtherFocusReason);
        next->click();
    }
}

void Segment::focusOutEvent(QFocusEvent* event) {
    QAbstractButton::focusOutEvent(event);
    parentWidget()->update();
}

SegmentedControl::SegmentedControl(const QStringList& items, QWidget* parent)
    : QWidget(parent), tint_(Appearance::segmentedControlTint()) {
    setCursor(Qt::PointingHandCursor);
    group_.setExclusive(true);
    for (int i = 0; i < items.size(); ++i)
        group_.addButton(new Segment(items[i], this), i);
    connect(&group_, &QButtonGroup::idToggled, this, [this](int, bool checked) {
        if (checked) {
            changed_ = true;
            emit selectedSegmentIndexChanged(selectedSegmentIndex());
        }
        update();
    });
    // A click, a key or an assistive action on a segment; only a new choice is a change.
    connect(&group_, &QButtonGroup::idClicked, this, [this] {
        if (std::exchange(changed_, false))
            emit valueChanged();
    });
    resize(100, 29);
}

void SegmentedControl::setSelectedSegmentIndex(int index) {
    QAbstractButton* chosen = group_.button(index);
    // Any index that names no segment selects none.
    if ((chosen != nullptr ? index : -1) == selectedSegmentIndex())
        return;
    if (chosen != nullptr) {
        chosen->setChecked(true);
        changed_ = false;
        return;
    }
    // An exclusive group cannot uncheck its last button by itself.
    group_.setExclusive(false);
    group_.checkedButton()->setChecked(false);
    group_.setExclusive(true);
    emit selectedSegmentIndexChanged(-1);
}

void SegmentedControl::setTintColor(const QColor& color) {
    if (color == tint_)
        return;
    tint_ = color;
    update();
}

QRectF SegmentedControl::segmentRect(int index) const {
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const qsizetype count = std::max<qsizetype>(1, group_.buttons().size());
    const qreal width = area.width() / count;
    // Right to left, the first segment is the rightmost.
    const qsizetype slot = isRightToLeft() ? count - 1 - index : index;
    return {area.left() + qreal(slot) * width, area.top(), width, area.height()};
}

void SegmentedControl::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    for (QAbstractButton* button : group_.buttons())
        button->setGeometry(segmentRect(group_.id(button)).toAlignedRect());
}

void SegmentedControl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(0.4);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(area, 4, 4);
    painter.setClipPath(outline);
    painter.setFont(Appearance::systemFont(13));
    const int selected = selectedSegmentIndex();
    const QList<QAbstractButton*> segments = group_.buttons();
    for (QAbstractButton* button : segments) {
        const int i = group_.id(button);
        const QRectF segment = segmentRect(i);
        if (i == selected)
            painter.fillRect(segment, tint_);
        painter.setPen(i == selected ? Appearance::cellBackground() : tint_);
        painter.drawText(segment, Qt::AlignCenter, button->text());
        if (segment.left() > area.left()) // between segments, in either direction
            painter.fillRect(QRectF(segment.left() - 0.5, area.top(), 1, area.height()), tint_);
    }
    painter.setClipping(false);
    painter.setPen(QPen(tint_, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
    for (QAbstractButton* button : segments)
        if (Appearance::showsFocusRing(button))
            Appearance::drawFocusRing(painter, segmentRect(group_.id(button)), 4);
}

void SegmentedControl::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint()))
        return;
    for (QAbstractButton* button : group_.buttons())
        if (segmentRect(group_.id(button)).contains(event->position()) && !button->isChecked())
            button->click();
}

} // namespace pomwick
