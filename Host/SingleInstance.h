#pragma once

#include <QObject>
#include <QString>
#include <filesystem>

namespace pomwick {

// One settings window per user and device root, as desktop settings apps have: the first window
// owns a session-bus name made from its root; a later start asks it to come forward instead of
// opening a second window that could not show a preview.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.velquor.Pomwick.Settings")
public:
    enum class Outcome {
        first,      // this process owns the name and answers later starts
        forwarded,  // another window has it and came forward: this process should end
        unanswered, // another window has it but did not answer: `problem` says what happened
        noBus       // without a session bus, nothing can be checked
    };

    explicit SingleInstance(const std::filesystem::path& deviceRoot);
    Outcome claim();
    QString problem() const { return problem_; }

public Q_SLOTS:
    Q_SCRIPTABLE void Activate();

Q_SIGNALS:
    void activationRequested();

private:
    QString name_;
    QString problem_;
};

} // namespace pomwick
