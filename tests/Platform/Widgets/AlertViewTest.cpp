#include "AlertView.h"

#include "Appearance.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(AlertView, OneAtATimeAsAPanelTheKeysDismissItAndTheFocusGoesBack) {
    QWidget window;
    auto* opener = new QPushButton("(i)", &window);
    window.show();
    QApplication::setActiveWindow(&window);
    // Whether the keyboard steers is followed from the first control that asks, as in the app.
    Appearance::showsFocusRing(opener);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        QTest::mouseClick(opener, Qt::LeftButton);
        AlertView("Tip", "A message.", "Ok").show();
        AlertView("Tip", "A message.", "Ok").show();
        QList<QMessageBox*> shown = window.findChildren<QMessageBox*>();
        shown.removeIf([](QWidget* box) { return !box->isVisible(); });
        ASSERT_EQ(shown.size(), 1);
        QApplication::setActiveWindow(shown[0]);
        QAbstractButton* ok = shown[0]->buttons().value(0);
        ASSERT_TRUE(ok != nullptr && ok->hasFocus());

        // A white panel on the page's grey, the button's text tinted, no ring after a click.
        const QImage image = shown[0]->grab().toImage();
        EXPECT_EQ(image.pixelColor(image.width() / 2, 20), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(2, 2), Appearance::groupedBackground());
        const QPoint middle = ok->mapTo(shown[0], QPoint(0, ok->height() / 2));
        EXPECT_EQ(image.pixelColor(middle + QPoint(ok->width() / 2, 0)).hue(),
                  Appearance::tint().hue());
        EXPECT_NE(image.pixelColor(middle + QPoint(2, 0)), Appearance::tint()) << "a ring";

        QTest::keyClick(ok, key);
        EXPECT_FALSE(shown[0]->isVisible()) << key;
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(opener->hasFocus());
    }
}
