#pragma once

#include "FeedbackMailComposer.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace pomwick {

// The composer's own controls, as the user reaches them, and a send that gives up sooner.
struct FeedbackMailComposerTestAccess {
    using Composer = FeedbackMailComposer;
    static QLineEdit* toField(Composer* c) { return c->toField_; }
    static QLineEdit* subjectField(Composer* c) { return c->subjectField_; }
    static QPlainTextEdit* bodyField(Composer* c) { return c->bodyField_; }
    static QPushButton* sendButton(Composer* c) { return c->sendButton_; }
    static QPushButton* cancelButton(Composer* c) { return c->cancelButton_; }
    static QProgressBar* busyIndicator(Composer* c) { return c->busyIndicator_; }
    // Null while the Save Draft / Delete Draft choice is not open.
    static QMenu* draftMenu(Composer* c) { return c->draftMenu_; }
    static QLabel* statusLabel(Composer* c) { return c->statusLabel_; }
    static void setSendTimeout(Composer* c, std::chrono::milliseconds t) { c->sendTimeout_ = t; }
};

} // namespace pomwick
