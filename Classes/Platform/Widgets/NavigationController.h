#pragma once

#include "DoubleClickTail.h"
#include "PomwickPlatformExport.h"
#include "ViewController.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

class QParallelAnimationGroup;

namespace pomwick {

// A stack of view controllers under a navigation bar: the top one's title in the middle, a back
// button to the one below on the left, its right bar button on the right. Pushing and popping
// tell the controllers they will and did appear or disappear, in the device's order; animated, the
// pages slide, and neither page takes input until the slide is over (nor the rest of a double
// click that started it). Escape and Alt+Left go back, and the focus goes back to the control
// that had it when the page was pushed. The window's size changes reach the top controller as
// rotations, once the size has settled.
class POMWICK_PLATFORM_EXPORT NavigationController : public QWidget {
    Q_OBJECT
public:
    static constexpr int barHeight = 44;

    // The root's view is made at once, for a window of the given size.
    explicit NavigationController(ViewController* root, QSize size = {375, 667},
                                  QWidget* parent = nullptr);
    ~NavigationController() override;

    void pushViewController(ViewController* controller, bool animated);
    ViewController* popViewControllerAnimated(bool animated);
    ViewController* topViewController() const;
    const std::vector<ViewController*>& viewControllers() const { return stack_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend struct NavigationControllerTestAccess;
    // Slides `entering` in over (forward) or out from under `leaving`, then runs `done`.
    void transition(QWidget* leaving, QWidget* entering, bool forward, bool animated,
                    std::function<void()> done);
    void finishTransition();
    bool isTransitioning() const;
    void goBack();
    void takeFocusFrom(QWidget* page);
    void layoutContent();
    void layoutBar();
    void updateBar();
    void reportRotation();

    std::vector<ViewController*> stack_;
    // Per page below the top: the control that had the focus when the next one was pushed.
    std::vector<QPointer<QWidget>> returnFocus_;
    QPointer<QParallelAnimationGroup> transition_;
    DoubleClickTail doubleClickTail_;
    bool swallowingClick_ = false;
    Qt::FocusReason backReason_ = Qt::OtherFocusReason;
    QWidget* bar_;
    QPushButton* back_;
    QLabel* title_;
    QPushButton* right_;
    QWidget* content_;
    QTimer settle_;
    int orientation_ = 1;
    bool appeared_ = false;
};

} // namespace pomwick
