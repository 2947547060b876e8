#include "FeedbackMailComposer.h"

#include "Animations.h"
#include "Appearance.h"
#include "DraftMenu.h"
#include "MailDrafts.h"
#include "ModalScope.h"
#include "NoticeLabel.h"
#include "SendmailDelivery.h"
#include "ViewGeometry.h"

#include <QBoxLayout>
#include <QDebug>
#include <QDir>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPropertyAnimation>
#include <QPushButton>

namespace pomwick {
namespace {

constexpr int sheetRadius = 10;
constexpr int presentMilliseconds = 300;
// A field's text is marked red while it is no valid address list (its accessible description
// says so).
void styleField(QLineEdit* field) {
    const bool marked = !field->accessibleDescription().isEmpty();
    field->setStyleSheet(
        QString("QLineEdit { background: transparent; color: %1; }")
            .arg((marked ? Appearance::destructive() : Appearance::labelText()).name()));
}

QWidget* hairline(QWidget* parent) {
    auto* line = new QWidget(parent);
    line->setFixedHeight(1);
    setBackgroundColor(line, Appearance::hairline);
    return line;
}

QPushButton* barButton(const QString& title, bool bold, QWidget* parent) {
    auto* button = new QPushButton(title, parent);
    button->setFlat(true);
    // Return in the subject line must not press Cancel or Send.
    button->setAutoDefault(false);
    button->setCursor(Qt::PointingHandCursor);
    button->setFont(Appearance::systemFont(17, bold ? QFont::DemiBold : QFont::Normal));
    Appearance::follow(button, [button] {
        button->setStyleSheet(
            QString("QPushButton { border: none; color: #007aff; padding: 6px 10px; }"
                    "QPushButton:disabled { color: %1; }"
                    "QPushButton:focus { background: rgba(0, 122, 255, 0.12);"
                    " border-radius: 8px; }"
                    "QPushButton:pressed { color: #80bdff; }")
                .arg(Appearance::disabledText().name()));
    });
    return button;
}

// A "To:" or "Subject:" line: a grey caption and a frameless field.
QLineEdit* headerField(const QString& caption, QVBoxLayout* column, QWidget* parent) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(16, 10, 16, 10);
    row->setSpacing(6);
    auto* label = new QLabel(caption, parent);
    label->setFont(Appearance::systemFont(15));
    setTextColor(label, Appearance::sectionHeaderText);
    auto* field = new QLineEdit(parent);
    field->setFrame(false);
    field->setFont(Appearance::systemFont(15));
    field->setAccessibleName(caption.chopped(1));
    Appearance::follow(field, [field] { styleField(field); });
    label->setBuddy(field);
    row->addWidget(label);
    row->addWidget(field, 1);
    column->addLayout(row);
    column->addWidget(hairline(parent));
    return field;
}

} // namespace

bool FeedbackMailComposer::canSendMail() {
    return SendmailDelivery::program().has_value();
}

FeedbackMailComposer::FeedbackMailComposer() : QDialog(nullptr, Qt::Widget) {
    setObjectName("FeedbackMailComposer");
    setAccessibleName(tr("Mail"));
    setAttribute(Qt::WA_TranslucentBackground);
    buildSheet();
}

FeedbackMailComposer::~FeedbackMailComposer() = default;

