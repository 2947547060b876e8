// pomwick-renderer: the home-screen side of the preview. Serves the renderer's message center,
// draws the badge background on request and reports the icon size.
#include "AtomicFile.h"
#include "BadgeBackgroundRenderer.h"
#include "BundleInstallation.h"
#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewFiles.h"
#include "ProgramInfo.h"
#include "TerminationSignals.h"

#include <QGuiApplication>
#include <QStringList>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <optional>

using namespace pomwick;

namespace {

struct Options {
    std::optional<std::string> root;
    double iconSize = 60;
    bool help = false;
    bool version = false;
};

void printUsage() {
    std::printf("usage: pomwick-renderer [--root DIR] [--icon-size N]\n"
                "The home-screen side of Pomwick's preview: serves com.velquor.pomwick on the "
                "session bus\nand draws the badge background on \"saveBadgeImages\". The bus "
                "starts it on demand.\n\noptions:\n"
                "  --root DIR        the device root\n"
                "  --icon-size N     the icon side in points it reports (60)\n"
                "  --help, --version\n\n%s",
                deviceRootHelp().c_str());
}

int fail(const QString& problem, int status = 1) {
    std::fprintf(stderr, "pomwick-renderer: %s\n", qPrintable(problem));
    return status;
}

std::optional<Options> parse(const QStringList& arguments, QString& problem) {
    Options options;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& option = arguments[i];
        if (option == "--help" || option == "-h" || option == "--version") {
            (option == "--version" ? options.version : options.help) = true;
            return options;
        }
        if (i + 1 >= arguments.size() || (option != "--root" && option != "--icon-size")) {
            problem =
                option == "--root" || option == "--icon-size"
                    ? option + " needs a value"
                    : "unknown argument '" + option + "' (options: --root DIR, --icon-size N)";
            return std::nullopt;
        }
        const QString value = arguments[++i];
        if (option == "--root") {
            options.root = value.toStdString();
            continue;
        }
        bool number = false;
        options.iconSize = value.toDouble(&number);
        if (!number || !std::isfinite(options.iconSize) || options.iconSize <= 0 ||
            options.iconSize > 1024) {
            problem =
                "--icon-size needs a number of points between 0 and 1024, not '" + value + "'";
            return std::nullopt;
        }
    }
    return options;
}

bool writeIconSize(double iconSize) {
    const QByteArray text = QByteArray::number(iconSize, 'g', 9);
    return !writeFileAtomically(tmpFile(PreviewFile::iconSize),
                                std::string_view(text.constData(), size_t(text.size())));
}

} // namespace

int main(int argc, char** argv) {
    // The renderer never shows a window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    QString problem;
    const auto options = parse(app.arguments(), problem);
    if (!options)
        return fail(problem, 2);
    if (options->help)
        printUsage();
    if (options->version)
        std::fputs(versionLine("pomwick-renderer").c_str(), stdout);
    if (options->help || options->version)
        return 0;
    if (const auto refused = DeviceRoot::select(options->root))
        return fail(QString::fromStdString(*refused));

    if (!sessionBusAvailable())
        return fail("no D-Bus session bus: DBUS_SESSION_BUS_ADDRESS is unset or unreachable "
                    "(start one with dbus-run-session)");
    if (const auto failure = installBundleIntoDeviceRoot())
        return fail(QString::fromStdString(*failure));
    if (!writeIconSize(options->iconSize))
        return fail("cannot write the icon size under " +
                    QString::fromStdString(DeviceRoot::current().string()));

    MessagingCenter& center = MessagingCenter::centerNamed(CenterName::renderer);
    if (!center.runServerOnCurrentThread())
        return fail(center.doesServerExist()
                        ? "another renderer already serves " + center.name()
                        : "cannot serve " + center.name() + " on the session bus");

    BadgeBackgroundRenderer renderer;
    center.registerForMessageName(MessageName::saveBadgeImages, &renderer,
                                  [&renderer](const QString&) { renderer.requestRender(); });
    handleTerminationSignals([] { QGuiApplication::quit(); });
    // A fresh background from the start, and a refreshed preview for a screen that is open.
    renderer.requestRender();
    return app.exec();
}
