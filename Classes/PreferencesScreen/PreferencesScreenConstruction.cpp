// Building the settings page: background, title, the preview header, the table, "Respring".
#include "Appearance.h"
#include "PomwickPreferencesViewController.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "Settings.h"
#include "ViewGeometry.h"

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

    tableHeaderView_ = new QWidget;
    setFrame(tableHeaderView_, QRectF(0, 0, viewFrame.width(), iconSize_ * 3 + 30));

    mainTableView_ = new TableView(root);
    // The whole view: it lies below the navigation bar already, and a desktop window has no
    // status bar, so no inset is taken off.
    setFrame(mainTableView_, QRectF(0, 0, viewFrame.width(), viewFrame.height()));
    mainTableView_->setTableHeaderView(tableHeaderView_);
    mainTableView_->setDataSource(this);
    mainTableView_->setSeparatorInset(0);

    infoLabel_ = new QLabel(tr("Badge Preview"), tableHeaderView_);
    setFrame(infoLabel_, QRectF(0, 0, viewFrame.width(), 30));
    infoLabel_->setFont(Appearance::systemFont(18));
    infoLabel_->setAlignment(Qt::AlignCenter);
    setBackgroundColor(infoLabel_, Appearance::cellBackground);

    iconImageView_ = new QLabel(tableHeaderView_);
    iconImageView_->setScaledContents(true);
    const QRectF header = frame(tableHeaderView_);
    setFrame(iconImageView_,
             QRectF(header.center().x() - iconSize_ / 2,
                    header.center().y() + frame(infoLabel_).height() * 0.5 - iconSize_ / 2,
                    iconSize_, iconSize_));
    if (const QImage icon = loadBundleImage(PreviewFile::sampleIcon); !icon.isNull())
        iconImageView_->setPixmap(QPixmap::fromImage(icon));
    describePreview(SettingsSnapshot());

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

// What a screen reader says of the header's picture.
void PomwickPreferencesViewController::describePreview(const SettingsSnapshot& settings) {
    const QString badge = !settings.enabled()       ? QString("1")
                          : settings.badgeVisible() ? previewBadgeText(settings)
                                                    : QString();
    iconImageView_->setAccessibleName(badge.isEmpty()
                                          ? tr("Badge preview: a sample icon without a badge")
                                          : tr("Badge preview: %1 on a sample icon").arg(badge));
}

} // namespace pomwick
