#include "ImageContext.h"
#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PrivateSessionBus.h"
#include "RendererProcess.h"
#include "TemporaryDeviceRoot.h"

#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

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
