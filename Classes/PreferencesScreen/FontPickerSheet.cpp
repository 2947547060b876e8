// The font sheet: the font picker under a Done bar, sliding up from the bottom edge over a clear
// tap catcher that closes it, as Done and Escape do.
#include "FontPickerSheet.h"

#include "Animations.h"
#include "Appearance.h"
#include "ColorText.h"
#include "DQFontPicker.h"
#include "DoubleClickTail.h"
#include "ModalScope.h"
#include "PickerWheel.h"
#include "Settings.h"
#include "TextScanning.h"
#include "ViewGeometry.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QShortcut>

namespace pomwick {
namespace {

constexpr qreal toolbarHeight = 44;
constexpr int slideMilliseconds = 500;

// The bar over the wheels: light grey, with a dark grey rim.
class SheetToolbar : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Appearance::sheetBarBackground());
        painter.setPen(QPen(Appearance::sheetBarRim(), 1.0));
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
};

// A clear control over the rest of the screen: a tap anywhere on it is a touch up inside, once
// the sheet has arrived; the second click of the double click that opened it is not one.
class TapCatcher : public QAbstractButton {
public:
    explicit TapCatcher(QWidget* parent) : QAbstractButton(parent) {
        setFocusPolicy(Qt::NoFocus);
        setAccessibleName(FontPickerSheet::tr("Close font sheet"));
        doubleClickTail_.restart();
    }
    void arm() { armed_ = true; }

protected:
    void paintEvent(QPaintEvent*) override {}
    bool event(QEvent* event) override {
        const QEvent::Type type = event->type();
        if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick)
            swallowing_ = !armed_ || doubleClickTail_.covers(*static_cast<QMouseEvent*>(event));
        const bool swallow = swallowing_ && (type == QEvent::MouseButtonPress ||
                                             type == QEvent::MouseButtonDblClick ||
                                             type == QEvent::MouseButtonRelease);
        if (type == QEvent::MouseButtonRelease)
            swallowing_ = false;
        return swallow || QAbstractButton::event(event);
    }

private:
    DoubleClickTail doubleClickTail_;
    bool armed_ = false;
    bool swallowing_ = false;
};

// While the sheet moves it takes no touches: a clear cover over it swallows them, so that the
// wheels keep their look (a disabled sheet would draw grey until it arrived).
class SlideCover : public QWidget {
public:
    explicit SlideCover(QWidget* sheet) : QWidget(sheet) {
        setObjectName("slideCover");
        setGeometry(0, 0, 16384, 16384);
        raise();
        show();
    }

protected:
    bool event(QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            event->accept();
            return true;
        default:
            return QWidget::event(event);
        }
    }
};

void setTakesTouches(QWidget* sheet, bool takes) {
    auto* cover = sheet->findChild<SlideCover*>("slideCover", Qt::FindDirectChildrenOnly);
    if (takes)
        delete cover;
    else if (cover == nullptr)
        new SlideCover(sheet);
}

QPushButton* doneButton(QWidget* parent) {
    auto* done = new QPushButton(FontPickerSheet::tr("Done"), parent);
    done->setFlat(true);
    done->setCursor(Qt::PointingHandCursor);
    done->setFocusPolicy(Qt::TabFocus);
    done->setFont(Appearance::systemFont(17, QFont::DemiBold));
    done->setStyleSheet(
        QString("QPushButton { color: %1; border: 1px solid transparent; "
                "border-radius: 6px; padding: 4px 10px; background: transparent; } "
                "QPushButton:focus { border-color: %1; } "
                "QPushButton:pressed { color: %2; }")
            .arg(Appearance::tint().name(), Appearance::tint().lighter(160).name()));
    return done;
}

// The container fades through an opacity effect while it slides; alpha() keeps its resting value.
QGraphicsOpacityEffect* opacityEffect(QWidget* view) {
    auto* effect = qobject_cast<QGraphicsOpacityEffect*>(view->graphicsEffect());
    if (effect == nullptr) {
        effect = new QGraphicsOpacityEffect(view);
        effect->setOpacity(alpha(view));
        view->setGraphicsEffect(effect);
    }
    return effect;
}

