#pragma once

#include "NoticeIndicator.h"

#include <QColor>

namespace pomwick {

// A horizontal progress bar, 120 x 20: a rounded outline and a rounded fill growing from the left.
// Every property change repaints it.
class ZRBarProgressView : public ProgressIndicatorView {
    Q_OBJECT
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor)
    Q_PROPERTY(QColor progressColor READ progressColor WRITE setProgressColor)
    Q_PROPERTY(
        QColor progressRemainingColor READ progressRemainingColor WRITE setProgressRemainingColor)
public:
    explicit ZRBarProgressView(QWidget* parent = nullptr);

    QColor lineColor() const { return lineColor_; }
    void setLineColor(const QColor& color) { assign(lineColor_, color); }
    QColor progressColor() const { return progressColor_; }
    void setProgressColor(const QColor& color) { assign(progressColor_, color); }
    QColor progressRemainingColor() const { return progressRemainingColor_; }
    void setProgressRemainingColor(const QColor& color) { assign(progressRemainingColor_, color); }

    void paint(QPainter& painter) const override;

private:
    QColor lineColor_{255, 255, 255};
    QColor progressColor_{255, 255, 255};
    QColor progressRemainingColor_{Qt::transparent};
};

} // namespace pomwick
