#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QThread>
#include <QTimer>
#include <QVariant>
#include <chrono>
#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

class QAbstractAnimation;
class QThreadPool;
class QWidget;

namespace pomwick {

class NoticeOverlay;
class ZRProgressHUD;

// A floating notice: a rounded translucent panel centered over its host view, showing a spinner,
// a progress view, a custom view or text only, with a main and a details label. It covers the
// host while shown, fades or zooms in and out, can wait a grace time before showing and a
// minimum time before hiding, and can run work on another thread while it is shown.
//
// The notice is the state; what the host shows is its overlay widget, which the notice owns and
// places over the host when added to it. Property changes made from another thread are queued to
// the notice's own thread.
class ZRProgressHUD : public QObject {
    Q_OBJECT
    Q_MOC_INCLUDE(<QWidget>)

public:
    enum ZRProgressHUDMode {
        ZRProgressHUDModeSpinner = 0,
        ZRProgressHUDModeRoundProgress = 1,
        ZRProgressHUDModeBarProgress = 2,
        ZRProgressHUDModeRingProgress = 3,
        ZRProgressHUDModeCustomView = 4,
        ZRProgressHUDModeTextOnly = 5,
    };
    Q_ENUM(ZRProgressHUDMode)
    enum ZRProgressHUDAnimation {
        ZRProgressHUDAnimationFade = 0,
        ZRProgressHUDAnimationZoomDown = 1,
        ZRProgressHUDAnimationZoomUp = 2,
    };
    Q_ENUM(ZRProgressHUDAnimation)

private:
    Q_PROPERTY(ZRProgressHUDMode mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(QWidget* customView READ customView WRITE setCustomView NOTIFY customViewChanged)
    Q_PROPERTY(QString labelText READ labelText WRITE setLabelText NOTIFY labelTextChanged)
    Q_PROPERTY(QFont labelFont READ labelFont WRITE setLabelFont NOTIFY labelFontChanged)
    Q_PROPERTY(QColor labelColor READ labelColor WRITE setLabelColor NOTIFY labelColorChanged)
    Q_PROPERTY(QString detailsLabelText READ detailsLabelText WRITE setDetailsLabelText NOTIFY
                   detailsLabelTextChanged)
    Q_PROPERTY(QFont detailsLabelFont READ detailsLabelFont WRITE setDetailsLabelFont NOTIFY
                   detailsLabelFontChanged)
    Q_PROPERTY(QColor detailsLabelColor READ detailsLabelColor WRITE setDetailsLabelColor NOTIFY
                   detailsLabelColorChanged)
    Q_PROPERTY(float progress READ progress WRITE setProgress NOTIFY progressChanged)
    // What the show and hide animations move.
    Q_PROPERTY(qreal alpha READ alpha WRITE setAlpha)
    Q_PROPERTY(qreal zoom READ zoom WRITE setZoom)
    Q_PROPERTY(qreal rotationAngle READ rotationAngle WRITE setRotationAngle)

public:
    static constexpr int animationMilliseconds = 300;
    static constexpr qreal padding = 4.0;

    // A notice the size of the view; it is not added to it. A null view throws
    // std::invalid_argument.
    explicit ZRProgressHUD(QWidget* view);
    ~ZRProgressHUD() override;

    // Creates a notice over the view, shows it and returns it; the view owns it.
    static ZRProgressHUD* showHUDAddedTo(QWidget* view, bool animated);
    // The topmost notice over the view, or null.
    static ZRProgressHUD* HUDForView(const QWidget* view);
    static std::vector<ZRProgressHUD*> allHUDsForView(const QWidget* view);
    // Hides (and then removes) the topmost notice; whether there was one.
    static bool hideHUDForView(const QWidget* view, bool animated);
    // Hides (and then removes) every notice over the view; how many there were.
    static int hideAllHUDsForView(const QWidget* view, bool animated);

    // Lays the notice over the view, which then owns it; null takes it off its view.
    void setSuperview(QWidget* view);
    QWidget* superview() const { return superview_; }

    void show(bool animated);
    void hide(bool animated);
    void hide(bool animated, double delaySeconds);

    // Runs the method (invokable, taking a QVariant) on a new thread, then hides on this thread.
    // The target must outlive the work.
    void showWhileExecuting(QObject* target, const char* method, const QVariant& object,
                            bool animated);
    // Runs the block on the queue (the global thread pool unless given), then hides on this
    // thread and calls the completion. Work that throws leaves the notice shown.
    void showAnimated(bool animated, std::function<void()> block);
    void showAnimated(bool animated, std::function<void()> block, std::function<void()> completion);
    void showAnimated(bool animated, std::function<void()> block, QThreadPool* queue);
    void showAnimated(bool animated, std::function<void()> block, QThreadPool* queue,
                      std::function<void()> completion);

    // Places the indicator and labels and computes the panel's size.
    void layoutSubviews();
    // Lays out now when a layout was asked for and has not run yet.
    void layoutIfNeeded();

    ZRProgressHUDMode mode() const { return mode_; }
    void setMode(ZRProgressHUDMode mode);
    QWidget* customView() const { return customView_; }
    // The notice takes ownership of the view.
    void setCustomView(QWidget* view);
    QString labelText() const { return labelText_; }
    void setLabelText(const QString& text);
    QFont labelFont() const { return labelFont_; }
    void setLabelFont(const QFont& font);
    QColor labelColor() const { return labelColor_; }
    void setLabelColor(const QColor& color);
    QString detailsLabelText() const { return detailsLabelText_; }
    void setDetailsLabelText(const QString& text);
    QFont detailsLabelFont() const { return detailsLabelFont_; }
    void setDetailsLabelFont(const QFont& font);
    QColor detailsLabelColor() const { return detailsLabelColor_; }
    void setDetailsLabelColor(const QColor& color);
    float progress() const { return progress_; }
    void setProgress(float progress);

    ZRProgressHUDAnimation animationType() const { return animationType_; }
    void setAnimationType(ZRProgressHUDAnimation type) { animationType_ = type; }
    float opacity() const { return opacity_; }
    void setOpacity(float opacity) { opacity_ = opacity; }
    // The panel's color; invalid (the default) draws black at `opacity`.
    QColor color() const { return color_; }
    void setColor(const QColor& color) { color_ = color; }
    float xOffset() const { return xOffset_; }
    void setXOffset(float offset) { xOffset_ = offset; }
    float yOffset() const { return yOffset_; }
    void setYOffset(float offset) { yOffset_ = offset; }
    bool dimBackground() const { return dimBackground_; }
    void setDimBackground(bool dim) { dimBackground_ = dim; }
    float margin() const { return margin_; }
    void setMargin(float margin) { margin_ = margin; }
    float cornerRadius() const { return cornerRadius_; }
    void setCornerRadius(float radius) { cornerRadius_ = radius; }
    float graceTime() const { return graceTime_; }
    void setGraceTime(float seconds) { graceTime_ = seconds; }
    float minShowTime() const { return minShowTime_; }
    void setMinShowTime(float seconds) { minShowTime_ = seconds; }
    bool removeFromSuperViewOnHide() const { return removeFromSuperViewOnHide_; }
    void setRemoveFromSuperViewOnHide(bool remove) { removeFromSuperViewOnHide_ = remove; }
    QSizeF minSize() const { return minSize_; }
    void setMinSize(QSizeF size) { minSize_ = size; }
    bool isSquare() const { return square_; }
    void setSquare(bool square) { square_ = square; }
    // The delegate is told of the notice's end through its hudWasHidden(hud), if it has one; any
    // other object is simply not told. Held weakly: a delegate destroyed meanwhile is not told.
    template <std::derived_from<QObject> Delegate> void setDelegate(Delegate* delegate) {
        holdDelegate(delegate);
        if constexpr (requires(ZRProgressHUD * hud) { delegate->hudWasHidden(hud); }) {
            delegateConnection_ = connect(this, &ZRProgressHUD::wasHidden, delegate,
                                          [this, delegate] { delegate->hudWasHidden(this); });
        }
    }
    void setDelegate(std::nullptr_t) { holdDelegate(nullptr); }
    QObject* delegate() const { return delegate_; }
    bool taskInProgress() const { return taskInProgress_; }
    // The timers the notice started, kept when they have fired; nobody else may start them.
    const QTimer& graceTimer() const { return graceTimer_; }
    const QTimer& minShowTimer() const { return minShowTimer_; }
    void setTaskInProgress(bool inProgress) { taskInProgress_ = inProgress; }
    std::function<void()> completionBlock() const { return completionBlock_; }
    void setCompletionBlock(std::function<void()> block) { completionBlock_ = std::move(block); }

    // The panel's size as the last layout computed it.
    QSizeF size() const { return size_; }
    std::optional<std::chrono::steady_clock::time_point> showStarted() const {
        return showStarted_;
    }
    qreal alpha() const { return alpha_; }
    qreal zoom() const { return zoom_; }
    qreal rotationAngle() const { return rotationAngle_; }

signals:
    // The notice has gone, hidden or never shown.
    void wasHidden();
    void modeChanged();
    void customViewChanged();
    void labelTextChanged();
    void labelFontChanged();
    void labelColorChanged();
    void detailsLabelTextChanged();
    void detailsLabelFontChanged();
    void detailsLabelColorChanged();
    void progressChanged();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend struct ZRProgressHUDTestAccess;
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    void holdDelegate(QObject* delegate);
    void setAlpha(qreal alpha);
    void setZoom(qreal zoom);
    void setRotationAngle(qreal radians);

    // What follows a change of an observed property.
    void indicatorChanged();
    void textChanged();
    void passProgress();
    void updateIndicators();
    void removeIndicator();
    void setNeedsLayout();
    void deviceOrientationDidChange();
    void setTransformForCurrentOrientation(bool animated);
    // The interface orientation in the device's numbering (1 portrait, 2 upside down, 3 and 4
    // landscape): the window's screen rotation from its natural orientation.
    int interfaceOrientation() const;

    void handleGraceTimer();
    void handleMinShowTimer();
    void showUsingAnimation(bool animated);
    void hideUsingAnimation(bool animated);
    void animate(qreal alpha, std::optional<qreal> zoom, std::function<void()> finished);
    void stopAnimation();
    void done();
    void cleanUp();

    // Runs the change here, or queues it to this notice's thread when called from another.
    template <class Change> void onOwnThread(Change change) {
        if (QThread::currentThread() == thread())
            change();
        else
            QMetaObject::invokeMethod(this, std::move(change), Qt::QueuedConnection);
    }
    template <class Value>
    void change(Value& field, const Value& value, void (ZRProgressHUD::*signal)(),
                void (ZRProgressHUD::*then)());

    ZRProgressHUDAnimation animationType_ = ZRProgressHUDAnimationFade;
    ZRProgressHUDMode mode_ = ZRProgressHUDModeSpinner;
    QString labelText_;
    QString detailsLabelText_;
    float opacity_ = 0.8f;
    QColor color_;
    QFont labelFont_;
    QColor labelColor_{Qt::white};
    QFont detailsLabelFont_;
    QColor detailsLabelColor_{Qt::white};
    float xOffset_ = 0;
    float yOffset_ = 0;
    bool dimBackground_ = false;
    float margin_ = 20.0f;
    float cornerRadius_ = 10.0f;
    float graceTime_ = 0;
    float minShowTime_ = 0;
    bool removeFromSuperViewOnHide_ = false;
    QSizeF minSize_;
    bool square_ = false;
    QPointer<QWidget> customView_;
    QPointer<QObject> delegate_;
    QMetaObject::Connection delegateConnection_;
    float progress_ = 0;
    bool taskInProgress_ = false;
    std::function<void()> completionBlock_;
    QTimer graceTimer_;
    QTimer minShowTimer_;
    std::vector<QTimer*> delayedHides_;
    std::optional<std::chrono::steady_clock::time_point> showStarted_;
    QSizeF size_;

    bool useAnimation_ = false;
    bool isFinished_ = false;
    QPointer<NoticeOverlay> overlay_;
    QPointer<QWidget> indicator_;
    QPointer<QWidget> superview_;
    qreal alpha_ = 0;
    qreal zoom_ = 1;
    qreal rotationAngle_ = 0;
    QPointer<QAbstractAnimation> animation_;
    bool needsLayout_ = false;
    Clock clock_ = [] {
        return std::chrono::steady_clock::now();
    };
    static inline std::optional<int> orientationOverride_;
};

using ZRProgressHUDMode = ZRProgressHUD::ZRProgressHUDMode;
using ZRProgressHUDAnimation = ZRProgressHUD::ZRProgressHUDAnimation;
using enum ZRProgressHUD::ZRProgressHUDMode;
using enum ZRProgressHUD::ZRProgressHUDAnimation;

} // namespace pomwick
