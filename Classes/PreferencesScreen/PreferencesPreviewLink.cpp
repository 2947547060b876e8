// The preview: the screen's message center, the composed badge over the sample icon, and the
// layout for the current size.
#include "BadgeImagePrimitives.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PomwickPreferencesViewController.h"
#include "PreviewComposition.h"
#include "ViewGeometry.h"

#include <QPixmap>
#include <QTimer>

namespace pomwick {

namespace {

// Runs the action on the next turn of the event loop, once however often it is asked before
// then: a burst of messages that only ask for a refresh costs one refresh, not one each, while
// messages that come one at a time are each answered as before.
MessagingCenter::Handler coalesced(QObject* owner, std::function<void()> action) {
    auto* nextTurn = new QTimer(owner);
    nextTurn->setSingleShot(true);
    nextTurn->setInterval(0);
    QObject::connect(nextTurn, &QTimer::timeout, owner, std::move(action));
    return [nextTurn](const QString&) {
        if (!nextTurn->isActive())
            nextTurn->start();
    };
}

} // namespace

void PomwickPreferencesViewController::registerPreviewMessages() {
    MessagingCenter& center = MessagingCenter::centerNamed(CenterName::preferences);
    if (!center.doesServerExist())
        center.runServerOnCurrentThread();
    center.registerForMessageName(MessageName::badgeSavedToTmp, this, coalesced(this, [this] {
                                      handleSimpleMessageNamed(MessageName::badgeSavedToTmp);
                                  }));
    center.registerForMessageName(MessageName::reloadData, this,
                                  coalesced(this, [this] { updateUI(); }));
}

void PomwickPreferencesViewController::handleSimpleMessageNamed(const QString& name) {
    if (name != MessageName::badgeSavedToTmp || tableHeaderView_ == nullptr)
        return;
    showPreviewUnavailable(false);
    endRespring();
    const PreviewBadge badge = composePreviewBadge(frame(iconImageView_), iconSize_);
    auto* badgeView = qobject_cast<QLabel*>(viewWithTag(tableHeaderView_, previewBadgeTag));
    if (badgeView == nullptr) {
        badgeView = new QLabel(tableHeaderView_);
        badgeView->setScaledContents(true);
        badgeView->setObjectName("previewBadge");
        setTag(badgeView, previewBadgeTag);
        badgeView->show();
    }
    setFinalBadgeImage(badge.image);
    if (badge.frame)
        setFrame(badgeView, *badge.frame);
    badgeView->setPixmap(finalBadgeImage_.isNull() ? QPixmap()
                                                   : QPixmap::fromImage(finalBadgeImage_));
    badgeView->raise();
    if (!finalBadgeImage_.isNull())
        emit contentReady();
}

void PomwickPreferencesViewController::viewDidLayoutSubviews() {
    const QRectF viewBounds = bounds(view());
    const QPointF iconBefore = frame(iconImageView_).topLeft();
    setFrame(mainTableView_, QRectF(0, 0, viewBounds.width(), viewBounds.height()));
    setFrame(infoLabel_, QRectF(0, 0, viewBounds.width(), 30));
    // The header spans the table, which spans the view; a hidden table learns its new width late.
    const QRectF header(0, 0, viewBounds.width(), frame(tableHeaderView_).height());
    const QRectF icon = frame(iconImageView_);
    setFrame(iconImageView_, QRectF(QPointF(header.width() / 2 - icon.width() / 2,
                                            header.height() / 2 + frame(infoLabel_).height() * 0.5 -
                                                icon.height() / 2),
                                    icon.size()));
    // The badge rides on the icon; it is composed again only with the next preview.
    if (QWidget* badgeView = viewWithTag(tableHeaderView_, previewBadgeTag))
        setFrame(badgeView,
                 frame(badgeView).translated(frame(iconImageView_).topLeft() - iconBefore));
    if (fontContainerView_) {
        const qreal sheetHeight = frame(fontContainerView_).height();
        setFrame(fontContainerView_,
                 QRectF(0, viewBounds.height() - sheetHeight, viewBounds.width(), sheetHeight));
        setFrame(fontPicker_->view(),
                 QRectF(0, 44, viewBounds.width(), frame(fontPicker_->view()).height()));
        setFrame(doneToolbar_, QRectF(0, 0, viewBounds.width(), 44));
        // The tap catcher follows too, so that no part of the table is left uncovered.
        if (dimmingView_)
            setFrame(dimmingView_,
                     QRectF(0, 0, viewBounds.width(), viewBounds.height() - sheetHeight));
    }
}

void PomwickPreferencesViewController::updateUI() {
    viewDidLayoutSubviews();
    // Back from the position editor: its drop is a step.
    endGesture(tr("Position"));
    reloadTableData();
}

void PomwickPreferencesViewController::didRotateFromInterfaceOrientation(int) {
    updateUI();
}

QImage PomwickPreferencesViewController::imageByCombiningImage(const QImage& first,
                                                               const QImage& second) const {
    return pomwick::imageByCombiningImage(first, second);
}

} // namespace pomwick
