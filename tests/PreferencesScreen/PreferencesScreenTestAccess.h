#pragma once

#include "PomwickPreferencesViewController.h"
#include "PreviewHeader.h"
#include "SettingsHistory.h"
#include "UndoNotice.h"

namespace pomwick {

// What tests see of the page's insides: its history and the notice that offers to take back a
// restore, and the preview's absence, whose grace time they run out by hand.
struct PreferencesScreenTestAccess {
    using Page = PomwickPreferencesViewController;
    static QUndoStack* undoStack(Page* page) { return page->history_->stack(); }
    static void undo(Page* page) { page->undo(); }
    static UndoNotice* undoNotice(Page* page) { return page->undoNotice_; }
    static QTimer* absence(Page* page) { return page->rendererAbsence_; }
    // What the preview says while the renderer is away; null until it first was.
    static QLabel* unavailableLabel(Page* page) { return page->header_->unavailableLabel(); }
};

} // namespace pomwick
