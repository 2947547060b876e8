#pragma once

#include "BundleLoader.h"
#include "TableView.h"
#include "ViewController.h"

namespace pomwick {

// The host's root page, "Settings": one entry for the loaded bundle, which opens its page; a
// bundle that failed to load shows why instead.
class SettingsListController : public ViewController {
    Q_OBJECT
public:
    explicit SettingsListController(LoadedBundle bundle);

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void didRotateFromInterfaceOrientation(int fromOrientation) override;
    void openBundle(bool animated);

private:
    LoadedBundle bundle_;
    TableView* table_ = nullptr;
};

} // namespace pomwick
