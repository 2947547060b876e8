#include "AlertView.h"

#include "Appearance.h"
#include "ViewGeometry.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace pomwick {
namespace {

constexpr int panelWidth = 270;
constexpr qreal panelRadius = 13;

// The alert's button: the page's tinted text, with a ring only while the keyboard steers.
class AlertButton : public QPushButton {
public:
    explicit AlertButton(const QString& text) : QPushButton(text) {
        setFlat(true);
        setCursor(Qt::PointingHandCursor);
        setFont(Appearance::systemFont(17, QFont::DemiBold));
        setMinimumHeight(44);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setFont(font());
        painter.setPen(isDown() ? Appearance::tint().lighter(160) : Appearance::tint());
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (Appearance::showsFocusRing(this))
            Appearance::drawFocusRing(painter, QRectF(rect()), panelRadius);
    }
};

// A grouped panel of the page: white and rounded, a hairline above the button.
class AlertPanel : public QWidget {
public:
    AlertPanel(QWidget* parent, QWidget* buttons) : QWidget(parent), buttons_(buttons) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Appearance::cellBackground());
        painter.drawRoundedRect(QRectF(rect()), panelRadius, panelRadius);
        const qreal line = Appearance::hairlineWidth(painter);
        painter.fillRect(QRectF(0, buttons_->y() - line, width(), line), Appearance::hairline());
    }

private:
    QWidget* buttons_;
};

QLabel* centredLabel(const QString& text, const QFont& font) {
    auto* label = new QLabel(text);
    label->setFont(font);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setContentsMargins(16, 0, 16, 0);
    setTextColor(label, Appearance::labelText);
    return label;
}

// The box keeps its own text label and button box, which its text() and buttons() read and its
// keys use; what shows is the title, the message and the button box in one panel.
void dressAsPanel(QMessageBox* box, const QString& title, const QString& message) {
    auto* buttons = box->findChild<QDialogButtonBox*>();
    for (QLabel* own : box->findChildren<QLabel*>(Qt::FindDirectChildrenOnly))
        own->hide();
    delete box->layout();
    auto* panel = new AlertPanel(box, buttons);
    panel->setFixedWidth(panelWidth);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 20, 0, 0);
    column->setSpacing(4);
    column->addWidget(centredLabel(title, Appearance::systemFont(17, QFont::DemiBold)));
    column->addWidget(centredLabel(message, Appearance::systemFont(13)));
    column->addSpacing(16);
    buttons->setParent(panel);
    buttons->setCenterButtons(true);
    column->addWidget(buttons);
    auto* around = new QVBoxLayout(box);
    around->setContentsMargins(16, 16, 16, 16);
    around->addWidget(panel);
    setBackgroundColor(box, Appearance::groupedBackground);
}

} // namespace

AlertView::AlertView(QString title, QString message, QString cancelButtonTitle)
    : title_(std::move(title)), message_(std::move(message)),
      cancelButtonTitle_(std::move(cancelButtonTitle)) {}

// One alert at a time: while one is up, another asks for it only to come forward. It is modal to
// its window, and the window's focus is where it was once it goes.
void AlertView::show() {
    static QPointer<QMessageBox> showing;
    if (showing && showing->isVisible()) {
        showing->raise();
        showing->activateWindow();
        return;
    }
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr)
        if (QWidget* focus = QApplication::focusWidget())
            window = focus->window();
    auto* box =
        new QMessageBox(QMessageBox::NoIcon, title_, message_, QMessageBox::NoButton, window);
    box->setObjectName("AlertView");
    auto* button = new AlertButton(cancelButtonTitle_);
    box->addButton(button, QMessageBox::RejectRole);
    box->setDefaultButton(button);
    dressAsPanel(box, title_, message_);
    box->setWindowModality(window != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    showing = box;
    box->show();
}

} // namespace pomwick
