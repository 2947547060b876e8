#include "DQFontPicker.h"

#include "ColorDescription.h"
#include "FontCatalogue.h"
#include "QtConversions.h"
#include "ViewGeometry.h"

#include <QCollator>
#include <QLabel>
#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>

namespace pomwick {
namespace {

constexpr double defaultMinFontSize = 8;
constexpr double defaultMaxFontSize = 24;
constexpr double defaultStepFontSize = 2;
constexpr qint64 defaultColorVariants = 125;
constexpr qint64 defaultGrayVariants = 5;
// A step too small to change the value, or a maximum without end, would add rows for ever; no
// wheel is usable past a few hundred sizes, so the list stops at a thousand.
constexpr size_t maximumSizeRows = 1000;

constexpr qreal narrowWheelWidth = 66;
constexpr qreal otherWheelsWidth = 132;
constexpr qreal wheelMargins = 30;
constexpr qreal rowViewHeight = 20;
constexpr qreal rowViewInset = 20;
constexpr qreal fontRowSize = 18;
// That face draws far larger than its nominal size.
constexpr qreal zapfinoRowSize = 12.006;
const QString twoFullBlocks = QStringLiteral("\u2588\u2588");

struct Brightness {
    double hue;
    double saturation;
    double brightness;
};

// Hue, saturation and brightness as the device reads them: a grey's hue reads 0 (where QColor
// reports -1), and components that are not numbers give hues that compare equal to nothing.
Brightness hsb(const Color& color) {
    const double r = color.red, g = color.green, b = color.blue;
    const double max = std::max({r, g, b});
    const double delta = max - std::min({r, g, b});
    double hue = 0;
    if (delta != 0) {
        if (max == r)
            hue = (g - b) / delta;
        else if (max == g)
            hue = 2 + (b - r) / delta;
        else
            hue = 4 + (r - g) / delta;
        hue /= 6;
        if (hue < 0)
            hue += 1;
    }
    return {hue, max > 0 ? delta / max : 0, max};
}

// Greater hue first, then greater brightness, then greater saturation; alpha plays no part.
bool before(const Color& a, const Color& b) {
    const Brightness x = hsb(a), y = hsb(b);
    if (x.hue != y.hue)
        return x.hue > y.hue;
    if (x.brightness != y.brightness)
        return x.brightness > y.brightness;
    return x.saturation > y.saturation;
}

struct Channels {
    double red, green, blue;
    bool operator==(const Channels&) const = default;
};

Channels rounded(const Color& color) {
    return {std::round(color.red * 255.0), std::round(color.green * 255.0),
            std::round(color.blue * 255.0)};
}

qsizetype exactColorIndex(const std::vector<Color>& list, const Color& color) {
    const Channels target = rounded(color);
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const Color& entry) { return rounded(entry) == target; });
    return found != list.end() ? found - list.begin() : DQFontPicker::notFound;
}

qsizetype exactSizeIndex(const std::vector<float>& list, double size) {
    const auto found = std::find(list.begin(), list.end(), size);
    return found != list.end() ? found - list.begin() : DQFontPicker::notFound;
}

qsizetype fontNameIndex(const QStringList& list, const QString& name) {
    const qsizetype found = list.indexOf(name);
    if (found >= 0)
        return found;
    return name.startsWith(QLatin1Char('.')) ? fontNameIndex(list, name.mid(1))
                                             : DQFontPicker::notFound;
}

int toInt(qint64 value) {
    return int(std::clamp<qint64>(value, -1, INT_MAX));
}

} // namespace

