#include "ColorSwatch.h"
#include "DevicePaths.h"
#include "ImageFile.h"
#include "RowGeometry.h"
#include "ScreenFixture.h"
#include "SegmentedControl.h"
#include "Settings.h"
#include "Slider.h"
#include "Switch.h"
#include "TextDrawing.h"
#include "ViewGeometry.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <cmath>
#include <limits>

using namespace pomwick;
using Table = pomwick::test::ScreenFixture;

namespace {

// Dimmed: the label's colour at 60 % and the icon faded with it, whose most opaque pixel is then
// at 60 % too.
bool isDimmed(const TableViewCell* cell) {
    const bool label = cell->textLabel()->textColor().alpha() == 153;
    const QImage icon = cell->imagePixmap().toImage();
    int opaquest = 0;
    for (int y = 0; y < icon.height(); ++y)
        for (int x = 0; x < icon.width(); ++x)
            opaquest = std::max(opaquest, icon.pixelColor(x, y).alpha());
    EXPECT_EQ(label, std::abs(opaquest - 153) <= 1) << opaquest;
    return label;
}

} // namespace

TEST_F(Table, WithoutSettingsShowsEveryRowWithItsDefaultAndStoredValuesAtARebuild) {
    open();
    const QStringList expected[] = {
        {"Enabled:"},
        {"Visibility:", "Text:", "Font: Verdana", "Background Color:", "Position: 0%, 0%",
         "Border Color:", "Border Width:", "Alpha: 100%"},
        {"Restore Defaults"},
        {"Contact Us", "Follow on Twitter", "View My Other Tweaks", "Donate"},
    };
    for (int section = 0; section < 4; ++section) {
        for (int row = 0; row < expected[section].size(); ++row) {
            EXPECT_EQ(text(section, row), expected[section][row]);
            EXPECT_FALSE(isDimmed(cell(section, row)));
            EXPECT_TRUE(cell(section, row)->isUserInteractionEnabled());
        }
    }
    EXPECT_EQ(frame(screen->table()), bounds(screen->view()));

    EXPECT_TRUE(control<Switch>(0, 0)->isOn());
    EXPECT_EQ(control<SegmentedControl>(1, 0)->selectedSegmentIndex(), 1);
    EXPECT_EQ(control<TextField>(1, 1)->text(), "");
    EXPECT_EQ(control<TextField>(1, 1)->placeholderText(), "Badge Text");
    EXPECT_EQ(control<ColorSwatch>(1, 3)->color(), QColor(Qt::white));
    EXPECT_EQ(control<ColorSwatch>(1, 5)->color(), QColor(Qt::black));
    EXPECT_FLOAT_EQ(control<Slider>(1, 6)->value(), 1.2f);
    // "Donate" is blue where it is drawn, not only in its palette.
    const QImage donate = cell(3, 3)->grab().toImage();
    int blue = 0;
    for (int y = 0; y < donate.height(); ++y)
        for (int x = 0; x < donate.width(); ++x)
            blue += donate.pixelColor(x, y).blue() > 180 && donate.pixelColor(x, y).red() < 90;
    EXPECT_GT(blue, 20);

    // Rows show the stored values at a rebuild, and another program's changes at the next one.
    setPreferencesObjectKey("0.255000,0.500000", SettingsKey::badgeLocation);
    setPreferencesObjectKey("0.505000", SettingsKey::badgeAlpha);
    setPreferencesObjectKey("Qwertyfont", SettingsKey::badgeFont);
    screen->reloadTableData();
    EXPECT_EQ(text(1, 4), "Position: 25%, 50%");
    EXPECT_EQ(text(1, 7), "Alpha: 50%");
    EXPECT_EQ(text(1, 2), "Font: (null)");

    setPreferencesObjectKey("DejaVuSans-Bold", SettingsKey::badgeFont);
    EXPECT_EQ(text(1, 2), "Font: (null)");
    screen->reloadTableData();
    EXPECT_EQ(text(1, 2), "Font: DejaVuSans-Bold");
}

TEST_F(Table, SwitchedOffOrHiddenDimsAndDisablesTheBadgeRowsBelowTheControlThatDidIt) {
    // Switched off, everything from the visibility row on; hidden, everything below it.
    for (const int firstOff : {0, 1}) {
        setPreferencesObjectKey(firstOff == 0 ? "0" : "1", SettingsKey::enabled);
        setPreferencesObjectKey(firstOff == 0 ? "TRUE" : "FALSE", SettingsKey::badgeVisible);
        open();
        EXPECT_EQ(control<Switch>(0, 0)->isOn(), firstOff == 1);
        EXPECT_FALSE(isDimmed(cell(0, 0)));
        EXPECT_TRUE(cell(2, 0)->isUserInteractionEnabled());
        EXPECT_EQ(control<SegmentedControl>(1, 0)->selectedSegmentIndex(), firstOff == 0 ? 1 : 0);
        EXPECT_EQ(control<SegmentedControl>(1, 0)->isEnabled(), firstOff == 1);
        for (int row = 0; row < 8; ++row) {
            EXPECT_EQ(isDimmed(cell(1, row)), row >= firstOff) << row;
            // The text row's field carries its state, not the row.
            EXPECT_EQ(cell(1, row)->isUserInteractionEnabled(), row == 1 || row < firstOff)
                << firstOff << ":" << row;
        }
        // Not reachable with Tab either: the rows only stop the mouse.
        EXPECT_FALSE(control<TextField>(1, 1)->isEnabled());
        EXPECT_FALSE(control<Slider>(1, 6)->isEnabled());
        EXPECT_FALSE(control<Slider>(1, 7)->isEnabled());
    }
    // A screen reader hears the rows as unavailable too, and the preview described as shown.
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(cell(1, 2))->state().disabled);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(cell(1, 0))->state().disabled);
    EXPECT_EQ(screen->iconImageView()->accessibleName(),
              "Badge preview: a sample icon without a badge");
    setPreferencesObjectKey("Hi @", SettingsKey::badgeTextFieldText);
    setPreferencesObjectKey("TRUE", SettingsKey::badgeVisible);
    screen->reloadTableData();
    EXPECT_EQ(screen->iconImageView()->accessibleName(), "Badge preview: Hi 1 on a sample icon");
}

