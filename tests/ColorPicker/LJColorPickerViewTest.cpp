#include "LJColorPickerView.h"

#include <QAccessible>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

namespace pomwick {
namespace {

class RecordingDelegate : public QObject {
public:
    void didSelectColor(LJColorPickerView*, const Color& color) { told.push_back(color); }
    std::vector<Color> told;
};

std::vector<Color> palette(int count) {
    std::vector<Color> colors;
    for (int i = 0; i < count; ++i)
        colors.push_back({float(i % 256) / 255, float(i / 256 % 256) / 255, 0.5f, 1});
    return colors;
}

struct Picker {
    explicit Picker(int colors, int width = 320) {
        view.resize(width, 480);
        view.setColors(palette(colors));
        view.show();
    }
    CollectionView* grid() { return view.colorView(); }
    QPoint centerOf(int item) {
        return grid()->visualRect(grid()->model()->index(item, 0)).center();
    }
    void tap(int item) {
        QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, centerOf(item));
    }
    CollectionViewCell cell(int item) { return view.cellForItemAtIndexPath(grid(), {0, item}); }
    LJColorPickerView view;
};

// Its defaults (four a row, padding 2, a white border) show in the layout and tap tests.
TEST(LJColorPickerView, ClampsWhatItIsGivenSizesSwatchesWithWholeGapsAndScrollsBackToTheTop) {
    LJColorPickerView view;
    EXPECT_FALSE(view.selectedColor());
    view.setColorsPerRow(0);
    view.setColorCellPadding(-0.5);
    EXPECT_EQ(std::tuple(view.colorsPerRow(), view.colorCellPadding()), std::tuple(1, 0.0));
    view.setColorCellPadding(7);
    EXPECT_EQ(view.colorView()->contentInset(), QMarginsF(0, 2, 0, 2));

    // Swatch sides: the gap total is cut to whole points before it is subtracted from the width.
    using Swatch = std::tuple<int, int, double, qreal>;
    for (const auto& [width, perRow, padding, side] :
         {Swatch{300, 3, 0.4, 100}, {300, 3, 0.5, 99}, {321, 1, 2.0, 321}, {5, 4, 10.0, 0}}) {
        Picker picker(9, width);
        picker.view.setColorsPerRow(perRow);
        picker.view.setColorCellPadding(padding);
        EXPECT_EQ(picker.grid()->layoutFrameForItem(0).size(), QSizeF(side, side))
            << width << " " << perRow;
    }

    // Palettes of any size, and every setter scrolls back to the top.
    for (int count : {0, 10000}) {
        Picker picker(count);
        EXPECT_EQ(picker.grid()->numberOfItems(), count);
        picker.grid()->setContentOffset({0, 1e9});
        EXPECT_FALSE(picker.view.grab().isNull());
        picker.view.setSelectionBorderColor(Color::black());
        EXPECT_EQ(picker.grid()->contentOffset(), QPointF(0, 0));
    }
}

TEST(LJColorPickerView, LaysSwatchesOutInFullRowsAndATapBordersOneAndReportsItsColor) {
    Picker picker(10);
    CollectionView* grid = picker.grid();
    EXPECT_EQ(grid->layoutFrameForItem(0), QRectF(0, 0, 78, 78));
    EXPECT_EQ(grid->layoutFrameForItem(3).right(), 320) << "a full row reaches the right edge";
    EXPECT_EQ(grid->layoutFrameForItem(4).topLeft(), QPointF(0, 80));
    EXPECT_EQ(grid->layoutFrameForItem(9).left(), grid->layoutFrameForItem(5).left())
        << "the last row stands under the row above";
    EXPECT_EQ(grid->contentOffset(), QPointF(0, 0));

    RecordingDelegate delegate;
    picker.view.setDelegate(&delegate);

    // A press dims the swatch; leaving it cancels the tap.
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, picker.centerOf(1));
    EXPECT_EQ(picker.cell(1).alpha, 0.5);
    QTest::mouseMove(grid->viewport(), picker.centerOf(0));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, picker.centerOf(1));
    EXPECT_EQ(std::tuple(picker.cell(1).alpha, delegate.told.size()), std::tuple(1.0, 0u));
    picker.tap(2);
    const CollectionViewCell tapped = picker.cell(2);
    EXPECT_EQ(std::tuple(tapped.alpha, tapped.borderWidth, tapped.borderColor),
              std::tuple(1.0, 5.0, QColor(Qt::white)));
    EXPECT_EQ(delegate.told, std::vector{palette(10)[2]});
    EXPECT_EQ(picker.view.selectedColor(), palette(10)[2]);

    picker.tap(5); // single selection
    EXPECT_EQ(std::tuple(picker.cell(2).borderWidth, picker.cell(5).borderWidth),
              std::tuple(0, 5.0));

    picker.view.setHighlightSelection(false);
    EXPECT_FALSE(grid->indexPathForSelectedItem()) << "a reset clears the selection";
    EXPECT_EQ(picker.view.selectedColor(), palette(10)[5]) << "but keeps the color";
    picker.tap(7);
    EXPECT_EQ(std::tuple(picker.cell(7).borderWidth, delegate.told.size()), std::tuple(0, 3u));

    // Delegates that cannot be told are left alone.
    QObject unaware;
    picker.view.setDelegate(&unaware);
    picker.tap(1);
    picker.view.setDelegate(std::make_unique<RecordingDelegate>().get()); // gone at once
    picker.tap(3);
    EXPECT_EQ(picker.view.selectedColor(), palette(10)[3]);
}

TEST(LJColorPickerView, ArrowKeysMoveAndSpaceSelectsAndItReadsAsAListOfNamedColors) {
    Picker picker(12);
    RecordingDelegate delegate;
    picker.view.setDelegate(&delegate);
    QApplication::setActiveWindow(&picker.view); // the focus goes to the grid
    for (Qt::Key key :
         {Qt::Key_Home, Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left})
        QTest::keyClick(picker.grid(), key);
    QTest::keyClick(picker.grid(), Qt::Key_Space);
    EXPECT_EQ(delegate.told, std::vector{palette(12)[9]}) << "moving the focus selects nothing";
    EXPECT_TRUE(picker.cell(9).focused);
    QTest::keyClick(picker.grid(), Qt::Key_End);
    QTest::keyClick(picker.grid(), Qt::Key_Return);
    EXPECT_EQ(picker.view.selectedColor(), palette(12)[11]);
    picker.tap(0);
    EXPECT_FALSE(picker.cell(0).focused) << "no ring after a tap";

    picker.view.setColors({{1, 0.5f, 0, 1}, Color::black()});
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(picker.grid());
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(std::tuple(list->role(), list->childCount()), std::tuple(QAccessible::List, 2));
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), "red 100% green 50% blue 0%");
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), "red 0% green 0% blue 0%");
}

} // namespace
} // namespace pomwick
