#pragma once

#include "PomwickPlatformExport.h"
#include "ViewController.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <vector>

namespace pomwick {

// A stack of view controllers under a navigation bar: the top one's title in the middle, a back
// button to the one below on the left, its right bar button on the right. Pushing and popping
// tell the controllers they will and did appear or disappear, in the device's order. The window's
// size changes reach the top controller as rotations, once the size has settled.
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

private:
    void layoutContent();
    void updateBar();
    void reportRotation();

    std::vector<ViewController*> stack_;
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
