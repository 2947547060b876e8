#include "BadgeBackgroundRenderer.h"

#include "BadgeImagePrimitives.h"
#include "ImageFile.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewFiles.h"
#include "Settings.h"

namespace pomwick {

BadgeBackgroundRenderer::BadgeBackgroundRenderer()
    : silhouette_(loadBundleImage(PreviewFile::stockBadge)) {
    pending_.setSingleShot(true);
    pending_.setInterval(0);
    connect(&pending_, &QTimer::timeout, this, &BadgeBackgroundRenderer::render);
}

void BadgeBackgroundRenderer::requestRender() {
    pending_.start();
}

void BadgeBackgroundRenderer::render() {
    const QImage filled = fillImageWithColor(silhouette_, getBadgeBackgroundColor());
    const QImage background = addBorderToImage(filled, getBadgeBorderColor());
    writePngAtomically(background, tmpFile(PreviewFile::badgeBackground));
    MessagingCenter::centerNamed(CenterName::preferences)
        .sendMessageName(MessageName::badgeSavedToTmp);
}

} // namespace pomwick
