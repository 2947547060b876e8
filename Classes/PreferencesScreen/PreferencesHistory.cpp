// Undo and redo of every stored change, changes by other writers shown at once, and the notice
// that offers to take back "Restore Defaults".
#include "ModalScope.h"
#include "PomwickPreferencesViewController.h"
#include "PreferencesRows.h"
#include "SettingsHistory.h"
#include "UndoNotice.h"

#include <QAction>
#include <QScopedValueRollback>

namespace pomwick {
namespace {

// The platform's keys, and Ctrl+Shift+Z wherever the platform's redo is another.
QList<QKeySequence> redoKeys() {
    QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Redo);
    const QKeySequence shiftZ(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    if (!keys.contains(shiftZ))
        keys.append(shiftZ);
    return keys;
}

} // namespace

void PomwickPreferencesViewController::setUpHistory() {
    history_ = new SettingsHistory(this);
    connect(history_, &SettingsHistory::settingsReplaced, this,
            &PomwickPreferencesViewController::showSettingsAgain);

    auto* undoAction = new QAction(tr("Undo"), view());
    undoAction->setShortcuts(QKeySequence::Undo);
    connect(undoAction, &QAction::triggered, this, &PomwickPreferencesViewController::undo);
    auto* redoAction = new QAction(tr("Redo"), view());
    redoAction->setShortcuts(redoKeys());
    connect(redoAction, &QAction::triggered, this, &PomwickPreferencesViewController::redo);
    // Wherever the focus is in the page's window, or none at all after a click: the page's view
    // is hidden while a sub-page is on top, which is when they do nothing.
    for (QAction* action : {undoAction, redoAction}) {
        action->setShortcutContext(Qt::WindowShortcut);
        view()->addAction(action);
    }
}

void PomwickPreferencesViewController::endGesture(const QString& description) {
    history_->endGesture(description);
}

// While a sheet is up (the font sheet's wheels, the composer) the page beneath keeps still.
void PomwickPreferencesViewController::undo() {
    if (!ModalScope::isActiveIn(view()))
        history_->stack()->undo();
}

void PomwickPreferencesViewController::redo() {
    if (!ModalScope::isActiveIn(view()))
        history_->stack()->redo();
}

// Made the first time defaults are restored: the page holds only its own views until then.
void PomwickPreferencesViewController::showDefaultsRestored() {
    if (!undoNotice_) {
        undoNotice_ = new UndoNotice(view());
        connect(undoNotice_, &UndoNotice::undoRequested, this,
                &PomwickPreferencesViewController::undo);
        // Its button takes back one step only while that step is the last.
        connect(history_->stack(), &QUndoStack::indexChanged, undoNotice_, &QWidget::hide);
    }
    undoNotice_->showMessage(tr("Defaults restored"));
}

// The rows and the preview show the file as it is now, for one request to the renderer, not one
// per section: nothing the user did here asked for it.
void PomwickPreferencesViewController::showSettingsAgain() {
    const QScopedValueRollback quiet(rows_->rowCountsRequestPreview, false);
    reloadTableData();
}

} // namespace pomwick
