#pragma once

#include "PomwickPlatformExport.h"

#include <QAbstractButton>
#include <QImage>
#include <QPixmap>
#include <QSizeF>
#include <optional>

namespace pomwick {

struct POMWICK_PLATFORM_EXPORT IndexPath {
    int section = 0;
    int row = 0;
    friend bool operator==(const IndexPath&, const IndexPath&) = default;
};

class TableViewCell;

// A row's one line of plain text, painted by the row itself the way a label paints its text: a
// widget per label made every rebuild of a table a third slower.
class POMWICK_PLATFORM_EXPORT TableViewCellLabel {
public:
    QString text() const { return text_; }
    void setText(const QString& text);
    QFont font() const { return font_; }
    // The colour the text is painted in: the one given, else the row's text colour; a dimmed
    // row's at reduced alpha.
    QColor textColor() const;
    void setTextColor(const QColor& color);
    // Where in the row the text is painted.
    QRect geometry() const { return geometry_; }

private:
    friend class TableViewCell;
    explicit TableViewCellLabel(TableViewCell* cell) : cell_(cell) {}

    TableViewCell* cell_;
    QString text_;
    QFont font_;
    std::optional<QColor> color_;
    QRect geometry_;
};

// A row of the default style: an icon on the left and a one-line label beside it. Controls that
// the screen adds are placed at frames it computes from the cell's size, which the table gives
// every cell when it is made: its width and the row height of 44 points. A row is a button: a
// tap, Space or Return on it is a click, and a row that can be selected takes the focus by Tab.
class POMWICK_PLATFORM_EXPORT TableViewCell : public QAbstractButton {
    Q_OBJECT
public:
    enum class SelectionStyle { None, Default };
    static constexpr qreal rowHeight = 44;
    static constexpr qreal indentationWidth = 10;
    static constexpr qreal dimmedAlpha = 0.6;

    // A cell made inside the table's content (TableView::contentView()) is spared a move into it.
    TableViewCell(QString reuseIdentifier, QSizeF size, QWidget* parent = nullptr);

    QString reuseIdentifier() const { return reuseIdentifier_; }
    TableViewCellLabel* textLabel() { return &textLabel_; }
    const TableViewCellLabel* textLabel() const { return &textLabel_; }
    void setImage(const QImage& image);
    // The icon as the row paints it, faded while dimmed; where it is painted (empty: no icon).
    QPixmap imagePixmap() const;
    QRect imageRect() const { return imageRect_; }

    void setSelectionStyle(SelectionStyle style);
    SelectionStyle selectionStyle() const { return selectionStyle_; }
    // A dimmed row's label and icon are faded; assistive tools hear it is unavailable.
    void setDimmed(bool dimmed);
    bool isDimmed() const { return dimmed_; }
    // A cell that does not react ignores touches, its controls included.
    // It is then unavailable to assistive tools too.
    void setUserInteractionEnabled(bool enabled);
    bool isUserInteractionEnabled() const { return interactionEnabled_; }
    void setHighlighted(bool highlighted);
    // The hairline under the row, from this inset to the right edge; none for the last row.
    void setSeparatorInset(std::optional<qreal> inset);
    bool isHighlighted() const { return highlighted_; }

signals:
    void tapped();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class TableViewCellLabel;
    static qreal iconRatio(const QImage& image);
    static QPixmap iconPixmap(const QImage& image, bool faded);
    void paintContent(QPainter& painter);
    void layoutContent();
    void updateFocusPolicy();

    QString reuseIdentifier_;
    TableViewCellLabel textLabel_;
    QImage image_;
    QRect imageRect_;
    SelectionStyle selectionStyle_ = SelectionStyle::Default;
    bool interactionEnabled_ = true;
    bool dimmed_ = false;
    bool highlighted_ = false;
    std::optional<qreal> separatorInset_;
};

} // namespace pomwick
