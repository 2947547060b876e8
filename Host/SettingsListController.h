#pragma once

#include "BundleLoader.h"
#include "TableView.h"
#include "ViewController.h"

namespace pomwick {

// The host's root page, "Settings": one entry for the loaded bundle, which opens its page; a
// bundle that failed to load shows why instead.
class SettingsListController : public ViewController, public TableViewDataSource {
    Q_OBJECT
public:
    explicit SettingsListController(LoadedBundle bundle);

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void didRotateFromInterfaceOrientation(int fromOrientation) override;
    void openBundle(bool animated);

    int numberOfSectionsInTableView(TableView*) override { return 1; }
    int numberOfRowsInSection(TableView*, int) override { return 1; }
    QString titleForHeaderInSection(TableView*, int) override { return tr("Tweaks"); }
    QWidget* viewForFooterInSection(TableView* table, int section) override;
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath indexPath) override;
    void didSelectRowAtIndexPath(TableView* table, IndexPath indexPath) override;

private:
    LoadedBundle bundle_;
    TableView* table_ = nullptr;
};

} // namespace pomwick
