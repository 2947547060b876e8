#pragma once

#include "UndoNotice.h"

namespace pomwick {

struct UndoNoticeTestAccess {
    static QPushButton* undoButton(UndoNotice* notice) { return notice->undoButton_; }
};

} // namespace pomwick
