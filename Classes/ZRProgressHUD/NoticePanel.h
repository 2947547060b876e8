#pragma once

#include <QColor>
#include <QWidget>

namespace pomwick {

// The notice's rounded panel, holding its indicator and labels. Kept as small as the panel so
// that fading and zooming it redraws only the panel, never the whole host.
class NoticePanel : public QWidget {
    Q_OBJECT
public:
    explicit NoticePanel(QWidget* parent);

    void setFill(const QColor& color, qreal cornerRadius);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor fill_;
    qreal cornerRadius_ = 0;
};

} // namespace pomwick
