#include "ColorDescription.h"

#include <QCoreApplication>

namespace pomwick {
namespace {

QString percent(float component) {
    // 'f' formatting reads a component that is not a number as "nan" instead of failing.
    return QString::number(double(component) * 100, 'f', 0) + QLatin1Char('%');
}

} // namespace

QString describeColor(const Color& color) {
    return QCoreApplication::translate("pomwick::ColorDescription", "red %1 green %2 blue %3")
        .arg(percent(color.red), percent(color.green), percent(color.blue));
}

} // namespace pomwick
