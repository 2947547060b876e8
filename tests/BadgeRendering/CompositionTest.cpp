#include "DevicePaths.h"
#include "ImageContext.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "Settings.h"
#include "SettingsSnapshot.h"
#include "TemporaryDeviceRoot.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace pomwick;

namespace {

class Composition : public testing::Test {
protected:
    void SetUp() override {
        setMainScreenScaleOverride(2.0);
        writeImage(tmpFile(PreviewFile::badgeBackground), QSize(48, 40), Qt::red);
        writeImage(bundleFile(PreviewFile::stockBadge), QSize(48, 48), Qt::blue);
    }
    void TearDown() override { setMainScreenScaleOverride(std::nullopt); }

    void writeImage(const std::filesystem::path& path, QSize pixels, QColor color) {
        QImage image(pixels, QImage::Format_ARGB32);
        image.fill(color);
        std::filesystem::create_directories(path.parent_path());
        ASSERT_TRUE(writePngAtomically(image, path));
    }

    PreviewBadge compose() { return composePreviewBadge(icon, 60); }
    QImage composedWithText(const char* text) {
        setPreferencesObjectKey(text, SettingsKey::badgeTextFieldText);
        return compose().image;
    }

    test::TemporaryDeviceRoot root;
    const QRectF icon{40, 75, 60, 60};
};

} // namespace

TEST_F(Composition, TheTextShowsTheBadgeNumberOne) {
    const QImage atSigns = composedWithText("@@");
    ASSERT_FALSE(atSigns.isNull());
    EXPECT_EQ(atSigns, composedWithText("11"));
    EXPECT_EQ(composedWithText(""), composedWithText("1"));
    EXPECT_NE(composedWithText("New"), composedWithText("1"));
}

// Every setting of one composition comes from one reading of the settings file.
TEST_F(Composition, TheBadgeIs24PointsHighAtTheStoredLocation) {
    const uint64_t readsBefore = SettingsSnapshot::fileReads();
    const PreviewBadge origin = compose();
    EXPECT_EQ(SettingsSnapshot::fileReads() - readsBefore, 1u);
    // 28.8 points wide, held in whole pixels at scale 2, as an image context does.
    EXPECT_EQ(pointSize(origin.image), QSizeF(std::ceil(24.0 / 40 * 48 * 2) / 2, 24));
    EXPECT_EQ(origin.frame, QRectF(QPointF(40, 75), pointSize(origin.image)));

    setPreferencesObjectKey("1.000000,1.000000", SettingsKey::badgeLocation);
    EXPECT_EQ(compose().frame->topLeft(), QPointF(100, 135));
    setPreferencesObjectKey("0.500000,-0.250000", SettingsKey::badgeLocation);
    EXPECT_EQ(compose().frame->topLeft(), QPointF(70, 60));
}

TEST_F(Composition, TheOpacityFadesTheTextNotTheBackground) {
    const QImage opaque = composedWithText("88");
    setPreferencesObjectKey("0.000000", SettingsKey::badgeAlpha);
    const QImage faded = compose().image;
    EXPECT_NE(faded, opaque);
    // Only the red background is left, fully opaque.
    for (const QPoint pixel : {QPoint(2, 24), QPoint(faded.width() / 2, faded.height() / 2)})
        EXPECT_EQ(faded.pixelColor(pixel), QColor(Qt::red));
}

// The widest background the renderer draws, with a text wider still: the text keeps off the round
// ends, where the border is.
TEST_F(Composition, ATextWiderThanTheBackgroundStaysOffItsEnds) {
    writeImage(tmpFile(PreviewFile::badgeBackground), QSize(16 * 48, 48), Qt::red);
    const QImage badge = composedWithText(std::string(100, 'W').c_str());
    ASSERT_EQ(pointSize(badge), QSizeF(16 * 24, 24));
    const int ends = int(previewEndsRoom); // half the room at each end, in pixels at scale 2
    for (int y = 0; y < badge.height(); ++y)
        for (const int x : {0, ends - 1, badge.width() - ends, badge.width() - 1})
            ASSERT_EQ(badge.pixelColor(x, y), QColor(Qt::red)) << x << "," << y;
    EXPECT_NE(badge.pixelColor(ends + 4, 24), QColor(Qt::red));
}

TEST_F(Composition, SwitchedOffShowsTheStockBadgeOnTheTopRightCornerAndHiddenNone) {
    setPreferencesObjectKey("0", SettingsKey::enabled);
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    setPreferencesObjectKey("0.500000,0.500000", SettingsKey::badgeLocation);
    const PreviewBadge stock = compose();
    EXPECT_EQ(stock.frame, QRectF(40 + 60 - 12, 75 - 12, 24, 24));
    EXPECT_EQ(pointSize(stock.image), QSizeF(24, 24));
    EXPECT_EQ(stock.image.pixelColor(24, 24), QColor(Qt::blue));

    setPreferencesObjectKey("1", SettingsKey::enabled);
    const PreviewBadge hidden = compose();
    EXPECT_TRUE(hidden.image.isNull());
    EXPECT_FALSE(hidden.frame);
}

// Unreadable images are the image loader's own test; a missing one leaves nothing to scale.
TEST_F(Composition, AMissingBackgroundOrAFifoInItsPlaceGivesNoBadge) {
    const std::filesystem::path background = tmpFile(PreviewFile::badgeBackground);
    std::filesystem::remove(background);
    EXPECT_TRUE(compose().image.isNull());
    ASSERT_EQ(::mkfifo(background.c_str(), 0644), 0);
    EXPECT_TRUE(compose().image.isNull());
}

// How the leading number itself is read is the text scanner's own test.
TEST(ReportedIconSize, TakesTheLeadingFloatOfTheWholeFileReadAsUtf8Text) {
    test::TemporaryDeviceRoot root;
    EXPECT_FALSE(readReportedIconSize());
    const std::string file = std::string(DevicePath::tmpDirectory) + PreviewFile::iconSize;
    const std::string megabyte(1024 * 1024, ' ');
    const std::pair<std::string, float> cases[] = {
        {"60.5\n", 60.5f},
        {megabyte + "7", 7},
        {"\u2003\u00a042", 42},
        {"6\xff", 0},
        {megabyte + megabyte + megabyte + megabyte + "7", 0},
    };
    for (const auto& [text, expected] : cases) {
        root.writeFile(file, text);
        EXPECT_EQ(readReportedIconSize(), expected) << text.substr(0, 10);
    }
    // Anything but a regular file is there, and holds no number; a FIFO is not waited on.
    std::filesystem::remove(hostPath(file));
    ASSERT_EQ(::mkfifo(hostPath(file).c_str(), 0644), 0);
    EXPECT_EQ(readReportedIconSize(), 0.0f);
}
