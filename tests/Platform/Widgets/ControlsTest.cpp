#include "SegmentedControl.h"
#include "Slider.h"
#include "Switch.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(Switch, OnlyTheUsersTogglesAreReported) {
    Switch toggle;
    QSignalSpy changes(&toggle, &Switch::valueChanged);
    QSignalSpy property(&toggle, &Switch::toggled);
    toggle.setOn(true);
    toggle.setOn(true);
    EXPECT_EQ(std::tuple(property.count(), changes.count()), std::tuple(1, 0));
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_EQ(std::tuple(toggle.isOn(), changes.count()), std::tuple(false, 1));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&toggle)->text(QAccessible::Value), "off");
}

TEST(SegmentedControl, OnlyChoosingAnotherSegmentIsReported) {
    SegmentedControl control({"Hide", "Show"});
    control.resize(100, 30);
    control.setSelectedSegmentIndex(1);
    QSignalSpy changes(&control, &SegmentedControl::valueChanged);
    QSignalSpy property(&control, &SegmentedControl::selectedSegmentIndexChanged);
    control.setSelectedSegmentIndex(1);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(75, 15));
    QTest::keyClick(control.segment(1), Qt::Key_Space);
    EXPECT_EQ(changes.count(), 0);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(25, 15));
    EXPECT_EQ(control.selectedSegmentIndex(), 0);
    EXPECT_EQ(std::tuple(changes.count(), property.count()), std::tuple(1, 1));

    control.setEnabled(false);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(75, 15));
    EXPECT_EQ(control.selectedSegmentIndex(), 0);
    control.setSelectedSegmentIndex(-1);
    EXPECT_EQ(std::tuple(control.selectedSegmentIndex(), property.count()), std::tuple(-1, 2));
}

TEST(Slider, EveryChangeIsReportedOnceAndEveryDragKeyOrAssistiveStepEndsInARelease) {
    Slider slider;
    slider.resize(228, 31);
    slider.setMinimumValue(1);
    slider.setMaximumValue(2);
    QSignalSpy changes(&slider, &Slider::valueChanged);
    QSignalSpy released(&slider, &Slider::sliderReleased);
    slider.setValue(7, true);
    EXPECT_EQ(slider.value(), 2);
    slider.setValue(2);
    slider.setValue(NAN, false);
    EXPECT_EQ(slider.value(), 1);
    EXPECT_EQ(std::tuple(changes.count(), released.count()), std::tuple(2, 0));

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(14, 15));
    QTest::mouseMove(&slider, QPoint(114, 15));
    EXPECT_NEAR(slider.value(), 1.5, 0.01);
    QTest::mouseMove(&slider, QPoint(214, 15));
    EXPECT_FLOAT_EQ(slider.value(), 2);
    EXPECT_EQ(std::tuple(changes.count(), released.count()), std::tuple(4, 0));
    // Let go anywhere, far below included.
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(114, 300));
    EXPECT_EQ(released.count(), 1);

    // A key or an assistive tool steps without a drag: each step is a change and a release; a
    // step that moves nothing is neither.
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_End})
        QTest::keyClick(&slider, key);
    EXPECT_FLOAT_EQ(slider.value(), 2);
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&slider);
    reader->valueInterface()->setCurrentValue(1.4);
    EXPECT_FLOAT_EQ(slider.value(), 1.4f);
    EXPECT_EQ(reader->text(QAccessible::Value), "1.4");
    EXPECT_EQ(std::tuple(changes.count(), released.count()), std::tuple(8, 5));
}
