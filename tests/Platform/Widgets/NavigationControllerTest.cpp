#include "NavigationController.h"

#include "Animations.h"
#include "Appearance.h"
#include "ModalScope.h"
#include "NavigationControllerTestAccess.h"
#include "TextField.h"

#include <QAbstractAnimation>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

// Two buttons, one over the other.
std::pair<QPushButton*, QPushButton*> twoButtons(QWidget* widget) {
    auto* layout = new QVBoxLayout(widget);
    const std::pair buttons(new QPushButton("first"), new QPushButton("second"));
    layout->addWidget(buttons.first);
    layout->addWidget(buttons.second);
    return buttons;
}

// A page with two buttons that logs what it is told; the first takes the keyboard when pushed.
class ButtonsController : public ViewController {
public:
    ButtonsController(QString title, QStringList& log) : log_(log) { setTitle(title); }
    QPushButton *first = nullptr, *second = nullptr;
    void viewDidLoad() override {
        log_ << title() + " load";
        std::tie(first, second) = twoButtons(view());
    }
    void viewWillAppear(bool) override { log_ << title() + " willAppear"; }
    void viewDidAppear(bool) override { log_ << title() + " didAppear"; }
    void viewWillDisappear(bool) override { log_ << title() + " willDisappear"; }
    void viewDidDisappear(bool) override { log_ << title() + " didDisappear"; }
    void viewDidLayoutSubviews() override { log_ << title() + " layout"; }
    void didRotateFromInterfaceOrientation(int from) override {
        log_ << title() + " rotate from " + QString::number(from);
    }

private:
    QStringList& log_;
};

class Stack : public testing::Test {
protected:
    Stack() : root(new ButtonsController("Settings", log)), navigation(root) {
        navigation.show();
        QApplication::setActiveWindow(&navigation);
        root->first->setFocus(Qt::TabFocusReason);
    }
    ButtonsController* push(bool animated = false) {
        auto* page = new ButtonsController("Background Color", log);
        navigation.pushViewController(page, animated);
        return page;
    }
    QWidget* focus() const { return navigation.focusWidget(); }
    // The page on top once the key was pressed on the widget.
    ViewController* topAfter(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(widget, key, modifiers);
        return navigation.topViewController();
    }
    QStringList log;
    ButtonsController* root;
    NavigationController navigation;
};

