#include "TableViewCell.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QStyle>

namespace pomwick {

void TableViewCellLabel::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    cell_->update();
    // A row still being built has nobody to tell.
    if (cell_->isVisible()) {
        QAccessibleEvent event(cell_, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
}

QColor TableViewCellLabel::textColor() const {
    QColor color = color_.value_or(cell_->palette().color(QPalette::WindowText));
    if (cell_->isDimmed())
        color.setAlpha(qRound(255 * TableViewCell::dimmedAlpha));
    return color;
}

void TableViewCellLabel::setTextColor(const QColor& color) {
    color_ = color;
    cell_->update();
}

TableViewCell::TableViewCell(QString reuseIdentifier, QSizeF size, QWidget* parent)
    : QAbstractButton(parent), reuseIdentifier_(std::move(reuseIdentifier)), textLabel_(this) {
    textLabel_.font_ = Appearance::systemFont(17);
    setFrame(this, QRectF(QPointF(0, 0), size));
    layoutContent();
    updateFocusPolicy();
    connect(this, &QAbstractButton::clicked, this, &TableViewCell::tapped);
}

// Rows without a highlight carry a control, which takes the focus instead.
void TableViewCell::updateFocusPolicy() {
    const bool focusable = interactionEnabled_ && selectionStyle_ != SelectionStyle::None;
    setFocusPolicy(focusable ? Qt::TabFocus : Qt::NoFocus);
}

void TableViewCell::setSelectionStyle(SelectionStyle style) {
    selectionStyle_ = style;
    updateFocusPolicy();
}

// Row icons are drawn at twice their size in points, unless they say otherwise.
qreal TableViewCell::iconRatio(const QImage& image) {
    return image.devicePixelRatio() == 1.0 ? 2.0 : image.devicePixelRatio();
}

// Rows are rebuilt from the same few icons again and again: each is converted once, and once
// more faded.
QPixmap TableViewCell::iconPixmap(const QImage& image, bool faded) {
    const QString key =
        QStringLiteral("pomwick-row-icon-%1-%2").arg(image.cacheKey()).arg(int(faded));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    if (faded) {
        pixmap = QPixmap(iconPixmap(image, false).size());
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setOpacity(dimmedAlpha);
        painter.drawPixmap(0, 0, iconPixmap(image, false));
    } else {
        pixmap = QPixmap::fromImage(image);
    }
    pixmap.setDevicePixelRatio(iconRatio(image));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void TableViewCell::setImage(const QImage& image) {
    image_ = image;
    layoutContent();
    update();
}

QPixmap TableViewCell::imagePixmap() const {
    return image_.isNull() ? QPixmap() : iconPixmap(image_, dimmed_);
}

// The label's text colour and the icon take the alpha; the row's white background stays.
void TableViewCell::setDimmed(bool dimmed) {
    dimmed_ = dimmed;
    update();
}

void TableViewCell::setUserInteractionEnabled(bool enabled) {
    interactionEnabled_ = enabled;
    setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
    updateFocusPolicy();
}

void TableViewCell::setHighlighted(bool highlighted) {
    highlighted_ = highlighted && selectionStyle_ != SelectionStyle::None;
    update();
}

void TableViewCell::setSeparatorInset(std::optional<qreal> inset) {
    separatorInset_ = inset;
    update();
}

void TableViewCell::layoutContent() {
    // Right to left, the icon and then the text start from the right edge.
    const auto place = [this](const QRect& slot) {
        return QStyle::visualRect(layoutDirection(), rect(), slot);
    };
    const int left = 15;
    int textLeft = left;
    imageRect_ = QRect();
    if (!image_.isNull()) {
        const QSize size = (QSizeF(image_.size()) / iconRatio(image_)).toSize();
        imageRect_ = place(QRect(QPoint(left, (height() - size.height()) / 2), size));
        textLeft = left + size.width() + 15;
    }
    textLabel_.geometry_ =
        place(QRect(textLeft, 0, std::max(0, width() - textLeft - 15), height()));
}

void TableViewCell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool lit = (highlighted_ || isDown()) && selectionStyle_ != SelectionStyle::None;
    painter.fillRect(rect(),
                     lit ? Appearance::selectedCellBackground() : Appearance::cellBackground());
    if (separatorInset_) {
        const qreal line = Appearance::hairlineWidth(painter);
        painter.fillRect(QRectF(isRightToLeft() ? 0 : *separatorInset_, height() - line,
                                width() - *separatorInset_, line),
                         Appearance::hairline());
    }
    paintContent(painter);
    if (Appearance::showsFocusRing(this))
        Appearance::drawFocusRing(painter, QRectF(rect()), 4);
}

// The icon scaled smoothly to the pixels it covers and the text in the direction of its own
// script, as a label with scaled contents and one with plain text would draw them.
void TableViewCell::paintContent(QPainter& painter) {
    if (!imageRect_.isEmpty()) {
        const qreal ratio = devicePixelRatio();
        const QSize pixels = imageRect_.size() * ratio;
        const QString key = QStringLiteral("pomwick-row-icon-%1-%2-%3x%4")
                                .arg(image_.cacheKey())
                                .arg(int(dimmed_))
                                .arg(pixels.width())
                                .arg(pixels.height());
        QPixmap shown;
        if (!QPixmapCache::find(key, &shown)) {
            shown = QPixmap::fromImage(imagePixmap().toImage().scaled(pixels, Qt::IgnoreAspectRatio,
                                                                      Qt::SmoothTransformation));
            shown.setDevicePixelRatio(ratio);
            QPixmapCache::insert(key, shown);
        }
        painter.drawPixmap(imageRect_.topLeft(), shown);
    }
    const QString& text = textLabel_.text_;
    if (text.isEmpty())
        return;
    const Qt::LayoutDirection direction = text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const int flags =
        int(QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter)) |
        (direction == Qt::LeftToRight ? Qt::TextForceLeftToRight : Qt::TextForceRightToLeft);
    // Clipped to its place as a label's widget clips it: a glyph's fringe stays inside.
    painter.save();
    painter.setClipRect(textLabel_.geometry_);
    painter.setFont(textLabel_.font_);
    painter.setPen(textLabel_.textColor());
    painter.drawText(textLabel_.geometry_, flags, text);
    painter.restore();
}

void TableViewCell::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutContent();
}

void TableViewCell::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        animateClick();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace pomwick
