#pragma once

#include "PomwickPlatformExport.h"

#include <QString>

namespace pomwick {

// An alert with a title, a message and one button that dismisses it.
class POMWICK_PLATFORM_EXPORT AlertView {
public:
    AlertView(QString title, QString message, QString cancelButtonTitle);
    void show();

private:
    QString title_;
    QString message_;
    QString cancelButtonTitle_;
};

} // namespace pomwick
