#include "AtomicFile.h"
#include "BundleInstallation.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PreviewExchange.h"
#include "PreviewFiles.h"
#include "ToolCommand.h"

#include <QGuiApplication>
#include <clocale>
#include <cmath>
#include <filesystem>
#include <iostream>

namespace pomwick {
namespace {

constexpr int answerTimeoutMilliseconds = 4000;

int fail(const QString& problem) {
    std::cerr << "pomwick-defaults: " << problem.toStdString() << "\n";
    return operationFailed;
}

int preview(const std::vector<std::string>& arguments) {
    const std::filesystem::path output = std::filesystem::absolute(arguments[0]);
    // Before asking the renderer for anything: the write would refuse it anyway.
    if (const auto refusal = whyNotReplaceable(output))
        return fail(QString::fromStdString(*refusal));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "pomwick-defaults";
    static char* argv[] = {name, nullptr};
    QGuiApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    if (const auto failure = installBundleIntoDeviceRoot())
        return fail(QString::fromStdString(*failure));
    if (const auto failure = requestFreshBadgeBackground(answerTimeoutMilliseconds))
        return fail(*failure);
    const auto iconSize = readReportedIconSize();
    if (!iconSize || !std::isfinite(*iconSize) || *iconSize <= 0 || *iconSize > 1024)
        return fail("the renderer reported no usable icon size in the device's /tmp/iconSize.txt");
    const QImage picture = renderPreviewPicture(*iconSize);
    if (picture.isNull() || !writePngAtomically(picture, output))
        return fail(QString::fromStdString("cannot write " + output.string()));
    return 0;
}

} // namespace

ToolCommand previewCommand() {
    return {"preview",
            "OUT.png",
            "ask the running renderer for a fresh badge and write the composed preview",
            1,
            1,
            preview};
}

} // namespace pomwick
