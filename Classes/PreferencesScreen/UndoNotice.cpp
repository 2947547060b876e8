#include "UndoNotice.h"

#include "Appearance.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QPainter>

namespace pomwick {
namespace {

// Long enough to read it and reach the button, as a phone's undo note stays.
constexpr int visibleMilliseconds = 5000;
constexpr int footMargin = 16;

} // namespace

UndoNotice::UndoNotice(QWidget* page)
    : QWidget(page), message_(new QLabel(this)), undoButton_(new QPushButton(tr("Undo"), this)) {
    setAttribute(Qt::WA_TranslucentBackground);
    message_->setFont(Appearance::systemFont(15));
    QPalette text = message_->palette();
    text.setColor(QPalette::WindowText, Qt::white);
    message_->setPalette(text);

    undoButton_->setFlat(true);
    // The keyboard has Ctrl+Z for the same; the focus must not sit on a button that goes by itself.
    undoButton_->setFocusPolicy(Qt::NoFocus);
    undoButton_->setToolTip(QKeySequence(QKeySequence::Undo).toString(QKeySequence::NativeText));
    undoButton_->setCursor(Qt::PointingHandCursor);
    undoButton_->setFont(Appearance::systemFont(15, QFont::DemiBold));
    // The tint, lightened to read on the dark panel.
    undoButton_->setStyleSheet(
        QStringLiteral("QPushButton { color: %1; border: none; padding: 4px 8px; }")
            .arg(Appearance::tint().lighter(160).name()));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 8, 8, 8);
    layout->setSpacing(12);
    layout->addWidget(message_);
    layout->addWidget(undoButton_);

    expiry_.setSingleShot(true);
    expiry_.setInterval(visibleMilliseconds);
    connect(&expiry_, &QTimer::timeout, this, &QWidget::hide);
    connect(undoButton_, &QPushButton::clicked, this, [this] {
        hide();
        emit undoRequested();
    });
    hide();
}

void UndoNotice::showMessage(const QString& message) {
    message_->setText(message);
    setAccessibleName(message);
    placeAtFoot();
    show();
    raise();
    expiry_.start();
}

void UndoNotice::placeAtFoot() {
    adjustSize();
    const QWidget* page = parentWidget();
    move((page->width() - width()) / 2, page->height() - height() - footMargin);
}

void UndoNotice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Appearance::noticeBackground(0.8));
    painter.drawRoundedRect(QRectF(rect()), 10, 10);
}

} // namespace pomwick
