#pragma once

#include "PomwickPlatformExport.h"
#include "TableViewCell.h"

#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <optional>
#include <vector>

namespace pomwick {

class TableView;

// What the table asks of its data source and tells its delegate (one object here). The table
// does not own it and holds it weakly: a data source deleted first is no longer asked.
class POMWICK_PLATFORM_EXPORT TableViewDataSource : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    virtual int numberOfSectionsInTableView(TableView* table) = 0;
    virtual int numberOfRowsInSection(TableView* table, int section) = 0;
    virtual QString titleForHeaderInSection(TableView*, int /*section*/) { return {}; }
    virtual QWidget* viewForFooterInSection(TableView*, int /*section*/) { return nullptr; }
    virtual TableViewCell* cellForRowAtIndexPath(TableView* table, IndexPath indexPath) = 0;
    virtual void didSelectRowAtIndexPath(TableView*, IndexPath) {}
};

// A grouped table: a header view on top, then for every section a grey title, a white group of
// rows with hairline separators, and an optional footer view. Every reload asks the data source
// for the number of sections once and for each section's rows once, and builds every cell anew;
// the focus stays on the same control of the same row, and the scroll position where it was.
class POMWICK_PLATFORM_EXPORT TableView : public QScrollArea {
    Q_OBJECT
public:
    enum class ScrollPosition { Top, Bottom };

    explicit TableView(QWidget* parent = nullptr);

    void setDataSource(TableViewDataSource* dataSource) { dataSource_ = dataSource; }
    void setTableHeaderView(QWidget* header);
    QWidget* tableHeaderView() const { return header_; }
    void setSeparatorInset(qreal left) { separatorInset_ = left; }

    // The width every cell gets.
    qreal rowWidth() const;
    // Where the rows live: a data source that makes its cells and footers here saves moving
    // them in.
    QWidget* contentView() const { return content_; }

    void reloadData();
    TableViewCell* cellForRowAtIndexPath(IndexPath indexPath) const;
    std::optional<IndexPath> indexPathForSelectedRow() const { return selected_; }
    void selectRowAtIndexPath(IndexPath indexPath);
    void deselectRowAtIndexPath(IndexPath indexPath, bool animated);
    void scrollToRowAtIndexPath(IndexPath indexPath, ScrollPosition position, bool animated);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Section {
        QLabel* title = nullptr;
        std::vector<QPointer<TableViewCell>> cells;
        QPointer<QWidget> footer;
    };
    // Where the keyboard focus is: a row, and the kind and accessible name of the widget in it
    // (none: the row itself), which a rebuilt row keeps though its widgets may come in another
    // order.
    struct FocusPlace {
        IndexPath row;
        QByteArray className;
        QString name;
    };
    void layoutRows();
    void clear();
    QLabel* titleLabel(size_t section, const QString& text);
    std::optional<FocusPlace> focusPlace() const;
    void restoreFocus(const FocusPlace& place);

    QPointer<TableViewDataSource> dataSource_;
    QWidget* content_;
    QPointer<QWidget> header_;
    std::vector<Section> sections_;
    std::vector<QLabel*> titles_;
    std::optional<IndexPath> selected_;
    qreal separatorInset_ = 15;
};

} // namespace pomwick
