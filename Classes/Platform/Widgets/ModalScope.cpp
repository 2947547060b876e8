#include "ModalScope.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTextEdit>

namespace pomwick {
namespace {

std::vector<ModalScope*>& scopes() {
    static std::vector<ModalScope*> all;
    return all;
}

bool isUserInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

// A text editor that types Tab keeps it; everything else moves the focus.
bool typesTab(const QWidget* widget) {
    if (const auto* edit = qobject_cast<const QTextEdit*>(widget))
        return !edit->tabChangesFocus() && !edit->isReadOnly();
    if (const auto* edit = qobject_cast<const QPlainTextEdit*>(widget))
        return !edit->tabChangesFocus() && !edit->isReadOnly();
    return false;
}

bool takesTab(const QWidget* widget) {
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() &&
           widget->isVisibleTo(widget->window());
}

} // namespace

ModalScope::ModalScope(QWidget* sheet, std::vector<QPointer<QWidget>> letThrough, QWidget* fallback)
    : QObject(sheet->window()), sheet_(sheet), window_(sheet->window()),
      letThrough_(std::move(letThrough)) {
    QWidget* focus = window_->focusWidget();
    opener_ =
        (focus != nullptr && focus->window() == window_ && !isInside(focus)) ? focus : fallback;
    for (ModalScope* other : scopes())
        if (other->sheet_ == sheet)
            other->end();
    scopes().push_back(this);
    qApp->installEventFilter(this);
    sheet->installEventFilter(this);
    connect(sheet, &QObject::destroyed, this, &ModalScope::end);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { keepFocusInside(now); });
}

ModalScope::~ModalScope() {
    std::erase(scopes(), this);
}

void ModalScope::end() {
    if (ended_)
        return;
    ended_ = true;
    std::erase(scopes(), this);
    qApp->removeEventFilter(this);
    disconnect(qApp, &QApplication::focusChanged, this, nullptr);
    QWidget* focus = window_ ? window_->focusWidget() : nullptr;
    const bool focusInSheet = focus == nullptr || focus->window() != window_ || isInside(focus);
    if (opener_ && focusInSheet && opener_->isVisible() && opener_->isEnabled())
        opener_->setFocus(Qt::OtherFocusReason);
    deleteLater();
}

bool ModalScope::isActiveIn(const QWidget* widget) {
    for (const ModalScope* scope : scopes())
        if (scope->window_ == widget->window())
            return true;
    return false;
}

void ModalScope::endFor(const QWidget* sheet) {
    for (ModalScope* scope : std::vector<ModalScope*>(scopes()))
        if (scope->sheet_ == sheet)
            scope->end();
}

bool ModalScope::isInside(const QWidget* widget) const {
    return sheet_ && (widget == sheet_ || sheet_->isAncestorOf(widget));
}

bool ModalScope::isLetThrough(const QWidget* widget) const {
    for (const QPointer<QWidget>& open : letThrough_)
        if (open && (widget == open || open->isAncestorOf(widget)))
            return true;
    return false;
}

bool ModalScope::eventFilter(QObject* watched, QEvent* event) {
    if (watched == sheet_ && event->type() == QEvent::Hide) {
        end();
        return false;
    }
    if (ended_ || !sheet_)
        return false;
    if (event->type() == QEvent::Shortcut) {
        // The page's own shortcuts sleep while the sheet is up; the application's stay.
        const auto* shortcut = qobject_cast<QShortcut*>(watched);
        const QWidget* owner = shortcut ? qobject_cast<QWidget*>(shortcut->parent()) : nullptr;
        return owner != nullptr && owner->window() == window_ && !isInside(owner) &&
               shortcut->context() != Qt::ApplicationShortcut;
    }
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != window_ || !isUserInput(event->type()))
        return false;
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool tab = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
        if (tab && !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) &&
            !(isInside(widget) && typesTab(widget))) {
            moveFocus(key->key() == Qt::Key_Tab && !(key->modifiers() & Qt::ShiftModifier));
            return true;
        }
    }
    if (isInside(widget) || isLetThrough(widget))
        return false;
    if (event->type() == QEvent::KeyPress)
        moveFocus(true);
    return true;
}

void ModalScope::moveFocus(bool forward) {
    std::vector<QWidget*> chain;
    QWidget* walker = sheet_;
    do {
        if (isInside(walker) && takesTab(walker))
            chain.push_back(walker);
        walker = walker->nextInFocusChain();
    } while (walker != nullptr && walker != sheet_);
    if (chain.empty())
        return;
    const auto at = std::find(chain.begin(), chain.end(), window_->focusWidget());
    size_t next = 0;
    if (at != chain.end()) {
        const size_t index = size_t(at - chain.begin());
        next = forward ? (index + 1) % chain.size() : (index + chain.size() - 1) % chain.size();
    } else if (!forward) {
        next = chain.size() - 1;
    }
    chain[next]->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

// The focus never settles behind the sheet: whatever takes it there hands it back.
void ModalScope::keepFocusInside(QWidget* now) {
    if (ended_ || !sheet_ || now == nullptr || now->window() != window_ || isInside(now) ||
        isLetThrough(now))
        return;
    if (sheet_->isEnabled() && sheet_->isVisible())
        moveFocus(true);
    if (!isInside(window_->focusWidget()))
        now->clearFocus();
}

} // namespace pomwick