void FeedbackMailComposer::buildSheet() {
    sheet_ = new QWidget(this);
    sheet_->setObjectName("sheet");
    auto* column = new QVBoxLayout(sheet_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(6, 6, 6, 6);
    cancelButton_ = barButton(tr("Cancel"), false, sheet_);
    sendButton_ = barButton(tr("Send"), true, sheet_);
    titleLabel_ = new NoticeLabel(false, sheet_);
    titleLabel_->setText(tr("New Message"));
    titleLabel_->setFont(Appearance::systemFont(17, QFont::DemiBold));
    titleLabel_->setMinimumWidth(1);
    bar->addWidget(cancelButton_);
    bar->addWidget(titleLabel_, 1);
    bar->addWidget(sendButton_);
    column->addLayout(bar);
    // A thin busy bar along the bar's edge, as a mail program shows while it sends.
    busyIndicator_ = new QProgressBar(sheet_);
    busyIndicator_->setRange(0, 0);
    busyIndicator_->setTextVisible(false);
    busyIndicator_->setFixedHeight(3);
    busyIndicator_->setAccessibleName(tr("Sending"));
    busyIndicator_->setStyleSheet("QProgressBar { border: none; background: transparent; }"
                                  "QProgressBar::chunk { background: #007aff; }");
    QSizePolicy keepsItsPlace = busyIndicator_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true); // the fields do not move when it shows
    busyIndicator_->setSizePolicy(keepsItsPlace);
    busyIndicator_->hide();
    column->addWidget(busyIndicator_);
    column->addWidget(hairline(sheet_));

    toField_ = headerField(tr("To:"), column, sheet_);
    subjectField_ = headerField(tr("Subject:"), column, sheet_);
    bodyField_ = new QPlainTextEdit(sheet_);
    bodyField_->setFrameShape(QFrame::NoFrame);
    bodyField_->setFont(Appearance::systemFont(15));
    bodyField_->setAccessibleName(tr("Message"));
    bodyField_->setTabChangesFocus(true);
    Appearance::follow(bodyField_, [this] {
        bodyField_->setStyleSheet(QString("QPlainTextEdit { background: transparent; color: %1;"
                                          " padding: 8px 10px; }")
                                      .arg(Appearance::labelText().name()));
    });
    column->addWidget(bodyField_, 1);
    statusLabel_ = new QLabel(sheet_);
    statusLabel_->setFont(Appearance::systemFont(12));
    statusLabel_->setWordWrap(true);
    statusLabel_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    statusLabel_->setContentsMargins(16, 6, 16, 10);
    setTextColor(statusLabel_, Appearance::sectionHeaderText);
    statusLabel_->hide();
    column->addWidget(statusLabel_);

    connect(subjectField_, &QLineEdit::textChanged, this, [this](const QString& subject) {
        titleLabel_->setText(subject.isEmpty() ? tr("New Message") : subject);
    });
    connect(toField_, &QLineEdit::textChanged, this, &FeedbackMailComposer::checkRecipients);
    checkRecipients();
    connect(sendButton_, &QPushButton::clicked, this, &FeedbackMailComposer::send);
    connect(cancelButton_, &QPushButton::clicked, this, &FeedbackMailComposer::cancel);
    setTabOrder(cancelButton_, toField_);
    setTabOrder(toField_, subjectField_);
    setTabOrder(subjectField_, bodyField_);
    setTabOrder(bodyField_, sendButton_);
}

void FeedbackMailComposer::setSubject(const QString& subject) {
    subjectField_->setText(subject);
}

void FeedbackMailComposer::setMessageBody(const QString& body, bool isHTML) {
    // Only plain text is written here; markup would show as typed.
    Q_UNUSED(isHTML);
    bodyField_->setPlainText(body);
}

void FeedbackMailComposer::setToRecipients(const QStringList& recipients) {
    toField_->setText(recipients.join(", "));
}

MailDraft FeedbackMailComposer::draft() const {
    return {toField_->text(), subjectField_->text(), bodyField_->toPlainText()};
}

// Send only for addresses that all can be delivered to; text that is no address is marked.
void FeedbackMailComposer::checkRecipients() {
    const bool valid = isDeliverableRecipientList(toField_->text());
    sendButton_->setEnabled(valid && delivery_ == nullptr);
    const bool marked = !valid && !toField_->text().trimmed().isEmpty();
    if (marked == toField_->accessibleDescription().isEmpty()) {
        toField_->setAccessibleDescription(marked ? tr("Not a valid address") : QString());
        styleField(toField_);
    }
}

QRect FeedbackMailComposer::sheetGeometry() const {
    // A page sheet: the whole width below a small gap on a narrow window, a centered card on a
    // wide one.
    const QRect area = rect();
    if (area.width() < 600)
        return area.adjusted(0, 20, 0, 0);
    const int width = 540;
    const int height = std::min(620, area.height() - 80);
    return {(area.width() - width) / 2, (area.height() - height) / 2, width, height};
}

void FeedbackMailComposer::setPresentation(qreal shown) {
    presentation_ = shown;
    const QRect target = sheetGeometry();
    const int hiddenBy = height() - target.top();
    sheet_->setGeometry(target.translated(0, int(std::lround((1 - shown) * hiddenBy))));
    update();
}

void FeedbackMailComposer::presentOver(QWidget* host, bool animated) {
    QWidget* window = host->window();
    setParent(window, Qt::Widget);
    setGeometry(window->rect());
    window->installEventFilter(this);
    setPresentation(animated ? 0 : 1);
    show();
    raise();
    new ModalScope(this);
    bodyField_->setFocus();
    bodyField_->moveCursor(QTextCursor::End);
    if (!animated)
        return;
    auto* slide = new QPropertyAnimation(this, "presentation", this);
    slide->setDuration(Animations::duration(presentMilliseconds));
    slide->setEasingCurve(QEasingCurve::OutCubic);
    slide->setEndValue(1.0);
    slide->start(QAbstractAnimation::DeleteWhenStopped);
}

