#pragma once

#include <QColor>
#include <QWidget>

namespace pomwick {

// A round progress indicator, 37 x 37: a white wedge over a faint disc (pie), or a ring whose arc
// grows clockwise from twelve o'clock (annular). Every property change repaints it.
class ZRRoundProgressView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(float progress READ progress WRITE setProgress NOTIFY progressChanged)
    Q_PROPERTY(QColor progressTintColor READ progressTintColor WRITE setProgressTintColor)
    Q_PROPERTY(QColor backgroundTintColor READ backgroundTintColor WRITE setBackgroundTintColor)
    Q_PROPERTY(bool annular READ isAnnular WRITE setAnnular)
public:
    explicit ZRRoundProgressView(QWidget* parent = nullptr);

    float progress() const { return progress_; }
    void setProgress(float progress);
    QColor progressTintColor() const { return progressTintColor_; }
    void setProgressTintColor(const QColor& color);
    QColor backgroundTintColor() const { return backgroundTintColor_; }
    void setBackgroundTintColor(const QColor& color);
    bool isAnnular() const { return annular_; }
    void setAnnular(bool annular);

signals:
    void progressChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    float progress_ = 0;
    QColor progressTintColor_{255, 255, 255};
    QColor backgroundTintColor_ = QColor::fromRgbF(1, 1, 1, 0.1f);
    bool annular_ = false;
};

} // namespace pomwick
