#pragma once

#include "NoticeIndicator.h"

#include <QColor>

namespace pomwick {

// A round progress indicator, 37 x 37: a white wedge over a faint disc (pie), or a ring whose arc
// grows clockwise from twelve o'clock (annular). Every property change repaints it.
class ZRRoundProgressView : public ProgressIndicatorView {
    Q_OBJECT
    Q_PROPERTY(QColor progressTintColor READ progressTintColor WRITE setProgressTintColor)
    Q_PROPERTY(QColor backgroundTintColor READ backgroundTintColor WRITE setBackgroundTintColor)
    Q_PROPERTY(bool annular READ isAnnular WRITE setAnnular)
public:
    explicit ZRRoundProgressView(QWidget* parent = nullptr);

    QColor progressTintColor() const { return progressTintColor_; }
    void setProgressTintColor(const QColor& color) { assign(progressTintColor_, color); }
    QColor backgroundTintColor() const { return backgroundTintColor_; }
    void setBackgroundTintColor(const QColor& color) { assign(backgroundTintColor_, color); }
    bool isAnnular() const { return annular_; }
    void setAnnular(bool annular) { assign(annular_, annular); }

    void paint(QPainter& painter) const override;

private:
    QColor progressTintColor_{255, 255, 255};
    QColor backgroundTintColor_ = QColor::fromRgbF(1, 1, 1, 0.1f);
    bool annular_ = false;
};

} // namespace pomwick
