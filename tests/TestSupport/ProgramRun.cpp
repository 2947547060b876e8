#include "ProgramRun.h"

#include <QProcess>

namespace pomwick::test {

ProgramRun runProgram(const QString& program, const QStringList& arguments,
                      const QProcessEnvironment& environment) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    const bool ended =
        process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

} // namespace pomwick::test
