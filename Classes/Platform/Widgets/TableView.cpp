#include "TableView.h"

#include "Animations.h"
#include "Appearance.h"
#include "ScrollIndicator.h"
#include "ViewGeometry.h"

#include <QApplication>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScrollBar>
#include <QTimer>
#include <cmath>

namespace pomwick {
namespace {

constexpr qreal sectionGap = 35;
constexpr qreal bottomMargin = 35;

// The grouped background with a hairline above and below every group of rows.
class GroupedContent : public QWidget {
public:
    using QWidget::QWidget;
    std::vector<QRectF> groups;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Appearance::groupedBackground());
        const qreal line = Appearance::hairlineWidth(painter);
        for (const QRectF& group : groups) {
            painter.fillRect(QRectF(0, group.top() - line, width(), line), Appearance::hairline());
            painter.fillRect(QRectF(0, group.bottom(), width(), line), Appearance::hairline());
        }
    }
};

} // namespace

TableView::TableView(QWidget* parent) : QScrollArea(parent), content_(new GroupedContent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Rows span the whole width, as on the phone; the wheel and the keyboard still scroll, and the
    // phone's thin indicator shows meanwhile.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new ScrollIndicator(this);
    // Tab goes to the rows and their controls, and scrolls to each; the list is no stop itself.
    setFocusPolicy(Qt::NoFocus);
    setWidget(content_);
    setWidgetResizable(false);
    Appearance::follow(this, [this] {
        for (QLabel* title : titles_)
            setTextColor(title, Appearance::sectionHeaderText());
    });
}

void TableView::setTableHeaderView(QWidget* header) {
    header_ = header;
    header->setParent(content_);
    header->show();
    layoutRows();
}

// The table's own width: known as soon as its frame is set, before it is ever shown.
qreal TableView::rowWidth() const {
    return width();
}

// Rows go once control returns to the event loop: a reload often starts from a signal of a
// control inside the very rows it replaces. They are hidden at once and deleted together by one
// posted deletion; moving them out to a holder instead would resolve the palette and font of
// every widget beneath them again.
void TableView::clear() {
    // A focused control that is retired would hand its focus on down the chain, and the scroll
    // area would scroll to wherever it lands.
    if (QWidget* focused = QApplication::focusWidget(); focused && content_->isAncestorOf(focused))
        focused->clearFocus();
    std::vector<QPointer<QWidget>> retired;
    const auto retire = [&retired](QWidget* widget) {
        if (widget != nullptr) {
            widget->hide();
            retired.emplace_back(widget);
        }
    };
    for (Section& section : sections_) {
        for (auto& cell : section.cells)
            retire(cell);
        retire(section.footer);
    }
    auto* deletion = new QObject;
    connect(deletion, &QObject::destroyed, [retired = std::move(retired)] {
        for (const QPointer<QWidget>& widget : retired)
            delete widget.data();
    });
    deletion->deleteLater();
    sections_.clear();
    selected_.reset();
}

std::optional<TableView::FocusPlace> TableView::focusPlace() const {
    QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr || !content_->isAncestorOf(focused))
        return std::nullopt;
    for (size_t section = 0; section < sections_.size(); ++section) {
        const auto& cells = sections_[section].cells;
        for (size_t row = 0; row < cells.size(); ++row) {
            TableViewCell* cell = cells[row];
            if (cell == nullptr || (cell != focused && !cell->isAncestorOf(focused)))
                continue;
            const IndexPath path{int(section), int(row)};
            if (focused == cell)
                return FocusPlace{path, {}, {}};
            return FocusPlace{path, focused->metaObject()->className(), focused->accessibleName()};
        }
    }
    return std::nullopt;
}

// The same row, and in it the control of the same kind and name, wherever the rebuilt row put it.
void TableView::restoreFocus(const FocusPlace& place) {
    TableViewCell* cell = cellForRowAtIndexPath(place.row);
    if (cell == nullptr)
        return;
    QWidget* target = place.className.isEmpty() ? cell : nullptr;
    for (QWidget* widget : cell->findChildren<QWidget*>()) {
        if (target != nullptr)
            break;
        if (place.className == widget->metaObject()->className() &&
            place.name == widget->accessibleName())
            target = widget;
    }
    if (target != nullptr && target->isEnabled() && (target->focusPolicy() & Qt::TabFocus) != 0)
        target->setFocus(Qt::OtherFocusReason);
}

