#pragma once

#include <QString>

namespace pomwick {

// An alert with a title, a message and one button that dismisses it.
class AlertView {
public:
    AlertView(QString title, QString message, QString cancelButtonTitle);
    void show();

private:
    QString title_;
    QString message_;
    QString cancelButtonTitle_;
};

} // namespace pomwick
