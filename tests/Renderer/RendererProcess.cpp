#include "RendererProcess.h"

#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PrivateSessionBus.h"

#include <QTest>

namespace pomwick::test {

RendererProcess::RendererProcess(const QStringList& extraArguments) {
    PrivateSessionBus::address();
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(RENDERER, QStringList{"--root", QString::fromStdString(DeviceRoot::current())} +
                                 extraArguments);
}

RendererProcess::~RendererProcess() {
    if (process_.state() == QProcess::NotRunning)
        return;
    process_.terminate();
    if (!process_.waitForFinished(5000))
        process_.kill();
}

bool RendererProcess::waitUntilServing() {
    const MessagingCenter& center = MessagingCenter::centerNamed(CenterName::renderer);
    const bool settled = QTest::qWaitFor(
        [&] { return process_.state() == QProcess::NotRunning || center.doesServerExist(); },
        10000);
    return settled && process_.state() != QProcess::NotRunning;
}

} // namespace pomwick::test
