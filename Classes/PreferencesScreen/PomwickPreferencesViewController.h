#pragma once

// What its methods hand out and take, so that their users can use them; the rest is declared only.
#include "Color.h"
#include "DQFontPicker.h"
#include "LJColorPickerView.h"
#include "MailComposeResult.h"
#include "TableView.h"
#include "TextField.h"
#include "ViewController.h"

#include <QImage>
#include <QLabel>
#include <QPointer>

class QTimer;

namespace pomwick {

class FeedbackMailComposer;
class FeedbackMailFlow;
class FontPickerSheet;
class PreferencesRows;
class PreviewHeader;
class RendererPresence;
class RowEditors;
class SegmentedControl;
class SettingsHistory;
class Slider;
class Switch;
class UndoNotice;
class ZRProgressHUD;

// The tweak's settings page: a header with a live preview of the badge on a sample icon, and a
// grouped table of the settings whose controls write through the settings store at once. It
// coordinates its parts (the rows, the preview header, the font sheet, the editors the rows
// push, the feedback mail) and keeps the handlers they report to.
class PomwickPreferencesViewController : public ViewController {
    Q_OBJECT
public:
    PomwickPreferencesViewController();
    ~PomwickPreferencesViewController() override;

    // Construction.
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void didRotateFromInterfaceOrientation(int fromOrientation) override;
    void respring();
    TableView* table() const { return mainTableView_; }
    float iconSize() const { return iconSize_; }
    void setIconSize(float iconSize) { iconSize_ = iconSize; }
    QImage finalBadgeImage() const { return finalBadgeImage_; }
    void setFinalBadgeImage(const QImage& image) { finalBadgeImage_ = image; }
    QWidget* tableHeaderView() const;
    QLabel* iconImageView() const;
    QLabel* infoLabel() const;
    TextField* badgeTextTextField() const;
    TableViewCell* alphaCell() const;

    // The table.
    int numberOfSectionsInTableView(TableView* table);
    int numberOfRowsInSection(TableView* table, int section);
    QString titleForHeaderInSection(TableView* table, int section);
    QWidget* viewForFooterInSection(TableView* table, int section);
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath indexPath);
    void didSelectRowAtIndexPath(TableView* table, IndexPath indexPath);

    // The row controls.
    void switchValueChanged(Switch* sender);
    void controlValueChanged(SegmentedControl* sender);
    void sliderValueChanged(Slider* sender);
    void badgeSliderReleased();
    void alphaSliderReleased();
    void infoButtonClicked();
    void reloadTableData();
    void textFieldDidBeginEditing(TextField* field);
    bool shouldChangeCharactersInRange(TextField* field, TextRange range,
                                       const QString& replacement);
    bool textFieldShouldReturn(TextField* field);

    // What selecting a row does.
    void showFontPicker();
    void hideFontPicker();
    DQFontPicker* fontPicker() const;
    QWidget* doneToolbar() const;
    QWidget* fontContainerView() const;
    QWidget* dimmingView() const;
    void didSelectColor(LJColorPickerView* picker, const Color& color);

    // The preview link.
    void handleSimpleMessageNamed(const QString& name);
    void updateUI();
    QImage imageByCombiningImage(const QImage& first, const QImage& second) const;

    // The feedback mail: the composer for the "Contact Us" row, and the notice of its result.
    void contactByMail();
    void didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                             const QString& error);

private:
    friend struct PreferencesScreenTestAccess;
    // Every stored change is a step that Ctrl+Z takes back, changes by other writers included.
    void undo();
    void redo();
    void registerPreviewMessages();
    void setUpHistory();
    void endGesture(const QString& description);
    void showDefaultsRestored();
    void showSettingsAgain();
    void setUpRendererStatus();
    void endRespring();
    void restoreDefaults();

    TableView* mainTableView_ = nullptr;
    PreferencesRows* rows_ = nullptr;
    PreviewHeader* header_ = nullptr;
    FontPickerSheet* fontSheet_ = nullptr;
    RowEditors* editors_ = nullptr;
    FeedbackMailFlow* mail_ = nullptr;
    float iconSize_ = 0;
    QImage finalBadgeImage_;
    SettingsHistory* history_ = nullptr;
    QPointer<UndoNotice> undoNotice_;
    RendererPresence* renderer_ = nullptr;
    QTimer* rendererAbsence_ = nullptr;
    QTimer* respringGivenUp_ = nullptr;
    QPointer<ZRProgressHUD> respringHUD_;
};

} // namespace pomwick
