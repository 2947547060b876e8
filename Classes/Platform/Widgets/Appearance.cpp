#include "Appearance.h"

#include <QFontDatabase>
#include <QPainter>
#include <map>

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
    // Asked for on every row of every rebuild: made once per size and weight.
    static std::map<std::pair<int, int>, QFont> made;
    auto found = made.find({points, int(weight)});
    if (found == made.end()) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPixelSize(points);
        font.setWeight(weight);
        found = made.emplace(std::pair{points, int(weight)}, font).first;
    }
    return found->second;
}

void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius) {
    painter.save();
    painter.setOpacity(1);
    painter.setPen(QPen(tint(), 2));
    painter.setBrush(Qt::NoBrush);
    const QRectF ring = outline.adjusted(1, 1, -1, -1);
    painter.drawRoundedRect(ring, std::max<qreal>(0, radius - 1), std::max<qreal>(0, radius - 1));
    painter.restore();
}

namespace {
QColor& segmentedTint() {
    static QColor color = tint();
    return color;
}
} // namespace

QColor segmentedControlTint() {
    return segmentedTint();
}
void setSegmentedControlTint(const QColor& color) {
    segmentedTint() = color;
}

} // namespace pomwick::Appearance
