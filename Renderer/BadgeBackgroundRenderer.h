#pragma once

#include "Color.h"
#include "Font.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <QTimer>
#include <optional>
#include <string>

namespace pomwick {

class SettingsSnapshot;

// The settings the badge background is drawn from.
struct BackgroundSettings {
    Color fill;
    Color border;
    float borderWidth = 1;
    QString text;
    std::optional<Font> font;

    explicit BackgroundSettings(const SettingsSnapshot& settings);
    friend bool operator==(const BackgroundSettings&, const BackgroundSettings&) = default;
};

// The badge background as the saved settings make it: the stock silhouette filled and bordered,
// as wide as the preview's text needs at the preview's 24-point height: round for a short text,
// a pill (the round ends kept, the middle stretched) for a longer one.
QImage drawBadgeBackground(const QImage& silhouette, const BackgroundSettings& settings);

// Draws the badge background from the saved settings, leaves it in the device's /tmp/ and tells
// the settings screen. Requests are coalesced: however many arrive together, one render runs once
// they have all been read, and it reads the settings as they are then, so it is never stale. The
// picture is drawn and encoded again only when the settings it is drawn from have changed; the
// file is written on every request.
class BadgeBackgroundRenderer : public QObject {
public:
    BadgeBackgroundRenderer();

    void requestRender();

private:
    void render();

    QTimer pending_;
    QImage silhouette_;
    std::optional<BackgroundSettings> drawnFor_;
    std::string png_;
};

} // namespace pomwick
