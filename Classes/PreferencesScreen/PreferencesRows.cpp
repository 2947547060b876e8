// The settings table's rows, each built afresh from the settings.
#include "PreferencesRows.h"

#include "Appearance.h"
#include "ColorSwatch.h"
#include "ImageButton.h"
#include "PomwickPreferencesViewController.h"
#include "PomwickVersion.h"
#include "PreviewFiles.h"
#include "PreviewHeader.h"
#include "QtConversions.h"
#include "RowGeometry.h"
#include "SegmentedControl.h"
#include "Slider.h"
#include "Switch.h"
#include "TextDrawing.h"
#include "TextField.h"
#include "ViewGeometry.h"

#include <map>

namespace pomwick {
namespace {

// The rows' icons are the bundle's artwork: decoded once, not on every rebuild (decoding them
// was 40 % of a rebuild).
QImage bundleIcon(const char* fileName) {
    static std::map<std::string, QImage> decoded;
    const std::string path = bundleFile(fileName).string();
    auto found = decoded.find(path);
    if (found == decoded.end())
        found = decoded.emplace(path, loadBundleImage(fileName)).first;
    return found->second;
}

// A row that only reacts while badges are available.
void reactOnlyWhenAvailable(TableViewCell* cell, bool available) {
    cell->setDimmed(!available);
    cell->setUserInteractionEnabled(available);
}

// A slider is called by its row: "Alpha: 40%", "Border Width".
QString sliderName(QString rowText) {
    if (rowText.endsWith(':'))
        rowText.chop(1);
    return rowText;
}

QSizeF cellSize(const TableViewCell* cell) {
    return frame(cell).size();
}

constexpr int sectionCount = 4;

// The badge text field's questions and news go to the page's handlers.
class BadgeTextDelegate final : public TextFieldDelegate {
public:
    BadgeTextDelegate(PomwickPreferencesViewController* page, QObject* parent)
        : TextFieldDelegate(parent), page_(page) {}
    void textFieldDidBeginEditing(TextField* field) override {
        page_->textFieldDidBeginEditing(field);
    }
    bool shouldChangeCharactersInRange(TextField* field, TextRange range,
                                       const QString& replacement) override {
        return page_->shouldChangeCharactersInRange(field, range, replacement);
    }
    bool textFieldShouldReturn(TextField* field) override {
        return page_->textFieldShouldReturn(field);
    }

private:
    PomwickPreferencesViewController* page_;
};

} // namespace

PreferencesRows::PreferencesRows(PomwickPreferencesViewController* page, TableView* table)
    : TableViewDataSource(table), page_(page), table_(table),
      textDelegate_(new BadgeTextDelegate(page, this)) {}

// A rebuild starts here: its rows show the settings as they are now, read once for all of them.
int PreferencesRows::numberOfSectionsInTableView(TableView*) {
    rowSettings_.emplace();
    return sectionCount;
}

const SettingsSnapshot& PreferencesRows::rowSettings() {
    if (!rowSettings_)
        rowSettings_.emplace();
    return *rowSettings_;
}

int PreferencesRows::numberOfRowsInSection(TableView*, int section) {
    // Every time the table lays itself out, the renderer is asked for a fresh preview.
    if (rowCountsRequestPreview)
        requestPreview();
    static constexpr int rows[] = {1, 8, 1, 4};
    return section >= 0 && section < 4 ? rows[section] : 0;
}

QString PreferencesRows::titleForHeaderInSection(TableView*, int section) {
    switch (section) {
    case 0:
        return tr("Enabled");
    case 1:
        return tr("Badge");
    case 2:
        return tr("Reset");
    case 3:
        return tr("Contact Us / Donate");
    default:
        return {};
    }
}

QWidget* PreferencesRows::viewForFooterInSection(TableView*, int section) {
    if (section != sectionCount - 1)
        return nullptr;
    auto* label = new QLabel(tr("Crafted with care by the Pomwick developers, 2026\nPomwick v%1")
                                 .arg(QLatin1String(productVersion)),
                             table_->contentView());
    setFrame(label, QRectF(0, 0, page_->view()->width(), 40));
    label->setAlignment(Qt::AlignCenter);
    label->setFont(Appearance::systemFont(13));
    setTextColor(label, Appearance::footnoteText);
    return label;
}

// The rows of one page show the same icons from one device root, and measure the same texts in
// the same font, rebuild after rebuild.
QImage PreferencesRows::icon(const char* fileName) {
    auto found = icons_.find(fileName);
    if (found == icons_.end())
        found = icons_.emplace(fileName, bundleIcon(fileName)).first;
    return found->second;
}

qreal PreferencesRows::measuredWidth(const QString& text, const TableViewCell* cell) {
    auto found = textWidths_.find(text);
    if (found == textWidths_.end())
        found =
            textWidths_.emplace(text, sizeWithAttributes(text, cell->textLabel()->font()).width())
                .first;
    return found->second;
}

TableViewCell* PreferencesRows::makeCell(const QString& reuseIdentifier, const QString& text,
                                         const char* iconFile) {
    auto* cell =
        new TableViewCell(reuseIdentifier, QSizeF(table_->rowWidth(), TableViewCell::rowHeight),
                          table_->contentView());
    cell->textLabel()->setText(text);
    cell->setImage(icon(iconFile));
    return cell;
}

TableViewCell* PreferencesRows::cellForRowAtIndexPath(TableView*, IndexPath path) {
    const SettingsSnapshot& settings = rowSettings();
    const bool available = settings.enabled() && settings.badgeVisible();
    if (path.section == 0 && path.row == 0)
        return enabledCell();
    if (path.section == 1) {
        switch (path.row) {
        case 0:
            return visibilityCell();
        case 1:
            return textCell(available);
        case 2: {
            const auto font = settings.badgeFont();
            TableViewCell* cell = makeCell(
                "Cell4",
                tr("Font: %1").arg(font ? QString::fromStdString(font->name) : QString("(null)")),
                "Font.png");
            reactOnlyWhenAvailable(cell, available);
            return cell;
        }
        case 3:
            return colorCell("Cell5", tr("Background Color:"), "Palete.png", available,
                             toQColor(settings.badgeBackgroundColor()));
        case 4: {
            const BadgeLocation location = settings.badgeLocation();
            TableViewCell* cell = makeCell("Cell6",
                                           tr("Position: %1%, %2%")
                                               .arg(RowGeometry::wholePercent(location.x))
                                               .arg(RowGeometry::wholePercent(location.y)),
                                           "Axis.png");
            reactOnlyWhenAvailable(cell, available);
            return cell;
        }
        case 5:
            return colorCell("Cell7", tr("Border Color:"), "Border.png", available,
                             toQColor(settings.badgeBorderColor()));
        case 6:
            return sliderCell("Cell8", tr("Border Width:"), "Width.png", available, 0, 1.0f, 2.0f,
                              settings.badgeBorderWidth(), tr("Border Width:"));
        case 7: {
            const float alpha = settings.badgeAlpha();
            alphaCell_ = sliderCell("Cell9", tr("Alpha: %1%").arg(RowGeometry::wholePercent(alpha)),
                                    "Transparency.png", available, 1, 0.0f, 1.0f, alpha,
                                    tr("Alpha: %1%").arg(100));
            return alphaCell_;
        }
        default:
            return nullptr;
        }
    }
    if (path.section == 2 && path.row == 0)
        return makeCell("Cell10", tr("Restore Defaults"), "Restore.png");
    if (path.section == 3) {
        switch (path.row) {
        case 0:
            return makeCell("Cell11", tr("Contact Us"), "Mail.png");
        case 1:
            return makeCell("Cell12", tr("Follow on Twitter"), "Twitter.png");
        case 2:
            return makeCell("Cell13", tr("View My Other Tweaks"), "Wrench.png");
        case 3: {
            TableViewCell* cell = makeCell("Cell14", tr("Donate"), "Money.png");
            cell->textLabel()->setTextColor(Qt::blue);
            return cell;
        }
        default:
            return nullptr;
        }
    }
    return nullptr;
}

TableViewCell* PreferencesRows::enabledCell() {
    TableViewCell* cell = makeCell("Cell1", tr("Enabled:"), "Enabled.png");
    cell->setSelectionStyle(TableViewCell::SelectionStyle::None);
    auto* toggle = new Switch(cell);
    Appearance::follow(toggle, [toggle] { toggle->setOnTintColor(Appearance::controlTint()); });
    toggle->setOn(rowSettings().enabled(), false);
    toggle->setAccessibleName(tr("Enabled"));
    setFrame(toggle, RowGeometry::switchFrame(cellSize(cell), QSizeF(Switch::size)));
    connect(toggle, &Switch::valueChanged, page_,
            [this, toggle] { page_->switchValueChanged(toggle); });
    return cell;
}

TableViewCell* PreferencesRows::visibilityCell() {
    const bool enabled = rowSettings().enabled();
    TableViewCell* cell = makeCell("Cell2", tr("Visibility:"), "Eye.png");
    cell->setSelectionStyle(TableViewCell::SelectionStyle::None);
    auto* control = new SegmentedControl({tr("Hide"), tr("Show")}, cell);
    control->setSelectedSegmentIndex(rowSettings().badgeVisible() ? 1 : 0);
    control->setEnabled(enabled);
    Appearance::follow(control, [control] { control->setTintColor(Appearance::controlTint()); });
    control->setAccessibleName(tr("Visibility"));
    setFrame(control, RowGeometry::segmentedControlFrame(cellSize(cell)));
    connect(control, &SegmentedControl::valueChanged, page_,
            [this, control] { page_->controlValueChanged(control); });
    cell->setDimmed(!enabled);
    cell->setUserInteractionEnabled(enabled);
    return cell;
}

TableViewCell* PreferencesRows::textCell(bool available) {
    TableViewCell* cell = makeCell("Cell3", tr("Text:"), "Article.png");
    cell->setSelectionStyle(TableViewCell::SelectionStyle::None);
    auto* field = new TextField(cell);
    field->setAcceptedText(QString::fromStdString(rowSettings().badgeTextFieldText()));
    field->setPlaceholderText(tr("Badge Text"));
    field->setDelegate(textDelegate_);
    field->setAccessibleName(tr("Badge text"));
    field->setEnabled(available);
    auto* info = new ImageButton(icon("Info.png"), QSize(20, 20), field);
    info->setAccessibleName(tr("Tip"));
    connect(info, &ImageButton::clicked, page_,
            &PomwickPreferencesViewController::infoButtonClicked);
    field->setRightView(info);
    const qreal textWidth = measuredWidth(tr("Text:"), cell);
    setFrame(field, RowGeometry::textFieldFrame(cellSize(cell), textWidth,
                                                TableViewCell::indentationWidth));
    badgeTextTextField_ = field;
    cell->setDimmed(!available);
    return cell;
}

TableViewCell* PreferencesRows::colorCell(const QString& reuseIdentifier, const QString& text,
                                          const char* iconFile, bool available,
                                          const QColor& color) {
    TableViewCell* cell = makeCell(reuseIdentifier, text, iconFile);
    auto* swatch = new ColorSwatch(color, cell);
    setFrame(swatch, RowGeometry::colorSwatchFrame(cellSize(cell)));
    reactOnlyWhenAvailable(cell, available);
    return cell;
}

TableViewCell* PreferencesRows::sliderCell(const QString& reuseIdentifier, const QString& text,
                                           const char* iconFile, bool available, int sliderTag,
                                           float minimum, float maximum, float value,
                                           const QString& measuredText) {
    TableViewCell* cell = makeCell(reuseIdentifier, text, iconFile);
    cell->setSelectionStyle(TableViewCell::SelectionStyle::None);
    auto* slider = new Slider(cell);
    setTag(slider, sliderTag);
    slider->setMinimumValue(minimum);
    slider->setMaximumValue(maximum);
    slider->setValue(value, true);
    slider->setEnabled(available);
    slider->setAccessibleName(sliderName(text));
    const qreal textWidth = measuredWidth(measuredText, cell);
    const qreal iconWidth = cell->imageRect().width();
    setFrame(slider,
             RowGeometry::sliderFrame(cellSize(cell), textWidth, iconWidth, Slider::height));
    connect(slider, &Slider::valueChanged, page_,
            [this, slider] { page_->sliderValueChanged(slider); });
    const auto released = sliderTag == 0 ? &PomwickPreferencesViewController::badgeSliderReleased
                                         : &PomwickPreferencesViewController::alphaSliderReleased;
    connect(slider, &Slider::sliderReleased, page_, released);
    reactOnlyWhenAvailable(cell, available);
    return cell;
}

void PreferencesRows::didSelectRowAtIndexPath(TableView* table, IndexPath indexPath) {
    page_->didSelectRowAtIndexPath(table, indexPath);
}

} // namespace pomwick
