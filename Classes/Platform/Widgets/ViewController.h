#pragma once

#include "PomwickPlatformExport.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>

namespace pomwick {

class NavigationController;

// A bar button: a title and the action it runs when clicked.
struct POMWICK_PLATFORM_EXPORT BarButtonItem {
    QString title;
    std::function<void()> action;
};

// Owns one screen's view, built on first use by viewDidLoad(), and hears when the navigation
// stack shows and hides it. The window's size changes reach it as rotations.
class POMWICK_PLATFORM_EXPORT ViewController : public QObject {
    Q_OBJECT
public:
    ViewController();
    ~ViewController() override;

    QWidget* view();
    // Makes the widget this controller's view, as a screen that is one ready-made widget does;
    // the controller owns it from now on.
    void setView(QWidget* view);
    // The size the view is made with; the navigation stack sets it to the room it has.
    void setInitialViewSize(QSize size) { initialViewSize_ = size; }

    QString title() const { return title_; }
    void setTitle(const QString& title);

    const BarButtonItem* rightBarButtonItem() const { return rightItem_.get(); }
    void setRightBarButtonItem(BarButtonItem item);

    NavigationController* navigationController() const;

    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    virtual void viewWillDisappear(bool /*animated*/) {}
    virtual void viewDidDisappear(bool /*animated*/) {}
    // The view changed size: place what is in it again. Nothing is rebuilt for a resize.
    virtual void viewDidLayoutSubviews() {}
    // The window turned from portrait to landscape or back; fromOrientation: 1 portrait, 3 or 4
    // landscape (the device's numbering).
    virtual void didRotateFromInterfaceOrientation(int /*fromOrientation*/) {}

signals:
    void navigationItemChanged();
    // The page shows everything it has to show (for a page with a live preview: the preview).
    void contentReady();

private:
    friend class NavigationController;
    QPointer<QWidget> view_;
    QSize initialViewSize_{375, 623};
    QString title_;
    std::unique_ptr<BarButtonItem> rightItem_;
    QPointer<NavigationController> navigation_;
};

} // namespace pomwick