DQFontPicker::DQFontPicker(QWidget* parent) : PickerView(parent) {
    setShowsSelectionIndicator(true);
    setDataSource(this);
    if (modernStyle())
        setBackgroundColor(this, QColor::fromRgbF(0.98f, 0.98f, 0.98f, 0.98f));
    setComponentAccessibleName(int(fontComponentIndex_), tr("Font"));
    setComponentAccessibleName(int(sizeComponentIndex_), tr("Size"));
    setComponentAccessibleName(int(colorComponentIndex_), tr("Color"));
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

qsizetype DQFontPicker::indexForFontName(const QString& name) {
    return fontNameIndex(fontList(), name);
}

qsizetype DQFontPicker::indexForFontSize(double size) {
    return exactSizeIndex(sizeList(), size);
}

qsizetype DQFontPicker::indexForNearestFontSize(double size) {
    const std::vector<float>& list = sizeList();
    qsizetype nearest = notFound;
    double least = FLT_MAX;
    for (size_t i = 0; i < list.size(); ++i) {
        if (list[i] == size)
            return qsizetype(i);
        const double difference = std::abs(list[i] - size);
        if (difference < least) {
            least = difference;
            nearest = qsizetype(i);
        }
    }
    return nearest;
}

qsizetype DQFontPicker::indexForColor(std::optional<Color> color) {
    return color ? exactColorIndex(colorList(), *color) : notFound;
}

qsizetype DQFontPicker::indexForNearestColor(std::optional<Color> color) {
    if (!color)
        return notFound;
    const std::vector<Color>& list = colorList();
    const Channels target = rounded(*color);
    qsizetype nearest = notFound;
    double least = FLT_MAX;
    for (size_t i = 0; i < list.size(); ++i) {
        const Channels entry = rounded(list[i]);
        if (entry == target)
            return qsizetype(i);
        const double distance = (entry.red - target.red) * (entry.red - target.red) +
                                (entry.green - target.green) * (entry.green - target.green) +
                                (entry.blue - target.blue) * (entry.blue - target.blue);
        if (distance < least) {
            least = distance;
            nearest = qsizetype(i);
        }
    }
    return nearest;
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

QStringList DQFontPicker::installedFaceNames() const {
    if (faceSource_)
        return faceSource_();
    const FontCatalogue& catalogue = FontCatalogue::shared();
    QStringList names;
    for (const std::string& family : catalogue.familyNames()) {
        for (const std::string& face : catalogue.fontNamesForFamilyName(family))
            names.append(QString::fromStdString(face));
    }
    return names;
}

// Every installed face, the current name in front when no face has it, in the user's
// case-insensitive order. Names are case-folded first because the collator of the "C" locale
// ignores the case setting. Sort keys are made once per name: comparing through the collator on
// every step of the sort costs several times more.
const QStringList& DQFontPicker::fontList() {
    if (!fontList_.isEmpty())
        return fontList_;
    QStringList names = installedFaceNames();
    if (!fontName_.isNull() && fontNameIndex(names, fontName_) == notFound)
        names.prepend(fontName_);
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<std::pair<QCollatorSortKey, qsizetype>> keys;
    keys.reserve(size_t(names.size()));
    for (qsizetype i = 0; i < names.size(); ++i)
        keys.emplace_back(collator.sortKey(names[i].toCaseFolded()), i);
    std::stable_sort(keys.begin(), keys.end(),
                     [](const auto& a, const auto& b) { return a.first.compare(b.first) < 0; });
    fontList_.reserve(names.size());
    for (const auto& key : keys)
        fontList_.append(names[key.second]);
    return fontList_;
}

const std::vector<float>& DQFontPicker::sizeList() {
    if (!sizeList_.empty())
        return sizeList_;
    if (!(minFontSize_ > 0))
        minFontSize_ = defaultMinFontSize;
    if (!(maxFontSize_ > 0))
        maxFontSize_ = defaultMaxFontSize;
    if (!(stepFontSize_ > 0))
        stepFontSize_ = defaultStepFontSize;
    std::vector<float> sizes;
    for (double size = minFontSize_; size <= maxFontSize_ && sizes.size() < maximumSizeRows;
         size += stepFontSize_)
        sizes.push_back(float(size));
    if (fontSize_ != 0 && exactSizeIndex(sizes, fontSize_) == notFound) {
        sizes.push_back(float(fontSize_));
        // Stable: a size that is not a number must not upset the sort.
        std::stable_sort(sizes.begin(), sizes.end());
    }
    sizeList_ = std::move(sizes);
    return sizeList_;
}

// A cube of colors without its greys, the greys, and the current color in front when no row has
// it; then in the color order. Any count of 0 or more is replaced by the default on purpose: only
// a negative count survives, and gives no entries of its kind.
const std::vector<Color>& DQFontPicker::colorList() {
    if (!colorList_.empty())
        return colorList_;
    if (colorVariants_ >= 0)
        colorVariants_ = defaultColorVariants;
    if (grayVariants_ >= 0)
        grayVariants_ = defaultGrayVariants;
    std::vector<Color> colors;
    if (colorVariants_ >= 1) {
        const qint64 levels = qint64(std::ceil(std::cbrt(double(colorVariants_))));
        const float top = float(levels - 1);
        for (qint64 k = 0; k < levels * levels * levels && qint64(colors.size()) < colorVariants_;
             ++k) {
            const qint64 r = k / (levels * levels), g = k / levels % levels,
                         b = levels - 1 - k % levels;
            if (grayVariants_ >= 1 && r == g && g == b)
                continue;
            colors.push_back({float(r) / top, float(g) / top, float(b) / top, 1});
        }
    }
    for (qint64 i = 0; i < grayVariants_; ++i) {
        const float white = float(i) / float(grayVariants_ - 1);
        colors.push_back({white, white, white, 1});
    }
    if (color_ && exactColorIndex(colors, *color_) == notFound)
        colors.insert(colors.begin(), *color_);
    // Stable: components that are not numbers compare equal to nothing, which must not upset it.
    std::stable_sort(colors.begin(), colors.end(), before);
    colorList_ = std::move(colors);
    return colorList_;
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

int DQFontPicker::numberOfComponentsInPickerView(PickerView*) {
    return 3;
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
        return std::max(width() - wheelMargins - otherWheelsWidth, narrowWheelWidth);
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

QWidget* DQFontPicker::viewForRow(PickerView*, int row, int component, QWidget*) {
    auto label = std::make_unique<QLabel>();
    label->setFont(toQFont(std::nullopt));
    label->setAutoFillBackground(false);
    qreal labelWidth = narrowWheelWidth - rowViewInset;
    const size_t index = size_t(row);
    switch (wheelOf(component)) {
    case Wheel::Font: {
        if (row < 0 || row >= fontList().size())
            return nullptr;
        const QString name = fontList()[row];
        const qreal size = name.startsWith(QLatin1String("Zapfino")) ? zapfinoRowSize : fontRowSize;
        label->setFont(
            toQFont(FontCatalogue::shared().fontWithName(name.toStdString(), float(size))));
        const qreal spare = width() - wheelMargins - otherWheelsWidth;
        labelWidth =
            spare > narrowWheelWidth ? spare - rowViewInset : narrowWheelWidth - rowViewInset;
        // Too long a name ends in an ellipsis, as labels on the device do.
        label->setText(label->fontMetrics().elidedText(text_.isEmpty() ? name : text_,
                                                       Qt::ElideRight, int(labelWidth)));
        label->setAccessibleName(name);
        break;
    }
    case Wheel::Size: {
        if (row < 0 || index >= sizeList().size())
            return nullptr;
        const float size = sizeList()[index];
        label->setText(std::floor(size) == size ? QString::asprintf("%2.0f", double(size))
                                                : QString::asprintf("%.1f", double(size)));
        label->setAccessibleName(label->text().trimmed());
        label->setAlignment(Qt::AlignCenter);
        break;
    }
    case Wheel::Color: {
        if (row < 0 || index >= colorList().size())
            return nullptr;
        const Color& color = colorList()[index];
        label->setText(twoFullBlocks);
        label->setAlignment(Qt::AlignCenter);
        if (modernStyle())
            setBackgroundColor(label.get(), toQColor(color));
        setTextColor(label.get(), toQColor(color));
        label->setAccessibleName(describeColor(color));
        break;
    }
    case Wheel::None:
        break;
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
    if (changeHandler_)
        changeHandler_();
}

} // namespace pomwick
