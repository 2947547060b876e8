#include "NavigationController.h"

#include "Animations.h"
#include "Appearance.h"
#include "ModalScope.h"
#include "ViewGeometry.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QResizeEvent>
#include <QShortcut>

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
        const qreal line = Appearance::hairlineWidth(painter);
        painter.fillRect(QRectF(0, height() - line, width(), line), Appearance::hairline());
    }
};

QPushButton* barButton(QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setFlat(true);
    // A click is no reason for a ring: the focus comes here by Tab only.
    button->setFocusPolicy(Qt::TabFocus);
    button->setCursor(Qt::PointingHandCursor);
    button->setFont(Appearance::systemFont(17));
    button->setStyleSheet(
        QString("QPushButton { color: %1; border: 2px solid transparent; border-radius: 6px; "
                "padding: 0 6px; background: transparent; } QPushButton:pressed { color: %2; } "
                "QPushButton:focus { border-color: %1; }")
            .arg(Appearance::tint().name(), Appearance::tint().lighter(160).name()));
    return button;
}

constexpr int slideMilliseconds = 350;

// The first control of the page that Tab would reach.
QWidget* firstTabStop(QWidget* page) {
    for (QWidget* next = page->nextInFocusChain(); next != nullptr && next != page;
         next = next->nextInFocusChain())
        if (page->isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) && next->isEnabled() &&
            next->isVisibleTo(page))
            return next;
    return nullptr;
}

bool isPointerInput(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
           type == QEvent::MouseButtonRelease || type == QEvent::MouseMove || type == QEvent::Wheel;
}

bool isKeyInput(QEvent::Type type) {
    return type == QEvent::KeyPress || type == QEvent::KeyRelease ||
           type == QEvent::ShortcutOverride;
}

} // namespace

