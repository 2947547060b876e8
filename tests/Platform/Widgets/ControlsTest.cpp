#include "SegmentedControl.h"
#include "Slider.h"
#include "Switch.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(Switch, OnlyTheUsersTogglesAreReported) {
    Switch toggle;
    QSignalSpy changes(&toggle, &Switch::valueChanged);
    toggle.setOn(true, false);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_EQ(changes.count(), 0);
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_FALSE(toggle.isOn());
    EXPECT_EQ(changes.count(), 1);
}

TEST(SegmentedControl, ChoosingAnotherSegmentIsReportedOnce) {
    SegmentedControl control({"Hide", "Show"});
    control.resize(100, 30);
    control.setSelectedSegmentIndex(1);
    QSignalSpy changes(&control, &SegmentedControl::valueChanged);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(75, 15));
    EXPECT_EQ(changes.count(), 0);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(25, 15));
    EXPECT_EQ(control.selectedSegmentIndex(), 0);
    EXPECT_EQ(changes.count(), 1);
    control.setEnabled(false);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(75, 15));
    EXPECT_EQ(control.selectedSegmentIndex(), 0);
}

TEST(Slider, SettersClampQuietlyAndDraggingReportsEveryChange) {
    Slider slider;
    slider.resize(228, 31);
    slider.setMinimumValue(1);
    slider.setMaximumValue(2);
    QSignalSpy changes(&slider, &Slider::valueChanged);
    slider.setValue(7, true);
    EXPECT_EQ(slider.value(), 2);
    slider.setValue(NAN, false);
    EXPECT_EQ(slider.value(), 1);
    EXPECT_EQ(changes.count(), 0);

    QSignalSpy inside(&slider, &Slider::touchUpInside);
    QSignalSpy outside(&slider, &Slider::touchUpOutside);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(14, 15));
    for (int x = 34; x <= 214; x += 20)
        QTest::mouseMove(&slider, QPoint(x, 15));
    EXPECT_GE(changes.count(), 9);
    EXPECT_FLOAT_EQ(slider.value(), 2);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(214, 40));
    EXPECT_EQ(inside.count(), 1);
    EXPECT_EQ(outside.count(), 0);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(114, 15));
    EXPECT_NEAR(slider.value(), 1.5, 0.01);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(114, 300));
    EXPECT_EQ(outside.count(), 1);
}
