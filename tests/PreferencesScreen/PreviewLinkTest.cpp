#include "DevicePaths.h"
#include "ImageFile.h"
#include "RendererProcess.h"
#include "ScreenFixture.h"
#include "Settings.h"
#include "ViewGeometry.h"

#include <QTest>
#include <csignal>

using namespace pomwick;

namespace {

class PreviewLink : public test::ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        root.writeFile("/tmp/iconSize.txt", "60");
        QImage background(48, 40, QImage::Format_ARGB32);
        background.fill(Qt::red);
        ASSERT_TRUE(writePngAtomically(background, hostPath("/tmp/badgeBackground.png")));
    }
    QWidget* badgeView() const { return viewWithTag(screen->tableHeaderView(), 1337); }
    qsizetype badgeViews() const {
        const auto views =
            screen->tableHeaderView()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        return std::count_if(views.begin(), views.end(), [](QWidget* v) { return tag(v) == 1337; });
    }
};

} // namespace

TEST_F(PreviewLink, OnlyBadgeSavedToTmpComposesThePreview) {
    open();
    screen->handleSimpleMessageNamed("reloadData");
    EXPECT_EQ(badgeView(), nullptr);
    EXPECT_TRUE(screen->finalBadgeImage().isNull());

    setPreferencesObjectKey("0.500000,0.250000", SettingsKey::badgeLocation);
    screen->handleSimpleMessageNamed("badgeSavedToTmp");
    ASSERT_NE(badgeView(), nullptr);
    EXPECT_EQ(screen->tableHeaderView()->children().last(), badgeView());
    EXPECT_FALSE(screen->finalBadgeImage().isNull());
    const QRectF icon = frame(screen->iconImageView());
    EXPECT_EQ(frame(badgeView()).topLeft(), icon.topLeft() + QPointF(30, 15));
    EXPECT_EQ(frame(badgeView()).height(), 24);

    // An answer that comes twice reuses the view and shows the same badge.
    const qint64 first = screen->finalBadgeImage().cacheKey();
    screen->handleSimpleMessageNamed("badgeSavedToTmp");
    EXPECT_EQ(badgeViews(), 1);
    EXPECT_NE(screen->finalBadgeImage().cacheKey(), first);
    EXPECT_EQ(frame(badgeView()).topLeft(), icon.topLeft() + QPointF(30, 15));

    // Hidden: no badge, and the view keeps its frame.
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    screen->handleSimpleMessageNamed("badgeSavedToTmp");
    EXPECT_TRUE(screen->finalBadgeImage().isNull());
    EXPECT_EQ(frame(badgeView()).topLeft(), icon.topLeft() + QPointF(30, 15));
}

TEST_F(PreviewLink, TheRealRendererFillsThePreviewAndItsDeathLeavesItAsItWas) {
    auto renderer = std::make_unique<test::RendererProcess>();
    ASSERT_TRUE(renderer->waitUntilServing());
    open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !screen->finalBadgeImage().isNull(); }, 5000));

    ::kill(pid_t(renderer->process().processId()), SIGKILL);
    renderer->process().waitForFinished(5000);
    // Answers the renderer sent before it died may still be on their way.
    QTest::qWait(300);
    const qint64 shown = screen->finalBadgeImage().cacheKey();
    screen->reloadTableData();
    QTest::qWait(200);
    EXPECT_EQ(screen->finalBadgeImage().cacheKey(), shown);
    EXPECT_EQ(text(1, 7), "Alpha: 100%");
}
