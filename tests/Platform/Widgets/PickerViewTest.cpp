#include "PickerView.h"

#include "Animations.h"
#include "PickerWheel.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace pomwick {
namespace {

// Two wheels of numbered rows that remember which rows were made and which picks were told.
class Numbers : public PickerViewDataSource {
public:
    int numberOfComponentsInPickerView(PickerView*) override { return 2; }
    int numberOfRowsInComponent(PickerView*, int component) override { return rows[component]; }
    qreal rowHeightForComponent(PickerView*, int) override { return 30; }
    QWidget* viewForRow(PickerView*, int row, int component, QWidget* reusing) override {
        made.insert({component, row});
        auto* label = reusing != nullptr ? qobject_cast<QLabel*>(reusing) : new QLabel;
        label->setText(QString::number(row));
        label->resize(40, 20);
        return label;
    }
    void didSelectRow(PickerView*, int row, int component) override {
        picks.emplace_back(component, row);
    }
    int rows[2] = {1000, 3};
    std::set<std::pair<int, int>> made;
    std::vector<std::pair<int, int>> picks;
};

TEST(PickerView, MakesOnlyTheRowsItShowsAndTellsOncePerRestOfKeysOrTheMouseWheel) {
    // Presses while the wheel still turns add up to one rest: it needs its real turning time.
    Animations::ScaleOverride realLengths(1);
    Numbers numbers;
    PickerView picker;
    picker.setDataSource(&numbers);
    picker.resize(320, 216);
    picker.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    QApplication::processEvents();
    // Waits for the picks told to reach the count, and checks that they stop there.
    const auto waitForPicks = [&](size_t count) {
        return QTest::qWaitFor([&] { return numbers.picks.size() >= count; }) &&
               numbers.picks.size() == count;
    };
    EXPECT_GT(numbers.made.size(), 3u);
    EXPECT_LT(numbers.made.size(), 20u) << "a 216-point wheel shows about seven rows";
    picker.selectRow(500, 0, false);
    picker.grab();
    EXPECT_TRUE(numbers.made.contains({0, 503}));
    EXPECT_FALSE(numbers.made.contains({0, 300}));
    EXPECT_EQ(picker.selectedRowInComponent(0), 500);

    // Reloads keep the selection inside the rows.
    picker.selectRow(2, 1, false);
    numbers.rows[1] = 1;
    picker.reloadComponent(1);
    EXPECT_EQ(picker.selectedRowInComponent(1), 0);
    EXPECT_TRUE(numbers.picks.empty()) << "selecting from code tells nobody";

    picker.selectRow(0, 0, false);
    PickerWheel* wheel = picker.wheel(0);
    wheel->setFocus();
    QTest::keyClick(wheel, Qt::Key_Down);
    QTest::keyClick(wheel, Qt::Key_Down);
    ASSERT_TRUE(waitForPicks(1)) << "two quick presses end in one rest";
    EXPECT_EQ(numbers.picks.back(), std::pair(0, 2));

    for (const auto& [key, row] :
         {std::pair{Qt::Key_PageDown, 8}, {Qt::Key_Up, 7}, {Qt::Key_End, 999}, {Qt::Key_Home, 0}}) {
        const size_t before = numbers.picks.size();
        QTest::keyClick(wheel, key);
        ASSERT_TRUE(waitForPicks(before + 1));
        EXPECT_EQ(picker.selectedRowInComponent(0), row);
    }

    QWheelEvent turn(QPointF(10, 10), wheel->mapToGlobal(QPointF(10, 10)), {}, {0, -360},
                     Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(wheel->viewport(), &turn);
    ASSERT_TRUE(waitForPicks(6));
    EXPECT_EQ(numbers.picks.back(), std::pair(0, 3));

    QTest::mouseClick(wheel->viewport(), Qt::LeftButton, {}, QPoint(20, 108 + 2 * 30));
    ASSERT_TRUE(waitForPicks(7)) << "a tapped row turns to the middle";
    EXPECT_EQ(numbers.picks.back(), std::pair(0, 5));

    QTest::keyClick(wheel, Qt::Key_Tab);
    EXPECT_TRUE(picker.wheel(1)->hasFocus());
}

} // namespace
} // namespace pomwick
