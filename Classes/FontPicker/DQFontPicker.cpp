#include "DQFontPicker.h"

#include "Appearance.h"
#include "FontCatalogue.h"
#include "FontPickerRows.h"
#include "PickerRowDelegate.h"
#include "PickerWheel.h"
#include "QtConversions.h"
#include "ViewGeometry.h"

#include <QEvent>
#include <QLabel>
#include <algorithm>
#include <climits>
#include <memory>

namespace pomwick {
namespace {

constexpr qreal narrowWheelWidth = 66;
constexpr qreal otherWheelsWidth = 132;
constexpr qreal wheelMargins = 30;
constexpr qreal rowViewHeight = 20;
constexpr qreal rowViewInset = 20;
constexpr int wheels = 3;

int toInt(qint64 value) {
    return int(std::clamp<qint64>(value, -1, INT_MAX));
}

} // namespace

DQFontPicker::DQFontPicker(QWidget* parent)
    : QObject(parent), view_(new PickerView(parent)), fontRows_(new FontPickerRows(this)),
      sizeRows_(new FontPickerRows(this)), colorRows_(new FontPickerRows(this)),
      noRows_(new FontPickerRows(this)) {
    view_->setShowsSelectionIndicator(true);
    view_->setRowHeight(rowHeight);
    view_->rowDelegate()->setBox(rowViewInset / 2, rowViewHeight);
    for (int component = 0; component < wheels; ++component)
        view_->addComponent(noRows_);
    arrangeWheels();
    if (modernStyle())
        setBackgroundColor(view_, Appearance::pickerBackground);
    connect(view_, &PickerView::rowPicked, this,
            [this](int row, int component) { didSelectRow(view_, row, component); });
    connect(this, &DQFontPicker::changed, this, [this] {
        if (changeHandler_)
            changeHandler_();
    });
    // The lists are built no earlier than the view needs them: until then a caller may still set
    // the bounds, the counts and the values they are built from.
    view_->installEventFilter(this);
}

DQFontPicker::~DQFontPicker() {
    if (view_ != nullptr) {
        view_->removeEventFilter(this);
        delete view_.data();
    }
}

// The type first: a view being torn down still sends events, and is no picker view by then.
bool DQFontPicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched == view_)
        loadedView();
    return QObject::eventFilter(watched, event);
}

PickerView* DQFontPicker::loadedView() {
    if (!loaded_)
        reloadAllComponents();
    return view_;
}

void DQFontPicker::reloadAllComponents() {
    loaded_ = true;
    fontRows_->setSampleText(text_);
    fontRows_->showFaces(fontList());
    sizeRows_->showSizes(sizeList());
    colorRows_->showColors(colorList(), modernStyle());
    arrangeWheels();
}

// Each wheel shows the list its component index names, the font wheel taking the spare width.
void DQFontPicker::arrangeWheels() {
    if (view_ == nullptr)
        return;
    const QString names[] = {tr("Font"), tr("Size"), tr("Color"), QString()};
    for (int component = 0; component < wheels; ++component) {
        const Wheel shown = wheelOf(component);
        view_->wheel(component)->setModel(rowsOf(shown));
        view_->wheel(component)->setAccessibleName(names[int(shown)]);
        view_->setComponentWidth(component,
                                 shown == Wheel::Font ? narrowWheelWidth
                                                      : widthForComponent(view_, component),
                                 shown == Wheel::Font);
    }
}

std::optional<Font> DQFontPicker::font() const {
    if (fontName_.isNull())
        return std::nullopt;
    return FontCatalogue::shared().fontWithName(fontName_.toStdString(), float(fontSize_));
}

void DQFontPicker::setFont(const Font& font) {
    selectFontName(QString::fromStdString(font.name), false);
    selectFontSize(font.size, false);
}

void DQFontPicker::setColor(std::optional<Color> color) {
    selectColor(color, false);
}

void DQFontPicker::setText(const QString& text) {
    text_ = text;
    fontRows_->setSampleText(text);
}

void DQFontPicker::selectFontName(const QString& name, bool animated) {
    fontName_ = name;
    const qsizetype index = indexForFontName(name);
    if (index != notFound)
        selectRow(int(index), toInt(fontComponentIndex_), animated);
}

void DQFontPicker::selectFontSize(double size, bool animated) {
    fontSize_ = size;
    const qsizetype index = indexForNearestFontSize(size);
    if (index != notFound)
        selectRow(int(index), toInt(sizeComponentIndex_), animated);
}

void DQFontPicker::selectColor(std::optional<Color> color, bool animated) {
    color_ = color;
    const qsizetype index = indexForNearestColor(color);
    if (index != notFound)
        selectRow(int(index), toInt(colorComponentIndex_), animated);
}

