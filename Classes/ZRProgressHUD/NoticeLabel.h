#pragma once

#include <QLabel>

namespace pomwick {

// Text as the notice's labels draw it: plain text centered in its area, on one line cut with an
// ellipsis, or wrapped over as many lines as the area holds.
void drawNoticeText(QPainter& painter, const QRectF& area, const QString& text, const QFont& font,
                    const QColor& color, bool wraps);

// A label drawn as the notice draws its labels.
class NoticeLabel : public QLabel {
    Q_OBJECT
public:
    NoticeLabel(bool wraps, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pomwick
