#include "Appearance.h"

#include <QFontDatabase>

namespace pomwick::Appearance {

QColor tint() {
    return QColor(0, 122, 255);
}
QColor barBackground() {
    return QColor(248, 248, 248);
}
QColor hairline() {
    return QColor(200, 199, 204);
}
QColor groupedBackground() {
    return QColor(239, 239, 244);
}
QColor sectionHeaderText() {
    return QColor(109, 109, 114);
}
QColor selectedCellBackground() {
    return QColor(217, 217, 217);
}

QFont systemFont(int points, QFont::Weight weight) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(points);
    font.setWeight(weight);
    return font;
}

namespace {
QColor& segmentedTint() {
    static QColor colour = tint();
    return colour;
}
} // namespace

QColor segmentedControlTint() {
    return segmentedTint();
}
void setSegmentedControlTint(const QColor& colour) {
    segmentedTint() = colour;
}

} // namespace pomwick::Appearance
