#include "TableView.h"

#include "ViewGeometry.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

// Three sections of 2, 0 and 3 rows; counts every question the table asks.
class CountingSource : public TableViewDataSource {
public:
    int sectionQuestions = 0;
    std::vector<int> rowQuestions = std::vector<int>(3, 0);
    std::vector<IndexPath> selected;
    QString firstTitle = "First";

    int numberOfSectionsInTableView(TableView*) override {
        ++sectionQuestions;
        return 3;
    }
    int numberOfRowsInSection(TableView*, int section) override {
        ++rowQuestions[size_t(section)];
        return std::vector<int>{2, 0, 3}[size_t(section)];
    }
    QString titleForHeaderInSection(TableView*, int section) override {
        return section == 0 ? firstTitle : QString();
    }
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath path) override {
        auto* cell = new TableViewCell(QString("Cell%1").arg(path.row), {table->rowWidth(), 44});
        cell->textLabel()->setText(QString("%1.%2").arg(path.section).arg(path.row));
        cell->setUserInteractionEnabled(path.row != 1);
        if (path.section == 2 && path.row == 2) {
            cell->setSelectionStyle(TableViewCell::SelectionStyle::None);
            (new QPushButton("Control", cell))->setFocusPolicy(Qt::TabFocus);
        }
        return cell;
    }
    void didSelectRowAtIndexPath(TableView*, IndexPath path) override { selected.push_back(path); }
};

// A 320 x 480 table over the counting source, loaded and shown.
class Table : public testing::Test {
protected:
    void SetUp() override {
        setFrame(&table, QRectF(0, 0, 320, 480));
        table.setDataSource(&source);
        table.reloadData();
        table.show();
    }
    // The old rows go once the event loop runs, never under a signal that is still running.
    ~Table() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    CountingSource source;
    TableView table;
};

} // namespace

TEST_F(Table, EveryReloadBuildsEveryCellAnewAndTappingSelectsOnlyCellsThatReact) {
    TableViewCell* before = table.cellForRowAtIndexPath({2, 2});
    table.reloadData();
    EXPECT_EQ(source.sectionQuestions, 2);
    EXPECT_EQ(source.rowQuestions, (std::vector<int>{2, 2, 2}));
    EXPECT_NE(table.cellForRowAtIndexPath({2, 2}), before);
    EXPECT_EQ(table.cellForRowAtIndexPath({2, 2})->textLabel()->text(), "2.2");
    EXPECT_EQ(frame(table.cellForRowAtIndexPath({0, 0})).width(), 320);
    // Titles are kept from one reload to the next: a new text shows, a title gone goes.
    const auto titles = [this] {
        QStringList shown;
        for (const QLabel* label : table.widget()->findChildren<QLabel*>())
            if (label->isVisibleTo(&table))
                shown << label->text();
        return shown;
    };
    EXPECT_EQ(titles(), QStringList{"FIRST"});
    source.firstTitle = "Again";
    table.reloadData();
    EXPECT_EQ(titles(), QStringList{"AGAIN"});
    source.firstTitle.clear();
    table.reloadData();
    EXPECT_EQ(titles(), QStringList{});

    QTest::mouseClick(table.cellForRowAtIndexPath({2, 0}), Qt::LeftButton);
    ASSERT_EQ(source.selected, (std::vector<IndexPath>{{2, 0}}));
    EXPECT_TRUE(table.cellForRowAtIndexPath({2, 0})->isHighlighted());
    table.deselectRowAtIndexPath({2, 0}, false);
    EXPECT_FALSE(table.cellForRowAtIndexPath({2, 0})->isHighlighted());

    TableViewCell* inert = table.cellForRowAtIndexPath({2, 1});
    const QPoint center = inert->mapTo(table.viewport(), inert->rect().center());
    EXPECT_NE(table.viewport()->childAt(center), inert);
}

TEST_F(Table, TabReachesRowsThatReactAndControlsInOrderAndARebuildKeepsFocusAndScroll) {
    setFrame(&table, QRectF(0, 0, 320, 100));
    QApplication::setActiveWindow(&table);

    // 0.1 and 2.1 do not react; 2.2 has no highlight and lends the focus to its control.
    table.cellForRowAtIndexPath({0, 0})->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), table.cellForRowAtIndexPath({2, 0}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget()->parentWidget(), table.cellForRowAtIndexPath({2, 2}));

    const int scrolled = table.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    table.reloadData();
    EXPECT_EQ(table.verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(QApplication::focusWidget()->parentWidget(), table.cellForRowAtIndexPath({2, 2}));

    // Space on a focused row taps it.
    table.cellForRowAtIndexPath({2, 0})->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(source.selected, (std::vector<IndexPath>{{2, 0}}));
}

// Right to left, frames count from the right edge and keep their distance from it as the parent
// widens; a row's icon and text start at its right edge.
TEST(RightToLeft, FramesFollowTheRightEdgeAndRowsStartThere) {
    QWidget parent;
    parent.setLayoutDirection(Qt::RightToLeft);
    parent.resize(200, 100);
    parent.show();
    QWidget child(&parent);
    setFrame(&child, QRectF(10.4, 5, 50, 20));
    EXPECT_EQ(child.geometry(), QRect(140, 5, 50, 20));
    parent.resize(300, 100);
    EXPECT_EQ(child.geometry(), QRect(240, 5, 50, 20));
    EXPECT_EQ(frame(&child), QRectF(10, 5, 50, 20));

    TableViewCell cell("Row", {320, 44}, &parent);
    cell.setImage(QImage(58, 58, QImage::Format_ARGB32));
    EXPECT_EQ(cell.imageRect(), QRect(320 - 15 - 29, 7, 29, 29));
    EXPECT_EQ(cell.textLabel()->geometry(), QRect(15, 0, 320 - 15 - 29 - 15 - 15, 44));
}

TEST(TableViewSource, ADataSourceDeletedFirstIsNoLongerAsked) {
    auto source = std::make_unique<CountingSource>();
    TableView table;
    table.setDataSource(source.get());
    source.reset();
    table.reloadData();
    EXPECT_EQ(table.cellForRowAtIndexPath({0, 0}), nullptr);
}
