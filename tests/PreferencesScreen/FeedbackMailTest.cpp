// The "Contact Us" row end to end: the composer, the message a recording sendmail receives (read
// back with Python's email package), and the notice that reports the result.
#include "../ZRProgressHUD/ZRProgressHUDTestAccess.h"
#include "Animations.h"
#include "FeedbackMailComposerTestAccess.h"
#include "MailDrafts.h"
#include "MailMessage.h"
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
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace pomwick::test {
namespace {

using namespace std::chrono_literals;
using Access = FeedbackMailComposerTestAccess;

// A sendmail placed first on PATH: it records its arguments and the message, then does as told.
class MailFixture : public ScreenFixture {
protected:
    void SetUp() override {
        ScreenFixture::SetUp();
        for (const char* name : {"PATH", "XDG_DATA_HOME", "EMAIL"})
            savedEnvironment_.emplace_back(name, qgetenv(name));
        qputenv("XDG_DATA_HOME", dir_.filePath("data").toLocal8Bit());
        qunsetenv("EMAIL");
        installSendmail("exit 0");
        open();
    }
    void TearDown() override {
        for (const auto& [name, value] : savedEnvironment_)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
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
            EXPECT_TRUE(ZRProgressHUDTestAccess::delayedHides(hud).empty());
            EXPECT_NE(ZRProgressHUDTestAccess::animation(hud), nullptr); // hiding at once
            return;
        }
        EXPECT_EQ(hud->mode(), ZRProgressHUDModeCustomView);
        auto* image = qobject_cast<QLabel*>(hud->customView());
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->size(), QSize(50, 50));
        EXPECT_EQ(image->pixmap().toImage(),
                  loadBundleImage(imageFile).convertToFormat(image->pixmap().toImage().format()));
        ASSERT_EQ(ZRProgressHUDTestAccess::delayedHides(hud).size(), 1u);
        EXPECT_EQ(ZRProgressHUDTestAccess::delayedHides(hud)[0]->interval(), 2000);
    }

    // The message sendmail received, or the given file, as read back.
    QJsonObject readMessage(const QString& file = {}) const {
        QProcess python;
        python.start("python3",
                     {QString(READ_MAIL), file.isEmpty() ? dir_.filePath("message.eml") : file});
        EXPECT_TRUE(python.waitForFinished(30000));
        EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
        return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
    }

    // The drafts saved so far, as read back, oldest name first; every file there counts.
    QList<QJsonObject> drafts() {
        QList<QJsonObject> read;
        const QDir folder(draftsFolder());
        for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
            EXPECT_TRUE(name.endsWith(".eml")) << name.toStdString();
            read << readMessage(folder.filePath(name));
        }
        return read;
    }

    QTemporaryDir dir_;
    std::vector<std::pair<const char*, QByteArray>> savedEnvironment_;
};

