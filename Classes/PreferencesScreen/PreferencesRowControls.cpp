// The handlers of the row controls: each writes one setting, then rebuilds the table or asks the
// renderer for a fresh preview.
#include "AlertView.h"
#include "PomwickPreferencesViewController.h"
#include "PreferencesRows.h"
#include "PreviewHeader.h"
#include "RowGeometry.h"
#include "SegmentedControl.h"
#include "Settings.h"
#include "Slider.h"
#include "Switch.h"
#include "TextField.h"
#include "TextScanning.h"
#include "ViewGeometry.h"

#include <QLabel>

namespace pomwick {
namespace {

constexpr IndexPath textRow{1, 1};

void storeBadgeText(const QString& text) {
    setPreferencesObjectKey(text.toStdString(), SettingsKey::badgeTextFieldText);
}

// The platform's set of spaces and tabs: every space separator of Unicode (category Zs: the
// space, the no-break space, the en and em spaces, the ideographic space...) and the tab. Line
// breaks and the other controls are not in it and are kept.
bool isSpaceOrTab(QChar character) {
    return character == '\t' || character.category() == QChar::Separator_Space;
}

QString trimmedOfSpacesAndTabs(const QString& text) {
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && isSpaceOrTab(text[start]))
        ++start;
    while (end > start && isSpaceOrTab(text[end - 1]))
        --end;
    return text.mid(start, end - start);
}

} // namespace

void PomwickPreferencesViewController::switchValueChanged(Switch* sender) {
    setPreferencesObjectKey(sender->isOn() ? "1" : "0", SettingsKey::enabled);
    endGesture(tr("Enabled"));
    reloadTableData();
}

void PomwickPreferencesViewController::controlValueChanged(SegmentedControl* sender) {
    setPreferencesObjectKey(sender->selectedSegmentIndex() != 0 ? "TRUE" : "FALSE",
                            SettingsKey::badgeVisible);
    endGesture(tr("Hide/Show"));
    reloadTableData();
}

void PomwickPreferencesViewController::sliderValueChanged(Slider* sender) {
    // Only stored while the finger moves: the preview follows when it lifts.
    switch (tag(sender)) {
    case 0:
        setPreferencesObjectKey(formatFloat(sender->value()), SettingsKey::badgeBorderWidth);
        break;
    case 1:
        setPreferencesObjectKey(formatFloat(sender->value()), SettingsKey::badgeAlpha);
        if (TableViewCell* alphaRow = rows_->alphaCell()) {
            const QString label = tr("Alpha: %1%").arg(RowGeometry::wholePercent(getBadgeAlpha()));
            alphaRow->textLabel()->setText(label);
            sender->setAccessibleName(label);
        }
        break;
    default:
        break;
    }
}

void PomwickPreferencesViewController::badgeSliderReleased() {
    endGesture(tr("Border Width"));
    requestPreview();
}

void PomwickPreferencesViewController::alphaSliderReleased() {
    endGesture(tr("Alpha"));
    requestPreview();
}

void PomwickPreferencesViewController::infoButtonClicked() {
    AlertView(tr("Tip"),
              tr("Substitute the \"@\" symbol for the badge number. For example, typing the text "
                 "\"Alert:@\" will display \"Alert:1\" if the badge number is 1."),
              tr("Ok"))
        .show();
}

void PomwickPreferencesViewController::reloadTableData() {
    mainTableView_->reloadData();
    header_->describe(rows_->rowSettings());
    requestPreview();
}

void PomwickPreferencesViewController::textFieldDidBeginEditing(TextField*) {
    mainTableView_->scrollToRowAtIndexPath(textRow, TableView::ScrollPosition::Top, true);
}

bool PomwickPreferencesViewController::shouldChangeCharactersInRange(TextField* field,
                                                                     TextRange range,
                                                                     const QString& replacement) {
    // The text as it stood before this edit: the range is relative to it.
    storeBadgeText(field->acceptedText().replace(range.location, range.length, replacement));
    header_->describe(SettingsSnapshot());
    return true;
}

bool PomwickPreferencesViewController::textFieldShouldReturn(TextField* field) {
    storeBadgeText(trimmedOfSpacesAndTabs(field->acceptedText()));
    endGesture(tr("Badge Text"));
    field->resignFirstResponder();
    mainTableView_->scrollToRowAtIndexPath(textRow, TableView::ScrollPosition::Bottom, true);
    reloadTableData();
    return true;
}

} // namespace pomwick
