#pragma once

#include "PomwickPlatformExport.h"

#include <QColor>
#include <QFont>
#include <QRectF>
#include <functional>

class QObject;
class QPainter;
class QWidget;

namespace pomwick::Appearance {

// The look shared by the controls: a phone settings app's colors and its system font at sizes
// given in points (logical pixels). Each color has a light and a dark variant; the dark one is
// worn while the application palette is dark (a dark style or desktop theme).
POMWICK_PLATFORM_EXPORT bool isDark();
// Runs apply now, and again each time the look switches between light and dark while owner
// lives: for colors a widget keeps (a palette, a style sheet) rather than looks up as it paints. A
// later call for the same named aspect of the owner replaces the earlier one.
POMWICK_PLATFORM_EXPORT void follow(QObject* owner, std::function<void()> apply,
                                    const char* aspect = nullptr);

POMWICK_PLATFORM_EXPORT QColor tint();
POMWICK_PLATFORM_EXPORT QColor barBackground();
POMWICK_PLATFORM_EXPORT QColor hairline();
POMWICK_PLATFORM_EXPORT QColor groupedBackground();
POMWICK_PLATFORM_EXPORT QColor sectionHeaderText();
POMWICK_PLATFORM_EXPORT QColor selectedCellBackground();
// Rows, sheets, cards, panels and menus.
POMWICK_PLATFORM_EXPORT QColor cellBackground();
// Behind a page that is no grouped table: the settings page and the position editor.
POMWICK_PLATFORM_EXPORT QColor screenBackground();
POMWICK_PLATFORM_EXPORT QColor labelText();
POMWICK_PLATFORM_EXPORT QColor footnoteText();
POMWICK_PLATFORM_EXPORT QColor disabledText();
POMWICK_PLATFORM_EXPORT QColor destructive();
POMWICK_PLATFORM_EXPORT QColor errorText();
// The rims of swatches and of the position editor's screen.
POMWICK_PLATFORM_EXPORT QColor outline();
// The settings page's switches and segmented controls: black on the light look.
POMWICK_PLATFORM_EXPORT QColor controlTint();
POMWICK_PLATFORM_EXPORT QColor switchRim();
POMWICK_PLATFORM_EXPORT QColor sliderTrack();
POMWICK_PLATFORM_EXPORT QColor scrollIndicator();
POMWICK_PLATFORM_EXPORT QColor sheetBarBackground();
POMWICK_PLATFORM_EXPORT QColor sheetBarRim();
POMWICK_PLATFORM_EXPORT QColor pickerBackground();
POMWICK_PLATFORM_EXPORT QColor menuBorder();
POMWICK_PLATFORM_EXPORT QColor menuSelection();
// A notice's panel at the given opacity, white text on it in either look.
POMWICK_PLATFORM_EXPORT QColor noticeBackground(qreal opacity);
POMWICK_PLATFORM_EXPORT QFont systemFont(int points, QFont::Weight weight = QFont::Normal);

// The keyboard focus as every control shows it: a tinted ring in a white one just inside the
// given outline, drawn only while the user steers with the keyboard (showsFocusRing).
POMWICK_PLATFORM_EXPORT void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius);
POMWICK_PLATFORM_EXPORT bool showsFocusRing(const QWidget* widget);

// The thickness of a hairline in points: one pixel of the painter's device, at any scale.
POMWICK_PLATFORM_EXPORT qreal hairlineWidth(const QPainter& painter);

// The process-wide tint of segmented controls, black once the settings screen has set it.
POMWICK_PLATFORM_EXPORT QColor segmentedControlTint();
POMWICK_PLATFORM_EXPORT void setSegmentedControlTint(const QColor& color);

} // namespace pomwick::Appearance
