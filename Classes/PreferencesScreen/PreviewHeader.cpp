// The preview header: caption, sample icon, the composed badge, and the renderer's absence.
#include "PreviewHeader.h"

#include "Appearance.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewComposition.h"
#include "PreviewFiles.h"
#include "SettingsSnapshot.h"
#include "ViewGeometry.h"

#include <QLabel>
#include <QPixmap>

namespace pomwick {
namespace {

// Two lines of the status's text.
constexpr qreal minimumStatusHeight = 32;
constexpr qreal captionHeight = 30;

} // namespace

void requestPreview() {
    MessagingCenter::centerNamed(CenterName::renderer)
        .sendMessageName(MessageName::saveBadgeImages);
}

PreviewHeader::PreviewHeader(qreal width, float iconSize, QObject* parent)
    : QObject(parent), view_(new QWidget), height_(iconSize * 3 + captionHeight) {
    setFrame(view_, QRectF(0, 0, width, height_));

    infoLabel_ = new QLabel(tr("Badge Preview"), view_);
    setFrame(infoLabel_, QRectF(0, 0, width, captionHeight));
    infoLabel_->setFont(Appearance::systemFont(18));
    infoLabel_->setAlignment(Qt::AlignCenter);
    setBackgroundColor(infoLabel_, Appearance::cellBackground);

    iconImageView_ = new QLabel(view_);
    iconImageView_->setScaledContents(true);
    iconFrame_ = QRectF(0, 0, iconSize, iconSize);
    placeIcon(width);
    if (const QImage icon = loadBundleImage(PreviewFile::sampleIcon); !icon.isNull())
        iconImageView_->setPixmap(QPixmap::fromImage(icon));
    describe(SettingsSnapshot());
}

void PreviewHeader::describe(const SettingsSnapshot& settings) {
    const QString badge = !settings.enabled()       ? QString("1")
                          : settings.badgeVisible() ? previewBadgeText(settings)
                                                    : QString();
    iconImageView_->setAccessibleName(badge.isEmpty()
                                          ? tr("Badge preview: a sample icon without a badge")
                                          : tr("Badge preview: %1 on a sample icon").arg(badge));
}

QImage PreviewHeader::showComposedBadge(float iconSize) {
    const PreviewBadge badge = composePreviewBadge(iconFrame_, iconSize);
    auto* badgeView = qobject_cast<QLabel*>(viewWithTag(view_, previewBadgeTag));
    if (badgeView == nullptr) {
        badgeView = new QLabel(view_);
        badgeView->setScaledContents(true);
        badgeView->setObjectName("previewBadge");
        setTag(badgeView, previewBadgeTag);
        badgeView->show();
    }
    if (badge.frame) {
        badgeFrame_ = *badge.frame;
        setFrame(badgeView, badgeFrame_);
    }
    badgeView->setPixmap(badge.image.isNull() ? QPixmap() : QPixmap::fromImage(badge.image));
    badgeView->raise();
    if (!badge.image.isNull())
        emit badgeShown();
    return badge.image;
}

// In the middle of the header, half the caption lower.
void PreviewHeader::placeIcon(qreal width) {
    iconFrame_.moveTo(width / 2 - iconFrame_.width() / 2,
                      height_ / 2 + captionHeight * 0.5 - iconFrame_.height() / 2);
    setFrame(iconImageView_, iconFrame_);
}

// The header spans the table, which spans the view; a hidden table learns its new width late.
void PreviewHeader::layOut(qreal width) {
    const QPointF iconBefore = iconFrame_.topLeft();
    setFrame(infoLabel_, QRectF(0, 0, width, captionHeight));
    placeIcon(width);
    // The badge rides on the icon; it is composed again only with the next preview.
    if (QWidget* badgeView = viewWithTag(view_, previewBadgeTag)) {
        badgeFrame_.translate(iconFrame_.topLeft() - iconBefore);
        setFrame(badgeView, badgeFrame_);
    }
}

QLabel* PreviewHeader::unavailableLabel() const {
    return unavailableLabel_;
}

bool PreviewHeader::showsUnavailable() const {
    return unavailableLabel_ && !unavailableLabel_->isHidden();
}

// Below the sample icon; over the caption while the icon size is unknown and the header is no
// taller than the caption. Made the first time it is needed: the header holds only the preview
// until then.
void PreviewHeader::showUnavailable(bool unavailable) {
    if (!unavailable) {
        if (unavailableLabel_)
            unavailableLabel_->hide();
        return;
    }
    if (!unavailableLabel_) {
        unavailableLabel_ = new QLabel(
            tr("Preview unavailable — the badge renderer is not running. Respring to start it."),
            view_);
        unavailableLabel_->setWordWrap(true);
        unavailableLabel_->setAlignment(Qt::AlignCenter);
        unavailableLabel_->setFont(Appearance::systemFont(12));
        setBackgroundColor(unavailableLabel_, Appearance::cellBackground);
        setTextColor(unavailableLabel_, Appearance::sectionHeaderText);
    }
    const qreal top = iconFrame_.bottom() + 4;
    const QRectF belowIcon(16, top, view_->width() - 32, height_ - top);
    const bool belowFits = belowIcon.height() >= minimumStatusHeight;
    setFrame(unavailableLabel_, belowFits ? belowIcon : frame(infoLabel_));
    // Over the caption it hides it; below the icon it lies on the header's grey.
    unavailableLabel_->setAutoFillBackground(!belowFits);
    unavailableLabel_->raise();
    unavailableLabel_->show();
}

} // namespace pomwick
