#include "NoticeLabel.h"

#include <QFontMetricsF>
#include <QPainter>

namespace pomwick {

void drawNoticeText(QPainter& painter, const QRectF& area, const QString& text, const QFont& font,
                    const QColor& color, bool wraps) {
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(color);
    if (wraps) {
        painter.save();
        painter.setClipRect(area, Qt::IntersectClip);
        painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
        painter.restore();
        return;
    }
    const QFontMetricsF metrics(font);
    // Measured text fits its own measured width: only a narrower area cuts it.
    const QString shown = metrics.horizontalAdvance(text) <= area.width() + 0.5
                              ? text
                              : metrics.elidedText(text, Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, shown);
}

NoticeLabel::NoticeLabel(bool wraps, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(wraps);
    setAttribute(Qt::WA_TranslucentBackground);
}

void NoticeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawNoticeText(painter, rect(), text(), font(), palette().color(QPalette::WindowText),
                   wordWrap());
}

} // namespace pomwick
