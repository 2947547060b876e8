// pomwick-settings: a Settings-like window whose root page lists the Pomwick bundle and opens it.
//   pomwick-settings [--root DIR] [--list] [--smoke-test] [--exit-after-first-preview]
#include "BundleInstallation.h"
#include "BundleLoader.h"
#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "NavigationController.h"
#include "ProgramInfo.h"
#include "SettingsListController.h"
#include "SingleInstance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace pomwick;

namespace {

struct Options {
    std::optional<std::string> root;
    bool stayOnList = false;
    bool smokeTest = false;
    bool exitAfterFirstPreview = false;
};

void printUsage() {
    std::printf("usage: pomwick-settings [--root DIR] [--list] [--smoke-test]\n"
                "The settings window of Pomwick, with its live badge preview. One window per "
                "device root:\na second start brings the open one forward.\n\noptions:\n"
                "  --root DIR        the device root\n"
                "  --list            stay on the list of bundles\n"
                "  --smoke-test      load the bundle, open its page, exit 0 (or 1 when it fails)\n"
                "  --help, --version\n\n%s",
                deviceRootHelp().c_str());
}

std::optional<Options> parse(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--root" && i + 1 < argc)
            options.root = argv[++i];
        else if (argument == "--list")
            options.stayOnList = true;
        else if (argument == "--smoke-test")
            options.smokeTest = true;
        else if (argument == "--exit-after-first-preview")
            options.exitAfterFirstPreview = true;
        else if (argument == "--help" || argument == "-h") {
            printUsage();
            std::exit(0);
        } else if (argument == "--version") {
            std::fputs(versionLine("pomwick-settings").c_str(), stdout);
            std::exit(0);
        } else {
            std::fprintf(stderr,
                         "pomwick-settings: unknown argument '%s' (see 'pomwick-settings "
                         "--help')\n",
                         argument.c_str());
            return std::nullopt;
        }
    }
    return options;
}

// A phone-sized window that fits the screen.
QSize windowSize() {
    QSize size(414, 860);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableSize() - QSize(0, 40));
    return size;
}

// The page reads the icon size the renderer reports when it loads. Where the renderer is a
// service the bus starts on demand, have it started now (the bus answers once it serves, after it
// wrote the icon size), so that the first window on a fresh root shows the icon at its size. A
// renderer that runs already, or a bus that cannot start one, answers at once.
void startRenderer() {
    if (QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface())
        bus->startService(CenterName::renderer);
}

// For measuring start-up: says when the page first shows a preview badge, then quits.
void exitOnceAPreviewShows(QWidget& window) {
    auto* poll = new QTimer(&window);
    QObject::connect(poll, &QTimer::timeout, &window, [&window] {
        const auto* badge = window.findChild<QLabel*>("previewBadge");
        if (badge == nullptr || badge->pixmap().isNull())
            return;
        std::printf("pomwick-settings: first preview shown\n");
        std::fflush(stdout);
        QApplication::quit();
    });
    poll->start(1);
}

} // namespace

int main(int argc, char** argv) {
    const auto options = parse(argc, argv);
    if (!options)
        return 2;
    if (options->smokeTest && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName("Settings");
    std::setlocale(LC_NUMERIC, "C");
    if (const auto refused = DeviceRoot::select(options->root)) {
        std::fprintf(stderr, "pomwick-settings: %s\n", refused->c_str());
        return 1;
    }

    SingleInstance instance(DeviceRoot::current());
    switch (instance.claim()) {
    case SingleInstance::Outcome::forwarded:
        std::printf("pomwick-settings: a settings window for %s is already open; brought it "
                    "forward\n",
                    DeviceRoot::current().c_str());
        return 0;
    case SingleInstance::Outcome::unanswered:
        std::fprintf(stderr, "pomwick-settings: %s\n", qPrintable(instance.problem()));
        return 1;
    case SingleInstance::Outcome::noBus:
        std::fprintf(stderr, "pomwick-settings: no D-Bus session bus; the page works, but its "
                             "preview needs the renderer on a session bus\n");
        break;
    case SingleInstance::Outcome::first:
        if (MessagingCenter::centerNamed(CenterName::preferences).doesServerExist())
            std::fprintf(stderr,
                         "pomwick-settings: a settings window for another device root is open "
                         "and serves %s; this window shows no preview until that one closes\n",
                         qPrintable(CenterName::preferences));
        startRenderer();
        break;
    }
    LoadedBundle bundle;
    if (const auto failure = installBundleIntoDeviceRoot())
        bundle.error = QString::fromStdString(*failure);
    else
        bundle = loadPreferenceBundle();
    if (!bundle.bundle)
        std::fprintf(stderr, "pomwick-settings: the settings bundle could not be loaded: %s\n",
                     qPrintable(bundle.error));

    const bool loaded = bundle.bundle != nullptr;
    auto* root = new SettingsListController(std::move(bundle));
    NavigationController window(root, windowSize());
    window.setWindowTitle("Settings");
    if (!options->stayOnList)
        root->openBundle(false);
    window.show();
    QObject::connect(&instance, &SingleInstance::activationRequested, &window, [&window] {
        std::printf("pomwick-settings: brought forward by another start\n");
        std::fflush(stdout);
        window.showNormal();
        window.raise();
        window.activateWindow();
    });

    if (options->smokeTest) {
        QTimer::singleShot(200, &app, [&] {
            const bool pageShown = window.viewControllers().size() == 2 &&
                                   window.topViewController()->title() == "Pomwick";
            std::printf("pomwick-settings: smoke test %s\n",
                        loaded && pageShown ? "passed" : "failed");
            QApplication::exit(loaded && pageShown ? 0 : 1);
        });
    }
    if (options->exitAfterFirstPreview)
        exitOnceAPreviewShows(window);
    return app.exec();
}
