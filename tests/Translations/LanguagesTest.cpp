#include "FeedbackMailComposer.h"
#include "ScreenFixture.h"
#include "TableViewCell.h"
#include "Translations.h"

#include <QStyle>

namespace pomwick::test {

// Every label, button and field in `top` shows its whole text (wrapped where a label wraps), clear
// of the controls beside it: the texts of every language fit where the English ones do. The
// picture stays in the build tree for people to look at.
void photograph(QWidget* top, const QString& name) {
    for (const QWidget* view : top->findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(view);
        const QString text = view->property("text").toString();
        const int wraps = label && label->wordWrap() ? Qt::TextWordWrap : 0;
        const QSize size = view->fontMetrics().boundingRect(view->rect(), wraps, text).size();
        const Qt::Alignment edge = label ? label->alignment() : Qt::AlignCenter;
        const QRect at = QStyle::alignedRect(view->layoutDirection(), edge, size, view->geometry());
        bool ok = view->geometry().contains(at);
        for (const QWidget* o :
             view->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            ok &= o == view || qobject_cast<const QLabel*>(o) || !o->geometry().intersects(at);
        EXPECT_TRUE(ok || text.isEmpty() || view->isHidden()) << qPrintable(name + ':' + text);
    }
    // The rows paint their own texts, beside their controls.
    for (const TableViewCell* cell : top->findChildren<TableViewCell*>()) {
        const TableViewCellLabel* label = cell->textLabel();
        const QRect slot = label->geometry();
        const QSize size = QFontMetrics(label->font()).boundingRect(slot, 0, label->text()).size();
        const QRect at =
            QStyle::alignedRect(label->text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight,
                                Qt::AlignLeft | Qt::AlignVCenter, size, slot);
        bool ok = slot.contains(at);
        for (const QWidget* o : cell->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            ok &= o->isHidden() || !o->geometry().intersects(at);
        EXPECT_TRUE(ok) << qPrintable(name + ':' + label->text());
    }
    top->grab().save(name + ".png");
}

using Languages = ScreenFixture;

TEST_F(Languages, PageFontSheetAndNoticeShowWholeTextsMirroredRightToLeft) {
    for (const QString language : {"en", "de", "he"}) {
        const std::unique_ptr<QTranslator> translator(installTranslations(QLocale(language)));
        open().view()->show();
        EXPECT_EQ(std::tuple(translator != nullptr, control<QAbstractButton>(0, 0)->x() < 187),
                  std::tuple(language != "en", language == "he")); // the switch, mirrored
        photograph(screen->view(), language + "-page");
        screen->showFontPicker();
        photograph(screen->view(), language + "-font-sheet");
        screen->didFinishWithResult(new FeedbackMailComposer, MailComposeResultFailed, {});
        photograph(screen->view(), language + "-notice");
    }
}

} // namespace pomwick::test