void FeedbackMailComposer::dismissViewControllerAnimated(bool animated) {
    // A sheet that starts to leave gives the window back at once, not when it is gone.
    ModalScope::endFor(this);
    setEnabled(false);
    if (!animated) {
        deleteLater();
        return;
    }
    auto* slide = new QPropertyAnimation(this, "presentation", this);
    slide->setDuration(Animations::duration(presentMilliseconds));
    slide->setEasingCurve(QEasingCurve::InCubic);
    slide->setEndValue(0.0);
    connect(slide, &QAbstractAnimation::finished, this, &QObject::deleteLater);
    slide->start(QAbstractAnimation::DeleteWhenStopped);
}

bool FeedbackMailComposer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        setPresentation(presentation_);
    }
    return QDialog::eventFilter(watched, event);
}

void FeedbackMailComposer::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, 0.4f * float(presentation_)));
    QPainterPath card;
    const QRectF sheet = sheet_->geometry();
    card.addRoundedRect(sheet.adjusted(0, 0, 0, sheet.bottom() >= height() - 1 ? sheetRadius : 0),
                        sheetRadius, sheetRadius);
    painter.fillPath(card, Appearance::cellBackground());
}

void FeedbackMailComposer::reject() {
    cancel();
}

void FeedbackMailComposer::setBusy(bool busy, const QString& status) {
    for (QWidget* control : std::initializer_list<QWidget*>{sendButton_, cancelButton_, toField_,
                                                            subjectField_, bodyField_})
        control->setEnabled(!busy);
    busyIndicator_->setVisible(busy);
    statusLabel_->setText(status);
    statusLabel_->setVisible(!status.isEmpty());
    if (!busy)
        checkRecipients();
}

void FeedbackMailComposer::send() {
    if (finished_ || delivery_ != nullptr || !isDeliverableRecipientList(toField_->text()))
        return;
    delivery_ = new SendmailDelivery(this);
    setBusy(true, {});
    delivery_->setTimeout(sendTimeout_);
    connect(delivery_, &SendmailDelivery::finished, this, [this](const QString& error) {
        if (!error.isEmpty()) {
            reportFailedSend(error);
            return;
        }
        setBusy(false, {});
        finishWith(MailComposeResultSent);
    });
    delivery_->send(composeMailMessage(draft()));
}

// The notice only says that sending failed; what was typed is kept as a draft, and the reason
// goes to the log, before the sheet closes.
void FeedbackMailComposer::reportFailedSend(const QString& error) {
    const SavedDraft kept = saveMailDraft(composeMailMessage(draft()));
    const QString report = kept.error.isEmpty()
                               ? tr("%1; the message was kept in %2").arg(error, kept.path)
                               : tr("%1; the message could not be kept: %2").arg(error, kept.error);
    qWarning().noquote() << "pomwick: the feedback mail was not sent:" << report;
    setBusy(false, report);
    finishWith(MailComposeResultFailed, report);
}

void FeedbackMailComposer::cancel() {
    if (finished_ || delivery_ != nullptr || draftMenu_)
        return;
    auto* menu = new DraftMenu(this);
    menu->setAccessibleName(tr("Draft"));
    menu->addAction(tr("Save Draft"), this, &FeedbackMailComposer::saveDraft);
    connect(menu->addDestructiveAction(tr("Delete Draft")), &QAction::triggered, this,
            &FeedbackMailComposer::deleteDraft);
    draftMenu_ = menu;
    const QRect under = cancelButton_->rect();
    menu->popup(
        cancelButton_->mapToGlobal(isRightToLeft() ? under.bottomRight() : under.bottomLeft()));
}

void FeedbackMailComposer::deleteDraft() {
    finishWith(MailComposeResultCancelled);
}

void FeedbackMailComposer::saveDraft() {
    if (finished_)
        return;
    const SavedDraft saved = saveMailDraft(composeMailMessage(draft()));
    if (!saved.error.isEmpty()) {
        qWarning().noquote() << "pomwick:" << saved.error;
        setBusy(false, saved.error);
        finishWith(MailComposeResultFailed, saved.error);
        return;
    }
    setBusy(false, tr("Draft saved to %1").arg(QDir::toNativeSeparators(saved.path)));
    finishWith(MailComposeResultSaved);
}

void FeedbackMailComposer::finishWith(MailComposeResult result, const QString& error) {
    if (finished_)
        return;
    finished_ = true;
    if (MailComposeDelegate* listener = delegate_)
        listener->didFinishWithResult(this, result, error);
    else
        dismissViewControllerAnimated(true);
}

} // namespace pomwick
