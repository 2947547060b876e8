#include "SettingsHistory.h"

#include "DevicePaths.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoCommand>

namespace pomwick {
namespace {

// Long enough to take a burst of writes (an import, a script) as one change, short enough that
// the page follows another writer at once.
constexpr int settleMilliseconds = 40;

} // namespace

// One step: the file's bytes before and after it. It is pushed once it has happened, so only a
// later redo writes.
class SettingsStep : public QUndoCommand {
public:
    SettingsStep(SettingsHistory* history, SettingsFileContent before, SettingsFileContent after,
                 const QString& description)
        : QUndoCommand(description), history_(history), before_(std::move(before)),
          after_(std::move(after)) {}

    void undo() override { history_->replaceSettings(before_); }
    void redo() override {
        if (std::exchange(pushed_, false))
            return;
        history_->replaceSettings(after_);
    }

private:
    SettingsHistory* history_;
    SettingsFileContent before_;
    SettingsFileContent after_;
    bool pushed_ = true;
};

SettingsHistory::SettingsHistory(QObject* parent)
    : QObject(parent),
      file_(QString::fromStdString(hostPath(DevicePath::preferencesFile).string())),
      folder_(QFileInfo(file_).path()), baseline_(readSettingsFileContent()) {
    stack_.setUndoLimit(100);
    settle_.setSingleShot(true);
    settle_.setInterval(settleMilliseconds);
    connect(&settle_, &QTimer::timeout, this, &SettingsHistory::lookForOtherWriters);
    // Not restarted by every event, so that a steady stream of writes still shows now and then.
    const auto changed = [this] {
        if (!settle_.isActive())
            settle_.start();
    };
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, changed);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, changed);
    // Made now if missing, as the first write would: its first file is then seen arriving.
    QDir().mkpath(folder_);
    watchSettings();
}

// The folder tells of a file renamed into place (every writer's way); the file itself of a write
// into it. A file replaced by a rename is a new file, watched anew.
void SettingsHistory::watchSettings() {
    if (watcher_.directories().isEmpty() && QFileInfo(folder_).isDir())
        watcher_.addPath(folder_);
    if (watcher_.files().isEmpty() && QFileInfo::exists(file_))
        watcher_.addPath(file_);
}

bool SettingsHistory::pushStep(SettingsFileContent now, const QString& description) {
    if (now == baseline_)
        return false;
    stack_.push(new SettingsStep(this, baseline_, now, description));
    baseline_ = std::move(now);
    return true;
}

void SettingsHistory::endGesture(const QString& description) {
    pushStep(readSettingsFileContent(), description);
}

void SettingsHistory::lookForOtherWriters() {
    watchSettings();
    SettingsFileContent now = readSettingsFileContent();
    // The page's own write, part of a gesture that has not ended yet.
    if (const auto own = settingsWrittenByThisProcess(); own && *own == now)
        return;
    if (pushStep(std::move(now), tr("Change by another program")))
        emit settingsReplaced();
}

void SettingsHistory::replaceSettings(const SettingsFileContent& content) {
    tryRestoreSettingsFileContent(content);
    // What is there now, should the write have failed.
    baseline_ = readSettingsFileContent();
    emit settingsReplaced();
}

} // namespace pomwick