void DQFontPicker::selectRow(int row, int component, bool animated) {
    if (PickerView* shown = loadedView())
        shown->selectRow(row, component, animated);
}

int DQFontPicker::selectedRowInComponent(int component) {
    PickerView* shown = loadedView();
    return shown != nullptr ? shown->selectedRowInComponent(component) : -1;
}

int DQFontPicker::numberOfRowsInComponent(int component) {
    PickerView* shown = loadedView();
    return shown != nullptr ? shown->numberOfRowsInComponent(component) : 0;
}

PickerWheel* DQFontPicker::wheel(int component) {
    PickerView* shown = loadedView();
    return shown != nullptr ? shown->wheel(component) : nullptr;
}

int DQFontPicker::selectedRowOf(qint64 component) {
    return component >= 0 ? selectedRowInComponent(toInt(component)) : -1;
}

QString DQFontPicker::selectedFontName() {
    const int row = selectedRowOf(fontComponentIndex_);
    return row >= 0 && row < fontList().size() ? fontList()[row] : QString();
}

double DQFontPicker::selectedFontSize() {
    const int row = selectedRowOf(sizeComponentIndex_);
    return row >= 0 && size_t(row) < sizeList().size() ? sizeList()[size_t(row)] : minFontSize_;
}

std::optional<Color> DQFontPicker::selectedColor() {
    const int row = selectedRowOf(colorComponentIndex_);
    if (row >= 0 && size_t(row) < colorList().size())
        return colorList()[size_t(row)];
    return std::nullopt;
}

DQFontPicker::Wheel DQFontPicker::wheelOf(qint64 component) const {
    if (component == fontComponentIndex_)
        return Wheel::Font;
    if (component == sizeComponentIndex_)
        return Wheel::Size;
    if (component == colorComponentIndex_)
        return Wheel::Color;
    return Wheel::None;
}

FontPickerRows* DQFontPicker::rowsOf(Wheel wheel) const {
    switch (wheel) {
    case Wheel::Font:
        return fontRows_;
    case Wheel::Size:
        return sizeRows_;
    case Wheel::Color:
        return colorRows_;
    case Wheel::None:
        break;
    }
    return noRows_;
}

int DQFontPicker::numberOfComponentsInPickerView(PickerView*) {
    return wheels;
}

int DQFontPicker::numberOfRowsInComponent(PickerView*, int component) {
    switch (wheelOf(component)) {
    case Wheel::Font:
        return int(fontList().size());
    case Wheel::Size:
        return int(sizeList().size());
    case Wheel::Color:
        return int(colorList().size());
    case Wheel::None:
        break;
    }
    return -1;
}

qreal DQFontPicker::widthForComponent(PickerView*, int component) {
    switch (wheelOf(component)) {
    case Wheel::Font:
        return std::max((view_ != nullptr ? view_->width() : 0) - wheelMargins - otherWheelsWidth,
                        narrowWheelWidth);
    case Wheel::Size:
    case Wheel::Color:
        return narrowWheelWidth;
    case Wheel::None:
        break;
    }
    return std::numeric_limits<qreal>::quiet_NaN();
}

qreal DQFontPicker::rowHeightForComponent(PickerView*, int) {
    return rowHeight;
}

QWidget* DQFontPicker::viewForRow(PickerView* picker, int row, int component, QWidget*) {
    auto label = std::make_unique<QLabel>();
    label->setFont(toQFont(std::nullopt));
    label->setAutoFillBackground(false);
    qreal labelWidth = narrowWheelWidth - rowViewInset;
    if (const Wheel shown = wheelOf(component); shown != Wheel::None) {
        loadedView();
        const QModelIndex index = rowsOf(shown)->index(row, 0);
        if (!index.isValid())
            return nullptr;
        label->setText(index.data().toString());
        label->setFont(index.data(Qt::FontRole).value<QFont>());
        label->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
        label->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
        if (const QVariant background = index.data(Qt::BackgroundRole); background.isValid())
            setBackgroundColor(label.get(), background.value<QColor>());
        if (const QVariant foreground = index.data(Qt::ForegroundRole); foreground.isValid())
            setTextColor(label.get(), foreground.value<QColor>());
        labelWidth = widthForComponent(picker, component) - rowViewInset;
    }
    setFrame(label.get(), QRectF(0, 0, labelWidth, rowViewHeight));
    return label.release();
}

void DQFontPicker::didSelectRow(PickerView*, int, int component) {
    switch (wheelOf(component)) {
    case Wheel::Font:
        fontName_ = selectedFontName();
        break;
    case Wheel::Size:
        fontSize_ = selectedFontSize();
        break;
    case Wheel::Color:
        color_ = selectedColor();
        break;
    case Wheel::None:
        break;
    }
    emit changed();
}

} // namespace pomwick
