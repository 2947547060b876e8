#include "AtomicFile.h"
#include "BundleInstallation.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PreviewExchange.h"
#include "PreviewFiles.h"
#include "ToolCommand.h"

#include <QCoreApplication>
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
    if (const auto failure = installBundleIntoDeviceRoot())
        return fail(QString::fromStdString(*failure));
    PreviewExchange exchange(answerTimeoutMilliseconds);
    QString problem;
    QObject::connect(&exchange, &PreviewExchange::finished, [&problem](const QString& why) {
        problem = why;
        QCoreApplication::quit();
    });
    QMetaObject::invokeMethod(&exchange, &PreviewExchange::start, Qt::QueuedConnection);
    QCoreApplication::exec();
    if (!problem.isEmpty())
        return fail(problem);
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
