#include "AlertView.h"

#include "Appearance.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

std::vector<QMessageBox*> shownAlerts() {
    std::vector<QMessageBox*> shown;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(window); box && box->isVisible())
            shown.push_back(box);
    return shown;
}

} // namespace

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
        const std::vector<QMessageBox*> shown = shownAlerts();
        ASSERT_EQ(shown.size(), 1u);
        QMessageBox* box = shown.front();
        QApplication::setActiveWindow(box);
        QAbstractButton* ok = box->buttons().value(0);
        ASSERT_TRUE(ok != nullptr && ok->hasFocus());

        // A white rounded panel on the page's grey; the button's text tinted, and no ring round
        // it after a click.
        const QImage image = box->grab().toImage();
        EXPECT_EQ(image.pixelColor(box->width() / 2, 20), QColor(Qt::white));
        EXPECT_EQ(image.pixelColor(2, 2), Appearance::groupedBackground());
        const QRect button(ok->mapTo(box, QPoint()), ok->size());
        bool tinted = false;
        for (int x = button.left(); x <= button.right(); ++x)
            tinted |= image.pixelColor(x, button.center().y()) == Appearance::tint();
        EXPECT_TRUE(tinted);
        EXPECT_NE(image.pixelColor(button.left() + 2, button.center().y()), Appearance::tint())
            << "a ring after a click";

        QTest::keyClick(ok, key);
        EXPECT_TRUE(shownAlerts().empty()) << key;
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(opener->hasFocus());
    }
}
