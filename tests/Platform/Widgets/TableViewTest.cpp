#include "TableView.h"

#include "ViewGeometry.h"

#include <QCoreApplication>
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

    int numberOfSectionsInTableView(TableView*) override {
        ++sectionQuestions;
        return 3;
    }
    int numberOfRowsInSection(TableView*, int section) override {
        ++rowQuestions[size_t(section)];
        return std::vector<int>{2, 0, 3}[size_t(section)];
    }
    QString titleForHeaderInSection(TableView*, int section) override {
        return section == 0 ? "First" : QString();
    }
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath path) override {
        auto* cell =
            new TableViewCell(QString("Cell%1").arg(path.row), QSizeF(table->rowWidth(), 44));
        cell->textLabel()->setText(QString("%1.%2").arg(path.section).arg(path.row));
        if (path.row == 1)
            cell->setUserInteractionEnabled(false);
        return cell;
    }
    void didSelectRowAtIndexPath(TableView*, IndexPath path) override { selected.push_back(path); }
};

} // namespace

TEST(TableView, EveryReloadAsksEachSectionsRowCountOnceAndBuildsEveryCellAnew) {
    CountingSource source;
    TableView table;
    setFrame(&table, QRectF(0, 0, 320, 480));
    table.setDataSource(&source);
    table.reloadData();
    TableViewCell* before = table.cellForRowAtIndexPath({2, 2});
    ASSERT_NE(before, nullptr);
    table.reloadData();
    EXPECT_EQ(source.sectionQuestions, 2);
    EXPECT_EQ(source.rowQuestions, (std::vector<int>{2, 2, 2}));
    EXPECT_NE(table.cellForRowAtIndexPath({2, 2}), before);
    EXPECT_EQ(table.cellForRowAtIndexPath({2, 2})->textLabel()->text(), "2.2");
    EXPECT_EQ(table.cellForRowAtIndexPath({1, 0}), nullptr);
    EXPECT_EQ(frame(table.cellForRowAtIndexPath({0, 0})).width(), 320);
    // The old rows go once the event loop runs, never under a signal that is still running.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(TableView, TappingSelectsUntilDeselectedAndCellsThatDoNotReactIgnoreTouches) {
    CountingSource source;
    TableView table;
    setFrame(&table, QRectF(0, 0, 320, 480));
    table.setDataSource(&source);
    table.reloadData();
    table.show();

    QTest::mouseClick(table.cellForRowAtIndexPath({2, 0}), Qt::LeftButton);
    ASSERT_EQ(source.selected, (std::vector<IndexPath>{{2, 0}}));
    EXPECT_TRUE(table.cellForRowAtIndexPath({2, 0})->isHighlighted());
    EXPECT_EQ(table.indexPathForSelectedRow(), (IndexPath{2, 0}));
    table.deselectRowAtIndexPath({2, 0}, false);
    EXPECT_FALSE(table.cellForRowAtIndexPath({2, 0})->isHighlighted());
    EXPECT_FALSE(table.indexPathForSelectedRow());

    TableViewCell* inert = table.cellForRowAtIndexPath({2, 1});
    EXPECT_TRUE(inert->testAttribute(Qt::WA_TransparentForMouseEvents));
    const QPoint centre = inert->mapTo(table.viewport(), inert->rect().center());
    EXPECT_NE(table.viewport()->childAt(centre), inert);
}
