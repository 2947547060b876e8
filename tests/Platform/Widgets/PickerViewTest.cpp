#include "PickerView.h"

#include "Animations.h"
#include "PickerWheel.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>
#include <gtest/gtest.h>

namespace pomwick {
namespace {

QStringList numbers(int count) {
    QStringList rows;
    for (int row = 0; row < count; ++row)
        rows.append(QString::number(row));
    return rows;
}

// Two wheels of numbered rows, 1000 and 3, on screen; picks are recorded as (row, component).
class Picker : public testing::Test {
protected:
    void SetUp() override {
        picker.addComponent(&many);
        picker.addComponent(&few);
        picker.setRowHeight(30);
        picker.resize(320, 216);
        picker.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&picker));
    }
    std::pair<int, int> lastPick() const {
        const QList<QVariant> last = picks.last();
        return {last[0].toInt(), last[1].toInt()};
    }
    QStringListModel many{numbers(1000)};
    QStringListModel few{numbers(3)};
    PickerView picker;
    QSignalSpy picks{&picker, &PickerView::rowPicked};
};

TEST_F(Picker, SelectingFromCodeOrResettingTheRowsReportsNothingAndKeepsTheSelectionInside) {
    picker.selectRow(500, 0, false);
    picker.selectRow(1000, 0, false);
    EXPECT_EQ(picker.selectedRowInComponent(0), 500) << "a row past the end is ignored";
    picker.selectRow(2, 1, false);
    few.setStringList(numbers(1));
    EXPECT_EQ(picker.selectedRowInComponent(1), 0);
    few.setStringList({});
    EXPECT_EQ(std::tuple(picker.selectedRowInComponent(1), picker.selectedRowInComponent(2)),
              std::tuple(-1, -1));
    EXPECT_EQ(picks.count(), 0);
}

TEST_F(Picker, KeysTheMouseWheelAndATapTurnAWheelAndReportEachRestOnce) {
    PickerWheel* wheel = picker.wheel(0);
    wheel->setFocus();
    for (const auto& [key, row] : {std::pair{Qt::Key_Down, 1},
                                   {Qt::Key_PageDown, 7},
                                   {Qt::Key_Up, 6},
                                   {Qt::Key_End, 999},
                                   {Qt::Key_Home, 0}}) {
        QTest::keyClick(wheel, key);
        EXPECT_EQ(lastPick(), std::pair(row, 0));
    }
    QTest::keyClick(wheel, Qt::Key_Up);
    EXPECT_EQ(picks.count(), 5) << "a key that cannot move the wheel reports nothing";

    QWheelEvent turn(QPointF(10, 10), wheel->mapToGlobal(QPointF(10, 10)), {}, {0, -360},
                     Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(wheel->viewport(), &turn);
    EXPECT_EQ(lastPick(), std::pair(3, 0)) << "three notches down";

    QTest::mouseClick(wheel->viewport(), Qt::LeftButton, {}, QPoint(20, 108 + 2 * 30));
    EXPECT_TRUE(QTest::qWaitFor([&] { return picks.count() == 7; }));
    EXPECT_EQ(lastPick(), std::pair(5, 0)) << "a tapped row turns to the middle";

    QTest::keyClick(wheel, Qt::Key_Tab);
    EXPECT_TRUE(picker.wheel(1)->hasFocus());
}

// Turns under way are stopped rather than waited for.
TEST_F(Picker, PressesWhileTurningAddUpToOneRestAndATurnFromCodeCancelsTheUsers) {
    Animations::ScaleOverride realLengths(1);
    PickerWheel* wheel = picker.wheel(0);
    QScroller* scroller = QScroller::scroller(wheel->viewport());
    QTest::keyClick(wheel, Qt::Key_Down);
    QTest::keyClick(wheel, Qt::Key_Down);
    ASSERT_NE(scroller->state(), QScroller::Inactive);
    EXPECT_EQ(picks.count(), 0);
    scroller->stop();
    EXPECT_EQ(scroller->state(), QScroller::Inactive);
    ASSERT_EQ(picks.count(), 1);
    EXPECT_EQ(std::pair(lastPick(), wheel->verticalScrollBar()->value()),
              std::pair(std::pair(2, 0), 60));

    QTest::keyClick(wheel, Qt::Key_Down);
    picker.selectRow(9, 0, false);
    scroller->stop();
    EXPECT_EQ(std::tuple(picks.count(), picker.selectedRowInComponent(0), scroller->state()),
              std::tuple(1, 9, QScroller::Inactive));
}

} // namespace
} // namespace pomwick
