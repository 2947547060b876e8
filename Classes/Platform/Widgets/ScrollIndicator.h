#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>

class QAbstractScrollArea;
class QPropertyAnimation;

namespace pomwick {

// The thin bar at the right edge of a scrolling view, as on the phone: its length is the visible
// share of the content, its place the scroll position; it shows while the view scrolls and fades
// out shortly after, and never when the content fits. It takes no input and no focus; the view
// owns it. The content's height is the scroll bar's range and page unless the view knows better.
class ScrollIndicator : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)
public:
    explicit ScrollIndicator(QAbstractScrollArea* area,
                             std::function<qreal()> contentHeight = nullptr);

    qreal opacity() const { return opacity_; }
    void setOpacity(qreal opacity);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void flash();
    bool place();
    void fadeOut();

    QAbstractScrollArea* area_;
    std::function<qreal()> contentHeight_;
    QTimer linger_;
    QPointer<QPropertyAnimation> fade_;
    qreal opacity_ = 1;
};

} // namespace pomwick
