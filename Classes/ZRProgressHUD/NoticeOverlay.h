#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace pomwick {

class ZRProgressHUD;

// What a notice shows over its host view: the optional dimming, and the panel with its indicator
// and labels, drawn in one pass at the notice's alpha, zoomed about the panel's center and turned
// with the window. It covers the host; its parts are only drawn, never child widgets on screen,
// so a fade or zoom redraws just the panel.
class NoticeOverlay : public QWidget {
    Q_OBJECT
public:
    // Where the last layout put the panel and its parts, in the notice's own bounds (turned with
    // the window when it is in landscape).
    struct Frames {
        QSizeF bounds;
        QRectF panel;
        QRectF indicator;
        QRectF label;
        QRectF details;
    };

    // Draws what the notice holds; the notice owns the overlay.
    explicit NoticeOverlay(ZRProgressHUD& hud);

    const Frames& frames() const { return frames_; }
    void setFrames(const Frames& frames);
    // The view drawn as the indicator, kept hidden as a widget; null for none.
    void setIndicator(QWidget* indicator);
    // Follows the notice's alpha, zoom and turn: shown while the notice is visible and on a host.
    void presentationChanged();
    // Draws the panel's content again: a part of it or its layout changed.
    void contentChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    // Redraws where the panel was and where it now is, or everything when the host is dimmed.
    void refresh();
    QTransform panelTransform() const;
    void paintDimming(QPainter& painter);
    void paintPanel(QPainter& painter) const;
    void paintPanelImage(QPainter& painter);
    void presentIndicator();

    ZRProgressHUD& hud_;
    Frames frames_;
    QPointer<QWidget> indicator_;
    QRect lastPanelArea_;
    QPixmap dimming_;
    // The panel drawn once while it zooms or turns, so that its text is not laid out anew at
    // every scale; null when its content changed since.
    QPixmap panelImage_;
};

} // namespace pomwick
