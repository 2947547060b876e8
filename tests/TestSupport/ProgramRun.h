#pragma once

#include <QProcessEnvironment>
#include <QStringList>
#include <string>

namespace pomwick::test {

// How a program run to its end ended (its exit code; -1 for a crash or a hang) and what it
// printed.
struct ProgramRun {
    int status;
    std::string out;
    std::string err;
};

// Test processes draw offscreen (the test main sees to it), and so do the programs they start.
ProgramRun
runProgram(const QString& program, const QStringList& arguments,
           const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

} // namespace pomwick::test
