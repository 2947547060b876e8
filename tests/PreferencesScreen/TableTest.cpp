#include "ColorSwatch.h"
#include "ScreenFixture.h"
#include "SegmentedControl.h"
#include "Settings.h"
#include "Slider.h"
#include "Switch.h"
#include "TextDrawing.h"
#include "ViewGeometry.h"

#include <QAccessible>
#include <QAccessibleInterface>

using namespace pomwick;
using Table = pomwick::test::ScreenFixture;

namespace {

const int badgeSection = 1;

bool isDimmed(const TableViewCell* cell) {
    const qreal label = alpha(cell->textLabel());
    EXPECT_EQ(label, alpha(cell->imageView()));
    return label == 0.6;
}

} // namespace

TEST_F(Table, WithoutSettingsShowsEveryRowWithItsDefault) {
    open();
    const QStringList expected[] = {
        {"Enabled:"},
        {"Visibility:", "Text:", "Font: Verdana", "Background Color:", "Position: 0%, 0%",
         "Border Color:", "Border Width:", "Alpha: 100%"},
        {"Restore Defaults"},
        {"Contact Us", "Follow on Twitter", "View My Other Tweaks", "Donate"},
    };
    const QString titles[] = {"Enabled", "Badge", "Reset", "Contact Us / Donate"};
    for (int section = 0; section < 4; ++section) {
        EXPECT_EQ(screen->titleForHeaderInSection(screen->table(), section), titles[section]);
        EXPECT_EQ(screen->viewForFooterInSection(screen->table(), section) != nullptr,
                  section == 3);
        for (int row = 0; row < expected[section].size(); ++row) {
            EXPECT_EQ(text(section, row), expected[section][row]);
            EXPECT_FALSE(isDimmed(cell(section, row)));
            EXPECT_TRUE(cell(section, row)->isUserInteractionEnabled());
        }
    }
    QStringList shownTitles;
    for (const QLabel* label :
         screen->table()->widget()->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
        shownTitles << label->text();
    EXPECT_EQ(shownTitles, (QStringList{"ENABLED", "BADGE", "RESET", "CONTACT US / DONATE"}));
    EXPECT_EQ(frame(screen->table()), bounds(screen->view()));

    EXPECT_TRUE(control<Switch>(0, 0)->isOn());
    EXPECT_EQ(control<SegmentedControl>(1, 0)->selectedSegmentIndex(), 1);
    EXPECT_EQ(control<TextField>(1, 1)->text(), "");
    EXPECT_EQ(control<TextField>(1, 1)->placeholderText(), "Badge Text");
    EXPECT_EQ(control<ColorSwatch>(1, 3)->color(), QColor(Qt::white));
    EXPECT_EQ(control<ColorSwatch>(1, 5)->color(), QColor(Qt::black));
    EXPECT_FLOAT_EQ(control<Slider>(1, 6)->value(), 1.2f);
    EXPECT_EQ(tag(control<Slider>(1, 6)), 0);
    EXPECT_EQ(tag(control<Slider>(1, 7)), 1);
    EXPECT_EQ(screen->alphaCell(), cell(1, 7));
    EXPECT_EQ(textColor(cell(3, 3)->textLabel()), QColor(Qt::blue));
}

TEST_F(Table, SwitchedOffOrHiddenDimsAndDisablesTheBadgeRowsBelowTheControlThatDidIt) {
    // Switched off, everything from the visibility row on; hidden, everything below it.
    for (const int firstOff : {0, 1}) {
        setPreferencesObjectKey(firstOff == 0 ? "0" : "1", SettingsKey::enabled);
        setPreferencesObjectKey(firstOff == 0 ? "TRUE" : "FALSE", SettingsKey::badgeVisible);
        open();
        EXPECT_EQ(control<Switch>(0, 0)->isOn(), firstOff == 1);
        EXPECT_FALSE(isDimmed(cell(0, 0)));
        EXPECT_TRUE(cell(2, 0)->isUserInteractionEnabled());
        EXPECT_EQ(control<SegmentedControl>(1, 0)->selectedSegmentIndex(), firstOff == 0 ? 1 : 0);
        EXPECT_EQ(control<SegmentedControl>(1, 0)->isEnabled(), firstOff == 1);
        for (int row = 0; row < 8; ++row) {
            EXPECT_EQ(isDimmed(cell(badgeSection, row)), row >= firstOff) << row;
            // The text row's field carries its state, not the row.
            EXPECT_EQ(cell(badgeSection, row)->isUserInteractionEnabled(),
                      row == 1 || row < firstOff)
                << firstOff << ":" << row;
        }
        EXPECT_FALSE(control<TextField>(1, 1)->isEnabled());
        EXPECT_FALSE(control<Slider>(1, 6)->isEnabled());
        EXPECT_FALSE(control<Slider>(1, 7)->isEnabled());
    }
}

TEST_F(Table, RowsShowTheStoredValuesAndAnotherProgramsChangesAtTheNextRebuild) {
    setPreferencesObjectKey("0.255000,0.500000", SettingsKey::badgeLocation);
    setPreferencesObjectKey("0.505000", SettingsKey::badgeAlpha);
    setPreferencesObjectKey("Qwertyfont", SettingsKey::badgeFont);
    open();
    EXPECT_EQ(text(1, 4), "Position: 25%, 50%");
    EXPECT_EQ(text(1, 7), "Alpha: 50%");
    EXPECT_EQ(text(1, 2), "Font: (null)");

    setPreferencesObjectKey("DejaVuSans-Bold", SettingsKey::badgeFont);
    setPreferencesObjectKey("1.000000,0.000000,0.000000,1.000000", SettingsKey::badgeBorderColor);
    setPreferencesObjectKey(" @ ", SettingsKey::badgeTextFieldText);
    EXPECT_EQ(text(1, 2), "Font: (null)");
    screen->reloadTableData();
    EXPECT_EQ(text(1, 2), "Font: DejaVuSans-Bold");
    EXPECT_EQ(control<ColorSwatch>(1, 5)->color(), QColor(Qt::red));
    EXPECT_EQ(control<TextField>(1, 1)->text(), " @ ");
}

TEST_F(Table, ControlsArePlacedFromTheCellsSize) {
    open();
    const QSizeF size = frame(cell(0, 0)).size();
    EXPECT_EQ(size, QSizeF(375, 44));
    EXPECT_EQ(frame(control<Switch>(0, 0)), QRectF(375 - 71, 6, 51, 31));
    EXPECT_EQ(frame(control<SegmentedControl>(1, 0)), QRectF(255, 5, 100, 34));
    EXPECT_EQ(frame(control<ColorSwatch>(1, 3)), QRectF(375 - 34 - 15, 5, 34, 34));
    // The alpha slider measures the widest label it will show, so it never moves.
    const QFont font = cell(1, 7)->textLabel()->font();
    const qreal x0 =
        std::trunc(std::trunc(sizeWithAttributes("Alpha: 100%", font).width()) + 40 + 29);
    EXPECT_EQ(frame(control<Slider>(1, 7)), QRectF(x0, 6, 375 - (x0 + 10), 31));
    const qreal fieldX = std::trunc(20 + sizeWithAttributes("Text:", font).width() + 50);
    EXPECT_EQ(frame(control<TextField>(1, 1)), QRectF(fieldX, 0, 375 - (fieldX + 20), 44));
}

TEST_F(Table, HeaderIsSizedFromTheReportedIconSize) {
    root.writeFile("/tmp/iconSize.txt", "60");
    open();
    EXPECT_EQ(screen->iconSize(), 60);
    EXPECT_EQ(frame(screen->tableHeaderView()).height(), 210);
    EXPECT_EQ(frame(screen->iconImageView()), QRectF(375 / 2.0 - 30, 105 + 15 - 30, 60, 60));
    EXPECT_EQ(screen->infoLabel()->text(), "Badge Preview");

    root.writeFile("/tmp/iconSize.txt", "abc");
    open();
    EXPECT_EQ(screen->iconSize(), 0);
    EXPECT_EQ(frame(screen->tableHeaderView()).height(), 30);
}

TEST_F(Table, ScreenReadersHearEveryControlRowAndThePreview) {
    setPreferencesObjectKey("0.400000", SettingsKey::badgeAlpha);
    open();
    struct Heard {
        QWidget* widget;
        QAccessible::Role role;
        QString name;
        QString value;
    };
    const Heard expected[] = {
        {control<Switch>(0, 0), QAccessible::CheckBox, "Enabled", "on"},
        {control<Slider>(1, 7), QAccessible::Slider, "Alpha: 40%", "0.4"},
        {control<Slider>(1, 6), QAccessible::Slider, "Border Width", "1.2"},
        {control<SegmentedControl>(1, 0)->segment(0), QAccessible::RadioButton, "Hide", ""},
        {control<TextField>(1, 1), QAccessible::EditableText, "Badge text", ""},
        {control<TextField>(1, 1)->rightView(), QAccessible::Button, "Tip", ""},
        {cell(1, 2), QAccessible::ListItem, "Font: Verdana", ""},
        {cell(3, 3), QAccessible::ListItem, "Donate", ""},
        {screen->iconImageView(), QAccessible::Graphic, "Badge preview: 1 on a sample icon", ""},
    };
    for (const Heard& heard : expected) {
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(heard.widget);
        ASSERT_NE(reader, nullptr) << heard.name.toStdString();
        EXPECT_EQ(reader->role(), heard.role) << heard.name.toStdString();
        EXPECT_EQ(reader->text(QAccessible::Name), heard.name);
        EXPECT_EQ(reader->text(QAccessible::Value), heard.value) << heard.name.toStdString();
    }

    setPreferencesObjectKey("Hi @", SettingsKey::badgeTextFieldText);
    setPreferencesObjectKey("FALSE", SettingsKey::badgeVisible);
    screen->reloadTableData();
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(cell(1, 2))->state().disabled);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(cell(1, 0))->state().disabled);
    EXPECT_EQ(screen->iconImageView()->accessibleName(),
              "Badge preview: a sample icon without a badge");
    setPreferencesObjectKey("TRUE", SettingsKey::badgeVisible);
    screen->reloadTableData();
    EXPECT_EQ(screen->iconImageView()->accessibleName(), "Badge preview: Hi 1 on a sample icon");
}
