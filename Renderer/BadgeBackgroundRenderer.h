#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>

namespace pomwick {

// The badge background as the saved settings make it: the stock silhouette filled and bordered,
// as wide as the preview's text needs at the preview's 24-point height: round for a short text,
// a pill (the round ends kept, the middle stretched) for a longer one.
QImage drawBadgeBackground(const QImage& silhouette);

// Draws the badge background from the saved settings, leaves it in the device's /tmp/ and tells
// the settings screen. Requests are coalesced: however many arrive together, one render runs once
// they have all been read, and it reads the settings as they are then, so it is never stale.
class BadgeBackgroundRenderer : public QObject {
public:
    BadgeBackgroundRenderer();

    void requestRender();

private:
    void render();

    QTimer pending_;
    QImage silhouette_;
};

} // namespace pomwick
