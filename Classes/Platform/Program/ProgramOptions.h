#pragma once

#include <string>
#include <string_view>

namespace pomwick {

// What every program prints for --version: "NAME VERSION".
std::string versionLine(std::string_view program);

// The closing paragraph of every program's --help: where its device root comes from.
std::string deviceRootHelp();

} // namespace pomwick
