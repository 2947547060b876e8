#pragma once

#include <QWidget>

class QPainter;

namespace pomwick {

// A view the notice shows above its labels. It draws itself through paint(), which the notice's
// overlay calls too, to draw it inside the panel at the panel's opacity and zoom; `changed` tells
// the overlay when to draw it again.
class NoticeIndicator : public QWidget {
    Q_OBJECT
public:
    // Draws the view in its own bounds; the caller saves the painter's state around it.
    virtual void paint(QPainter& painter) const = 0;
    // Whether an overlay shows it on screen (the overlay keeps the widget itself hidden).
    void setPresented(bool presented);
    bool isPresented() const { return presented_; }

signals:
    void changed();

protected:
    NoticeIndicator(QSize size, const QString& accessibleName, QWidget* parent);
    // Asks for the view to be drawn again, wherever it is shown.
    void refresh();
    virtual void presentedChanged() {}
    void paintEvent(QPaintEvent* event) override;

private:
    bool presented_ = false;
};

// What the round and the bar progress views share: the progress, which reports itself to
// assistive technology, and properties that repaint the view when they change.
class ProgressIndicatorView : public NoticeIndicator {
    Q_OBJECT
    Q_PROPERTY(float progress READ progress WRITE setProgress NOTIFY progressChanged)
public:
    float progress() const { return progress_; }
    void setProgress(float progress);

signals:
    void progressChanged();

protected:
    ProgressIndicatorView(QSize size, QWidget* parent);
    template <class Value> void assign(Value& field, const Value& value) {
        field = value;
        refresh();
    }

private:
    float progress_ = 0;
};

} // namespace pomwick
