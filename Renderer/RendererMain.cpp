// pomwick-renderer: the home-screen side of the preview. Serves the renderer's message center,
// draws the badge background on request and reports the icon size.
#include "AtomicFile.h"
#include "BadgeBackgroundRenderer.h"
#include "BundleInstallation.h"
#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewFiles.h"
#include "ProgramOptions.h"
#include "TerminationSignals.h"
#include "Translations.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QStringList>
#include <clocale>
#include <cmath>
#include <cstdio>

using namespace pomwick;

namespace {

bool writeIconSize(double iconSize) {
    const QByteArray text = QByteArray::number(iconSize, 'g', 9);
    return !writeFileAtomically(tmpFile(PreviewFile::iconSize),
                                std::string_view(text.constData(), size_t(text.size())));
}

// The bus started this renderer for its clients; once that bus is gone nobody can ask for a
// badge again, and a renderer left behind would only hold the device's files.
void quitWhenTheBusIsGone() {
    QDBusConnection::sessionBus().connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                                          QStringLiteral("org.freedesktop.DBus.Local"),
                                          QStringLiteral("Disconnected"), qApp, SLOT(quit()));
}

} // namespace

int main(int argc, char** argv) {
    // The renderer never shows a window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    installTranslations();

    ProgramOptions options(
        QStringLiteral("pomwick-renderer"),
        QGuiApplication::translate("main", "The home-screen side of Pomwick's preview: serves "
                                           "com.velquor.pomwick on the session bus and draws the "
                                           "badge background on \"saveBadgeImages\". The bus "
                                           "starts it on demand."));
    const QCommandLineOption iconSizeOption(
        QStringLiteral("icon-size"),
        QGuiApplication::translate("main", "the icon side in points it reports (60)"),
        QGuiApplication::translate("main", "number"), QStringLiteral("60"));
    options.addOptions({iconSizeOption});
    if (const auto status = options.parse(QGuiApplication::arguments()))
        return *status;
    if (!options.parser().positionalArguments().isEmpty())
        return options.usageError(QGuiApplication::translate("main", "unexpected argument '%1'")
                                      .arg(options.parser().positionalArguments().constFirst()));
    bool number = false;
    const QString iconSizeText = options.parser().value(iconSizeOption);
    const double iconSize = iconSizeText.toDouble(&number);
    if (!number || !std::isfinite(iconSize) || iconSize <= 0 || iconSize > 1024)
        return options.usageError(
            QGuiApplication::translate("main", "--icon-size needs a number of points between 0 "
                                               "and 1024, not '%1'")
                .arg(iconSizeText));
    if (const auto status = options.selectDeviceRoot())
        return *status;

    if (!sessionBusAvailable())
        return options.failure(QStringLiteral(
            "no D-Bus session bus: DBUS_SESSION_BUS_ADDRESS is unset or unreachable (start one "
            "with dbus-run-session)"));
    if (const auto failure = installBundleIntoDeviceRoot())
        return options.failure(QString::fromStdString(*failure));
    if (!writeIconSize(iconSize))
        return options.failure(QStringLiteral("cannot write the icon size under ") +
                               QString::fromStdString(DeviceRoot::current().string()));

    MessagingCenter& center = MessagingCenter::centerNamed(CenterName::renderer);
    if (!center.runServerOnCurrentThread())
        return options.failure(center.doesServerExist()
                                   ? QStringLiteral("another renderer already serves ") +
                                         center.name()
                                   : QStringLiteral("cannot serve ") + center.name() +
                                         QStringLiteral(" on the session bus"));

    BadgeBackgroundRenderer renderer;
    center.registerForMessageName(MessageName::saveBadgeImages, &renderer,
                                  [&renderer](const QString&) { renderer.requestRender(); });
    handleTerminationSignals([] { QGuiApplication::quit(); });
    quitWhenTheBusIsGone();
    // A fresh background from the start, and a refreshed preview for a screen that is open.
    renderer.requestRender();
    return app.exec();
}
