#pragma once

#include <QColor>
#include <QWidget>

namespace pomwick {

// A horizontal progress bar, 120 x 20: a rounded outline and a rounded fill growing from the left.
// Every property change repaints it.
class ZRBarProgressView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(float progress READ progress WRITE setProgress NOTIFY progressChanged)
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor)
    Q_PROPERTY(QColor progressColor READ progressColor WRITE setProgressColor)
    Q_PROPERTY(
        QColor progressRemainingColor READ progressRemainingColor WRITE setProgressRemainingColor)
public:
    explicit ZRBarProgressView(QWidget* parent = nullptr);

    float progress() const { return progress_; }
    void setProgress(float progress);
    QColor lineColor() const { return lineColor_; }
    void setLineColor(const QColor& color);
    QColor progressColor() const { return progressColor_; }
    void setProgressColor(const QColor& color);
    QColor progressRemainingColor() const { return progressRemainingColor_; }
    void setProgressRemainingColor(const QColor& color);

signals:
    void progressChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    float progress_ = 0;
    QColor lineColor_{255, 255, 255};
    QColor progressColor_{255, 255, 255};
    QColor progressRemainingColor_{Qt::transparent};
};

} // namespace pomwick
