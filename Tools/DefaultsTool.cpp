// pomwick-defaults: the settings from a terminal.
#include "DevicePaths.h"
#include "ProgramInfo.h"
#include "ToolCommand.h"

#include <iostream>
#include <optional>
#include <string>
#include <vector>

using namespace pomwick;

namespace {

std::vector<ToolCommand> commands() {
    std::vector<ToolCommand> all = settingsCommands();
    all.push_back(previewCommand());
    return all;
}

void printUsage(std::ostream& out) {
    out << "usage: pomwick-defaults [--root DIR] COMMAND [ARGUMENTS]\n"
           "The settings of Pomwick from a terminal.\n\ncommands:\n";
    for (const ToolCommand& command : commands()) {
        const std::string call = command.name + " " + command.arguments;
        out << "  " << call << std::string(call.size() < 18 ? 18 - call.size() : 1, ' ')
            << command.summary << "\n";
    }
    out << "\noptions:\n  --root DIR        the device root\n  --help, --version\n\n"
        << deviceRootHelp();
}

int usageFailure(const std::string& problem) {
    std::cerr << "pomwick-defaults: " << problem << " (see 'pomwick-defaults --help')\n";
    return usageError;
}

} // namespace

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    std::optional<std::string> root;
    while (!arguments.empty() && arguments.front().starts_with("-")) {
        const std::string option = arguments.front();
        arguments.erase(arguments.begin());
        if (option == "--help" || option == "-h") {
            printUsage(std::cout);
            return 0;
        }
        if (option == "--version") {
            std::cout << versionLine("pomwick-defaults");
            return 0;
        }
        if (option != "--root")
            return usageFailure("unknown option '" + option + "'");
        if (arguments.empty() || arguments.front().empty())
            return usageFailure("--root needs a folder");
        root = arguments.front();
        arguments.erase(arguments.begin());
    }
    if (arguments.empty())
        return usageFailure("missing command");

    const std::string name = arguments.front();
    arguments.erase(arguments.begin());
    for (const ToolCommand& command : commands()) {
        if (command.name != name)
            continue;
        if (arguments.size() < command.minimumArguments)
            return usageFailure("'" + name + "' needs " + command.arguments);
        if (arguments.size() > command.maximumArguments)
            return usageFailure("too many arguments for '" + name + "'");
        if (const auto refused = DeviceRoot::select(root)) {
            std::cerr << "pomwick-defaults: " << *refused << "\n";
            return operationFailed;
        }
        return command.run(arguments);
    }
    return usageFailure("unknown command '" + name + "'");
}
