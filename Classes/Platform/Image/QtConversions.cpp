#include "QtConversions.h"

#include <QFontDatabase>
#include <algorithm>
#include <cmath>

namespace pomwick {
namespace {

float unit(float component) {
    return std::isnan(component) ? 0.0f : std::clamp(component, 0.0f, 1.0f);
}

constexpr int defaultLabelFontSize = 17;
constexpr int largestFontSize = 2048;

} // namespace

QColor toQColor(const Color& color) {
    return QColor::fromRgbF(unit(color.red), unit(color.green), unit(color.blue),
                            unit(color.alpha));
}

QFont toQFont(const std::optional<Font>& font) {
    QFont qfont = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    int size = defaultLabelFontSize;
    if (font) {
        if (!font->family.empty())
            qfont.setFamily(QString::fromStdString(font->family));
        if (!font->style.empty())
            qfont.setStyleName(QString::fromStdString(font->style));
        size = std::isfinite(font->size)
                   ? static_cast<int>(std::clamp(std::round(font->size), 1.0f,
                                                 static_cast<float>(largestFontSize)))
                   : defaultLabelFontSize;
    }
    qfont.setPixelSize(size);
    return qfont;
}

} // namespace pomwick
