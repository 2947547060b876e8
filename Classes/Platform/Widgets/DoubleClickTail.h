#pragma once

#include "PomwickPlatformExport.h"

#include <QElapsedTimer>
#include <QPoint>

class QMouseEvent;

namespace pomwick {

// The rest of a double click whose first click brought a page or sheet in: a press within the
// double-click interval, where the pointer was when it came, would otherwise land on whatever
// now lies under it. A press elsewhere is a new click.
class POMWICK_PLATFORM_EXPORT DoubleClickTail {
public:
    // The page or sheet came in now, under the pointer where it is.
    void restart();
    bool isRunning() const;
    bool covers(const QMouseEvent& press) const;

private:
    QElapsedTimer since_;
    QPoint pointer_;
};

} // namespace pomwick
