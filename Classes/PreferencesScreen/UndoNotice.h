#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

namespace pomwick {

// A short-lived note at the foot of the page that tells what just happened and offers to take it
// back: a dark rounded panel, its text and a tinted "Undo" button, gone after a few seconds, when
// the button is pressed or when the page changes again.
class UndoNotice : public QWidget {
    Q_OBJECT
public:
    explicit UndoNotice(QWidget* page);

    void showMessage(const QString& message);

signals:
    void undoRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    friend struct UndoNoticeTestAccess;
    void placeAtFoot();

    QLabel* message_;
    QPushButton* undoButton_;
    QTimer expiry_;
};

} // namespace pomwick
