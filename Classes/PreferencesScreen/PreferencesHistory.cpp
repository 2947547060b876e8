// Undo and redo of every stored change, changes by other writers shown at once, and the notice
// that offers to take back "Restore Defaults".
#include "PomwickPreferencesViewController.h"
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
    for (QAction* action : {undoAction, redoAction}) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        view()->addAction(action);
    }
}

UndoNotice* PomwickPreferencesViewController::undoNotice() const {
    return undoNotice_;
}

QUndoStack* PomwickPreferencesViewController::undoStack() const {
    return history_->stack();
}

void PomwickPreferencesViewController::endGesture(const QString& description) {
    history_->endGesture(description);
}

// While the font sheet is up its wheels own the change under way.
void PomwickPreferencesViewController::undo() {
    if (!fontContainerView_)
        history_->stack()->undo();
}

void PomwickPreferencesViewController::redo() {
    if (!fontContainerView_)
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
    const QScopedValueRollback quiet(rowCountsRequestPreview_, false);
    reloadTableData();
}

} // namespace pomwick