NavigationController::NavigationController(ViewController* root, QSize size, QWidget* parent)
    : QWidget(parent), bar_(new NavigationBar(this)), back_(barButton(bar_)),
      title_(new QLabel(bar_)), right_(barButton(bar_)), content_(new QWidget(this)) {
    title_->setFont(Appearance::systemFont(17, QFont::DemiBold));
    title_->setAlignment(Qt::AlignCenter);
    auto* layout = new QHBoxLayout(bar_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(back_, 0, Qt::AlignLeft);
    layout->addStretch(1);
    layout->addWidget(right_, 0, Qt::AlignRight);
    // The title is centred on the bar whatever the buttons' widths: placed by layoutBar().
    title_->raise();
    connect(back_, &QPushButton::clicked, this, [this] { popViewControllerAnimated(true); });
    connect(right_, &QPushButton::clicked, this, [this] {
        if (auto* top = topViewController(); top && top->rightBarButtonItem())
            top->rightBarButtonItem()->action();
    });
    // Back is along the back button's arrow: Alt+Right, right to left.
    auto* backKey = new QShortcut(Qt::ALT | (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left), this);
    backKey->setContext(Qt::WidgetWithChildrenShortcut);
    connect(backKey, &QShortcut::activated, this, &NavigationController::goBack);
    auto* quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    quit->setContext(Qt::ApplicationShortcut);
    connect(quit, &QShortcut::activated, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    // The narrowest phone's width: below it the bar's buttons meet the title and the rows'
    // controls their labels.
    setMinimumSize(320, 320);
    settle_.setSingleShot(true);
    // A rotation is judged once the resize has settled, as a turn of the device takes a moment.
    settle_.setInterval(Animations::duration(60));
    connect(&settle_, &QTimer::timeout, this, &NavigationController::reportRotation);
    resize(size);
    pushViewController(root, false);
}

// The controllers are children: they go with the stack, and with them whatever they connected.
NavigationController::~NavigationController() {
    qApp->removeEventFilter(this);
}

void NavigationController::pushViewController(ViewController* controller, bool animated) {
    finishTransition();
    ViewController* previous = topViewController();
    controller->setParent(this);
    controller->navigation_ = this;
    controller->setInitialViewSize(QSize(width(), std::max(0, height() - barHeight)));
    QWidget* view = controller->view();
    if (previous != nullptr && appeared_)
        previous->viewWillDisappear(animated);
    if (appeared_)
        controller->viewWillAppear(animated);
    QWidget* focus = window()->focusWidget();
    const bool focusOnPage = previous != nullptr && previous->view()->isAncestorOf(focus);
    if (previous != nullptr)
        returnFocus_.emplace_back(focusOnPage ? focus : nullptr);
    stack_.push_back(controller);
    view->setParent(content_);
    connect(controller, &ViewController::navigationItemChanged, this,
            &NavigationController::updateBar);
    layoutContent();
    view->show();
    updateBar();
    const bool appeared = appeared_;
    transition(previous ? previous->view() : nullptr, view, true, animated && appeared, [=, this] {
        if (previous != nullptr) {
            takeFocusFrom(previous->view());
            previous->view()->hide();
            if (appeared)
                previous->viewDidDisappear(animated);
        }
        if (appeared)
            controller->viewDidAppear(animated);
        // A keyboard user goes on in the new page.
        if (QWidget* first = focusOnPage ? firstTabStop(view) : nullptr)
            first->setFocus(Qt::TabFocusReason);
    });
}

ViewController* NavigationController::popViewControllerAnimated(bool animated) {
    finishTransition();
    if (stack_.size() < 2)
        return nullptr;
    ViewController* leaving = stack_.back();
    ViewController* below = stack_[stack_.size() - 2];
    leaving->viewWillDisappear(animated);
    stack_.pop_back();
    // A page the window was resized over places its content again as it comes back.
    const QSize coveredSize = below->view()->size();
    layoutContent();
    if (below->view()->size() != coveredSize)
        below->viewDidLayoutSubviews();
    below->view()->show();
    // Back to the control that pushed, before the page rebuilds so that it keeps its place.
    const QPointer<QWidget> opener = returnFocus_.back();
    returnFocus_.pop_back();
    if (opener && opener->isVisible() && opener->isEnabled())
        opener->setFocus(std::exchange(backReason_, Qt::OtherFocusReason));
    takeFocusFrom(leaving->view());
    below->viewWillAppear(animated);
    updateBar();
    transition(leaving->view(), below->view(), false, animated && appeared_, [=] {
        leaving->view()->hide();
        leaving->viewDidDisappear(animated);
        below->viewDidAppear(animated);
        leaving->navigation_ = nullptr;
        // The caller gets it back but does not own it, as on the device: released once the run
        // loop comes round.
        leaving->deleteLater();
    });
    return leaving;
}

// A page that hides with the focus (a click put it there) would have Qt pass it on down the
// chain, to the back button as often as not, where the next Space leaves the page. The window
// holds it instead, as it does at start, and the next Tab goes on from the top.
void NavigationController::takeFocusFrom(QWidget* page) {
    if (page->isAncestorOf(window()->focusWidget()))
        setFocus(Qt::OtherFocusReason);
}

ViewController* NavigationController::topViewController() const {
    return stack_.empty() ? nullptr : stack_.back();
}

void NavigationController::transition(QWidget* leaving, QWidget* entering, bool forward,
                                      bool animated, std::function<void()> done) {
    if (leaving == nullptr || !animated) {
        done();
        return;
    }
    // A page that jumps in, with animations off, is as much under the double click as one that
    // slides.
    doubleClickTail_.restart();
    qApp->installEventFilter(this);
    const int milliseconds = Animations::duration(slideMilliseconds);
    if (milliseconds == 0) {
        done();
        return;
    }
    // The page on top slides the full width; the one beneath moves a third as far.
    // Right to left, pages come in from the left.
    const int width = isRightToLeft() ? -content_->width() : content_->width();
    QWidget* top = forward ? entering : leaving;
    QWidget* under = forward ? leaving : entering;
    top->raise();
    auto* group = new QParallelAnimationGroup(this);
    const auto move = [&](QWidget* page, int from, int to) {
        auto* slide = new QPropertyAnimation(page, "pos", group);
        slide->setDuration(milliseconds);
        slide->setEasingCurve(QEasingCurve::OutCubic);
        slide->setStartValue(QPoint(from, page->y()));
        slide->setEndValue(QPoint(to, page->y()));
    };
    move(top, forward ? width : 0, forward ? 0 : width);
    move(under, forward ? 0 : -width / 3, forward ? -width / 3 : 0);
    connect(group, &QAbstractAnimation::finished, this, [this, done = std::move(done)] {
        done();
        layoutContent();
    });
    transition_ = group;
    group->start(QAbstractAnimation::DeleteWhenStopped);
}

// A new push or pop lands the one in progress at once.
void NavigationController::finishTransition() {
    if (transition_)
        transition_->setCurrentTime(transition_->totalDuration());
}

bool NavigationController::isTransitioning() const {
    return transition_ && transition_->state() == QAbstractAnimation::Running;
}

void NavigationController::goBack() {
    if (isTransitioning() || ModalScope::isActiveIn(this) || stack_.size() < 2)
        return;
    backReason_ = Qt::ShortcutFocusReason;
    popViewControllerAnimated(true);
}

void NavigationController::keyPressEvent(QKeyEvent* event) {
    // Escape reaches here only when nothing in the page wanted it.
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier &&
        stack_.size() > 1) {
        goBack();
        return;
    }
    QWidget::keyPressEvent(event);
}

// While pages slide, neither takes input; nor does the rest of a double click whose first click
// started the slide, which would otherwise land on whatever the new page has under the pointer.
bool NavigationController::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || (widget != this && !isAncestorOf(widget)))
        return false;
    const QEvent::Type type = event->type();
    const bool running = isTransitioning();
    if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick) {
        swallowingClick_ = running || doubleClickTail_.covers(*static_cast<QMouseEvent*>(event));
        return swallowingClick_;
    }
    if (isPointerInput(type)) {
        const bool swallow = running || swallowingClick_;
        if (type == QEvent::MouseButtonRelease)
            swallowingClick_ = false;
        return swallow;
    }
    if (!running && !swallowingClick_ && !doubleClickTail_.isRunning())
        qApp->removeEventFilter(this);
    return running && isKeyInput(type);
}

