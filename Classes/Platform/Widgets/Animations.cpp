#include "Animations.h"

#include <QApplication>
#include <QStyle>
#include <cmath>

namespace pomwick::Animations {
namespace {

double readScale() {
    bool ok = false;
    const double fromEnvironment = qEnvironmentVariable("POMWICK_ANIMATION_SCALE").toDouble(&ok);
    if (ok && std::isfinite(fromEnvironment))
        return std::max(0.0, fromEnvironment);
    // A style that wants no widget animations says so with a zero length.
    const QStyle* style = QApplication::style();
    if (style != nullptr && style->styleHint(QStyle::SH_Widget_Animation_Duration) == 0)
        return 0;
    return 1;
}

double& current() {
    static double value = readScale();
    return value;
}

} // namespace

double scale() {
    return current();
}

int duration(int milliseconds) {
    return std::max(0, int(std::lround(milliseconds * scale())));
}

ScaleOverride::ScaleOverride(double scale) : previous_(current()) {
    current() = std::max(0.0, scale);
}

ScaleOverride::~ScaleOverride() {
    current() = previous_;
}

} // namespace pomwick::Animations
