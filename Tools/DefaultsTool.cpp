// pomwick-defaults: the settings from a terminal.
#include "ProgramOptions.h"
#include "ToolCommand.h"

#include <QGuiApplication>
#include <clocale>
#include <memory>
#include <string>
#include <vector>

using namespace pomwick;

namespace {

std::vector<ToolCommand> commands() {
    std::vector<ToolCommand> all = settingsCommands();
    for (ToolCommand& command : styleCommands())
        all.push_back(std::move(command));
    all.push_back(previewCommand());
    return all;
}

QString commandList() {
    QString list =
        QCoreApplication::translate("main", "The settings of Pomwick from a terminal.\n\n"
                                            "Commands:\n");
    for (const ToolCommand& command : commands()) {
        const QString call = QString::fromStdString(command.name + " " + command.arguments);
        list += QStringLiteral("  %1  %2\n")
                    .arg(call, -24)
                    .arg(QString::fromStdString(command.summary));
    }
    return list;
}

// The preview draws text, which needs a GUI application (offscreen: nothing is ever shown); the
// other commands stay a plain terminal program that needs no display session.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--root") == 0)
            ++i;
        else if (argv[i][0] != '-') {
            if (qstrcmp(argv[i], "preview") != 0)
                break;
            if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            return std::make_unique<QGuiApplication>(argc, argv);
        }
    }
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    const auto application = makeApplication(argc, argv);
    std::setlocale(LC_NUMERIC, "C");

    ProgramOptions options(QStringLiteral("pomwick-defaults"), commandList());
    options.parser().addPositionalArgument(QStringLiteral("command"),
                                           QCoreApplication::translate("main", "what to do"),
                                           QStringLiteral("COMMAND [ARGUMENTS]"));
    if (const auto status = options.parse(QCoreApplication::arguments()))
        return *status;
    QStringList arguments = options.parser().positionalArguments();
    if (arguments.isEmpty())
        return options.usageError(QCoreApplication::translate("main", "missing command"));

    const QString name = arguments.takeFirst();
    for (const ToolCommand& command : commands()) {
        if (QString::fromStdString(command.name) != name)
            continue;
        if (size_t(arguments.size()) < command.minimumArguments)
            return options.usageError(QCoreApplication::translate("main", "'%1' needs %2")
                                          .arg(name, QString::fromStdString(command.arguments)));
        if (size_t(arguments.size()) > command.maximumArguments)
            return options.usageError(
                QCoreApplication::translate("main", "too many arguments for '%1'").arg(name));
        std::vector<std::string> values;
        for (const QString& argument : std::as_const(arguments))
            values.push_back(argument.toStdString());
        if (const auto status = options.selectDeviceRoot())
            return *status;
        return command.run(values);
    }
    return options.usageError(
        QCoreApplication::translate("main", "unknown command '%1'").arg(name));
}
