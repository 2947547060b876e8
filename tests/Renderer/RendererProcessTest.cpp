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

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QTest>
#include <cmath>
#include <gtest/gtest.h>
#include <sys/stat.h>

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
    // A synchronous call the renderer's event loop must answer: it is responsive.
    static bool ping() {
        const QDBusMessage reply = QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall(CenterName::renderer, "/", "org.freedesktop.DBus.Peer",
                                           "Ping"),
            QDBus::Block, 2000);
        return reply.type() == QDBusMessage::ReplyMessage;
    }

    test::TemporaryDeviceRoot root;
    QObject receiver;
    int answers = 0;
};

QColor centerOf(const QImage& image) {
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

} // namespace

TEST_F(ScreenSide, ReportsTheIconSizeAndDrawsTheBackgroundFromTheSettings) {
    setPreferencesObjectKey("0.000000,1.000000,0.000000,1.000000",
                            SettingsKey::badgeBackgroundColor);
    setPreferencesObjectKey("0.000000,0.000000,1.000000,1.000000", SettingsKey::badgeBorderColor);
    setPreferencesObjectKey("1.500000", SettingsKey::badgeBorderWidth);
    RendererProcess renderer({"--icon-size", "72.5"});
    ASSERT_TRUE(renderer.waitUntilServing());
    EXPECT_EQ(root.readFile(std::string(DevicePath::tmpDirectory) + PreviewFile::iconSize), "72.5");

    requestAndAwaitAnswer();
    const QImage background = imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground));
    ASSERT_FALSE(background.isNull());
    const QImage stock = loadBundleImage(PreviewFile::stockBadge);
    EXPECT_EQ(background.size(), stock.size() * 1.5);
    EXPECT_EQ(centerOf(background), QColor(0, 255, 0));
    // The border: the enlarged silhouette's rim, between the stock badge's edge and its own.
    const QColor rim = background.pixelColor(background.width() / 2, background.height() / 20);
    EXPECT_EQ(rim, QColor(0, 0, 255));
    EXPECT_EQ(background.pixelColor(0, 0).alpha(), 0);
}

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
    for (int y = 0; y < text.height(); ++y) {
        for (int x = 0; x < text.width(); ++x) {
            if (qAlpha(text.pixel(x, y)) == 0)
                continue;
            const QPoint at = offset + QPoint(x, y);
            if (!background.rect().contains(at) || qAlpha(background.pixel(at)) < 250)
                return false;
        }
    }
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
        EXPECT_EQ(pointSize(composePreviewBadge(QRectF(0, 0, 60, 60), 60).image),
                  pointSize(background))
            << typed;
    }
    // However long the text or large the font, the background stays bounded.
    setPreferencesObjectKey(std::string(1000, '@'), SettingsKey::badgeTextFieldText);
    setPreferencesObjectKey("500", SettingsKey::badgeFontSize);
    requestAndAwaitAnswer();
    const QSizeF widest = pointSize(previewBackground());
    EXPECT_GT(widest.width(), 24 * 10);
    EXPECT_LE(widest.width(), 24 * 16);
}

TEST_F(ScreenSide, StaysResponsiveUnderAFloodAndItsLastRenderIsTheLastSettings) {
    RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    const MessagingCenter& center = MessagingCenter::centerNamed(CenterName::renderer);
    for (int i = 0; i < 10000; ++i) {
        if (i % 1000 == 0)
            setPreferencesObjectKey(i % 2000 == 0 ? "1,0,0,1" : "0,1,0,1",
                                    SettingsKey::badgeBackgroundColor);
        center.sendMessageName(MessageName::saveBadgeImages);
    }
    setPreferencesObjectKey("0.000000,0.000000,1.000000,1.000000",
                            SettingsKey::badgeBackgroundColor);
    EXPECT_TRUE(ping());
    requestAndAwaitAnswer();
    // Let every queued request be answered, then the file shows the last settings.
    int settled = -1;
    while (settled != answers) {
        settled = answers;
        QTest::qWait(300);
    }
    EXPECT_LT(answers, 10001) << "bursts are coalesced";
    EXPECT_EQ(centerOf(imageWithContentsOfFile(tmpFile(PreviewFile::badgeBackground))),
              QColor(0, 0, 255));
    EXPECT_TRUE(ping());
}

TEST_F(ScreenSide, EndsCleanlyOnSigtermAndRefusesToServeTwice) {
    RendererProcess first;
    ASSERT_TRUE(first.waitUntilServing());
    RendererProcess second;
    ASSERT_TRUE(second.process().waitForFinished(10000));
    EXPECT_EQ(second.process().exitCode(), 1);

    first.process().terminate();
    ASSERT_TRUE(first.process().waitForFinished(5000));
    EXPECT_EQ(first.process().exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(first.process().exitCode(), 0);
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return !MessagingCenter::centerNamed(CenterName::renderer).doesServerExist(); },
        5000));
}

TEST_F(ScreenSide, EndsOnSigtermEvenWhileAFifoInPlaceOfTheSettingsFileHoldsItUp) {
    const std::filesystem::path settings = hostPath(DevicePath::preferencesFile);
    std::filesystem::create_directories(settings.parent_path());
    ASSERT_EQ(::mkfifo(settings.c_str(), 0644), 0);
    RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    // Either it read past the FIFO and answered, or it is waiting in the kernel for a writer
    // that never comes.
    QFile wchan(QStringLiteral("/proc/%1/wchan").arg(renderer.process().processId()));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            wchan.open(QIODevice::ReadOnly);
            const bool waitingForAWriter = wchan.readAll() == "wait_for_partner";
            wchan.close();
            return answers > 0 || waitingForAWriter;
        },
        10000));
    renderer.process().terminate();
    EXPECT_TRUE(renderer.process().waitForFinished(10000));
}

TEST(RendererStart, WithoutASessionBusItSaysSoAndExits) {
    test::TemporaryDeviceRoot root;
    QProcess renderer;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DBUS_SESSION_BUS_ADDRESS");
    renderer.setProcessEnvironment(environment);
    renderer.start(RENDERER, {"--root", QString::fromStdString(root.path())});
    ASSERT_TRUE(renderer.waitForFinished(10000));
    EXPECT_EQ(renderer.exitCode(), 1);
    EXPECT_TRUE(renderer.readAllStandardError().contains("DBUS_SESSION_BUS_ADDRESS"));

    renderer.start(RENDERER, {"--icon-size", "abc"});
    ASSERT_TRUE(renderer.waitForFinished(10000));
    EXPECT_EQ(renderer.exitCode(), 2);
    EXPECT_TRUE(renderer.readAllStandardError().contains("--icon-size"));
}
