#include "NavigationController.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

class RecordingController : public ViewController {
public:
    RecordingController(QString name, QStringList& log) : name_(std::move(name)), log_(log) {}
    void viewDidLoad() override { log_ << name_ + " load"; }
    void viewWillAppear(bool) override { log_ << name_ + " willAppear"; }
    void viewDidAppear(bool) override { log_ << name_ + " didAppear"; }
    void viewWillDisappear(bool) override { log_ << name_ + " willDisappear"; }
    void viewDidDisappear(bool) override { log_ << name_ + " didDisappear"; }

private:
    QString name_;
    QStringList& log_;
};

} // namespace

TEST(NavigationController, TellsControllersTheyAppearAndDisappearInOrder) {
    QStringList log;
    auto* root = new RecordingController("root", log);
    NavigationController navigation(root);
    navigation.show();
    auto* page = new RecordingController("page", log);
    navigation.pushViewController(page, true);
    EXPECT_EQ(navigation.topViewController(), page);
    EXPECT_EQ(page->view()->size(), QSize(375, 667 - NavigationController::barHeight));
    navigation.popViewControllerAnimated(true);
    EXPECT_EQ(navigation.topViewController(), root);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    EXPECT_EQ(log, (QStringList{"root load", "root willAppear", "root didAppear", "page load",
                                "root willDisappear", "page willAppear", "root didDisappear",
                                "page didAppear", "page willDisappear", "root willAppear",
                                "page didDisappear", "root didAppear"}));
}