// Slides the view to the frame while fading it to the opacity; runs `done` when it gets there,
// not when a later slide of the same view takes over.
void slide(QWidget* view, const QRectF& to, qreal opacity, std::function<void()> done) {
    for (auto* running : view->findChildren<QParallelAnimationGroup*>(Qt::FindDirectChildrenOnly)) {
        running->stop();
        running->deleteLater();
    }
    auto* group = new QParallelAnimationGroup(view);
    auto* move = new QPropertyAnimation(view, "geometry", group);
    move->setDuration(Animations::duration(slideMilliseconds));
    move->setEndValue(to.toRect());
    move->setEasingCurve(QEasingCurve::InOutQuad);
    auto* fade = new QPropertyAnimation(opacityEffect(view), "opacity", group);
    fade->setDuration(Animations::duration(slideMilliseconds));
    fade->setEndValue(opacity);
    QObject::connect(group, &QAbstractAnimation::finished, view, std::move(done));
    group->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace

DQFontPicker* FontPickerSheet::fontPicker() const {
    return fontPicker_;
}

void FontPickerSheet::show(QWidget* root, QWidget* focusReturn) {
    const QRectF viewBounds = bounds(root);
    // A sheet still up (opened twice, or still sliding) gives way to the new one at once.
    delete fontContainerView_;
    delete dimmingView_;

    auto* picker = new DQFontPicker;
    fontPicker_ = picker;
    const qreal pickerHeight = frame(picker->view()).height();
    setFrame(picker->view(), QRectF(0, toolbarHeight, frame(root).width(), pickerHeight));
    const auto font = getBadgeFont();
    picker->selectFontName(font ? QString::fromStdString(font->name) : QString(), false);
    picker->selectFontSize(getBadgeFontSize(), false);
    picker->selectColor(getBadgeFontColor(), false);
    // Every turn of a wheel is stored at once; the preview follows when the sheet closes.
    connect(picker, &DQFontPicker::changed, picker, [picker] {
        if (const auto chosen = picker->font()) {
            setPreferencesObjectKey(chosen->name, SettingsKey::badgeFont);
            setPreferencesObjectKey(formatInt(int32_t(chosen->size)), SettingsKey::badgeFontSize);
        }
        if (const auto color = picker->color())
            setPreferencesObjectKey(storedColorText(*color), SettingsKey::badgeFontColor);
    });

    auto* toolbar = new SheetToolbar;
    setFrame(toolbar, QRectF(0, 0, viewBounds.width(), toolbarHeight));
    auto* bar = new QHBoxLayout(toolbar);
    bar->setContentsMargins(8, 0, 8, 0);
    bar->addStretch(1);
    QPushButton* done = doneButton(toolbar);
    bar->addWidget(done);
    connect(done, &QPushButton::clicked, this, &FontPickerSheet::hide);
    // One point past each side, so that only the rim's top and bottom lines show.
    setFrame(toolbar, QRectF(-1, 0, viewBounds.width() + 2, toolbarHeight));
    doneToolbar_ = toolbar;

    const qreal sheetHeight = pickerHeight + toolbarHeight;
    auto* dimming = new TapCatcher(root);
    setFrame(dimming, QRectF(0, 0, viewBounds.width(), viewBounds.height() - sheetHeight));
    connect(dimming, &QAbstractButton::clicked, this, &FontPickerSheet::hide);
    dimming->show();
    dimmingView_ = dimming;

    auto* container = new QWidget(root);
    container->setAccessibleName(tr("Font"));
    setBackgroundColor(container, Appearance::cellBackground);
    setFrame(container, QRectF(0, viewBounds.height(), viewBounds.width(), sheetHeight));
    setAlpha(container, 0);
    picker->setParent(container);
    picker->view()->setParent(container);
    toolbar->setParent(container);
    // Taps on the sheet are ignored until it has arrived.
    setTakesTouches(container, false);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), container);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &FontPickerSheet::hide);
    container->show();
    fontContainerView_ = container;
    // The keyboard stays in the sheet until it leaves, then goes back to the row that opened it.
    new ModalScope(container, {dimming}, focusReturn);

    slide(container, QRectF(0, viewBounds.height() - sheetHeight, viewBounds.width(), sheetHeight),
          1.0, [container, picker, dimming] {
              setAlpha(container, 1.0);
              dimming->arm();
              setTakesTouches(container, true);
              // The keyboard follows the sheet: its first wheel, then Tab to the others and Done.
              QWidget* firstWheel = picker->wheel(0);
              (firstWheel ? firstWheel : static_cast<QWidget*>(picker->view()))
                  ->setFocus(Qt::OtherFocusReason);
          });
}

void FontPickerSheet::hide() {
    QWidget* container = fontContainerView_;
    if (container == nullptr)
        return;
    const QRectF viewBounds = bounds(container->parentWidget());
    const QRectF sheet = frame(container);
    ModalScope::endFor(container);
    setTakesTouches(container, false);
    slide(container, QRectF(0, viewBounds.height(), sheet.width(), sheet.height()), 0.0,
          [container, dimming = QPointer<QWidget>(dimmingView_)] {
              container->deleteLater();
              if (dimming)
                  dimming->deleteLater();
          });
    emit closing();
}

void FontPickerSheet::layOut(const QRectF& pageBounds) {
    if (!fontContainerView_)
        return;
    const qreal sheetHeight = frame(fontContainerView_).height();
    setFrame(fontContainerView_,
             QRectF(0, pageBounds.height() - sheetHeight, pageBounds.width(), sheetHeight));
    setFrame(fontPicker_->view(),
             QRectF(0, toolbarHeight, pageBounds.width(), frame(fontPicker_->view()).height()));
    setFrame(doneToolbar_, QRectF(0, 0, pageBounds.width(), toolbarHeight));
    // The tap catcher follows too, so that no part of the table is left uncovered.
    if (dimmingView_)
        setFrame(dimmingView_, QRectF(0, 0, pageBounds.width(), pageBounds.height() - sheetHeight));
}

} // namespace pomwick
