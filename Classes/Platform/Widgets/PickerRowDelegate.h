#pragma once

#include "PomwickPlatformExport.h"

#include <QStyledItemDelegate>

namespace pomwick {

// Paints a wheel's rows as if on a cylinder whose radius is half the wheel's height: a row's
// offset from the middle is an angle, drawn at the sine of it, squeezed by its cosine and fading
// as it turns away. Each row shows its text (display, font, foreground and alignment roles) on its
// background colour in a box inset from the row's sides; the rest of the row stays clear.
class POMWICK_PLATFORM_EXPORT PickerRowDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit PickerRowDelegate(QObject* parent = nullptr) : QStyledItemDelegate(parent) {}

    // The box of a row: this much narrower than the row on each side, this high.
    void setBox(qreal sideInset, qreal height);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    qreal sideInset_ = 0;
    qreal boxHeight_ = 20;
};

} // namespace pomwick
