#include "MainScreen.h"

#include <QGuiApplication>
#include <QScreen>

namespace pomwick {
namespace {
std::optional<double>& scaleOverride() {
    static std::optional<double> scale;
    return scale;
}
} // namespace

double mainScreenScale() {
    if (scaleOverride())
        return *scaleOverride();
    if (qGuiApp != nullptr && QGuiApplication::primaryScreen() != nullptr)
        return QGuiApplication::primaryScreen()->devicePixelRatio();
    return 1.0;
}

void setMainScreenScaleOverride(std::optional<double> scale) {
    scaleOverride() = scale;
}

} // namespace pomwick
