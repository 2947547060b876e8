#include "ImageFile.h"
#include "PreviewComposition.h"
#include "PrivateSessionBus.h"
#include "ProgramRun.h"
#include "RendererProcess.h"
#include "TemporaryDeviceRoot.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace pomwick;
using pomwick::test::ProgramRun;

namespace {

class PreviewEndToEnd : public testing::Test {
protected:
    void SetUp() override { test::PrivateSessionBus::address(); }

    ProgramRun defaults(const QStringList& arguments, bool withBus = true) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("POMWICK_ROOT", QString::fromStdString(root.path()));
        if (!withBus)
            environment.remove("DBUS_SESSION_BUS_ADDRESS");
        return test::runProgram(DEFAULTS_TOOL, arguments, environment);
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
    const QString path = QString::fromStdString((root.path() / "at-signs.png").string());
    const ProgramRun run = defaults({"preview", path});
    ASSERT_EQ(run.status, 0) << run.err;
    const QImage atSigns = imageWithContentsOfFile(path.toStdString());
    ASSERT_FALSE(atSigns.isNull());

    // Exactly the picture this process composes from the same files.
    QImage composed = renderPreviewPicture(60);
    composed.setDevicePixelRatio(1);
    EXPECT_EQ(atSigns.convertToFormat(QImage::Format_ARGB32_Premultiplied),
              composed.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST_F(PreviewEndToEnd, WithoutARendererOrABusOrAPlainFileToWriteTheToolSaysWhy) {
    const QString fifo = QString::fromStdString((root.path() / "fifo").string());
    ASSERT_EQ(::mkfifo(qPrintable(fifo), 0644), 0);
    const struct {
        QString output;
        bool withBus;
        QString says;
    } cases[] = {
        {"out.png", true, "no renderer serves com.velquor.pomwick"},
        {"out.png", false, "DBUS_SESSION_BUS_ADDRESS"},
        // Refused before anything is asked, and never waited on.
        {fifo, true, fifo + " is not a regular file"},
    };
    for (const auto& [output, withBus, says] : cases) {
        const ProgramRun run = defaults({"preview", output}, withBus);
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.err.find(says.toStdString()), std::string::npos) << run.err;
    }
    EXPECT_TRUE(std::filesystem::is_fifo(root.path() / "fifo"));
}
