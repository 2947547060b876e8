// The "Contact Us" row end to end: the composer, the message a recording sendmail receives (read
// back with Python's email package), and the notice that reports the result.
#include "Animations.h"
#include "FeedbackMailComposer.h"
#include "PreviewFiles.h"
#include "ScreenFixture.h"
#include "ZRProgressHUD.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

namespace pomwick::test {
namespace {

using namespace std::chrono_literals;

// A sendmail placed first on PATH: it records its arguments and the message, then does as told.
class MailFixture : public ScreenFixture {
protected:
    // The notices are caught while they fade.
    Animations::ScaleOverride realLengths_{1};
    void SetUp() override {
        ScreenFixture::SetUp();
        savedPath_ = qgetenv("PATH");
        savedDataHome_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", dir_.filePath("data").toLocal8Bit());
        open();
    }
    void TearDown() override {
        qputenv("PATH", savedPath_);
        qputenv("XDG_DATA_HOME", savedDataHome_);
        ScreenFixture::TearDown();
    }

    void installSendmail(const QString& behaviour) {
        QDir().mkpath(dir_.filePath("bin"));
        QFile script(dir_.filePath("bin/sendmail"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(QString("#!/bin/sh\nprintf '%s\\n' \"$@\" > '%1/args'\n"
                             "cat > '%1/message.eml'\n%2\n")
                         .arg(dir_.path(), behaviour)
                         .toUtf8());
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", (dir_.filePath("bin") + ":/usr/bin:/bin").toLocal8Bit());
    }

    FeedbackMailComposer* openComposer() {
        screen->didSelectRowAtIndexPath(screen->table(), {3, 0});
        const auto open = screen->view()->findChildren<FeedbackMailComposer*>();
        return open.isEmpty() ? nullptr : open.last();
    }

    ZRProgressHUD* notice() const { return ZRProgressHUD::HUDForView(screen->view()); }

    // Waits for the composer's result notice and checks its label and image.
    void expectNotice(const QString& label, const char* imageFile) {
        QTRY_VERIFY_WITH_TIMEOUT(notice() != nullptr, 10000);
        ZRProgressHUD* hud = notice();
        EXPECT_EQ(hud->labelText(), label);
        if (imageFile == nullptr) {
            EXPECT_EQ(hud->mode(), ZRProgressHUDModeSpinner);
            EXPECT_TRUE(hud->pendingDelayedHides().empty());
            EXPECT_NE(hud->runningAnimation(), nullptr); // hiding at once
            return;
        }
        EXPECT_EQ(hud->mode(), ZRProgressHUDModeCustomView);
        auto* image = qobject_cast<QLabel*>(hud->customView());
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->size(), QSize(50, 50));
        EXPECT_EQ(image->pixmap().toImage(),
                  loadBundleImage(imageFile).convertToFormat(image->pixmap().toImage().format()));
        ASSERT_EQ(hud->pendingDelayedHides().size(), 1u);
        EXPECT_EQ(hud->pendingDelayedHides()[0]->interval(), 2000);
    }

    QJsonObject readMessage() const {
        QProcess python;
        python.start("python3", {QString(READ_MAIL), dir_.filePath("message.eml")});
        EXPECT_TRUE(python.waitForFinished(30000));
        EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
        return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
    }

    QTemporaryDir dir_;
    QByteArray savedPath_;
    QByteArray savedDataHome_;
};

TEST_F(MailFixture, SendsTheFeedbackThroughSendmailIntactAndSaysSo) {
    installSendmail("exit 0");
    FeedbackMailComposer* composer = openComposer();
    ASSERT_NE(composer, nullptr);
    // Emoji and right-to-left text must survive the trip in a 7-bit message.
    const QString added = " 🎉 شكرا לכם";
    const QString typed = "مرحبا 👋🏽 — שלום\nZweite Zeile: äöü";
    QLineEdit* subject = composer->findChildren<QLineEdit*>()[1];
    subject->end(false);
    subject->insert(added);
    auto* body = composer->findChild<QPlainTextEdit*>();
    body->moveCursor(QTextCursor::End);
    QTest::keyClick(body, Qt::Key_Return);
    body->insertPlainText(typed);
    QTest::mouseClick(composer->sendButton(), Qt::LeftButton);
    expectNotice("Message Sent!", "HUD_completed.png");

    QFile arguments(dir_.filePath("args"));
    ASSERT_TRUE(arguments.open(QIODevice::ReadOnly));
    EXPECT_EQ(arguments.readAll(), "-t\n-oi\n");
    const QJsonObject message = readMessage();
    EXPECT_EQ(message["subject"].toString(), "My Feedback - Pomwick" + added);
    EXPECT_EQ(message["body"].toString().toStdString(),
              ("Sent from Pomwick Tweak\n" + typed).toStdString());
    EXPECT_EQ(message["to"].toArray(), QJsonArray{"feedback@velquor.com"});
    EXPECT_EQ(message["from"].toArray().size(), 1);
    EXPECT_TRUE(message["date_has_zone"].toBool());
    EXPECT_TRUE(message["message_id"].toBool());
    EXPECT_EQ(message["content_type"].toString(), "text/plain");
    EXPECT_EQ(message["charset"].toString(), "utf-8");
    EXPECT_TRUE(message["seven_bit"].toBool());
    // The composer slides away under the notice.
    QTRY_VERIFY_WITH_TIMEOUT(screen->view()->findChild<FeedbackMailComposer*>() == nullptr, 10000);
}

// A transport that refuses, fails for now, or never answers: the user sees only the error.
class MailFailures : public MailFixture, public testing::WithParamInterface<const char*> {};

TEST_P(MailFailures, ShowTheErrorNotice) {
    installSendmail(GetParam());
    FeedbackMailComposer* composer = openComposer();
    composer->setSendTimeout(300ms);
    composer->send();
    EXPECT_EQ(composer->statusText(), "Sending…");
    expectNotice("An Error Occurred!", "HUD_error.png");
}

INSTANTIATE_TEST_SUITE_P(Sendmail, MailFailures, testing::Values("exit 1", "exec sleep 60"));

TEST_F(MailFixture, WithoutAMailTransportSaysOopsAndOpensNothing) {
    if (QFile::exists("/usr/sbin/sendmail") || QFile::exists("/usr/lib/sendmail"))
        GTEST_SKIP() << "this machine has a mail transport installed";
    qputenv("PATH", dir_.filePath("empty").toLocal8Bit());
    EXPECT_EQ(openComposer(), nullptr);
    expectAlert("Oops!", "Your device cannot send emails!");
}

TEST_F(MailFixture, CancelDeletesOrSavesTheDraft) {
    installSendmail("exit 0");
    FeedbackMailComposer* composer = openComposer();
    QTest::mouseClick(composer->cancelButton(), Qt::LeftButton);
    ASSERT_NE(composer->draftMenu(), nullptr);
    QStringList choices;
    for (QAction* action : composer->draftMenu()->actions())
        choices << action->text();
    EXPECT_EQ(choices, (QStringList{"Delete Draft", "Save Draft"}));
    composer->draftMenu()->actions()[0]->trigger();
    expectNotice("", nullptr);
    EXPECT_FALSE(QFile::exists(dir_.filePath("message.eml")));

    ZRProgressHUD::hideAllHUDsForView(screen->view(), false);
    composer = openComposer();
    composer->saveDraft();
    expectNotice("Message Saved!", "HUD_completed.png");
    const QStringList drafts = QDir(FeedbackMailComposer::draftsFolder()).entryList({"*.eml"});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_TRUE(composer->statusText().endsWith(drafts[0])) << composer->statusText().toStdString();
    QFile::copy(QDir(FeedbackMailComposer::draftsFolder()).filePath(drafts[0]),
                dir_.filePath("message.eml"));
    EXPECT_EQ(readMessage()["subject"].toString(), "My Feedback - Pomwick");
}

TEST_F(MailFixture, ADraftThatCannotBeWrittenIsAnError) {
    installSendmail("exit 0");
    QFile blocker(dir_.filePath("data/pomwick"));
    QDir().mkpath(dir_.filePath("data"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // a file where the folder would go
    blocker.close();
    openComposer()->saveDraft();
    expectNotice("An Error Occurred!", "HUD_error.png");
}

} // namespace
} // namespace pomwick::test
