#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace pomwick {

class DQFontPicker;

// The font sheet: the font picker under a Done bar, sliding up from the bottom edge of the page
// over a clear tap catcher. Done, a tap above it and Escape close it. Every turn of a wheel is
// stored at once.
class FontPickerSheet : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    // Opens a new sheet over the page's view, replacing one still up; the keyboard goes back to
    // `focusReturn` when it closes.
    void show(QWidget* page, QWidget* focusReturn);
    void hide();
    // Follows the page's new size while the sheet is up.
    void layOut(const QRectF& pageBounds);

    DQFontPicker* fontPicker() const;
    QWidget* doneToolbar() const { return doneToolbar_; }
    QWidget* fontContainerView() const { return fontContainerView_; }
    QWidget* dimmingView() const { return dimmingView_; }

signals:
    // The sheet starts to leave: the wheels' changes are done.
    void closing();

private:
    QPointer<DQFontPicker> fontPicker_;
    QPointer<QWidget> doneToolbar_;
    QPointer<QWidget> fontContainerView_;
    QPointer<QWidget> dimmingView_;
};

} // namespace pomwick
