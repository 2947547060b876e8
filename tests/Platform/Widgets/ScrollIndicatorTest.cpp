#include "CollectionView.h"
#include "TableView.h"
#include "ViewGeometry.h"

#include <QApplication>
#include <QScrollBar>
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

struct Squares : CollectionViewDataSource {
    int count = 200;
    int numberOfItemsInSection(CollectionView*, int) override { return count; }
    CollectionViewCell* cellForItemAtIndexPath(CollectionView* grid, IndexPath path) override {
        return grid->dequeueReusableCell(path);
    }
};

// The rows of the view's right-hand strip where the dark bar shows, drawn over white.
std::vector<int> barRows(QWidget& view) {
    QImage image(view.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    view.render(&image);
    std::vector<int> rows;
    for (int y = 0; y < image.height(); ++y)
        for (int x = image.width() - 8; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 180) {
                rows.push_back(y);
                break;
            }
    return rows;
}

} // namespace

TEST(ScrollIndicator, ShowsThePageShareWhileScrollingThenGoesAndNeverWhenTheRowsFit) {
    Rows rows;
    TableView table;
    setFrame(&table, QRectF(0, 0, 320, 480));
    table.setDataSource(&rows);
    table.reloadData();
    table.show();
    EXPECT_TRUE(barRows(table).empty()) << "nothing before a scroll";

    QScrollBar* bar = table.verticalScrollBar();
    bar->setValue(bar->maximum());
    const std::vector<int> shown = barRows(table);
    ASSERT_FALSE(shown.empty());
    const qreal share = 480.0 / (bar->maximum() + 480);
    EXPECT_NEAR(shown.size(), 474 * share, 2);
    EXPECT_NEAR(shown.back(), 480 - 4, 1) << "at the bottom of the track";
    QApplication::processEvents();
    EXPECT_TRUE(barRows(table).empty()) << "faded once the scroll stops";

    bar->setValue(0);
    rows.count = 3;
    table.reloadData();
    EXPECT_TRUE(barRows(table).empty()) << "the rows fit now";
}

TEST(ScrollIndicator, TheGridShowsItToo) {
    Squares squares;
    CollectionView grid;
    grid.setContentInset({0, 2, 0, 2});
    grid.resize(300, 400);
    grid.setDataSource(&squares);
    grid.show();
    grid.setContentOffset({0, 100});
    EXPECT_FALSE(barRows(grid).empty());

    squares.count = 4;
    grid.reloadData();
    grid.setContentOffset({0, -2});
    EXPECT_TRUE(barRows(grid).empty()) << "four squares fit, with the inset";
}
