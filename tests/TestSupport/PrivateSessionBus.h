#pragma once

#include <QString>

namespace pomwick::test {

// A dbus-daemon of this test process's own, so that tests never share or need the user's bus.
// The first call starts it and points DBUS_SESSION_BUS_ADDRESS at it (before QtDBus connects);
// it is stopped when the process exits. Child processes inherit the address.
class PrivateSessionBus {
public:
    static QString address();
};

} // namespace pomwick::test
