#pragma once

#include "BadgePositionViewController.h"
#include "Color.h"
#include "DQFontPicker.h"
#include "FeedbackMailComposer.h"
#include "LJColorPickerView.h"
#include "SettingsSnapshot.h"
#include "TableView.h"
#include "TextField.h"
#include "ViewController.h"

#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QUndoStack>
#include <optional>
#include <vector>

namespace pomwick {

class TableViewCell;
class RendererPresence;
class SettingsHistory;
class UndoNotice;
class ZRProgressHUD;
class Slider;
class Switch;
class SegmentedControl;

// The tweak's settings page: a header with a live preview of the badge on a sample icon, and a
// grouped table of the settings whose controls write through the settings store at once.
class PomwickPreferencesViewController : public ViewController,
                                         public TableViewDataSource,
                                         public TextFieldDelegate,
                                         public MailComposeDelegate,
                                         public BadgePositionSender {
    Q_OBJECT
    Q_INTERFACES(pomwick::MailComposeDelegate)
public:
    static constexpr int previewBadgeTag = 1337;

    PomwickPreferencesViewController();
    ~PomwickPreferencesViewController() override;

    // Construction.
    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    void didRotateFromInterfaceOrientation(int fromOrientation) override;
    void respring();
    TableView* table() const { return mainTableView_; }
    float iconSize() const override { return iconSize_; }
    void setIconSize(float iconSize) { iconSize_ = iconSize; }
    QImage finalBadgeImage() const override { return finalBadgeImage_; }
    QRectF viewBounds() override;
    void setFinalBadgeImage(const QImage& image) { finalBadgeImage_ = image; }
    QWidget* tableHeaderView() const { return tableHeaderView_; }
    QLabel* iconImageView() const { return iconImageView_; }
    QLabel* infoLabel() const { return infoLabel_; }
    TextField* badgeTextTextField() const { return badgeTextTextField_; }
    TableViewCell* alphaCell() const { return alphaCell_; }

    // The table.
    int numberOfSectionsInTableView(TableView* table) override;
    int numberOfRowsInSection(TableView* table, int section) override;
    QString titleForHeaderInSection(TableView* table, int section) override;
    QWidget* viewForFooterInSection(TableView* table, int section) override;
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath indexPath) override;
    void didSelectRowAtIndexPath(TableView* table, IndexPath indexPath) override;

    // The row controls.
    void switchValueChanged(Switch* sender);
    void controlValueChanged(SegmentedControl* sender);
    void sliderValueChanged(Slider* sender);
    void badgeSliderReleased();
    void alphaSliderReleased();
    void infoButtonClicked();
    void reloadTableData();
    void textFieldDidBeginEditing(TextField* field) override;
    bool shouldChangeCharactersInRange(TextField* field, TextRange range,
                                       const QString& replacement) override;
    bool textFieldShouldReturn(TextField* field) override;

    // What selecting a row does.
    void showFontPicker();
    void hideFontPicker();
    DQFontPicker* fontPicker() const { return fontPicker_; }
    QWidget* doneToolbar() const { return doneToolbar_; }
    QWidget* fontContainerView() const { return fontContainerView_; }
    QWidget* dimmingView() const { return dimmingView_; }
    void didSelectColor(LJColorPickerView* picker, const Color& color);

    // The preview link.
    void handleSimpleMessageNamed(const QString& name);
    void updateUI();
    QImage imageByCombiningImage(const QImage& first, const QImage& second) const;

    // The feedback mail: the composer for the "Contact Us" row, and the notice of its result.
    void contactByMail();
    void didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                             const QString& error) override;

    // Every stored change is a step that Ctrl+Z takes back, changes by other writers included.
    QUndoStack* undoStack() const;
    void undo();
    void redo();
    UndoNotice* undoNotice() const;
    QLabel* previewUnavailableLabel() const { return previewUnavailableLabel_; }

private:
    // Asks the renderer for a fresh preview.
    static void requestPreview();
    void registerPreviewMessages();
    void setUpHistory();
    void endGesture(const QString& description);
    void showDefaultsRestored();
    void showSettingsAgain();
    void setUpRendererStatus();
    void showPreviewUnavailable(bool unavailable);
    void endRespring();
    void restoreDefaults();
    void pushColorGrid(int gridTag);
    void pushPositionEditor();
    void describePreview(const SettingsSnapshot& settings);
    // The settings the rows of the table's current rebuild show, read once when it starts.
    const SettingsSnapshot& rowSettings();
    TableViewCell* makeCell(const QString& reuseIdentifier, const QString& text,
                            const char* iconFile) const;
    TableViewCell* enabledCell();
    TableViewCell* visibilityCell();
    TableViewCell* textCell(bool available);
    TableViewCell* colorCell(const QString& reuseIdentifier, const QString& text,
                             const char* iconFile, bool available, const QColor& color);
    TableViewCell* sliderCell(const QString& reuseIdentifier, const QString& text,
                              const char* iconFile, bool available, int sliderTag, float minimum,
                              float maximum, float value, const QString& measuredText);

    TableView* mainTableView_ = nullptr;
    QPointer<TextField> badgeTextTextField_;
    QWidget* tableHeaderView_ = nullptr;
    QLabel* iconImageView_ = nullptr;
    QLabel* infoLabel_ = nullptr;
    QPointer<TableViewCell> alphaCell_;
    float iconSize_ = 0;
    QImage finalBadgeImage_;
    // The font sheet, while it is up.
    QPointer<DQFontPicker> fontPicker_;
    QPointer<QWidget> doneToolbar_;
    QPointer<QWidget> fontContainerView_;
    QPointer<QWidget> dimmingView_;
    // Loaded on the first grid and kept, an empty palette included.
    std::optional<std::vector<Color>> masterColorsArray_;
    std::optional<SettingsSnapshot> rowSettings_;
    // Off while the page shows a change it did not make: that costs one request, not one a section.
    bool rowCountsRequestPreview_ = true;
    SettingsHistory* history_ = nullptr;
    QPointer<UndoNotice> undoNotice_;
    RendererPresence* renderer_ = nullptr;
    QPointer<QLabel> previewUnavailableLabel_;
    QTimer rendererAbsence_;
    QTimer respringGivenUp_;
    QPointer<ZRProgressHUD> respringHUD_;
};

} // namespace pomwick
