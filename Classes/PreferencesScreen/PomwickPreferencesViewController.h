#pragma once

#include "TableView.h"
#include "TextField.h"
#include "ViewController.h"

#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QString>

namespace pomwick {

class TableViewCell;
class Slider;
class Switch;
class SegmentedControl;

// The tweak's settings page: a header with a live preview of the badge on a sample icon, and a
// grouped table of the settings whose controls write through the settings store at once.
class PomwickPreferencesViewController : public ViewController,
                                         public TableViewDataSource,
                                         public TextFieldDelegate {
    Q_OBJECT
public:
    static constexpr int previewBadgeTag = 1337;

    PomwickPreferencesViewController();
    ~PomwickPreferencesViewController() override;

    // Construction.
    void viewDidLoad() override;
    void didRotateFromInterfaceOrientation(int fromOrientation) override;
    void respring();
    TableView* table() const { return mainTableView_; }
    float iconSize() const { return iconSize_; }
    void setIconSize(float iconSize) { iconSize_ = iconSize; }
    QImage finalBadgeImage() const { return finalBadgeImage_; }
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

    // The preview link.
    void handleSimpleMessageNamed(const QString& name);
    void updateUI();
    QImage imageByCombiningImage(const QImage& first, const QImage& second) const;

private:
    void registerPreviewMessages();
    void describePreview();
    TableViewCell* makeCell(const QString& reuseIdentifier, const QString& text,
                            const char* iconFile) const;
    TableViewCell* enabledCell();
    TableViewCell* visibilityCell();
    TableViewCell* textCell(bool available);
    TableViewCell* colourCell(const QString& reuseIdentifier, const QString& text,
                              const char* iconFile, bool available, const QColor& colour);
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
};

} // namespace pomwick
