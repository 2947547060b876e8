#include "NoticeLabel.h"

#include <QFontMetricsF>
#include <QPainter>

namespace pomwick {

NoticeLabel::NoticeLabel(bool wraps, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(wraps);
    setAttribute(Qt::WA_TranslucentBackground);
}

void NoticeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    const QRectF area = rect();
    if (wordWrap()) {
        painter.setClipRect(area);
        painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text());
        return;
    }
    const QFontMetricsF metrics(font());
    // Measured text fits its own measured width: only a narrower frame cuts it.
    const QString shown = metrics.horizontalAdvance(text()) <= area.width() + 0.5
                              ? text()
                              : metrics.elidedText(text(), Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, shown);
}

} // namespace pomwick
