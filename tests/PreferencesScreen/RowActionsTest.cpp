#include "ColorPalette.h"
#include "ColorPickerController.h"
#include "ColorText.h"
#include "DevicePaths.h"
#include "NavigationController.h"
#include "ScreenFixture.h"
#include "ViewGeometry.h"

#include <QTest>
#include <filesystem>

using namespace pomwick;

namespace {

const std::string paletteFile = std::string(DevicePath::bundleDirectory) + "colors_crayola.plist";

std::string paletteOf(const std::string& entries) {
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict><key>colors</key>)"
           "<array>" +
           entries + "</array></dict></plist>";
}

std::string entry(const std::string& hex) {
    return "<dict><key>name</key><string>x</string><key>hash</key><string>" + hex +
           "</string></dict>";
}

// The settings page at the root of a navigation stack, as the host shows it.
class RowActions : public test::ScreenFixture {
protected:
    void host() {
        screen = std::make_unique<PomwickPreferencesViewController>();
        navigation = std::make_unique<NavigationController>(screen.get(), QSize(375, 667));
        navigation->show();
    }
    void TearDown() override {
        if (navigation) {
            navigation.reset();
            (void)screen.release(); // the stack owned it
        }
        ScreenFixture::TearDown();
    }
    void select(int section, int row) { screen->table()->selectRowAtIndexPath({section, row}); }
    ViewController* top() const { return navigation->topViewController(); }
    LJColorPickerView* grid() const { return qobject_cast<LJColorPickerView*>(top()->view()); }

    std::unique_ptr<NavigationController> navigation;
};

} // namespace

TEST(HexColor, EveryScannerRuleGivesTheColorOfItsLowTwentyFourBits) {
    const Color orange{1.0f, 128 / 255.0f, 0.0f, 0.5f};
    const Color black{0, 0, 0, 0.5f};
    const std::pair<const char*, Color> cases[] = {
        {"#FF8000", orange},    {"FF8000", orange},    {"0xFF8000", orange},
        {"##ff8000zz", orange}, {"#80FF8000", orange}, {"zz", black},
        {" #FF8000", black},    {"", black},           {"0xFFFFFFFFFF", {1, 1, 1, 0.5f}},
    };
    for (const auto& [hex, color] : cases)
        EXPECT_EQ(getUIColorFromHexString(hex, 0.5f), color) << hex;
    EXPECT_EQ(storedColorText(orange), "1.000000,0.501961,0.000000,0.500000");
}

TEST_F(RowActions, BadPaletteFilesGiveAnEmptyOrPartlyFilledPalette) {
    const std::pair<std::string, size_t> cases[] = {
        {"not a property list", 0},
        {paletteOf(entry("#FF8000") + "<dict><key>name</key><string>no hash</string></dict>" +
                   "<string>#00FF00</string>" + entry("zz") + entry("#80FF8000")),
         3},
    };
    for (const auto& [bytes, count] : cases) {
        root.writeFile(paletteFile, bytes);
        EXPECT_EQ(loadColorPalette().size(), count) << bytes;
    }
    std::filesystem::remove(root.at(paletteFile));
    EXPECT_TRUE(loadColorPalette().empty());
}

TEST_F(RowActions, EachRowOpensItsEditorAndAColorGridStoresUnderItsOwnKey) {
    // Only a color's low 24 bits count.
    root.writeFile(paletteFile, paletteOf(entry("#80FF8000") + entry("#0000FF")));
    host();
    const auto tapFirstSwatch = [&] {
        CollectionView* swatches = grid()->colorView();
        QTest::mouseClick(swatches->viewport(), Qt::LeftButton, {},
                          swatches->visualRect(swatches->model()->index(0, 0)).center());
    };
    select(1, 5);
    ASSERT_NE(dynamic_cast<ColorPickerController*>(top()), nullptr);
    EXPECT_EQ(top()->title(), "Select Color");
    ASSERT_NE(grid(), nullptr);
    EXPECT_EQ(grid()->colorsPerRow(), 5);
    EXPECT_EQ(grid()->colorCellPadding(), 2.0);
    EXPECT_TRUE(grid()->highlightSelection());
    tapFirstSwatch();
    EXPECT_EQ(stored("BADGE_BORDER_COLOR"), "1.000000,0.501961,0.000000,1.000000");
    EXPECT_EQ(stored("BADGE_BACKGROUND_COLOR"), "(missing)");
    navigation->popViewControllerAnimated(true);

    // Changing the file now changes nothing: the palette stays as first read.
    root.writeFile(paletteFile, paletteOf(entry("#00FF00")));
    select(1, 3);
    EXPECT_EQ(grid()->colorView()->numberOfItems(), 2);
    tapFirstSwatch();
    EXPECT_EQ(stored("BADGE_BACKGROUND_COLOR"), "1.000000,0.501961,0.000000,1.000000");
    navigation->popViewControllerAnimated(true);

    // The position editor and the font sheet are opened in the real window's test.
    for (const IndexPath path : {IndexPath{0, 0}, IndexPath{1, 0}, IndexPath{1, 7}}) {
        select(path.section, path.row);
        EXPECT_EQ(navigation->viewControllers().size(), 1u);
    }
    EXPECT_FALSE(screen->table()->indexPathForSelectedRow());
}

// Restoring the defaults is tried with the page's undo; a settings path that cannot go stays.
TEST_F(RowActions, RestoreDefaultsLeavesASettingsPathThatCannotBeRemoved) {
    open();
    const auto settings = root.at(std::string(DevicePath::preferencesFile));
    std::filesystem::create_directories(settings / "in-the-way");
    screen->table()->selectRowAtIndexPath({2, 0});
    EXPECT_TRUE(std::filesystem::exists(settings / "in-the-way"));
}
