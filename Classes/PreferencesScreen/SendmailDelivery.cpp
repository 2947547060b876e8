#include "SendmailDelivery.h"

#include <QStandardPaths>

namespace pomwick {

std::optional<QString> SendmailDelivery::program() {
    QString found = QStandardPaths::findExecutable("sendmail");
    if (found.isEmpty())
        found = QStandardPaths::findExecutable("sendmail", {"/usr/sbin", "/usr/lib"});
    if (found.isEmpty())
        return std::nullopt;
    return found;
}

SendmailDelivery::SendmailDelivery(QObject* parent) : QObject(parent) {
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] {
        finish(tr("sendmail did not finish in time"));
        process_.kill();
    });
    connect(&process_, &QProcess::finished, this,
            [this](int exitCode, QProcess::ExitStatus status) {
                if (status != QProcess::NormalExit)
                    finish(tr("sendmail stopped: %1").arg(process_.errorString()));
                else if (exitCode != 0)
                    finish(tr("sendmail exited with status %1").arg(exitCode));
                else
                    finish({});
            });
    connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            finish(tr("sendmail could not start: %1").arg(process_.errorString()));
    });
}

SendmailDelivery::~SendmailDelivery() {
    // A transport still running when its composer goes is stopped, and reports nothing.
    process_.disconnect(this);
    if (process_.state() != QProcess::NotRunning) {
        process_.kill();
        process_.waitForFinished(1000);
    }
}

void SendmailDelivery::send(const QByteArray& message) {
    const auto sendmail = program();
    if (!sendmail) {
        finish(tr("no sendmail program is installed"));
        return;
    }
    process_.setProgram(*sendmail);
    process_.setArguments({"-t", "-oi"});
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.setStandardOutputFile(QProcess::nullDevice());
    deadline_.start(timeout_);
    process_.start();
    if (process_.state() == QProcess::NotRunning)
        return; // errorOccurred has already reported it.
    process_.write(message);
    process_.closeWriteChannel();
}

void SendmailDelivery::finish(const QString& error) {
    if (finished_)
        return;
    finished_ = true;
    deadline_.stop();
    emit finished(error);
}

} // namespace pomwick
