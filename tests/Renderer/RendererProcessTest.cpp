#include "RendererProcess.h"

#include "BadgeImagePrimitives.h"
#include "DevicePaths.h"
#include "ImageContext.h"
#include "ImageFile.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "PrivateSessionBus.h"
#include "Settings.h"
#include "TemporaryDeviceRoot.h"

#include <QFile>
#include <QTest>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

using namespace pomwick;
using pomwick::test::RendererProcess;

namespace {

// Plays the settings screen's side: serves its center and counts the renderer's answers.
class ScreenSide : public testing::Test {
protected:
    static void SetUpTestSuite() {
        test::PrivateSessionBus::address();
        ASSERT_TRUE(
            MessagingCenter::centerNamed(CenterName::preferences).runServerOnCurrentThread());
    }
    void SetUp() override {
        MessagingCenter::centerNamed(CenterName::preferences)
            .registerForMessageName(MessageName::badgeSavedToTmp, &receiver,
                                    [this](const QString&) { ++answers; });
    }
    void requestAndAwaitAnswer() {
        const int before = answers;
        MessagingCenter::centerNamed(CenterName::renderer)
            .sendMessageName(MessageName::saveBadgeImages);
        ASSERT_TRUE(QTest::qWaitFor([&] { return answers > before; }, 5000));
    }

    test::TemporaryDeviceRoot root;
    QObject receiver;
    int answers = 0;
};

} // namespace

// The preview's badge background, scaled to its 24-point height as the composition does.
QImage previewBackground() {
    const QImage background = loadBadgeBackground();
    const QSizeF size = pointSize(background);
    return scaleImageToSize(background, QSizeF(24 / size.height() * size.width(), 24));
}

// Every pixel of the text, centered on the background as the composition centers it, lies on the
// badge's opaque inside.
bool textLiesInsideTheBadge(const QImage& background, const QImage& text) {
    const double scale = background.devicePixelRatio();
    const QSizeF room = pointSize(background) - pointSize(text);
    const QPoint offset(int(std::round(float(room.width() * 0.5)) * scale),
                        int(std::round(float(room.height() * 0.5)) * scale));
    for (int y = 0; y < text.height(); ++y)
        for (int x = 0; x < text.width(); ++x)
            if (const QPoint at = offset + QPoint(x, y);
                qAlpha(text.pixel(x, y)) != 0 &&
                (!background.rect().contains(at) || qAlpha(background.pixel(at)) < 250))
                return false;
    return true;
}

TEST_F(ScreenSide, TheBadgeIsAsWideAsItsTextRoundForOneCharacter) {
    RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    // The renderer draws once at start; its answer must not pass for the first request's.
    ASSERT_TRUE(QTest::qWaitFor([&] { return answers > 0; }, 5000));
    const std::pair<const char*, bool> textAndRound[] = {
        {"Alert:@", false}, {"@@@@@@", false}, {"", true}, {"@", true}};
    for (const auto& [typed, isRound] : textAndRound) {
        setPreferencesObjectKey(typed, SettingsKey::badgeTextFieldText);
        requestAndAwaitAnswer();
        const QImage background = previewBackground();
        const QImage text =
            makeImageFromText(previewBadgeText(), getBadgeFont(), getBadgeFontColor(), true);
        EXPECT_TRUE(textLiesInsideTheBadge(background, text)) << typed;
        EXPECT_EQ(pointSize(background).width() == 24, isRound) << typed;
    }
    // A screen still reading the last picture keeps it whole while newer ones are written.
    QFile held(QString::fromStdString(tmpFile(PreviewFile::badgeBackground).string()));
    ASSERT_TRUE(held.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    const QByteArray whole = held.readAll();
    for (const char* typed : {"Alert:@", "@@"}) {
        setPreferencesObjectKey(typed, SettingsKey::badgeTextFieldText);
        requestAndAwaitAnswer();
    }
    ASSERT_TRUE(held.seek(0));
    EXPECT_EQ(held.readAll(), whole);
    EXPECT_NE(imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground)).size(),
              QImage::fromData(whole).size());
    // However long the text or large the font, the background stays bounded.
    setPreferencesObjectKey(std::string(1000, '@'), SettingsKey::badgeTextFieldText);
    setPreferencesObjectKey("500", SettingsKey::badgeFontSize);
    requestAndAwaitAnswer();
    const QSizeF widest = pointSize(previewBackground());
    EXPECT_GT(widest.width(), 24 * 10);
    EXPECT_LE(widest.width(), 24 * 16);
}

// After a flood of requests the last render shows the last settings: colors, border and its
// width. A second renderer refuses to serve, and SIGTERM ends the first cleanly.
TEST_F(ScreenSide, AFloodOfRequestsIsCoalescedAndTheLastRenderIsTheLastSettings) {
    RendererProcess renderer({"--icon-size", "72.5"});
    ASSERT_TRUE(renderer.waitUntilServing());
    EXPECT_EQ(root.readFile(std::string(DevicePath::tmpDirectory) + PreviewFile::iconSize), "72.5");
    const MessagingCenter& center = MessagingCenter::centerNamed(CenterName::renderer);
    // A renderer that drew on every request would still be drawing long after the last one.
    for (int i = 0; i < 10000; ++i) {
        if (i % 1000 == 0)
            setPreferencesObjectKey(i % 2000 == 0 ? "1,0,0,1" : "0,0,1,1",
                                    SettingsKey::badgeBackgroundColor);
        center.sendMessageName(MessageName::saveBadgeImages);
    }
    setPreferencesObjectKey("0.000000,1.000000,0.000000,1.000000",
                            SettingsKey::badgeBackgroundColor);
    setPreferencesObjectKey("0.000000,0.000000,1.000000,1.000000", SettingsKey::badgeBorderColor);
    setPreferencesObjectKey("1.500000", SettingsKey::badgeBorderWidth);
    requestAndAwaitAnswer();
    // Let every queued request be answered, then the file shows the last settings.
    for (int settled = -1; settled != answers; QTest::qWait(300))
        settled = answers;
    EXPECT_LT(answers, 10001) << "bursts are coalesced";
    const QImage background = imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground));
    EXPECT_EQ(background.size(), loadBundleImage(PreviewFile::stockBadge).size() * 1.5);
    // Green inside; the border blue on the enlarged silhouette's rim, between the stock badge's
    // edge and its own; clear in the corner.
    const int x = background.width() / 2, y = background.height();
    EXPECT_EQ(std::tuple(background.pixelColor(x, y / 2), background.pixelColor(x, y / 20),
                         background.pixelColor(0, 0).alpha()),
              std::tuple(QColor(0, 255, 0), QColor(0, 0, 255), 0));

    RendererProcess second;
    ASSERT_TRUE(second.process().waitForFinished(10000));
    EXPECT_EQ(second.process().exitCode(), 1);
    renderer.process().terminate();
    ASSERT_TRUE(renderer.process().waitForFinished(5000));
    EXPECT_EQ(std::tuple(renderer.process().exitStatus(), renderer.process().exitCode()),
              std::tuple(QProcess::NormalExit, 0));
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return !MessagingCenter::centerNamed(CenterName::renderer).doesServerExist(); },
        5000));
}
