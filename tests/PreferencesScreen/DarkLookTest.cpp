// The page, its font sheet and its notices when the desktop turns dark while they are open, and
// back: every color follows, the text stays legible and unclipped, and the light look returns
// exactly. The pictures stay beside the test binary in the build tree.
#include "Appearance.h"
#include "ScreenFixture.h"
#include "TableView.h"

#include <QApplication>
#include <QLabel>

namespace pomwick::test {
namespace {

using DarkLook = ScreenFixture;

TEST_F(DarkLook, PageSheetAndNoticesFollowTheDesktopAndComeBackUnchanged) {
    QWidget* page = open().view();
    screen->respring();
    screen->didSelectRowAtIndexPath(screen->table(), {2, 0}); // Restore Defaults: its notice
    const auto shoot = [&](const char* look) {
        std::vector<QImage> shots{page->grab().toImage()};
        screen->showFontPicker();
        shots.push_back(page->grab().toImage());
        screen->hideFontPicker();
        shots[0].save(QString("%1-page.png").arg(look));
        shots[1].save(QString("%1-font-sheet.png").arg(look));
        return shots;
    };
    const QPalette light = QApplication::palette();
    const std::vector<QImage> lightShots = shoot("light");
    QApplication::setPalette(QPalette(QColor(53, 53, 53)));
    ASSERT_TRUE(Appearance::isDark());
    const std::vector<QImage> dark = shoot("dark");
    for (const QLabel* label : page->findChildren<QLabel*>()) {
        // The text against what lies just inside the label's corner: the ground it is drawn on.
        const QPoint corner = label->mapTo(page, QPoint(1, 1));
        if (!label->isVisibleTo(page) || label->text().isEmpty() || !page->rect().contains(corner))
            continue;
        const QColor ground = dark[0].pixelColor(corner);
        const int contrast =
            std::abs(label->palette().color(QPalette::WindowText).lightness() - ground.lightness());
        EXPECT_GE(contrast, 80) << label->text().toStdString() << " on "
                                << ground.name().toStdString();
        EXPECT_LE(label->wordWrap() ? label->heightForWidth(label->width())
                                    : label->sizeHint().width(),
                  label->wordWrap() ? label->height() : label->width())
            << label->text().toStdString();
    }
    for (const TableViewCell* row : page->findChildren<TableViewCell*>()) {
        const QColor ground = dark[0].pixelColor(row->mapTo(page, QPoint(1, 1)));
        if (row->isVisibleTo(page) && page->rect().contains(row->mapTo(page, QPoint(1, 1)))) {
            EXPECT_GE(std::abs(row->textLabel()->textColor().lightness() - ground.lightness()), 80)
                << row->textLabel()->text().toStdString();
        }
    }
    EXPECT_EQ(dark[0].pixelColor(cell(0, 0)->mapTo(page, QPoint(30, 2))),
              Appearance::cellBackground());
    EXPECT_NE(dark[1], lightShots[1]);
    QApplication::setPalette(light);
    EXPECT_EQ(shoot("light-again"), lightShots);
}

} // namespace
} // namespace pomwick::test
