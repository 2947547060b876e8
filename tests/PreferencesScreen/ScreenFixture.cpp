#include "ScreenFixture.h"

#include "BundleInstallation.h"
#include "DevicePaths.h"
#include "PlistDictionary.h"
#include "PrivateSessionBus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace pomwick::test {

void ScreenFixture::SetUp() {
    PrivateSessionBus::address();
    ASSERT_FALSE(installBundleIntoDeviceRoot());
}

void ScreenFixture::TearDown() {
    screen.reset();
    // Alerts a test has checked are left open: the next test must not find them.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<QMessageBox*>(window) != nullptr)
            delete window;
    // Rows retired by reloads are deleted once the event loop runs.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

PomwickPreferencesViewController& ScreenFixture::open() {
    screen = std::make_unique<PomwickPreferencesViewController>();
    screen->setInitialViewSize(QSize(375, 623));
    screen->view();
    return *screen;
}

TableViewCell* ScreenFixture::cell(int section, int row) const {
    TableViewCell* found = screen->table()->cellForRowAtIndexPath({section, row});
    EXPECT_NE(found, nullptr) << section << "," << row;
    return found;
}

QString ScreenFixture::text(int section, int row) const {
    return cell(section, row)->textLabel()->text();
}

void ScreenFixture::expectAlert(const QString& title, const QString& text) {
    std::vector<QMessageBox*> shown;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(window); box && box->isVisible())
            shown.push_back(box);
    ASSERT_EQ(shown.size(), 1u) << title.toStdString();
    QMessageBox* box = shown.front();
    EXPECT_EQ(box->windowTitle(), title);
    EXPECT_EQ(box->text(), text);
    EXPECT_NE(box->windowModality(), Qt::NonModal);
    EXPECT_EQ(box->buttons().size(), 1);
    EXPECT_EQ(box->buttons().value(0)->text(), "Ok");
    box->buttons().value(0)->click();
    EXPECT_FALSE(box->isVisible());
}

std::string ScreenFixture::stored(std::string_view key) const {
    const auto dictionary = PlistDictionary::readFromFile(hostPath(DevicePath::preferencesFile));
    if (!dictionary)
        return "(no file)";
    const auto value = dictionary->lookup(key);
    return value ? value->text : "(missing)";
}

} // namespace pomwick::test
