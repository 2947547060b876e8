// pomwick-settings: a Settings-like window whose root page lists the Pomwick bundle and opens it.
#include "BundleInstallation.h"
#include "BundleLoader.h"
#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "NavigationController.h"
#include "ProgramOptions.h"
#include "SettingsListController.h"
#include "SingleInstance.h"
#include "Translations.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QTimer>
#include <clocale>
#include <cstdio>

using namespace pomwick;

namespace {

// A phone-sized window that fits the screen.
QSize windowSize() {
    QSize size(414, 860);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableSize() - QSize(0, 40));
    return size;
}

// The page reads the icon size the renderer reports when it loads. Where the renderer is a
// service the bus starts on demand, have it started now, so that the first window on a fresh
// root usually shows the icon at its size. Asked without waiting: a renderer that hangs while it
// starts must not keep the window from appearing; the preview follows when it answers.
void startRenderer() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.interface() == nullptr)
        return;
    bus.interface()->asyncCall(QStringLiteral("StartServiceByName"), CenterName::renderer, 0u);
}

// For measuring start-up: says when the page first shows its content, then quits.
void exitOnceContentShows(const ViewController& page) {
    QObject::connect(&page, &ViewController::contentReady, qApp, [] {
        std::printf("pomwick-settings: first preview shown\n");
        std::fflush(stdout);
        QApplication::quit();
    });
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--smoke-test") == 0 && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The window is found as "Settings" by title and by screen readers, as the device's app is;
    // desktops match it to its entry through the entry's name (Wayland's app id) and, on X11,
    // WM_CLASS's instance, "pomwick-settings", which the entry names as StartupWMClass.
    QApplication::setApplicationName(QStringLiteral("Settings"));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.velquor.Pomwick"));
    std::setlocale(LC_NUMERIC, "C");
    installTranslations();

    ProgramOptions options(QStringLiteral("pomwick-settings"),
                           QApplication::translate("main", "The settings window of Pomwick, with "
                                                           "its live badge preview. One window "
                                                           "per device root: a second start "
                                                           "brings the open one forward."));
    const QCommandLineOption stayOnList(
        QStringLiteral("list"), QApplication::translate("main", "stay on the list of bundles"));
    const QCommandLineOption smokeTest(
        QStringLiteral("smoke-test"),
        QApplication::translate("main",
                                "load the bundle, open its page, exit 0 (or 1 when it fails)"));
    QCommandLineOption exitAfterFirstPreview(QStringLiteral("exit-after-first-preview"));
    exitAfterFirstPreview.setFlags(QCommandLineOption::HiddenFromHelp);
    options.addOptions({stayOnList, smokeTest, exitAfterFirstPreview});
    if (const auto status = options.parse(QApplication::arguments()))
        return *status;
    if (!options.parser().positionalArguments().isEmpty())
        return options.usageError(QApplication::translate("main", "unexpected argument '%1'")
                                      .arg(options.parser().positionalArguments().constFirst()));
    if (const auto status = options.selectDeviceRoot())
        return *status;

    SingleInstance instance(DeviceRoot::current());
    switch (instance.claim()) {
    case SingleInstance::Outcome::forwarded:
        std::printf("pomwick-settings: a settings window for %s is already open; brought it "
                    "forward\n",
                    DeviceRoot::current().c_str());
        return 0;
    case SingleInstance::Outcome::unanswered:
        return options.failure(instance.problem());
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
    window.setWindowTitle(QApplication::translate("main", "Settings"));
    window.setWindowIcon(QIcon::fromTheme(QStringLiteral("com.velquor.Pomwick"),
                                          QIcon(QStringLiteral(":/com.velquor.Pomwick.svg"))));
    if (!options.parser().isSet(stayOnList))
        root->openBundle(false);
    if (options.parser().isSet(exitAfterFirstPreview))
        exitOnceContentShows(*window.topViewController());
    window.show();
    QObject::connect(&instance, &SingleInstance::activationRequested, &window, [&window] {
        std::printf("pomwick-settings: brought forward by another start\n");
        std::fflush(stdout);
        window.showNormal();
        window.raise();
        window.activateWindow();
    });

    if (options.parser().isSet(smokeTest)) {
        QTimer::singleShot(200, &app, [&] {
            const bool pageShown = window.viewControllers().size() == 2 &&
                                   window.topViewController()->title() == QLatin1String("Pomwick");
            std::printf("pomwick-settings: smoke test %s\n",
                        loaded && pageShown ? "passed" : "failed");
            QApplication::exit(loaded && pageShown ? 0 : 1);
        });
    }
    return app.exec();
}
