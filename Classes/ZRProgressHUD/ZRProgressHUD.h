#pragma once

#include <QAbstractAnimation>
#include <QColor>
#include <QFont>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QThread>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <chrono>
#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QThreadPool;

namespace pomwick {

class ZRProgressHUD;
class HUDPresentationEffect;
class NoticePanel;

enum ZRProgressHUDMode {
    ZRProgressHUDModeSpinner = 0,
    ZRProgressHUDModeRoundProgress = 1,
    ZRProgressHUDModeBarProgress = 2,
    ZRProgressHUDModeRingProgress = 3,
    ZRProgressHUDModeCustomView = 4,
    ZRProgressHUDModeTextOnly = 5,
};

enum ZRProgressHUDAnimation {
    ZRProgressHUDAnimationFade = 0,
    ZRProgressHUDAnimationZoomDown = 1,
    ZRProgressHUDAnimationZoomUp = 2,
};

// What a notice tells whoever listens when it has gone. A QObject delegate that does not declare
// this interface (Q_INTERFACES) is not called.
class ZRProgressHUDDelegate {
public:
    virtual void hudWasHidden(ZRProgressHUD* hud) = 0;

protected:
    ~ZRProgressHUDDelegate() = default;
};

} // namespace pomwick

Q_DECLARE_INTERFACE(pomwick::ZRProgressHUDDelegate, "com.velquor.pomwick.ZRProgressHUDDelegate")

namespace pomwick {

// A floating notice: a rounded translucent panel centered over its host view, showing a spinner,
// a progress view, a custom view or text only, with a main and a details label. It covers the
// host while shown, fades or zooms in and out, can wait a grace time before showing and a
// minimum time before hiding, and can run work on another thread while it is shown.
//
// Changes to the observed properties (mode, customView, the labels' texts, fonts and colors,
// progress) emit their signal and update the notice on its own thread, queued there when made
// from another thread.
class ZRProgressHUD : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int mode READ mode WRITE setMode NOTIFY modeChanged)
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
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    static constexpr int animationMilliseconds = 300;
    static constexpr qreal padding = 4.0;

    // A notice the size of the view; it is not added to it. The view must not be null.
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

    int mode() const { return mode_; }
    void setMode(int mode);
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

    int animationType() const { return animationType_; }
    void setAnimationType(int type) { animationType_ = type; }
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
    // Held weakly; called when it declares ZRProgressHUDDelegate.
    QObject* delegate() const { return delegate_; }
    void setDelegate(QObject* delegate) { delegate_ = delegate; }
    bool taskInProgress() const { return taskInProgress_; }
    void setTaskInProgress(bool inProgress) { taskInProgress_ = inProgress; }
    std::function<void()> completionBlock() const { return completionBlock_; }
    void setCompletionBlock(std::function<void()> block) { completionBlock_ = std::move(block); }

    // The panel's size as the last layout computed it (the device calls it `size`).
    QSizeF panelSize() const { return size_; }
    bool isFinished() const { return isFinished_; }
    std::optional<std::chrono::steady_clock::time_point> showStarted() const {
        return showStarted_;
    }
    // The rounded panel that holds the indicator and the labels.
    QWidget* panel() const;
    QWidget* indicator() const { return indicator_; }
    QLabel* label() const { return label_; }
    QLabel* detailsLabel() const { return detailsLabel_; }
    const QTimer& graceTimer() const { return graceTimer_; }
    const QTimer& minShowTimer() const { return minShowTimer_; }
    // The pending hide(animated, delay) calls, each a one-shot timer.
    std::vector<const QTimer*> pendingDelayedHides() const;
    // The show or hide animation under way, if any.
    QAbstractAnimation* runningAnimation() const { return animation_; }

    qreal alpha() const { return alpha_; }
    void setAlpha(qreal alpha);
    qreal zoom() const { return zoom_; }
    void setZoom(qreal zoom);
    qreal rotationAngle() const { return rotationAngle_; }
    void setRotationAngle(qreal radians);

    // The clock that show and hide measure the minimum show time with.
    void setClock(Clock clock) { clock_ = std::move(clock); }
    // The interface orientation in the device's numbering (1 portrait, 2 upside down, 3 and 4
    // landscape): the window's screen rotation from its natural orientation, unless overridden.
    static int interfaceOrientation(const QWidget* widget);
    static void setInterfaceOrientationOverride(std::optional<int> orientation);

signals:
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
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setupLabels();
    void updateIndicators();
    void removeIndicator();
    void updateUIForKeypath(const char* keyPath);
    void setNeedsLayout();
    void registerForNotifications();
    void deviceOrientationDidChange();
    void didMoveToSuperview();
    void setTransformForCurrentOrientation(bool animated);

    void handleGraceTimer();
    void handleMinShowTimer();
    void showUsingAnimation(bool animated);
    void hideUsingAnimation(bool animated);
    void animate(const std::vector<std::pair<const char*, qreal>>& targets, int milliseconds,
                 std::function<void()> finished);
    void stopAnimation();
    void done();
    static void launchExecution(QObject* target, const QByteArray& method, const QVariant& object,
                                const QPointer<ZRProgressHUD>& self);
    void cleanUp();

    // Runs the change here, or queues it to this notice's thread when called from another.
    template <class Change> void onOwnThread(Change change) {
        if (QThread::currentThread() == thread())
            change();
        else
            QMetaObject::invokeMethod(this, std::move(change), Qt::QueuedConnection);
    }
    template <class Value, class Signal>
    void assign(Value& field, const Value& value, Signal signal, const char* keyPath);

    QSizeF contentSize() const;
    void placePanel();
    void refreshPresentation();

    int animationType_ = ZRProgressHUDAnimationFade;
    int mode_ = ZRProgressHUDModeSpinner;
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
    float progress_ = 0;
    bool taskInProgress_ = false;
    std::function<void()> completionBlock_;
    QTimer graceTimer_;
    QTimer minShowTimer_;
    std::vector<QTimer*> delayedHides_;
    std::optional<std::chrono::steady_clock::time_point> showStarted_;
    QSizeF size_;

    bool useAnimation_ = false;
    QPointer<QObject> targetForExecution_;
    QByteArray methodForExecution_;
    QVariant objectForExecution_;
    NoticePanel* panel_ = nullptr;
    QRectF panelRect_;
    QPixmap dimming_;
    QLabel* label_ = nullptr;
    QLabel* detailsLabel_ = nullptr;
    bool isFinished_ = false;
    QPointer<QWidget> indicator_;
    QPointer<QWidget> superview_;
    qreal alpha_ = 0;
    qreal zoom_ = 1;
    qreal rotationAngle_ = 0;
    HUDPresentationEffect* presentation_ = nullptr;
    QPointer<QAbstractAnimation> animation_;
    bool needsLayout_ = false;
    Clock clock_ = [] {
        return std::chrono::steady_clock::now();
    };
};

} // namespace pomwick
