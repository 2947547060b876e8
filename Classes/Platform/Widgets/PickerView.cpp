#include "PickerView.h"

#include "PickerRowDelegate.h"
#include "PickerWheel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {

constexpr qreal bandMargin = 8;
constexpr qreal bandRadius = 8;
const QColor bandColor(118, 118, 128, 36);

} // namespace

PickerView::PickerView(QWidget* parent) : QWidget(parent), delegate_(new PickerRowDelegate(this)) {
    resize(sizeHint());
}

PickerWheel* PickerView::addComponent(QAbstractItemModel* model) {
    auto* wheel = new PickerWheel(this);
    wheel->setItemDelegate(delegate_);
    wheel->setRowHeight(rowHeight_);
    wheel->setModel(model);
    const int component = numberOfComponents();
    connect(wheel, &PickerWheel::rowPicked, this,
            [this, component](int row) { emit rowPicked(row, component); });
    setTabOrder(components_.empty() ? static_cast<QWidget*>(this) : components_.back().wheel,
                wheel);
    components_.push_back({wheel, 0, true});
    wheel->setVisible(true);
    layoutWheels();
    return wheel;
}

void PickerView::setComponentWidth(int component, qreal width, bool stretches) {
    if (component < 0 || component >= numberOfComponents())
        return;
    components_[size_t(component)] = {components_[size_t(component)].wheel,
                                      std::isfinite(width) ? std::max(width, 0.0) : 0, stretches};
    layoutWheels();
}

PickerWheel* PickerView::wheel(int component) const {
    return component >= 0 && component < numberOfComponents() ? components_[size_t(component)].wheel
                                                              : nullptr;
}

int PickerView::numberOfRowsInComponent(int component) const {
    const PickerWheel* shown = wheel(component);
    return shown != nullptr && shown->model() != nullptr ? shown->model()->rowCount() : 0;
}

void PickerView::selectRow(int row, int component, bool animated) {
    if (row >= 0 && row < numberOfRowsInComponent(component))
        wheel(component)->moveToRow(row, animated, false);
}

int PickerView::selectedRowInComponent(int component) const {
    const PickerWheel* shown = wheel(component);
    return shown != nullptr ? shown->selectedRow() : -1;
}

void PickerView::setRowHeight(qreal height) {
    rowHeight_ = height;
    for (const Component& each : components_)
        each.wheel->setRowHeight(height);
    update();
}

void PickerView::setShowsSelectionIndicator(bool shows) {
    showsSelectionIndicator_ = shows;
    update();
}

// The wheels stand side by side, centered, a small gap apart, each as tall as the picker.
void PickerView::layoutWheels() {
    if (components_.empty())
        return;
    qreal spare = width() - 2 * sideMargin - componentSpacing * qreal(components_.size() - 1);
    int stretching = 0;
    for (const Component& each : components_) {
        if (each.stretches)
            ++stretching;
        else
            spare -= each.width;
    }
    qreal total = componentSpacing * qreal(components_.size() - 1);
    std::vector<qreal> widths;
    for (const Component& each : components_) {
        widths.push_back(each.stretches ? std::max(spare / stretching, each.width) : each.width);
        total += widths.back();
    }
    qreal x = (width() - total) / 2;
    for (size_t component = 0; component < components_.size(); ++component) {
        // Right to left, the first wheel is the rightmost.
        const QRect slot = QRectF(x, 0, widths[component], height()).toAlignedRect();
        components_[component].wheel->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(), slot));
        x += widths[component] + componentSpacing;
    }
}

void PickerView::resizeEvent(QResizeEvent*) {
    layoutWheels();
}

void PickerView::paintEvent(QPaintEvent*) {
    if (!showsSelectionIndicator_ || components_.empty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bandColor);
    painter.drawRoundedRect(
        QRectF(bandMargin, (height() - rowHeight_) / 2, width() - 2 * bandMargin, rowHeight_),
        bandRadius, bandRadius);
}

} // namespace pomwick
