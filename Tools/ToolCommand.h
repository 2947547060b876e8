#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pomwick {

// One command of pomwick-defaults. `run` gets the arguments after the command's name (already
// checked against the counts) and returns the exit status; it reports its own failures on stderr.
struct ToolCommand {
    std::string name;
    std::string arguments; // for the usage text
    std::string summary;
    size_t minimumArguments;
    size_t maximumArguments;
    std::function<int(const std::vector<std::string>&)> run;
};

// Failure statuses: the operation failed (1), or the command line was wrong (2).
inline constexpr int operationFailed = 1;
inline constexpr int usageError = 2;

std::vector<ToolCommand> settingsCommands();
std::vector<ToolCommand> styleCommands();
ToolCommand previewCommand();

} // namespace pomwick
