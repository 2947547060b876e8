// The other end of a bare ping-pong: answers every "ping" to its center with a "pong" to the
// benchmark's center. Usage: pomwick-bench-echo-peer
#include "MessagingCenter.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    auto& echo = pomwick::MessagingCenter::centerNamed("com.velquor.pomwickbench.echo");
    if (!echo.runServerOnCurrentThread())
        return 1;
    echo.registerForMessageName("ping", &app, [](const QString&) {
        pomwick::MessagingCenter::centerNamed("com.velquor.pomwickpreferences")
            .sendMessageName("pong");
    });
    return app.exec();
}
