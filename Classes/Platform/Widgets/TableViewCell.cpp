#include "TableViewCell.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QEvent>
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
    // Whoever colours the label after it was dimmed keeps it dimmed.
    textLabel_->installEventFilter(this);
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
    // Row icons are drawn at twice their size in points.
    pixmap.setDevicePixelRatio(image.devicePixelRatio() == 1.0 ? 2.0 : image.devicePixelRatio());
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void TableViewCell::setImage(const QImage& image) {
    image_ = image;
    imageView_->setVisible(!image.isNull());
    if (!image.isNull()) {
        const QPixmap pixmap = iconPixmap(image, dimmed_);
        imageView_->setPixmap(pixmap);
        imageView_->resize(pixmap.deviceIndependentSize().toSize());
    }
    layoutContent();
}

// The label's text colour and the icon take the alpha; the row's white background stays.
void TableViewCell::setDimmed(bool dimmed) {
    if (dimmed == dimmed_)
        return;
    dimmed_ = dimmed;
    fadeLabel();
    if (!image_.isNull())
        imageView_->setPixmap(iconPixmap(image_, dimmed_));
}

void TableViewCell::fadeLabel() {
    QPalette palette = textLabel_->palette();
    QColor color = palette.color(QPalette::WindowText);
    const int wanted = qRound(255 * (dimmed_ ? dimmedAlpha : 1.0));
    if (color.alpha() == wanted)
        return;
    color.setAlpha(wanted);
    palette.setColor(QPalette::WindowText, color);
    textLabel_->setPalette(palette);
}

bool TableViewCell::eventFilter(QObject* watched, QEvent* event) {
    if (watched == textLabel_ && event->type() == QEvent::PaletteChange)
        fadeLabel();
    return QAbstractButton::eventFilter(watched, event);
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
        imageView_->move(left, (height() - imageView_->height()) / 2);
        textLeft = left + imageView_->width() + 15;
    }
    textLabel_->setGeometry(textLeft, 0, std::max(0, width() - textLeft - 15), height());
}

void TableViewCell::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool lit = (highlighted_ || isDown()) && selectionStyle_ != SelectionStyle::None;
    painter.fillRect(rect(), lit ? Appearance::selectedCellBackground() : QColor(Qt::white));
    if (separatorInset_) {
        const qreal line = Appearance::hairlineWidth(painter);
        painter.fillRect(
            QRectF(*separatorInset_, height() - line, width() - *separatorInset_, line),
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
