#pragma once

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QRectF>
#include <QWidget>

class QLabel;

namespace pomwick {

class SettingsSnapshot;

// Asks the renderer for a fresh preview; its answer reaches the page as "badgeSavedToTmp".
void requestPreview();

// The table's header: the "Badge Preview" caption over the sample icon, the composed badge
// over the icon, and what the header says while the renderer is away.
class PreviewHeader : public QObject {
    Q_OBJECT
public:
    // Marks the preview badge's view among the header's children.
    static constexpr int previewBadgeTag = 1337;

    PreviewHeader(qreal width, float iconSize, QObject* parent);

    QWidget* view() const { return view_; }
    QLabel* iconImageView() const { return iconImageView_; }
    QLabel* infoLabel() const { return infoLabel_; }
    QLabel* unavailableLabel() const;

    // Composes the badge from the renderer's background and the settings, shows it over the
    // icon and returns it (empty when there is nothing to show).
    QImage showComposedBadge(float iconSize);
    // What a screen reader says of the picture.
    void describe(const SettingsSnapshot& settings);
    void showUnavailable(bool unavailable);
    bool showsUnavailable() const;
    void layOut(qreal width);

signals:
    // A composed badge is on show.
    void badgeShown();

private:
    void placeIcon(qreal width);

    QPointer<QWidget> view_;
    // The header's height and the icon's and badge's frames as computed, fractions included.
    qreal height_;
    QRectF iconFrame_;
    QRectF badgeFrame_;
    QLabel* iconImageView_;
    QLabel* infoLabel_;
    QPointer<QLabel> unavailableLabel_;
};

} // namespace pomwick
