#include "ViewController.h"

#include "NavigationController.h"

namespace pomwick {

ViewController::ViewController() = default;

ViewController::~ViewController() {
    delete view_;
}

QWidget* ViewController::view() {
    if (view_ == nullptr) {
        view_ = new QWidget;
        view_->resize(initialViewSize_);
        viewDidLoad();
    }
    return view_;
}

void ViewController::setView(QWidget* view) {
    if (view_ != view)
        delete view_;
    view_ = view;
}

NavigationController* ViewController::navigationController() const {
    return navigation_;
}

void ViewController::setTitle(const QString& title) {
    title_ = title;
    emit navigationItemChanged();
}

void ViewController::setRightBarButtonItem(BarButtonItem item) {
    rightItem_ = std::make_unique<BarButtonItem>(std::move(item));
    emit navigationItemChanged();
}

} // namespace pomwick