// The bar drawn at a scale: its image in device pixels.
QImage drawn(QWidget& widget, qreal scale) {
    QImage image(widget.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

} // namespace

TEST_F(Stack, TellsPagesTheyAppearAndDisappearInOrderUnderAHairlineAndACentredTitle) {
    EXPECT_EQ(push(true)->view()->size(), QSize(375, 667 - NavigationController::barHeight));
    navigation.popViewControllerAnimated(true);
    EXPECT_EQ(navigation.topViewController(), root);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(log, (QStringList{"Settings load", "Settings willAppear", "Settings didAppear",
                                "Background Color load", "Settings willDisappear",
                                "Background Color willAppear", "Settings didDisappear",
                                "Background Color didAppear", "Background Color willDisappear",
                                "Settings willAppear", "Background Color didDisappear",
                                "Settings didAppear"}));

    // The bar: a hairline of one device pixel and the title centred, at every scale.
    push();
    const QColor hairline = Appearance::hairline();
    for (const qreal scale : {1.0, 2.0}) {
        const QImage bar = drawn(navigation, scale);
        const int bottom = int(NavigationController::barHeight * scale) - 1;
        EXPECT_EQ(bar.pixelColor(5, bottom), hairline) << scale;
        EXPECT_EQ(bar.pixelColor(5, bottom - 1), Appearance::barBackground()) << scale;
        // The title's dark pixels sit around the middle, whatever the back button takes.
        int left = bar.width(), right = -1;
        for (int y = 0; y < bottom; ++y)
            for (int x = 0; x < bar.width(); ++x)
                if (const QColor c = bar.pixelColor(x, y); c.blue() < 90 && c.red() < 90)
                    left = std::min(left, x), right = std::max(right, x);
        ASSERT_GE(right, left) << scale;
        EXPECT_NEAR((left + right + 1) / 2.0, bar.width() / 2.0, 2 * scale) << scale;
    }
}

TEST_F(Stack, EscapeAndAltLeftGoBackWithTheFocusOnTheControlThatPushed) {
    root->second->setFocus(Qt::TabFocusReason);
    ButtonsController* page = push();
    EXPECT_EQ(focus(), page->first) << "the keyboard goes on in the new page";
    EXPECT_EQ(topAfter(page->first, Qt::Key_Escape), root);
    EXPECT_EQ(focus(), root->second);

    page = push();
    auto* field = new TextField(page->view());
    EXPECT_EQ(topAfter(field, Qt::Key_Escape), page) << "Escape belongs to the text field";
    EXPECT_EQ(topAfter(page->second, Qt::Key_Backspace), page) << "Backspace belongs to text";
    EXPECT_EQ(topAfter(page->second, Qt::Key_Left, Qt::AltModifier), root);
    EXPECT_EQ(focus(), root->second);
    EXPECT_EQ(topAfter(root->second, Qt::Key_Escape), root) << "the root has nothing to go back to";
}

TEST_F(Stack, APageLeftWithTheFocusOfAClickLeavesItOffTheBackButton) {
    navigation.setFocus();
    push();
    ButtonsController* page = push();
    QTest::mouseClick(page->second, Qt::LeftButton);
    ASSERT_EQ(focus(), page->second);
    navigation.popViewControllerAnimated(false);
    QTest::keyClick(focus(), Qt::Key_Space);
    EXPECT_EQ(navigation.viewControllers().size(), 2u) << "Space took the page back";
}

TEST_F(Stack, NeitherPageTakesInputWhileTheySlideNorTheRestOfTheDoubleClick) {
    QTest::mouseMove(root->first); // where each page's first button comes in
    // With animations off, the page jumps in: still under the double click.
    ButtonsController* jumped = push(true);
    QSignalSpy jumpedPressed(jumped->first, &QPushButton::clicked);
    QTest::mouseDClick(jumped->first, Qt::LeftButton);
    QTest::mouseRelease(jumped->first, Qt::LeftButton);
    EXPECT_EQ(jumpedPressed.count(), 0) << "a page that jumps in took the rest of a double click";
    QSignalSpy elsewhere(jumped->second, &QPushButton::clicked);
    QTest::mouseClick(jumped->second, Qt::LeftButton);
    EXPECT_EQ(elsewhere.count(), 1) << "a click away from the double click is a new one";

    Animations::ScaleOverride realLengths(1);
    ButtonsController* page = push(true);
    QAbstractAnimation* slide = NavigationControllerTestAccess::transition(navigation);
    ASSERT_NE(slide, nullptr);
    EXPECT_EQ(slide->state(), QAbstractAnimation::Running);
    QSignalSpy pressed(page->first, &QPushButton::clicked);
    QSignalSpy belowPressed(jumped->first, &QPushButton::clicked);
    QTest::mouseClick(page->first, Qt::LeftButton);
    QTest::keyClick(jumped->first, Qt::Key_Space);
    slide->setCurrentTime(slide->totalDuration());
    EXPECT_FALSE(jumped->view()->isVisible());
    EXPECT_EQ(page->view()->geometry(), QRect(0, 0, 375, 623));
    QTest::mouseDClick(page->first, Qt::LeftButton);
    QTest::mouseRelease(page->first, Qt::LeftButton);
    EXPECT_EQ(pressed.count() + belowPressed.count(), 0);
    QTest::keyClick(page->first, Qt::Key_Space);
    EXPECT_EQ(pressed.count(), 1) << "the keyboard is back once the page is in";
}

TEST_F(Stack, ASheetKeepsTabInsideAndThePageOutOfReachThenGivesTheFocusBack) {
    auto* sheet = new QWidget(root->view());
    const auto [one, two] = twoButtons(sheet);
    sheet->show();
    new ModalScope(sheet);
    one->setFocus(Qt::TabFocusReason);
    QSignalSpy pageClicked(root->second, &QPushButton::clicked);
    for (int press = 0; press < 12; ++press) {
        QTest::keyClick(focus(), press % 3 ? Qt::Key_Tab : Qt::Key_Backtab);
        ASSERT_TRUE(focus() == one || focus() == two) << press;
    }
    QTest::mouseClick(root->second, Qt::LeftButton);
    QTest::keyClick(root->second, Qt::Key_Space);
    QTest::keyClick(two, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(pageClicked.count(), 0);
    root->second->setFocus();
    EXPECT_TRUE(sheet->isAncestorOf(focus()));
    delete sheet;
    EXPECT_EQ(focus(), root->first);
}

TEST_F(Stack, AResizeLaysThePageOutAndOnlyTurningTallToWideOrBackIsARotation) {
    const auto resizedTo = [this](int width, int height) {
        log.clear();
        navigation.resize(width, height);
        QCoreApplication::processEvents();
        return log;
    };
    navigation.resize(400, 700);
    EXPECT_EQ(resizedTo(420, 760), QStringList{"Settings layout"});
    EXPECT_EQ(resizedTo(900, 500), QStringList({"Settings layout", "Settings rotate from 1"}));
    EXPECT_EQ(resizedTo(800, 500), QStringList{"Settings layout"});
    EXPECT_EQ(resizedTo(500, 800), QStringList({"Settings layout", "Settings rotate from 3"}));
    // Resized while covered, a page lays itself out as it comes back.
    push();
    navigation.resize(520, 820);
    log.clear();
    navigation.popViewControllerAnimated(false);
    EXPECT_TRUE(log.contains("Settings layout")) << log.join(", ").toStdString();
}
