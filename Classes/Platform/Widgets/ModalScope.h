#pragma once

#include "PomwickPlatformExport.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace pomwick {

// Makes a sheet shown inside a window modal there: Tab and Shift+Tab cycle through the sheet's
// controls only, the rest of the window takes no keys, clicks or shortcuts (but for the widgets
// let through, such as a sheet's clear tap catcher), and the focus goes back to the control that
// had it, once the sheet ends, hides or goes away. One scope per sheet; it deletes itself.
class POMWICK_PLATFORM_EXPORT ModalScope : public QObject {
    Q_OBJECT
public:
    // fallback takes the focus back when nothing in the window had it at the start.
    explicit ModalScope(QWidget* sheet, std::vector<QPointer<QWidget>> letThrough = {},
                        QWidget* fallback = nullptr);
    ~ModalScope() override;

    // Ends the modality now, as a sheet that starts to leave does.
    void end();
    // Whether a sheet is modal in the widget's window.
    static bool isActiveIn(const QWidget* widget);
    // Ends the scope of the sheet, if it has one.
    static void endFor(const QWidget* sheet);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isInside(const QWidget* widget) const;
    bool isLetThrough(const QWidget* widget) const;
    void moveFocus(bool forward);
    void keepFocusInside(QWidget* now);

    QPointer<QWidget> sheet_;
    QPointer<QWidget> window_;
    QPointer<QWidget> opener_;
    std::vector<QPointer<QWidget>> letThrough_;
    bool ended_ = false;
};

} // namespace pomwick
