#pragma once

#include "PomwickPlatformExport.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <optional>

namespace pomwick {

// The command line of each of our programs, on QCommandLineParser: --root, --help and
// --version for all, the program's own options besides, and one wording and status for every
// wrong command line: "PROGRAM: PROBLEM (see 'PROGRAM --help')" on stderr and exit 2.
class POMWICK_PLATFORM_EXPORT ProgramOptions {
    Q_DECLARE_TR_FUNCTIONS(ProgramOptions)
public:
    ProgramOptions(const QString& program, const QString& description);

    // The program's own options, besides the shared ones.
    void addOptions(const QList<QCommandLineOption>& options);
    // For the values and positional arguments.
    QCommandLineParser& parser() { return parser_; }

    // Parses the arguments, the program's name first. The exit status when the program ends
    // here: 0 after printing --help or --version, 2 after reporting a wrong command line.
    std::optional<int> parse(const QStringList& arguments);

    // Chooses the device root from --root, $POMWICK_ROOT or the per-user default. The exit status
    // (1) after reporting why, when that root must not be used.
    std::optional<int> selectDeviceRoot() const;

    // Reports a wrong command line and gives its status (2).
    int usageError(const QString& problem) const;
    // Reports a failed operation and gives its status (1).
    int failure(const QString& problem) const;

    static constexpr int operationFailed = 1;
    static constexpr int wrongCommandLine = 2;

private:
    QString helpText() const;

    QString program_;
    QCommandLineParser parser_;
    QCommandLineOption root_;
    QCommandLineOption help_;
    QCommandLineOption version_;
    QList<QCommandLineOption> valueOptions_; // those that take a value
};

} // namespace pomwick
