#include "TableViewCell.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace pomwick {

TableViewCell::TableViewCell(QString reuseIdentifier, QSizeF size)
    : reuseIdentifier_(std::move(reuseIdentifier)), imageView_(new QLabel(this)),
      textLabel_(new QLabel(this)) {
    textLabel_->setFont(Appearance::systemFont(17));
    textLabel_->setTextFormat(Qt::PlainText);
    imageView_->setScaledContents(true);
    imageView_->hide();
    setFrame(this, QRectF(QPointF(0, 0), size));
    layoutContent();
}

void TableViewCell::setImage(const QImage& image) {
    imageView_->setVisible(!image.isNull());
    if (!image.isNull()) {
        QPixmap pixmap = QPixmap::fromImage(image);
        // Row icons are drawn at twice their size in points.
        pixmap.setDevicePixelRatio(image.devicePixelRatio() == 1.0 ? 2.0
                                                                   : image.devicePixelRatio());
        imageView_->setPixmap(pixmap);
        imageView_->resize(pixmap.deviceIndependentSize().toSize());
    }
    layoutContent();
}

void TableViewCell::setUserInteractionEnabled(bool enabled) {
    interactionEnabled_ = enabled;
    setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
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
    painter.fillRect(rect(),
                     highlighted_ ? Appearance::selectedCellBackground() : QColor(Qt::white));
    if (separatorInset_)
        painter.fillRect(QRectF(*separatorInset_, height() - 0.5, width() - *separatorInset_, 0.5),
                         Appearance::hairline());
}

void TableViewCell::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutContent();
}

void TableViewCell::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        setHighlighted(true);
}

void TableViewCell::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    if (rect().contains(event->position().toPoint()))
        emit tapped();
    else
        setHighlighted(false);
}

} // namespace pomwick
