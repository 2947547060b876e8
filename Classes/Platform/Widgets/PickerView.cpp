#include "PickerView.h"

#include "PickerWheel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <utility>

namespace pomwick {
namespace {

constexpr qreal sideMargin = 10;
constexpr qreal bandMargin = 8;
constexpr qreal bandRadius = 8;
const QColor bandColor(118, 118, 128, 36);

qreal length(qreal value) {
    return std::isfinite(value) ? std::max(value, 0.0) : 0.0;
}

} // namespace

qreal PickerViewDataSource::widthForComponent(PickerView* picker, int) {
    const int components = std::max(picker->numberOfComponents(), 1);
    return (picker->width() - 2 * sideMargin - PickerView::componentSpacing * (components - 1)) /
           components;
}

PickerView::PickerView(QWidget* parent) : QWidget(parent) {
    resize(sizeHint());
}

PickerView::~PickerView() {
    // Wheels ask their data source while they are torn down; it may be this object, half gone.
    dataSource_ = nullptr;
    qDeleteAll(std::exchange(wheels_, {}));
}

void PickerView::setDataSource(PickerViewDataSource* dataSource) {
    dataSource_ = dataSource;
    loaded_ = false;
    qDeleteAll(std::exchange(wheels_, {}));
    if (isVisible())
        ensureComponents();
}

void PickerView::ensureComponents() {
    if (loaded_ || dataSource_ == nullptr)
        return;
    loaded_ = true;
    const int components = std::max(0, dataSource_->numberOfComponentsInPickerView(this));
    QWidget* previous = this;
    for (int component = 0; component < components; ++component) {
        auto* wheel = new PickerWheel(this, component);
        wheel->setRowHeight(dataSource_->rowHeightForComponent(this, component));
        wheels_.push_back(wheel);
        wheel->show();
        setTabOrder(previous, wheel);
        previous = wheel;
    }
    layoutWheels();
}

int PickerView::numberOfComponents() {
    ensureComponents();
    return int(wheels_.size());
}

PickerWheel* PickerView::wheel(int component) {
    ensureComponents();
    return component >= 0 && component < int(wheels_.size()) ? wheels_[size_t(component)] : nullptr;
}

int PickerView::numberOfRowsInComponent(int component) {
    PickerWheel* shown = wheel(component);
    return shown != nullptr ? shown->numberOfRows() : 0;
}

void PickerView::reloadAllComponents() {
    ensureComponents();
    for (PickerWheel* shown : wheels_)
        shown->reload();
    layoutWheels();
}

void PickerView::reloadComponent(int component) {
    if (PickerWheel* shown = wheel(component))
        shown->reload();
}

void PickerView::selectRow(int row, int component, bool animated) {
    PickerWheel* shown = wheel(component);
    if (shown != nullptr && row >= 0 && row < shown->numberOfRows())
        shown->moveToRow(row, animated, false);
}

int PickerView::selectedRowInComponent(int component) {
    PickerWheel* shown = wheel(component);
    return shown != nullptr ? shown->selectedRow() : -1;
}

void PickerView::setShowsSelectionIndicator(bool shows) {
    showsSelectionIndicator_ = shows;
    update();
}

void PickerView::setComponentAccessibleName(int component, const QString& name) {
    if (PickerWheel* shown = wheel(component))
        shown->setAccessibleName(name);
}

// The wheels stand side by side, centered, a small gap apart, each as tall as the picker.
void PickerView::layoutWheels() {
    if (dataSource_ == nullptr || wheels_.empty())
        return;
    std::vector<qreal> widths;
    for (int component = 0; component < int(wheels_.size()); ++component)
        widths.push_back(length(dataSource_->widthForComponent(this, component)));
    qreal total = componentSpacing * qreal(wheels_.size() - 1);
    for (qreal width : widths)
        total += width;
    qreal x = (width() - total) / 2;
    for (size_t component = 0; component < wheels_.size(); ++component) {
        // Right to left, the first wheel is the rightmost.
        const QRect slot = QRectF(x, 0, widths[component], height()).toAlignedRect();
        wheels_[component]->setGeometry(QStyle::visualRect(layoutDirection(), rect(), slot));
        x += widths[component] + componentSpacing;
    }
}

void PickerView::resizeEvent(QResizeEvent*) {
    ensureComponents();
    layoutWheels();
    // Row views may size themselves from the picker's width: make them again.
    for (size_t component = 0; component < wheels_.size(); ++component)
        wheels_[component]->setRowHeight(dataSource_->rowHeightForComponent(this, int(component)));
}

void PickerView::showEvent(QShowEvent*) {
    ensureComponents();
}

void PickerView::paintEvent(QPaintEvent*) {
    if (!showsSelectionIndicator_ || wheels_.empty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(bandColor);
    const qreal rowHeight = wheels_.front()->rowHeight();
    painter.drawRoundedRect(
        QRectF(bandMargin, (height() - rowHeight) / 2, width() - 2 * bandMargin, rowHeight),
        bandRadius, bandRadius);
}

} // namespace pomwick