mode_t modeOf(const QString& path) {
    struct stat status {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    return status.st_mode & 07777;
}

// Every address typed is sent to, or none: commas and semicolons, groups, display names in any
// script (as encoded words, the domain in IDNA), and From from $EMAIL. Emoji and right-to-left
// text must survive the trip in a 7-bit message.
TEST_F(MailFixture, SendsTheFeedbackToEveryAddressTypedIntactOrRefuses) {
    for (const char* refused : {"", "  ", "feedback", "a@x, garbage", "a@x <b@y>", "Team:;",
                                "üser@example.com", "a@x\nBcc: b@y", "a@", "<@x>"})
        EXPECT_FALSE(isDeliverableRecipientList(QString::fromUtf8(refused))) << refused;
    for (const char* taken : {"a@x;b@y", "Team: a@x, b@y;", "\"Doe; J\" <j@d.com>", "a@x (b@y)"})
        EXPECT_TRUE(isDeliverableRecipientList(QString::fromUtf8(taken))) << taken;

    qputenv("EMAIL", "Dev Tester <dev@example.org>");
    FeedbackMailComposer* composer = openComposer();
    ASSERT_NE(composer, nullptr);
    QLineEdit* to = Access::toField(composer);
    to->clear();
    EXPECT_FALSE(Access::sendButton(composer)->isEnabled());
    EXPECT_TRUE(to->accessibleDescription().isEmpty()); // empty is not wrong, only unsendable
    composer->send();
    EXPECT_FALSE(Access::busyIndicator(composer)->isVisibleTo(composer));
    QTest::keyClicks(to, "a@x, b@y c");
    EXPECT_FALSE(Access::sendButton(composer)->isEnabled());
    EXPECT_FALSE(to->accessibleDescription().isEmpty());
    to->setText(QString::fromUtf8("a@x, b@y; c@z, Ünïcode <user@exämple.com>"));
    EXPECT_TRUE(to->accessibleDescription().isEmpty());

    const QString added = " 🎉 شكرا לכם";
    const QString typed = "مرحبا 👋🏽 — שלום\nZweite Zeile: äöü";
    QLineEdit* subject = Access::subjectField(composer);
    subject->end(false);
    subject->insert(added);
    auto* body = Access::bodyField(composer);
    body->moveCursor(QTextCursor::End);
    QTest::keyClick(body, Qt::Key_Return);
    body->insertPlainText(typed);
    QTest::mouseClick(Access::sendButton(composer), Qt::LeftButton);
    expectNotice("Message Sent!", "HUD_completed.png");

    QFile arguments(dir_.filePath("args"));
    ASSERT_TRUE(arguments.open(QIODevice::ReadOnly));
    EXPECT_EQ(arguments.readAll(), "-t\n-oi\n");
    const QJsonObject message = readMessage();
    EXPECT_EQ(message["subject"].toString(), "My Feedback - Pomwick" + added);
    EXPECT_EQ(message["body"].toString().toStdString(),
              ("Sent from Pomwick Tweak\n" + typed).toStdString());
    EXPECT_EQ(message["to"].toArray(),
              (QJsonArray{"a@x", "b@y", "c@z", "user@xn--exmple-cua.com"}));
    EXPECT_EQ(message["to_names"].toArray().last().toString(), QString::fromUtf8("Ünïcode"));
    EXPECT_EQ(message["from"].toArray(), QJsonArray{"dev@example.org"});
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

TEST_P(MailFailures, ShowTheErrorNoticeAndKeepTheMessageAsADraft) {
    installSendmail(GetParam());
    FeedbackMailComposer* composer = openComposer();
    Access::bodyField(composer)->appendPlainText("Words worth keeping");
    Access::setSendTimeout(composer, 300ms);
    composer->send();
    EXPECT_TRUE(Access::busyIndicator(composer)->isVisibleTo(composer));
    EXPECT_FALSE(Access::sendButton(composer)->isEnabled());
    expectNotice("An Error Occurred!", "HUD_error.png");
    const QList<QJsonObject> kept = drafts();
    ASSERT_EQ(kept.size(), 1);
    EXPECT_THAT(kept[0]["body"].toString().toStdString(),
                testing::StartsWith("Sent from Pomwick Tweak\nWords worth keeping"));
    EXPECT_EQ(kept[0]["to"].toArray(), QJsonArray{"feedback@velquor.com"});
    EXPECT_EQ(kept[0]["from"].toArray(), QJsonArray{}); // without $EMAIL, the transport's to add
}

INSTANTIATE_TEST_SUITE_P(Sendmail, MailFailures, testing::Values("exit 1", "exec sleep 60"));

TEST_F(MailFixture, WithoutAMailTransportSaysOopsAndOpensNothing) {
    if (QFile::exists("/usr/sbin/sendmail") || QFile::exists("/usr/lib/sendmail"))
        GTEST_SKIP() << "this machine has a mail transport installed";
    qputenv("PATH", dir_.filePath("empty").toLocal8Bit());
    EXPECT_EQ(openComposer(), nullptr);
    expectAlert("Oops!", "Your device cannot send emails!");
}

// Cancel offers Save Draft first and Delete Draft; Escape goes back to the message as it was.
// Drafts are private whatever the umask, and a second one in the same second is a second file.
TEST_F(MailFixture, CancelSavesOrDeletesTheDraftOrGoesBack) {
    FeedbackMailComposer* composer = openComposer();
    auto* body = Access::bodyField(composer);
    QTest::mouseClick(Access::cancelButton(composer), Qt::LeftButton);
    ASSERT_NE(Access::draftMenu(composer), nullptr);
    const QList<QAction*> choices = Access::draftMenu(composer)->actions();
    ASSERT_EQ(choices.size(), 2);
    EXPECT_EQ(choices[0]->text() + "|" + choices[1]->text(), "Save Draft|Delete Draft");
    QTest::keyClick(Access::draftMenu(composer), Qt::Key_Escape);
    QTRY_VERIFY_WITH_TIMEOUT(Access::draftMenu(composer) == nullptr, 5000);
    QCoreApplication::processEvents();
    EXPECT_EQ(notice(), nullptr);
    EXPECT_EQ(screen->view()->findChild<FeedbackMailComposer*>(), composer);
    EXPECT_EQ(body->toPlainText(), "Sent from Pomwick Tweak");

    QTest::mouseClick(Access::cancelButton(composer), Qt::LeftButton);
    ASSERT_NE(Access::draftMenu(composer), nullptr);
    const Animations::ScaleOverride realLengths(1); // its notice is caught while it fades
    Access::draftMenu(composer)->actions()[1]->trigger();
    expectNotice("", nullptr);
    EXPECT_FALSE(QFile::exists(dir_.filePath("message.eml")));

    const mode_t umask = ::umask(0);
    for (int saved = 0; saved < 2; ++saved) {
        ZRProgressHUD::hideAllHUDsForView(screen->view(), false);
        composer = openComposer();
        QTest::mouseClick(Access::cancelButton(composer), Qt::LeftButton);
        Access::draftMenu(composer)->actions()[0]->trigger();
        expectNotice("Message Saved!", "HUD_completed.png");
    }
    ::umask(umask);
    EXPECT_EQ(modeOf(draftsFolder()), 0700u);
    const QStringList names = QDir(draftsFolder()).entryList(QDir::Files);
    ASSERT_EQ(names.size(), 2);
    EXPECT_TRUE(names.contains(Access::statusLabel(composer)->text().section('/', -1)))
        << Access::statusLabel(composer)->text().toStdString();
    for (const QString& name : names)
        EXPECT_EQ(modeOf(QDir(draftsFolder()).filePath(name)), 0600u);
    for (const QJsonObject& draft : drafts())
        EXPECT_EQ(draft["subject"].toString(), "My Feedback - Pomwick");
}

// A draft that cannot be written whole is an error, and leaves nothing behind: a file where the
// folder would go, and a disk that fills up mid-write (a file size limit stands in for it).
TEST_F(MailFixture, ADraftThatCannotBeWrittenIsAnErrorAndLeavesNoFile) {
    const auto previous = std::signal(SIGXFSZ, SIG_IGN); // a write past the limit then fails
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small{64, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    openComposer()->saveDraft();
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, previous);
    expectNotice("An Error Occurred!", "HUD_error.png");
    EXPECT_EQ(QDir(draftsFolder()).entryList(QDir::Files | QDir::Hidden), QStringList{});

    ZRProgressHUD::hideAllHUDsForView(screen->view(), false);
    QDir(dir_.filePath("data/pomwick")).removeRecursively();
    QFile blocker(dir_.filePath("data/pomwick"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly)); // a file where the folder would go
    blocker.close();
    openComposer()->saveDraft();
    expectNotice("An Error Occurred!", "HUD_error.png");
}

} // namespace
} // namespace pomwick::test