TEST(RowGeometry, PercentagesTruncateTheFloatProductAndSaturate) {
    EXPECT_EQ(RowGeometry::wholePercent(1.0f), 100);
    EXPECT_EQ(RowGeometry::wholePercent(-0.159f), -15);
    EXPECT_EQ(RowGeometry::wholePercent(NAN), 0);
    EXPECT_EQ(RowGeometry::wholePercent(1e30f), std::numeric_limits<int>::max());
    EXPECT_EQ(RowGeometry::wholePercent(-1e30f), std::numeric_limits<int>::min());
}

TEST_F(Table, ControlsAndHeaderArePlacedFromTheCellsAndTheReportedIconSize) {
    root.writeFile("/tmp/iconSize.txt", "60");
    open();
    EXPECT_EQ(frame(cell(0, 0)).size(), QSizeF(375, 44));
    EXPECT_EQ(frame(control<Switch>(0, 0)), QRectF(375 - 71, 6, 51, 31));
    EXPECT_EQ(frame(control<SegmentedControl>(1, 0)), QRectF(255, 5, 100, 34));
    EXPECT_EQ(frame(control<ColorSwatch>(1, 3)), QRectF(375 - 34 - 15, 5, 34, 34));
    // The alpha slider measures the widest label it will show, so it never moves.
    const QFont font = cell(1, 7)->textLabel()->font();
    const qreal x0 =
        std::trunc(std::trunc(sizeWithAttributes("Alpha: 100%", font).width()) + 40 + 29);
    EXPECT_EQ(frame(control<Slider>(1, 7)), QRectF(x0, 6, 375 - (x0 + 10), 31));

    EXPECT_EQ(screen->iconSize(), 60);
    EXPECT_EQ(frame(screen->tableHeaderView()).height(), 210);
    // Centred at 157.5, placed on the whole pixel.
    EXPECT_EQ(frame(screen->iconImageView()), QRectF(158, 105 + 15 - 30, 60, 60));
    EXPECT_EQ(screen->infoLabel()->text(), "Badge Preview");

    root.writeFile("/tmp/iconSize.txt", "abc");
    open();
    EXPECT_EQ(screen->iconSize(), 0);
    EXPECT_EQ(frame(screen->tableHeaderView()).height(), 30);
}

TEST_F(Table, OnlyBadgeSavedToTmpComposesThePreviewOverTheIcon) {
    root.writeFile("/tmp/iconSize.txt", "60");
    QImage background(48, 40, QImage::Format_ARGB32);
    background.fill(Qt::red);
    ASSERT_TRUE(writePngAtomically(background, hostPath("/tmp/badgeBackground.png")));
    open();
    QWidget* header = screen->tableHeaderView();
    screen->handleSimpleMessageNamed("reloadData");
    EXPECT_EQ(viewWithTag(header, 1337), nullptr);
    EXPECT_TRUE(screen->finalBadgeImage().isNull());

    setPreferencesObjectKey("0.500000,0.250000", SettingsKey::badgeLocation);
    screen->handleSimpleMessageNamed("badgeSavedToTmp");
    QWidget* badgeView = viewWithTag(header, 1337);
    ASSERT_NE(badgeView, nullptr);
    EXPECT_EQ(header->children().last(), badgeView);
    EXPECT_FALSE(screen->finalBadgeImage().isNull());
    const QRectF icon = frame(screen->iconImageView());
    EXPECT_EQ(frame(badgeView).topLeft(), icon.topLeft() + QPointF(30, 15));
    EXPECT_EQ(frame(badgeView).height(), 24);

    // 100 points wider: the icon is centred again and the badge rides on it; nothing is rebuilt.
    const TableViewCell* row = cell(0, 0);
    setFrame(screen->view(), QRectF(QPointF(), bounds(screen->view()).size() + QSizeF(100, 0)));
    screen->viewDidLayoutSubviews();
    const QRectF moved = frame(screen->iconImageView());
    EXPECT_EQ(std::tuple(cell(0, 0), moved.topLeft()),
              std::tuple(row, icon.topLeft() + QPointF(50, 0)));
    EXPECT_EQ(frame(badgeView).topLeft(), moved.topLeft() + QPointF(30, 15));

    // Hidden: no badge, and the view keeps its frame.
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    screen->handleSimpleMessageNamed("badgeSavedToTmp");
    EXPECT_TRUE(screen->finalBadgeImage().isNull());
    EXPECT_EQ(frame(badgeView).topLeft(), moved.topLeft() + QPointF(30, 15));
}