void TableView::reloadData() {
    const std::optional<FocusPlace> focused = focusPlace();
    clear();
    if (!dataSource_)
        return;
    const int count = dataSource_->numberOfSectionsInTableView(this);
    for (int section = 0; section < count; ++section) {
        Section built;
        const QString title = dataSource_->titleForHeaderInSection(this, section);
        if (!title.isEmpty())
            built.title = titleLabel(size_t(section), title.toUpper());
        const int rows = dataSource_->numberOfRowsInSection(this, section);
        for (int row = 0; row < rows; ++row) {
            TableViewCell* cell = dataSource_->cellForRowAtIndexPath(this, {section, row});
            if (cell == nullptr)
                continue;
            if (cell->parentWidget() != content_)
                cell->setParent(content_);
            connect(cell, &TableViewCell::tapped, this, [this, section, row] {
                selectRowAtIndexPath({section, row});
            });
            built.cells.push_back(cell);
        }
        if (QWidget* footer = dataSource_->viewForFooterInSection(this, section)) {
            if (footer->parentWidget() != content_)
                footer->setParent(content_);
            built.footer = footer;
        }
        sections_.push_back(std::move(built));
    }
    layoutRows();
    for (const Section& section : sections_) {
        for (const auto& cell : section.cells)
            cell->show();
        if (section.footer)
            section.footer->show();
    }
    for (size_t section = 0; section < titles_.size(); ++section)
        titles_[section]->setVisible(section < sections_.size() && sections_[section].title);
    if (focused)
        restoreFocus(*focused);
}

// Section titles are no rows: they stay from one reload to the next, and only their texts change.
QLabel* TableView::titleLabel(size_t section, const QString& text) {
    while (titles_.size() <= section) {
        auto* title = new QLabel(content_);
        title->setFont(Appearance::systemFont(13));
        setTextColor(title, Appearance::sectionHeaderText());
        titles_.push_back(title);
    }
    titles_[section]->setText(text);
    return titles_[section];
}

void TableView::layoutRows() {
    const qreal width = rowWidth();
    qreal y = 0;
    if (header_) {
        setFrame(header_, QRectF(0, 0, width, frame(header_).height()));
        y = frame(header_).height();
    }
    auto* content = static_cast<GroupedContent*>(content_);
    content->groups.clear();
    for (Section& section : sections_) {
        if (section.title)
            setFrame(section.title, QRectF(15, y + sectionGap - 24, width - 30, 18));
        y += sectionGap;
        const qreal top = y;
        for (size_t i = 0; i < section.cells.size(); ++i) {
            TableViewCell* cell = section.cells[i];
            const QRectF cellFrame = frame(cell);
            setFrame(cell, QRectF(0, y, width, cellFrame.height()));
            cell->setSeparatorInset(i + 1 < section.cells.size() ? std::optional(separatorInset_)
                                                                 : std::nullopt);
            y += cellFrame.height();
        }
        if (!section.cells.empty())
            content->groups.emplace_back(0, top, width, y - top);
        if (section.footer) {
            const QRectF footerFrame = frame(section.footer);
            setFrame(section.footer,
                     QRectF(footerFrame.x(), y + 8, footerFrame.width(), footerFrame.height()));
            y += 8 + footerFrame.height();
        }
    }
    content_->resize(int(width), int(std::ceil(y + bottomMargin)));
    content_->update();
}

TableViewCell* TableView::cellForRowAtIndexPath(IndexPath indexPath) const {
    if (indexPath.section < 0 || size_t(indexPath.section) >= sections_.size())
        return nullptr;
    const auto& cells = sections_[size_t(indexPath.section)].cells;
    if (indexPath.row < 0 || size_t(indexPath.row) >= cells.size())
        return nullptr;
    return cells[size_t(indexPath.row)];
}

void TableView::selectRowAtIndexPath(IndexPath indexPath) {
    if (selected_ && *selected_ != indexPath)
        deselectRowAtIndexPath(*selected_, false);
    selected_ = indexPath;
    if (TableViewCell* cell = cellForRowAtIndexPath(indexPath))
        cell->setHighlighted(true);
    if (dataSource_)
        dataSource_->didSelectRowAtIndexPath(this, indexPath);
}

void TableView::deselectRowAtIndexPath(IndexPath indexPath, bool animated) {
    if (selected_ == indexPath)
        selected_.reset();
    TableViewCell* cell = cellForRowAtIndexPath(indexPath);
    if (cell == nullptr)
        return;
    if (!animated) {
        cell->setHighlighted(false);
        return;
    }
    // The highlight fades out as the device's does.
    QPointer<TableViewCell> fading(cell);
    QTimer::singleShot(Animations::duration(250), cell, [fading] {
        if (fading)
            fading->setHighlighted(false);
    });
}

void TableView::scrollToRowAtIndexPath(IndexPath indexPath, ScrollPosition position,
                                       bool animated) {
    TableViewCell* cell = cellForRowAtIndexPath(indexPath);
    if (cell == nullptr)
        return;
    const QRectF cellFrame = frame(cell);
    const int target =
        int(position == ScrollPosition::Top ? cellFrame.top()
                                            : cellFrame.bottom() - viewport()->height());
    QScrollBar* bar = verticalScrollBar();
    const int clamped = std::clamp(target, bar->minimum(), bar->maximum());
    if (!animated) {
        bar->setValue(clamped);
        return;
    }
    auto* animation = new QPropertyAnimation(bar, "value", this);
    animation->setDuration(Animations::duration(300));
    animation->setEndValue(clamped);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void TableView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    layoutRows();
}

} // namespace pomwick
