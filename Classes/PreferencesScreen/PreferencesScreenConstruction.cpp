// Building the settings page: background, title, the preview header, the table, "Respring", and
// the parts the page coordinates.
#include "Appearance.h"
#include "DQFontPicker.h"
#include "FeedbackMailFlow.h"
#include "FontPickerSheet.h"
#include "PomwickPreferencesViewController.h"
#include "PreferencesRows.h"
#include "PreviewFiles.h"
#include "PreviewHeader.h"
#include "RowEditors.h"
#include "ViewGeometry.h"

#include <QLabel>

namespace pomwick {

PomwickPreferencesViewController::PomwickPreferencesViewController() = default;

PomwickPreferencesViewController::~PomwickPreferencesViewController() = default;

void PomwickPreferencesViewController::viewDidLoad() {
    QWidget* root = view();
    setBackgroundColor(root, Appearance::screenBackground);
    setTitle("Pomwick");

    const QRectF viewFrame = frame(root);
    if (const auto reported = readReportedIconSize())
        iconSize_ = *reported;

    header_ = new PreviewHeader(viewFrame.width(), iconSize_, this);
    connect(header_, &PreviewHeader::badgeShown, this, &ViewController::contentReady);
    mainTableView_ = new TableView(root);
    // The whole view: it lies below the navigation bar already, and a desktop window has no
    // status bar, so no inset is taken off.
    setFrame(mainTableView_, QRectF(0, 0, viewFrame.width(), viewFrame.height()));
    mainTableView_->setTableHeaderView(header_->view());
    rows_ = new PreferencesRows(this, mainTableView_);
    mainTableView_->setDataSource(rows_);
    mainTableView_->setSeparatorInset(0);

    fontSheet_ = new FontPickerSheet(this);
    // Every wheel turn since the sheet opened is one step.
    connect(fontSheet_, &FontPickerSheet::closing, this, [this] {
        endGesture(tr("Font"));
        reloadTableData();
    });
    editors_ = new RowEditors(this);
    connect(editors_, &RowEditors::colorChosen, this, [this] { endGesture(tr("Color")); });
    mail_ = new FeedbackMailFlow(root, this);

    Appearance::setSegmentedControlTint(Appearance::controlTint());
    setRightBarButtonItem({tr("Respring"), [this] {
                               respring();
                           }});

    setUpHistory();
    setUpRendererStatus();
    registerPreviewMessages();
    // In place, the table asks for its rows, which asks the renderer for the first preview.
    mainTableView_->reloadData();
}

QWidget* PomwickPreferencesViewController::tableHeaderView() const {
    return header_ ? header_->view() : nullptr;
}

QLabel* PomwickPreferencesViewController::iconImageView() const {
    return header_ ? header_->iconImageView() : nullptr;
}

QLabel* PomwickPreferencesViewController::infoLabel() const {
    return header_ ? header_->infoLabel() : nullptr;
}

TextField* PomwickPreferencesViewController::badgeTextTextField() const {
    return rows_ ? rows_->badgeTextTextField() : nullptr;
}

TableViewCell* PomwickPreferencesViewController::alphaCell() const {
    return rows_ ? rows_->alphaCell() : nullptr;
}

DQFontPicker* PomwickPreferencesViewController::fontPicker() const {
    return fontSheet_ ? fontSheet_->fontPicker() : nullptr;
}

QWidget* PomwickPreferencesViewController::doneToolbar() const {
    return fontSheet_ ? fontSheet_->doneToolbar() : nullptr;
}

QWidget* PomwickPreferencesViewController::fontContainerView() const {
    return fontSheet_ ? fontSheet_->fontContainerView() : nullptr;
}

QWidget* PomwickPreferencesViewController::dimmingView() const {
    return fontSheet_ ? fontSheet_->dimmingView() : nullptr;
}

} // namespace pomwick
