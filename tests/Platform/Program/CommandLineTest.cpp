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
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    static const QTemporaryDir runtime; // else Qt warns on stderr
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime.path());
    return pomwick::test::runProgram(program, arguments, environment);
}

struct Program {
    QString name;
    QString path;
    QStringList command; // what follows the options for the program to do anything
};

const Program programs[] = {
    {QStringLiteral("pomwick-settings"), QStringLiteral(HOST), {}},
    {QStringLiteral("pomwick-renderer"), QStringLiteral(RENDERER), {}},
    {QStringLiteral("pomwick-defaults"), QStringLiteral(DEFAULTS_TOOL), {QStringLiteral("read")}},
};

} // namespace

TEST(CommandLine, EveryProgramReportsTheSameMistakesInTheSameWords) {
    pomwick::test::TemporaryDeviceRoot root;
    const QString file = QString::fromStdString((root.path() / "a-file").string());
    root.writeFile("/a-file", "not a folder");
    for (const Program& program : programs) {
        SCOPED_TRACE(program.name.toStdString());
        const QString seeHelp = QStringLiteral(" (see '%1 --help')\n").arg(program.name);
        const struct {
            QStringList arguments;
            int status;
            QString err;
        } cases[] = {
            {{QStringLiteral("--bogus")}, 2, QStringLiteral("unknown option '--bogus'") + seeHelp},
            {{QStringLiteral("-z")}, 2, QStringLiteral("unknown option '-z'") + seeHelp},
            {{QStringLiteral("--root")}, 2, QStringLiteral("--root needs a folder") + seeHelp},
            {QStringList{QStringLiteral("--root"), QString()} + program.command, 2,
             QStringLiteral("--root needs a folder") + seeHelp},
            {QStringList{QStringLiteral("--root"), file} + program.command, 1,
             QStringLiteral("the device root %1 is not a folder\n").arg(file)},
        };
        for (const auto& wrong : cases) {
            const ProgramRun refused = run(program.path, wrong.arguments);
            EXPECT_EQ(refused.status, wrong.status) << wrong.arguments.join(' ').toStdString();
            EXPECT_EQ(refused.err, (program.name + QStringLiteral(": ") + wrong.err).toStdString());
            EXPECT_TRUE(refused.out.empty());
        }

        const ProgramRun help = run(program.path, {QStringLiteral("--help")});
        EXPECT_EQ(help.status, 0);
        for (const char* option : {"--root <folder>", "--help", "--version", "$POMWICK_ROOT"})
            EXPECT_NE(help.out.find(option), std::string::npos) << option;
        const ProgramRun version = run(program.path, {QStringLiteral("--version")});
        EXPECT_EQ(version.out, program.name.toStdString() + " " POMWICK_VERSION "\n");
    }
}
