#include "CollectionView.h"
#include "TableView.h"

#include <QApplication>
#include <QScrollBar>
#include <QStringListModel>
#include <gtest/gtest.h>

using namespace pomwick;

namespace {

struct Rows : TableViewDataSource {
    int count = 30;
    int numberOfSectionsInTableView(TableView*) override { return 1; }
    int numberOfRowsInSection(TableView*, int) override { return count; }
    TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath) override {
        return new TableViewCell("Row", QSizeF(table->rowWidth(), TableViewCell::rowHeight));
    }
};

// The rows of the view's right-hand strip where the dark bar shows, drawn over white.
std::vector<int> barRows(QWidget& view) {
    QImage image(view.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    view.render(&image);
    std::vector<int> rows;
    for (int y = 0; y < image.height(); ++y)
        if (qGray(image.pixel(image.width() - 5, y)) < 180)
            rows.push_back(y);
    return rows;
}

} // namespace

TEST(ScrollIndicator, ShowsTheVisibleShareWhileScrollingThenGoesAndNeverWhenTheContentFits) {
    Rows rows;
    TableView table;
    table.resize(320, 480);
    table.setDataSource(&rows);
    table.reloadData();
    table.show();
    EXPECT_TRUE(barRows(table).empty()) << "nothing before a scroll";
    QScrollBar* bar = table.verticalScrollBar();
    bar->setValue(bar->maximum());
    const std::vector<int> shown = barRows(table);
    ASSERT_FALSE(shown.empty());
    EXPECT_NEAR(shown.size(), 474.0 * 480 / (bar->maximum() + 480), 2);
    EXPECT_NEAR(shown.back(), 480 - 4, 1) << "at the bottom of the track";
    rows.count = 3;
    table.reloadData();
    EXPECT_TRUE(barRows(table).empty()) << "the rows fit now";

    CollectionView grid;
    grid.setContentInset({0, 2, 0, 2});
    grid.resize(300, 400);
    QStringListModel items(QStringList(200, "item"));
    grid.setModel(&items);
    grid.show();
    grid.setContentOffset({0, 100});
    EXPECT_FALSE(barRows(grid).empty());
    QApplication::processEvents();
    EXPECT_TRUE(barRows(grid).empty()) << "faded once the scroll stops";
    items.setStringList(QStringList(4, "item"));
    EXPECT_TRUE(barRows(grid).empty()) << "four squares fit, with the inset";
}
