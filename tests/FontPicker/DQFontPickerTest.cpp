#include "DQFontPicker.h"

#include "PickerWheel.h"
#include "QtConversions.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

namespace pomwick {
namespace {

constexpr qsizetype notFound = DQFontPicker::notFound;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

std::unique_ptr<DQFontPicker> pickerWithFaces(QStringList faces) {
    auto picker = std::make_unique<DQFontPicker>();
    picker->setFaceSource([faces] { return faces; });
    return picker;
}

std::unique_ptr<QLabel> rowView(DQFontPicker& picker, int row, int component) {
    return std::unique_ptr<QLabel>(
        qobject_cast<QLabel*>(picker.viewForRow(picker.view(), row, component, nullptr)));
}

TEST(DQFontPicker, ColorWheelRunsDownToBlackAndAColorSetBeforeTheBuildGetsARowAfterItTheNearest) {
    DQFontPicker picker;
    const std::vector<Color>& colors = picker.colorList();
    ASSERT_EQ(colors.size(), 125u);
    EXPECT_EQ(colors.front(), (Color{1, 0, 0.25, 1})) << "the highest hue, a red-leaning pink";
    EXPECT_EQ(colors.back(), Color::black());
    const std::vector<Color> brightReds{
        {1, 0, 0, 1}, {1, 0.25, 0.25, 1}, {1, 0.5, 0.5, 1}, {1, 0.75, 0.75, 1}, Color::white()};
    EXPECT_FALSE(std::ranges::search(colors, brightReds).empty())
        << "white follows the reds of full brightness";
    // Only negative variant counts survive the build.
    for (const auto& [hues, greys, rows] :
         {std::tuple<qint64, qint64, size_t>{27, 1, 125}, {-1, 0, 5}, {0, -1, 125}, {-1, -1, 0}}) {
        DQFontPicker variants;
        variants.setColorVariants(hues);
        variants.setGrayVariants(greys);
        EXPECT_EQ(variants.colorList().size(), rows) << hues << " " << greys;
    }

    // A color set before the build gets a row; one set after it selects the nearest.
    const Color teal{0.1f, 0.5f, 0.45f, 1};
    DQFontPicker before;
    before.setColor(teal);
    EXPECT_EQ(before.colorList().size(), 126u);
    EXPECT_EQ(before.selectedColor(), teal);

    DQFontPicker after;
    after.colorList();
    after.setColor(teal);
    // The nearest row is selected, but the color itself is kept.
    EXPECT_EQ(std::tuple(after.colorList().size(), after.selectedColor(), after.color()),
              std::tuple(125u, Color{0, 0.5, 0.5, 1}, teal));

    for (const auto& [color, exact, nearest] :
         {std::tuple<std::optional<Color>, bool, bool>{Color{1, 0, 0, 0.2f}, true, true},
          {Color{1.001f, 0, 0, 1}, true, true},
          {teal, false, true},
          {std::nullopt, false, false},
          {Color{float(nan), 0, 0, 1}, false, false}}) {
        EXPECT_EQ(after.indexForColor(color) != notFound, exact);
        EXPECT_EQ(after.indexForNearestColor(color) != notFound, nearest);
    }
}

// Defaults for bounds that are not lengths, the current size added in its place, and a cap.
TEST(DQFontPicker, SizeListFollowsItsBoundsNeverRunsAwayAndLookupsPreferTheEarlierNearest) {
    using Case = std::tuple<double, double, double, double, std::vector<float>, size_t>;
    for (const auto& [min, max, step, fontSize, first, rows] :
         {Case{0, 0, 0, 13, {8, 10, 12, 13, 14, 16, 18, 20, 22, 24}, 10},
          {-3, nan, -1, 0, {8, 10, 12}, 9},
          {30, 10, 1, 13, {13}, 1},
          {8, 24, 1e-30, 0, {8, 8, 8}, 1000},
          {10, 11, 0.5, 0, {10, 10.5, 11}, 3}}) {
        SCOPED_TRACE(testing::Message() << min << " " << max << " " << step);
        DQFontPicker bounded;
        bounded.setMinFontSize(min);
        bounded.setMaxFontSize(max);
        bounded.setStepFontSize(step);
        if (fontSize != 0)
            bounded.selectFontSize(fontSize, false);
        const std::vector<float>& sizes = bounded.sizeList();
        EXPECT_EQ(sizes.size(), rows);
        EXPECT_TRUE(std::equal(first.begin(), first.end(), sizes.begin()));
    }

    // Lookups prefer the exact size, then the earlier of two equally near.
    DQFontPicker picker;
    using Lookup = std::tuple<double, qsizetype, qsizetype>;
    for (const auto& [size, exact, nearest] :
         {Lookup{13, notFound, 2}, {14, 3, 3}, {100, notFound, 8}, {nan, notFound, notFound}}) {
        EXPECT_EQ(picker.indexForFontSize(size), exact) << size;
        EXPECT_EQ(picker.indexForNearestFontSize(size), nearest) << size;
    }
    picker.selectFontSize(13, false);
    EXPECT_EQ(std::tuple(picker.selectedFontSize(), picker.fontSize()), std::tuple(12, 13));
}

TEST(DQFontPicker, FontListSortsEveryFaceWithTheCurrentNameInFront) {
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    auto picker = pickerWithFaces({"b-Regular", "Zeta", "alpha", "Écran-Bold", "Beta"});
    picker->selectFontName(QStringLiteral("Missing"), false);
    EXPECT_EQ(picker->fontList(),
              (QStringList{"alpha", "b-Regular", "Beta", "Écran-Bold", "Missing", "Zeta"}));
    EXPECT_EQ(picker->selectedFontName(), "Missing");

    using Lookup = std::pair<QString, qsizetype>;
    for (const auto& [name, index] :
         {Lookup{"Beta", 2}, {".Beta", 2}, {"..Zeta", 5}, {"beta", notFound}})
        EXPECT_EQ(picker->indexForFontName(name), index) << name.toStdString();

    // A name set after the build adds no row.
    picker->selectFontName(QStringLiteral("Other"), false);
    EXPECT_EQ(std::tuple(picker->fontList().size(), picker->fontName(), picker->selectedFontName()),
              std::tuple(6, "Other", "Missing"));
    QLocale::setDefault(QLocale::c());

    auto empty = pickerWithFaces({});
    empty->selectFontName(QStringLiteral("Lonely"), false);
    EXPECT_EQ(empty->fontList(), QStringList{"Lonely"});
}

TEST(DQFontPicker, TheFontWheelTakesTheWidthTheNarrowWheelsLeave) {
    DQFontPicker picker;
    for (const auto& [width, fontWheel, fontLabel] :
         {std::tuple<int, qreal, int>{320, 158, 138}, {200, 66, 46}}) {
        picker.view()->resize(width, 216);
        EXPECT_EQ(picker.widthForComponent(picker.view(), 0), fontWheel);
        EXPECT_EQ(rowView(picker, 0, 0)->width(), fontLabel);
    }
    EXPECT_EQ(picker.widthForComponent(picker.view(), 2), 66);
    EXPECT_EQ(picker.rowHeightForComponent(picker.view(), 1), 30);
}

TEST(DQFontPicker, RowsShowAndNameTheirFaceTheirSizeAndTheirColor) {
    auto picker = pickerWithFaces({"DejaVuSans", "Zapfino", "DejaVuSerif"});
    picker->setSizeList({8, 13.5f});
    // Wheels read as lists of rows named by their face, size and color, whatever the sample.
    PickerView* view = picker->view();
    view->resize(320, 216);
    view->show();
    QAccessibleInterface* fonts = QAccessible::queryAccessibleInterface(view->wheel(0));
    ASSERT_NE(fonts, nullptr);
    EXPECT_EQ(fonts->role(), QAccessible::List);
    EXPECT_EQ(fonts->text(QAccessible::Name), "Font");
    ASSERT_EQ(fonts->childCount(), 3) << "the lists are on the wheels once they show";
    EXPECT_EQ(fonts->child(1)->text(QAccessible::Name), "DejaVuSerif");
    QAccessibleInterface* sizes = QAccessible::queryAccessibleInterface(view->wheel(1));
    EXPECT_EQ(sizes->child(0)->text(QAccessible::Name), "8");
    QAccessibleInterface* colors = QAccessible::queryAccessibleInterface(view->wheel(2));
    EXPECT_EQ(colors->child(124)->text(QAccessible::Name), "red 0% green 0% blue 0%");

    // The color under the band is painted solid; the next row down is already fading.
    picker->setColor(Color{1, 0, 0, 1});
    const QImage shot = view->grab().toImage();
    const size_t red = size_t(picker->indexForColor(Color{1, 0, 0, 1}));
    EXPECT_EQ(shot.pixelColor(277, 108), QColor(Qt::red));
    EXPECT_NE(shot.pixel(277, 138), toQColor(picker->colorList()[red + 1]).rgb());

    EXPECT_EQ(rowView(*picker, 0, 1)->text(), " 8");
    EXPECT_EQ(rowView(*picker, 1, 1)->text(), "13.5");
    EXPECT_EQ(rowView(*picker, 0, 0)->font().pixelSize(), 18);
    EXPECT_EQ(rowView(*picker, 2, 0)->font().pixelSize(), 12) << "Zapfino draws small";
    EXPECT_EQ(rowView(*picker, 1, 0)->text(), "DejaVuSerif");
    picker->setText(QStringLiteral("Sample"));
    EXPECT_EQ(rowView(*picker, 1, 0)->text(), "Sample");
    EXPECT_EQ(fonts->child(1)->text(QAccessible::Name), "DejaVuSerif");

    const auto color = rowView(*picker, 124, 2);
    EXPECT_EQ(color->text(), QString::fromUtf8("\u2588\u2588"));
    EXPECT_EQ(color->palette().color(QPalette::Window), QColor(Qt::black));
    EXPECT_EQ(color->palette().color(QPalette::WindowText), QColor(Qt::black));
}

// Real input turning the wheels is driven end to end; here the picker's side of a pick.
TEST(DQFontPicker, AUserPickUpdatesTheValueAndCallsTheHandlerOnce) {
    DQFontPicker picker;
    int changes = 0;
    picker.setChangeHandler([&] { ++changes; });
    QSignalSpy changed(&picker, &DQFontPicker::changed);
    picker.selectFontSize(12, false);
    EXPECT_EQ(changes, 0) << "selecting from code is no pick";
    picker.selectRow(3, 2, false);
    picker.didSelectRow(picker.view(), 3, 2);
    // A key on the size wheel is a pick that reaches the picker.
    picker.view()->show();
    QTest::keyClick(picker.view()->wheel(1), Qt::Key_Down);
    EXPECT_EQ(std::tuple(changes, changed.count(), picker.fontSize(), picker.color()),
              std::tuple(2, 2, 14, picker.colorList()[3]));
}

} // namespace
} // namespace pomwick