void NavigationController::layoutBar() {
    const auto taken = [](const QPushButton* button) {
        return button->isVisibleTo(button->parentWidget()) ? button->sizeHint().width() : 0;
    };
    const int side = std::max(taken(back_), taken(right_));
    title_->setGeometry(side, 0, std::max(0, width() - 2 * side), barHeight);
}

void NavigationController::layoutContent() {
    bar_->setGeometry(0, 0, width(), barHeight);
    layoutBar();
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
    layoutBar();
}

void NavigationController::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutContent();
    if (!appeared_)
        return;
    if (ViewController* top = topViewController())
        top->viewDidLayoutSubviews();
    settle_.start();
}

void NavigationController::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (appeared_)
        return;
    appeared_ = true;
    orientation_ = width() > height() ? 3 : 1;
    // The window opens with the focus on itself, not on its first button: no ring until the
    // first Tab, which goes to the back button.
    if (focusWidget() == nullptr)
        setFocus(Qt::OtherFocusReason);
    if (ViewController* top = topViewController()) {
        top->viewWillAppear(false);
        top->viewDidAppear(false);
    }
}

// A desktop window has no orientation of its own: its shape stands for it. Once a resize has
// settled and the shape has turned from tall to wide or back, that is a rotation; any other resize
// only lays the page out again.
void NavigationController::reportRotation() {
    const int from = orientation_;
    orientation_ = width() > height() ? 3 : 1;
    if (orientation_ == from)
        return;
    if (ViewController* top = topViewController())
        top->didRotateFromInterfaceOrientation(from);
}

} // namespace pomwick
