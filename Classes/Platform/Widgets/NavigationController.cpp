#include "NavigationController.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QResizeEvent>

namespace pomwick {
namespace {

// The bar: translucent white with a hairline at the bottom.
class NavigationBar : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Appearance::barBackground());
        painter.fillRect(QRectF(0, height() - 0.5, width(), 0.5), Appearance::hairline());
    }
};

QPushButton* barButton(QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setFlat(true);
    button->setCursor(Qt::PointingHandCursor);
    button->setFont(Appearance::systemFont(17));
    button->setStyleSheet(
        QString("QPushButton { color: %1; border: 2px solid transparent; border-radius: 6px; "
                "padding: 0 6px; background: transparent; } QPushButton:pressed { color: %2; } "
                "QPushButton:focus { border-color: %1; }")
            .arg(Appearance::tint().name(), Appearance::tint().lighter(160).name()));
    return button;
}

} // namespace

NavigationController::NavigationController(ViewController* root, QSize size, QWidget* parent)
    : QWidget(parent), bar_(new NavigationBar(this)), back_(barButton(bar_)),
      title_(new QLabel(bar_)), right_(barButton(bar_)), content_(new QWidget(this)) {
    title_->setFont(Appearance::systemFont(17, QFont::DemiBold));
    title_->setAlignment(Qt::AlignCenter);
    auto* layout = new QHBoxLayout(bar_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(back_, 1, Qt::AlignLeft);
    layout->addWidget(title_, 2);
    layout->addWidget(right_, 1, Qt::AlignRight);
    connect(back_, &QPushButton::clicked, this, [this] { popViewControllerAnimated(true); });
    connect(right_, &QPushButton::clicked, this, [this] {
        if (auto* top = topViewController(); top && top->rightBarButtonItem())
            top->rightBarButtonItem()->action();
    });
    settle_.setSingleShot(true);
    settle_.setInterval(60);
    connect(&settle_, &QTimer::timeout, this, &NavigationController::reportRotation);
    resize(size);
    pushViewController(root, false);
}

// The controllers are children: they go with the stack, and with them whatever they connected.
NavigationController::~NavigationController() = default;

void NavigationController::pushViewController(ViewController* controller, bool animated) {
    ViewController* previous = topViewController();
    controller->setParent(this);
    controller->navigation_ = this;
    controller->setInitialViewSize(QSize(width(), std::max(0, height() - barHeight)));
    QWidget* view = controller->view();
    if (previous != nullptr && appeared_)
        previous->viewWillDisappear(animated);
    if (appeared_)
        controller->viewWillAppear(animated);
    stack_.push_back(controller);
    view->setParent(content_);
    connect(controller, &ViewController::navigationItemChanged, this,
            &NavigationController::updateBar);
    layoutContent();
    view->show();
    if (previous != nullptr) {
        previous->view()->hide();
        if (appeared_)
            previous->viewDidDisappear(animated);
    }
    updateBar();
    if (appeared_)
        controller->viewDidAppear(animated);
}

ViewController* NavigationController::popViewControllerAnimated(bool animated) {
    if (stack_.size() < 2)
        return nullptr;
    ViewController* leaving = stack_.back();
    ViewController* below = stack_[stack_.size() - 2];
    leaving->viewWillDisappear(animated);
    below->viewWillAppear(animated);
    stack_.pop_back();
    leaving->view()->hide();
    layoutContent();
    below->view()->show();
    leaving->viewDidDisappear(animated);
    updateBar();
    below->viewDidAppear(animated);
    leaving->navigation_ = nullptr;
    // The caller gets it back but does not own it, as on the device: released once the run
    // loop comes round.
    leaving->deleteLater();
    return leaving;
}

ViewController* NavigationController::topViewController() const {
    return stack_.empty() ? nullptr : stack_.back();
}

void NavigationController::layoutContent() {
    bar_->setGeometry(0, 0, width(), barHeight);
    content_->setGeometry(0, barHeight, width(), std::max(0, height() - barHeight));
    if (ViewController* top = topViewController())
        setFrame(top->view(), QRectF(0, 0, content_->width(), content_->height()));
}

void NavigationController::updateBar() {
    ViewController* top = topViewController();
    title_->setText(top ? top->title() : QString());
    const bool canGoBack = stack_.size() > 1;
    back_->setVisible(canGoBack);
    back_->setText(canGoBack ? QString::fromUtf8("\u2039 ") + stack_[stack_.size() - 2]->title()
                             : QString());
    const BarButtonItem* item = top ? top->rightBarButtonItem() : nullptr;
    right_->setVisible(item != nullptr);
    right_->setText(item ? item->title : QString());
}

void NavigationController::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutContent();
    if (appeared_)
        settle_.start();
}

void NavigationController::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (appeared_)
        return;
    appeared_ = true;
    // The window opens with the focus on itself, not on its first button: no ring until the
    // first Tab, which goes to the back button.
    if (focusWidget() == nullptr)
        setFocus(Qt::OtherFocusReason);
    if (ViewController* top = topViewController()) {
        top->viewWillAppear(false);
        top->viewDidAppear(false);
    }
}

// A desktop window has no orientation of its own: its shape stands for it, and every settled
// resize is reported as a rotation so the screen lays itself out again for the new size.
void NavigationController::reportRotation() {
    const int from = orientation_;
    orientation_ = width() > height() ? 3 : 1;
    if (ViewController* top = topViewController())
        top->didRotateFromInterfaceOrientation(from);
}

} // namespace pomwick
