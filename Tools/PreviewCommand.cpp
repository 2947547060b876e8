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
#include <optional>

namespace pomwick {
namespace {

constexpr int answerTimeoutMilliseconds = 4000;

int fail(const QString& problem) {
    std::cerr << "pomwick-defaults: " << problem.toStdString() << "\n";
    return operationFailed;
}

// What stands at the output path when the picture must not replace it: anything but a regular
// file (a symbolic link too, which the rename would replace rather than follow).
std::optional<const char*> unreplaceable(const std::filesystem::path& output) {
    using std::filesystem::file_type;
    std::error_code error;
    switch (std::filesystem::symlink_status(output, error).type()) {
    case file_type::none:
    case file_type::not_found:
    case file_type::regular:
        return std::nullopt;
    case file_type::directory:
        return "a directory";
    case file_type::symlink:
        return "a symbolic link";
    case file_type::block:
    case file_type::character:
        return "a device node";
    case file_type::fifo:
        return "a FIFO";
    case file_type::socket:
        return "a socket";
    default:
        return "a file of an unknown kind";
    }
}

int preview(const std::vector<std::string>& arguments) {
    const std::filesystem::path output = std::filesystem::absolute(arguments[0]);
    if (const auto what = unreplaceable(output))
        return fail(QString::fromStdString("will not replace " + output.string() + ": it is " +
                                           *what + ", not a regular file"));
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
