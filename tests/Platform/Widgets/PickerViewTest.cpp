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

struct ShownPicker {
    ShownPicker() {
        picker.setDataSource(&numbers);
        picker.resize(320, 216);
        picker.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&picker));
        QApplication::processEvents();
    }
    bool waitForPicks(size_t count) {
        return QTest::qWaitFor([&] { return numbers.picks.size() >= count; }) &&
               numbers.picks.size() == count;
    }
    Numbers numbers;
    PickerView picker;
};

TEST(PickerView, MakesOnlyTheRowsItShowsAndTellsOncePerRestOfKeysOrTheMouseWheel) {
    // Presses while the wheel still turns add up to one rest: it needs its real turning time.
    Animations::ScaleOverride realLengths(1);
    ShownPicker shown;
    EXPECT_GT(shown.numbers.made.size(), 3u);
    EXPECT_LT(shown.numbers.made.size(), 20u) << "a 216-point wheel shows about seven rows";
    shown.picker.selectRow(500, 0, false);
    shown.picker.grab();
    EXPECT_TRUE(shown.numbers.made.contains({0, 503}));
    EXPECT_FALSE(shown.numbers.made.contains({0, 300}));
    EXPECT_EQ(shown.picker.selectedRowInComponent(0), 500);

    // Reloads keep the selection inside the rows.
    shown.picker.selectRow(2, 1, false);
    shown.numbers.rows[1] = 1;
    shown.picker.reloadComponent(1);
    EXPECT_EQ(shown.picker.selectedRowInComponent(1), 0);
    EXPECT_TRUE(shown.numbers.picks.empty()) << "selecting from code tells nobody";

    shown.picker.selectRow(0, 0, false);
    PickerWheel* wheel = shown.picker.wheel(0);
    wheel->setFocus();
    QTest::keyClick(wheel, Qt::Key_Down);
    QTest::keyClick(wheel, Qt::Key_Down);
    ASSERT_TRUE(shown.waitForPicks(1)) << "two quick presses end in one rest";
    EXPECT_EQ(shown.numbers.picks.back(), std::pair(0, 2));

    struct Move {
        Qt::Key key;
        int row;
    };
    for (const Move& m : {Move{Qt::Key_PageDown, 8}, Move{Qt::Key_Up, 7}, Move{Qt::Key_End, 999},
                          Move{Qt::Key_Home, 0}}) {
        const size_t before = shown.numbers.picks.size();
        QTest::keyClick(wheel, m.key);
        ASSERT_TRUE(shown.waitForPicks(before + 1));
        EXPECT_EQ(shown.picker.selectedRowInComponent(0), m.row);
    }

    QWheelEvent turn(QPointF(10, 10), wheel->mapToGlobal(QPointF(10, 10)), {}, {0, -360},
                     Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(wheel->viewport(), &turn);
    ASSERT_TRUE(shown.waitForPicks(6));
    EXPECT_EQ(shown.numbers.picks.back(), std::pair(0, 3));

    QTest::mouseClick(wheel->viewport(), Qt::LeftButton, {}, QPoint(20, 108 + 2 * 30));
    ASSERT_TRUE(shown.waitForPicks(7)) << "a tapped row turns to the middle";
    EXPECT_EQ(shown.numbers.picks.back(), std::pair(0, 5));

    QTest::keyClick(wheel, Qt::Key_Tab);
    EXPECT_TRUE(shown.picker.wheel(1)->hasFocus());
}

} // namespace
} // namespace pomwick
