#include "DoubleClickTail.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>

namespace pomwick {

void DoubleClickTail::restart() {
    since_.restart();
    pointer_ = QCursor::pos();
}

bool DoubleClickTail::isRunning() const {
    return since_.isValid() &&
           since_.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval();
}

bool DoubleClickTail::covers(const QMouseEvent& press) const {
    const QPoint moved = press.globalPosition().toPoint() - pointer_;
    return isRunning() &&
           moved.manhattanLength() <= QGuiApplication::styleHints()->mouseDoubleClickDistance();
}

} // namespace pomwick
