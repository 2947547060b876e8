#include "AlertView.h"

#include "Appearance.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

TEST(AlertView, APanelWithATintedButtonNoRingAfterAClickTheKeysDismissItTheFocusGoesBack) {
    QWidget window;
    auto* opener = new QPushButton("(i)", &window);
    window.show();
    // Whether the keyboard steers is followed from the first control that asks, as in the app.
    Appearance::showsFocusRing(opener);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        QApplication::setActiveWindow(&window);
        QTest::mouseClick(opener, Qt::LeftButton);
        AlertView("Tip", "A message.", "Ok").show();
        auto* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        QApplication::setActiveWindow(box);
        QAbstractButton* ok = static_cast<QMessageBox*>(box)->buttons().value(0);
        ASSERT_TRUE(ok->hasFocus());

        const QImage image = box->grab().toImage();
        EXPECT_EQ(image.pixelColor(image.width() / 2, 20), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(2, 2), Appearance::groupedBackground());
        const QPoint middle = ok->mapTo(box, QPoint(0, ok->height() / 2));
        bool tinted = false;
        for (int x = 0; x < ok->width(); ++x)
            tinted |= image.pixelColor(middle + QPoint(x, 0)) == Appearance::tint();
        EXPECT_TRUE(tinted);
        EXPECT_NE(image.pixelColor(middle + QPoint(2, 0)), Appearance::tint()) << "a ring";

        QTest::keyClick(ok, key);
        EXPECT_FALSE(box->isVisible()) << key;
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(opener->hasFocus());
    }
}
