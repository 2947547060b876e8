#include "TableViewCell.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

namespace pomwick {

TableViewCell::TableViewCell(QString reuseIdentifier, QSizeF size, QWidget* parent)
    : QAbstractButton(parent), reuseIdentifier_(std::move(reuseIdentifier)),
      imageView_(new QLabel(this)), textLabel_(new QLabel(this)) {
    textLabel_->setFont(Appearance::systemFont(17));
    textLabel_->setTextFormat(Qt::PlainText);
    // A label inside a button draws in the button's text colour unless told otherwise, which
    // would ignore the colour set on it.
    textLabel_->setForegroundRole(QPalette::WindowText);
    imageView_->setScaledContents(true);
    imageView_->hide();
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

// Rows are rebuilt from the same few icons again and again: each is converted once.
QPixmap TableViewCell::iconPixmap(const QImage& image) {
    const QString key = QStringLiteral("pomwick-row-icon-%1").arg(image.cacheKey());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap::fromImage(image);
    // Row icons are drawn at twice their size in points.
    pixmap.setDevicePixelRatio(image.devicePixelRatio() == 1.0 ? 2.0 : image.devicePixelRatio());
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void TableViewCell::setImage(const QImage& image) {
    imageView_->setVisible(!image.isNull());
    if (!image.isNull()) {
        const QPixmap pixmap = iconPixmap(image);
        imageView_->setPixmap(pixmap);
        imageView_->resize(pixmap.deviceIndependentSize().toSize());
    }
    layoutContent();
}

void TableViewCell::setDimmed(bool dimmed) {
    // The label and the icon, not the row: its white background stays.
    constexpr qreal faded = 0.6;
    dimmed_ = dimmed;
    setAlpha(textLabel_, dimmed ? faded : 1.0);
    setAlpha(imageView_, dimmed ? faded : 1.0);
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
    const int left = 15;
    int textLeft = left;
    if (!imageView_->isHidden()) {
        setFrame(imageView_,
                 QRectF(QPointF(left, (height() - imageView_->height()) / 2), imageView_->size()));
        textLeft = left + imageView_->width() + 15;
    }
    setFrame(textLabel_, QRectF(textLeft, 0, std::max(0, width() - textLeft - 15), height()));
}

void TableViewCell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool lit = (highlighted_ || isDown()) && selectionStyle_ != SelectionStyle::None;
    painter.fillRect(rect(), lit ? Appearance::selectedCellBackground() : QColor(Qt::white));
    if (separatorInset_) {
        const qreal line = Appearance::hairlineWidth(painter);
        painter.fillRect(QRectF(isRightToLeft() ? 0 : *separatorInset_, height() - line,
                                width() - *separatorInset_, line),
                         Appearance::hairline());
    }
    if (Appearance::showsFocusRing(this))
        Appearance::drawFocusRing(painter, QRectF(rect()), 4);
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
