// The three programs read their command lines alike: the same words and exit statuses for the
// same mistakes, so that scripts and people can rely on them.
#include "ProgramRun.h"
#include "TemporaryDeviceRoot.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using pomwick::test::ProgramRun;

namespace {

ProgramRun run(const QString& program, const QStringList& arguments) {
    auto environment = QProcessEnvironment::systemEnvironment();
    // No bus: nothing a wrong command line does may depend on one.
    environment.remove("DBUS_SESSION_BUS_ADDRESS");
    static const QTemporaryDir runtime; // else Qt warns on stderr
    environment.insert("XDG_RUNTIME_DIR", runtime.path());
    return pomwick::test::runProgram(program, arguments, environment);
}

} // namespace

TEST(CommandLine, EveryProgramReportsTheSameMistakesInTheSameWords) {
    pomwick::test::TemporaryDeviceRoot root;
    const QString file = QString::fromStdString((root.path() / "a-file").string());
    root.writeFile("/a-file", "not a folder");
    const struct {
        QString name, path;
        QStringList command; // what follows the options for the program to do anything
    } programs[] = {{"pomwick-settings", HOST, {}},
                    {"pomwick-renderer", RENDERER, {}},
                    {"pomwick-defaults", DEFAULTS_TOOL, {"read"}}};
    for (const auto& program : programs) {
        SCOPED_TRACE(program.name.toStdString());
        const QString seeHelp = QString(" (see '%1 --help')\n").arg(program.name);
        const struct {
            QStringList arguments;
            int status;
            QString err;
        } cases[] = {
            {{"--bogus"}, 2, "unknown option '--bogus'" + seeHelp},
            {{"-z"}, 2, "unknown option '-z'" + seeHelp},
            {{"--root"}, 2, "--root needs a folder" + seeHelp},
            {QStringList{"--root", ""} + program.command, 2, "--root needs a folder" + seeHelp},
            {QStringList{"--root", file} + program.command, 1,
             QString("the device root %1 is not a folder\n").arg(file)},
        };
        for (const auto& wrong : cases) {
            const ProgramRun refused = run(program.path, wrong.arguments);
            EXPECT_EQ(refused.status, wrong.status) << wrong.arguments.join(' ').toStdString();
            EXPECT_EQ(refused.err, (program.name + ": " + wrong.err).toStdString());
            EXPECT_TRUE(refused.out.empty());
        }

        const ProgramRun help = run(program.path, {"--help"});
        EXPECT_EQ(help.status, 0);
        for (const char* option : {"--root <folder>", "--help", "--version", "$POMWICK_ROOT"})
            EXPECT_NE(help.out.find(option), std::string::npos) << option;
        EXPECT_EQ(run(program.path, {"--version"}).out,
                  program.name.toStdString() + " " POMWICK_VERSION "\n");
    }
}
