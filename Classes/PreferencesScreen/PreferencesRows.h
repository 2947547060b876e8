#pragma once

#include "SettingsSnapshot.h"
#include "TableView.h"
#include "TextField.h"

#include <QObject>
#include <QPointer>
#include <map>
#include <optional>
#include <string>

namespace pomwick {

class PomwickPreferencesViewController;

// The settings table's rows: four sections, fourteen rows, each built afresh from the settings.
// Its controls report to the page's handlers; asking for a section's rows asks the renderer for
// a fresh preview.
class PreferencesRows : public TableViewDataSource {
    Q_OBJECT
public:
    PreferencesRows(PomwickPreferencesViewController* page, TableView* table);

    int numberOfSectionsInTableView(TableView* table) override;
    int numberOfRowsInSection(TableView* table, int section) override;
    QString titleForHeaderInSection(TableView* table, int section) override;
    QWidget* viewForFooterInSection(TableView* table, int section) override;
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath indexPath) override;
    void didSelectRowAtIndexPath(TableView* table, IndexPath indexPath) override;

    // The settings the rows of the current rebuild show, read once when it starts.
    const SettingsSnapshot& rowSettings();
    TextField* badgeTextTextField() const { return badgeTextTextField_; }
    TableViewCell* alphaCell() const { return alphaCell_; }
    // Off while the page shows a change it did not make: that costs one request, not one a section.
    bool rowCountsRequestPreview = true;

private:
    QImage icon(const char* fileName);
    qreal measuredWidth(const QString& text, const TableViewCell* cell);
    TableViewCell* makeCell(const QString& reuseIdentifier, const QString& text,
                            const char* iconFile);
    TableViewCell* enabledCell();
    TableViewCell* visibilityCell();
    TableViewCell* textCell(bool available);
    TableViewCell* colorCell(const QString& reuseIdentifier, const QString& text,
                             const char* iconFile, bool available, const QColor& color);
    TableViewCell* sliderCell(const QString& reuseIdentifier, const QString& text,
                              const char* iconFile, bool available, int sliderTag, float minimum,
                              float maximum, float value, const QString& measuredText);

    PomwickPreferencesViewController* page_;
    TableView* table_;
    TextFieldDelegate* textDelegate_;
    std::optional<SettingsSnapshot> rowSettings_;
    QPointer<TextField> badgeTextTextField_;
    QPointer<TableViewCell> alphaCell_;
    std::map<std::string, QImage> icons_;
    std::map<QString, qreal> textWidths_;
};

} // namespace pomwick
