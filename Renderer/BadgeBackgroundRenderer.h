#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>

namespace pomwick {

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
