#pragma once

#include <QProcess>
#include <QStringList>

namespace pomwick::test {

// The real pomwick-renderer, started on this test process's private bus for the current device
// root, and stopped with SIGTERM at the end.
class RendererProcess {
public:
    explicit RendererProcess(const QStringList& extraArguments = {});
    ~RendererProcess();

    // Waits until it serves its center.
    bool waitUntilServing();
    QProcess& process() { return process_; }

private:
    QProcess process_;
};

} // namespace pomwick::test
