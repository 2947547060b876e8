#include "TextField.h"

#include "Appearance.h"
#include "DisplayedText.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <limits>
#include <utility>

namespace pomwick {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    setFont(Appearance::systemFont(17));
    QPalette clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
    // The stored text has no limit, so the field has none (a line edit's default is 32,767).
    setMaxLength(std::numeric_limits<int>::max());
    // An edit is reported first (textEdited), then as a change of the text (textChanged).
    connect(this, &QLineEdit::textEdited, this, &TextField::askAboutEdit);
    connect(this, &QLineEdit::textChanged, this, &TextField::followText);
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (delegate_)
            delegate_->textFieldShouldReturn(this);
    });
}

std::pair<TextRange, QString> TextField::editBetween(const QString& current,
                                                     const QString& proposed) {
    qsizetype prefix = 0;
    const qsizetype shorter = std::min(current.size(), proposed.size());
    while (prefix < shorter && current[prefix] == proposed[prefix])
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < shorter - prefix &&
           current[current.size() - 1 - suffix] == proposed[proposed.size() - 1 - suffix])
        ++suffix;
    const TextRange range{int(prefix), int(current.size() - prefix - suffix)};
    return {range, proposed.mid(prefix, proposed.size() - prefix - suffix)};
}

// Every edit by the user (typing, deleting, pasting, input methods, undo) ends here, applied but
// not yet painted: a refused one is taken back before anyone sees it. The part shown starts the
// whole text, so a range in it is the same range in the whole.
void TextField::askAboutEdit(const QString& proposed) {
    answered_ = true;
    const QString shown = displayedPart(acceptedText_);
    if (proposed == shown)
        return;
    const auto [range, replacement] = editBetween(shown, proposed);
    const bool allowed =
        !delegate_ || delegate_->shouldChangeCharactersInRange(this, range, replacement);
    if (allowed)
        acceptedText_.replace(range.location, range.length, replacement);
    const QString nowShown = displayedPart(acceptedText_);
    if (nowShown == proposed)
        return;
    const int cursor = allowed ? cursorPosition() : range.location + range.length;
    showPart(nowShown);
    setCursorPosition(cursor);
}

// Any other change came from code (setText, clear, through whatever pointer): taken as it is.
void TextField::followText() {
    if (showing_ || std::exchange(answered_, false))
        return;
    acceptedText_ = text();
    if (const QString part = displayedPart(acceptedText_); part != acceptedText_)
        showPart(part);
}

void TextField::setAcceptedText(const QString& text) {
    acceptedText_ = text;
    showPart(displayedPart(text));
}

void TextField::showPart(const QString& text) {
    const QScopedValueRollback guard(showing_, true);
    setText(text);
}

QString TextField::displayedPart(const QString& text) {
    // With its size: a null text has no characters to point at.
    const std::u16string_view units(QStringView(text).utf16(), std::size_t(text.size()));
    return text.left(qsizetype(displayedLength(units)));
}

void TextField::resignFirstResponder() {
    editing_ = false;
    clearFocus();
}

void TextField::setRightView(QWidget* view) {
    rightView_ = view;
    view->setParent(this);
    view->show();
    placeRightView();
}

void TextField::placeRightView() {
    if (!rightView_)
        return;
    // Right to left, the view stands at the left end and the text keeps clear of it there.
    const bool mirrored = isRightToLeft();
    const int margin = rightView_->width() + 6;
    rightView_->move(mirrored ? 0 : width() - rightView_->width(),
                     (height() - rightView_->height()) / 2);
    setTextMargins(mirrored ? margin : 0, 0, mirrored ? 0 : margin, 0);
}

void TextField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!std::exchange(editing_, true) && delegate_)
        delegate_->textFieldDidBeginEditing(this);
}

// Editing goes on while another window is in front, a menu is open or the focus is on the
// field's own right view; it ends when the focus goes elsewhere.
void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    const bool away =
        event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
    if (away && (rightView_ == nullptr || QApplication::focusWidget() != rightView_))
        editing_ = false;
}

// A line edit passes Escape on, and the page would go back from under the text being typed.
void TextField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        deselect();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    placeRightView();
}

} // namespace pomwick
