#include "SettingsListController.h"

#include "Appearance.h"
#include "NavigationController.h"
#include "ViewGeometry.h"

namespace pomwick {
namespace {

// The list's one row: the bundle, or why it could not be loaded beneath it.
class BundleRows : public TableViewDataSource {
public:
    BundleRows(SettingsListController* list, LoadedBundle bundle)
        : TableViewDataSource(list), list_(list), bundle_(std::move(bundle)) {}

    int numberOfSectionsInTableView(TableView*) override { return 1; }
    int numberOfRowsInSection(TableView*, int) override { return 1; }
    QString titleForHeaderInSection(TableView*, int) override {
        return SettingsListController::tr("Tweaks");
    }

    QWidget* viewForFooterInSection(TableView* table, int) override {
        if (bundle_.bundle != nullptr)
            return nullptr;
        auto* label =
            new QLabel(SettingsListController::tr("The settings bundle could not be loaded:\n%1")
                           .arg(bundle_.error));
        label->setWordWrap(true);
        label->setFont(Appearance::systemFont(13));
        setTextColor(label, Appearance::errorText);
        setFrame(label, QRectF(15, 0, table->rowWidth() - 30, 80));
        return label;
    }

    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath) override {
        auto* cell =
            new TableViewCell("Bundle", QSizeF(table->rowWidth(), TableViewCell::rowHeight));
        cell->textLabel()->setText(bundle_.name);
        cell->setImage(bundle_.icon.scaled(58, 58, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        cell->setUserInteractionEnabled(bundle_.bundle != nullptr);
        return cell;
    }

    void didSelectRowAtIndexPath(TableView* table, IndexPath indexPath) override {
        table->deselectRowAtIndexPath(indexPath, true);
        list_->openBundle(true);
    }

private:
    SettingsListController* list_;
    const LoadedBundle bundle_;
};

} // namespace

SettingsListController::SettingsListController(LoadedBundle bundle) : bundle_(std::move(bundle)) {}

void SettingsListController::viewDidLoad() {
    setTitle(tr("Settings"));
    setBackgroundColor(view(), Appearance::groupedBackground);
    table_ = new TableView(view());
    setFrame(table_, bounds(view()));
    table_->setDataSource(new BundleRows(this, bundle_));
    table_->reloadData();
}

// The window's size changed: the list takes the whole page again.
void SettingsListController::viewDidLayoutSubviews() {
    setFrame(table_, bounds(view()));
}

// The resize that turned the window has laid the list out already.
void SettingsListController::didRotateFromInterfaceOrientation(int) {
    table_->reloadData();
}

void SettingsListController::openBundle(bool animated) {
    if (bundle_.bundle != nullptr && navigationController() != nullptr)
        navigationController()->pushViewController(bundle_.bundle->makePrincipalController(),
                                                   animated);
}

} // namespace pomwick
