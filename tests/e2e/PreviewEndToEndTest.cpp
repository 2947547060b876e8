#include "DevicePaths.h"
#include "ImageContext.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PrivateSessionBus.h"
#include "RendererProcess.h"
#include "TemporaryDeviceRoot.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace pomwick;

namespace {

struct ToolRun {
    int status;
    QString err;
};

class PreviewEndToEnd : public testing::Test {
protected:
    void SetUp() override { test::PrivateSessionBus::address(); }

    ToolRun defaults(const QStringList& arguments, bool withBus = true) {
        QProcess tool;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("POMWICK_ROOT", QString::fromStdString(root.path()));
        if (!withBus)
            environment.remove("DBUS_SESSION_BUS_ADDRESS");
        tool.setProcessEnvironment(environment);
        tool.start(DEFAULTS_TOOL, arguments);
        EXPECT_TRUE(tool.waitForFinished(20000));
        return {tool.exitCode(), QString::fromUtf8(tool.readAllStandardError())};
    }

    QImage preview(const char* name) {
        const QString path = QString::fromStdString((root.path() / name).string());
        const ToolRun run = defaults({"preview", path});
        EXPECT_EQ(run.status, 0) << run.err.toStdString();
        return imageWithContentsOfFile(path.toStdString());
    }

    test::TemporaryDeviceRoot root;
};

} // namespace

TEST_F(PreviewEndToEnd, ShowsTheStoredTextAtTheStoredLocationAsTheScreenComposesIt) {
    test::RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    ASSERT_EQ(defaults({"write", "BADGE_TEXT_FIELD_TEXT", "@@"}).status, 0);
    ASSERT_EQ(defaults({"write", "BADGE_LOCATION", "0.600000,-0.150000"}).status, 0);
    ASSERT_EQ(defaults({"write", "BADGE_BACKGROUND_COLOR", "0,0,1,1"}).status, 0);
    const QImage atSigns = preview("at-signs.png");
    ASSERT_FALSE(atSigns.isNull());

    // Exactly the picture this process composes from the same files.
    QImage composed = renderPreviewPicture(60);
    composed.setDevicePixelRatio(1);
    EXPECT_EQ(atSigns.convertToFormat(QImage::Format_ARGB32_Premultiplied),
              composed.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST_F(PreviewEndToEnd, WithoutARendererOrABusTheToolSaysWhatIsMissing) {
    const ToolRun noRenderer = defaults({"preview", "out.png"});
    EXPECT_EQ(noRenderer.status, 1);
    EXPECT_TRUE(noRenderer.err.contains("no renderer serves com.velquor.pomwick"))
        << noRenderer.err.toStdString();

    const ToolRun noBus = defaults({"preview", "out.png"}, false);
    EXPECT_EQ(noBus.status, 1);
    EXPECT_TRUE(noBus.err.contains("DBUS_SESSION_BUS_ADDRESS")) << noBus.err.toStdString();
}

TEST_F(PreviewEndToEnd, RefusesToReplaceAnythingButARegularFileAndNeverWaitsOnAFifo) {
    test::RendererProcess renderer;
    ASSERT_TRUE(renderer.waitUntilServing());
    const std::filesystem::path folder = root.path() / "folder";
    const std::filesystem::path fifo = root.path() / "fifo";
    const std::filesystem::path link = root.path() / "link";
    const std::filesystem::path target = root.path() / "target.png";
    std::filesystem::create_directory(folder);
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0644), 0);
    root.writeFile("/target.png", "keep");
    std::filesystem::create_symlink(target, link);
    for (const auto& output : {folder, fifo, link}) {
        const auto before = std::filesystem::symlink_status(output).type();
        const ToolRun run = defaults({"preview", QString::fromStdString(output.string())});
        EXPECT_EQ(run.status, 1);
        EXPECT_TRUE(
            run.err.contains(QString::fromStdString(output.string() + " is not a regular file")))
            << run.err.toStdString();
        EXPECT_EQ(std::filesystem::symlink_status(output).type(), before) << output;
    }
    EXPECT_EQ(root.readFile("/target.png"), "keep");

    // A FIFO where the renderer leaves the icon size holds no size, and is not waited on.
    const std::filesystem::path iconSize = hostPath("/tmp/iconSize.txt");
    std::filesystem::remove(iconSize);
    ASSERT_EQ(::mkfifo(iconSize.c_str(), 0644), 0);
    const ToolRun run = defaults({"preview", QString::fromStdString(target.string())});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.err.contains("no usable icon size")) << run.err.toStdString();
}
