#pragma once

#include "Settings.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUndoStack>

namespace pomwick {

// The page's undo history of the settings file, and its eye on other writers. A step is what the
// file became between two of the user's gestures (a switch, a slider's release, the font sheet
// from open to close...), kept as the file's exact bytes before and after, so that undo puts back
// keys this version does not know too. A change by another writer (the command-line tool, an
// import) is noticed within a few dozen milliseconds, becomes a step of its own and is announced;
// the page's own writes are not.
class SettingsHistory : public QObject {
    Q_OBJECT
public:
    explicit SettingsHistory(QObject* parent = nullptr);

    QUndoStack* stack() { return &stack_; }
    // Ends the user's gesture: whatever the file became since the last step is one step.
    void endGesture(const QString& description);

signals:
    // The file now holds what the page did not write: an undo, a redo or another writer put it
    // there. The page shows it again.
    void settingsReplaced();

private:
    friend class SettingsStep;
    void watchSettings();
    void lookForOtherWriters();
    // Makes what the file became since the last step a step of its own; false when it is the same.
    bool pushStep(SettingsFileContent now, const QString& description);
    void replaceSettings(const SettingsFileContent& content);

    const QString file_;
    const QString folder_;
    QUndoStack stack_;
    QFileSystemWatcher watcher_;
    // A burst of changes is looked at once.
    QTimer settle_;
    // The file as the last step left it.
    SettingsFileContent baseline_;
};

} // namespace pomwick
