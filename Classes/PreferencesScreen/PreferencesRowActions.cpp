// What selecting a row does: open an editor, restore the defaults or open an outside page; and the
// table's questions, which the rows answer.
#include "FeedbackMailFlow.h"
#include "FontPickerSheet.h"
#include "OutsideLinks.h"
#include "PomwickPreferencesViewController.h"
#include "PreferencesRows.h"
#include "RowEditors.h"
#include "Settings.h"
#include "TextField.h"

#include <QDesktopServices>

namespace pomwick {

int PomwickPreferencesViewController::numberOfSectionsInTableView(TableView* table) {
    return rows_->numberOfSectionsInTableView(table);
}

int PomwickPreferencesViewController::numberOfRowsInSection(TableView* table, int section) {
    return rows_->numberOfRowsInSection(table, section);
}

QString PomwickPreferencesViewController::titleForHeaderInSection(TableView* table, int section) {
    return rows_->titleForHeaderInSection(table, section);
}

QWidget* PomwickPreferencesViewController::viewForFooterInSection(TableView* table, int section) {
    return rows_->viewForFooterInSection(table, section);
}

TableViewCell* PomwickPreferencesViewController::cellForRowAtIndexPath(TableView* table,
                                                                       IndexPath indexPath) {
    return rows_->cellForRowAtIndexPath(table, indexPath);
}

void PomwickPreferencesViewController::didSelectRowAtIndexPath(TableView* table, IndexPath path) {
    if (path == IndexPath{1, 2})
        showFontPicker();
    else if (path == IndexPath{1, 3})
        editors_->pushColorGrid(RowEditors::backgroundGridTag);
    else if (path == IndexPath{1, 4})
        editors_->pushPositionEditor();
    else if (path == IndexPath{1, 5})
        editors_->pushColorGrid(RowEditors::borderGridTag);
    else if (path == IndexPath{2, 0})
        restoreDefaults();
    else if (path == IndexPath{3, 0})
        contactByMail();
    else if (path == IndexPath{3, 1})
        QDesktopServices::openUrl(OutsideLink::makerProfile);
    else if (path == IndexPath{3, 2})
        QDesktopServices::openUrl(OutsideLink::otherPackages);
    else if (path == IndexPath{3, 3})
        QDesktopServices::openUrl(OutsideLink::donation);
    table->deselectRowAtIndexPath(path, true);
}

void PomwickPreferencesViewController::restoreDefaults() {
    // With the file gone every setting reads its default; a file that cannot go stays as it is.
    removePreferencesFile();
    endGesture(tr("Restore Defaults"));
    showDefaultsRestored();
    mainTableView_->reloadData();
}

void PomwickPreferencesViewController::didSelectColor(LJColorPickerView* picker,
                                                      const Color& color) {
    editors_->didSelectColor(picker, color);
}

void PomwickPreferencesViewController::showFontPicker() {
    if (TextField* field = rows_->badgeTextTextField())
        field->resignFirstResponder();
    fontSheet_->show(view(), mainTableView_);
}

void PomwickPreferencesViewController::hideFontPicker() {
    fontSheet_->hide();
}

void PomwickPreferencesViewController::contactByMail() {
    mail_->contactByMail();
}

void PomwickPreferencesViewController::didFinishWithResult(FeedbackMailComposer* composer,
                                                           MailComposeResult result,
                                                           const QString& error) {
    mail_->didFinishWithResult(composer, result, error);
}

} // namespace pomwick
