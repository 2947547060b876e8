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
    : QObject(parent), view_(new QWidget) {
    setFrame(view_, QRectF(0, 0, width, iconSize * 3 + captionHeight));

    infoLabel_ = new QLabel(tr("Badge Preview"), view_);
    setFrame(infoLabel_, QRectF(0, 0, width, captionHeight));
    infoLabel_->setFont(Appearance::systemFont(18));
    infoLabel_->setAlignment(Qt::AlignCenter);
    setBackgroundColor(infoLabel_, Appearance::cellBackground);

    iconImageView_ = new QLabel(view_);
    iconImageView_->setScaledContents(true);
    const QRectF header = frame(view_);
    setFrame(iconImageView_,
             QRectF(header.center().x() - iconSize / 2,
                    header.center().y() + frame(infoLabel_).height() * 0.5 - iconSize / 2, iconSize,
                    iconSize));
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
    const PreviewBadge badge = composePreviewBadge(frame(iconImageView_), iconSize);
    auto* badgeView = qobject_cast<QLabel*>(viewWithTag(view_, previewBadgeTag));
    if (badgeView == nullptr) {
        badgeView = new QLabel(view_);
        badgeView->setScaledContents(true);
        badgeView->setObjectName("previewBadge");
        setTag(badgeView, previewBadgeTag);
        badgeView->show();
    }
    if (badge.frame)
        setFrame(badgeView, *badge.frame);
    badgeView->setPixmap(badge.image.isNull() ? QPixmap() : QPixmap::fromImage(badge.image));
    badgeView->raise();
    if (!badge.image.isNull())
        emit badgeShown();
    return badge.image;
}

void PreviewHeader::layOut(qreal width) {
    const QPointF iconBefore = frame(iconImageView_).topLeft();
    setFrame(infoLabel_, QRectF(0, 0, width, captionHeight));
    // The header spans the table, which spans the view; a hidden table learns its new width late.
    const QRectF header(0, 0, width, frame(view_).height());
    const QRectF icon = frame(iconImageView_);
    setFrame(iconImageView_, QRectF(QPointF(header.width() / 2 - icon.width() / 2,
                                            header.height() / 2 + frame(infoLabel_).height() * 0.5 -
                                                icon.height() / 2),
                                    icon.size()));
    // The badge rides on the icon; it is composed again only with the next preview.
    if (QWidget* badgeView = viewWithTag(view_, previewBadgeTag))
        setFrame(badgeView,
                 frame(badgeView).translated(frame(iconImageView_).topLeft() - iconBefore));
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
    const QRectF header = frame(view_);
    const qreal top = frame(iconImageView_).bottom() + 4;
    const QRectF belowIcon(16, top, header.width() - 32, header.bottom() - top);
    const bool belowFits = belowIcon.height() >= minimumStatusHeight;
    setFrame(unavailableLabel_, belowFits ? belowIcon : frame(infoLabel_));
    // Over the caption it hides it; below the icon it lies on the header's grey.
    unavailableLabel_->setAutoFillBackground(!belowFits);
    unavailableLabel_->raise();
    unavailableLabel_->show();
}

} // namespace pomwick
