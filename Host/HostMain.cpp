// pomwick-settings: a Settings-like window whose root page lists the Pomwick bundle and opens it.
//   pomwick-settings [--root DIR] [--list] [--smoke-test] [--exit-after-first-preview]
#include "BundleInstallation.h"
#include "BundleLoader.h"
#include "DevicePaths.h"
#include "MessagingCenter.h"
#include "NavigationController.h"
#include "SettingsListController.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <clocale>
#include <cstdio>
#include <optional>

using namespace pomwick;

namespace {

struct Options {
    std::optional<std::string> root;
    bool stayOnList = false;
    bool smokeTest = false;
    bool exitAfterFirstPreview = false;
};

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
        else {
            std::fprintf(stderr,
                         "pomwick-settings: unknown argument '%s' (options: --root DIR, --list, "
                         "--smoke-test, --exit-after-first-preview)\n",
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
    DeviceRoot::set(DeviceRoot::choose(options->root));

    if (!sessionBusAvailable())
        std::fprintf(stderr, "pomwick-settings: no D-Bus session bus; the page works, but its "
                             "preview needs the renderer on a session bus\n");
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
