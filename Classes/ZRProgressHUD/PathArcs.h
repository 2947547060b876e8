#pragma once

#include <QPainterPath>
#include <QPointF>

namespace pomwick {

// Arcs as the device's path API builds them, in y-down coordinates where angles grow clockwise
// on screen. addArc joins the current point to the arc's start with a line; `clockwise` false
// sweeps towards growing angles. A sweep of 2 pi or more draws the whole circle; angles that are
// not numbers add nothing.
void addArc(QPainterPath& path, QPointF center, qreal radius, qreal startAngle, qreal endAngle,
            bool clockwise);

// The arc of the given radius tangent to the lines current point -> corner and corner -> towards,
// preceded by a line to its first tangent point. Straight or degenerate corners add a line to the
// corner instead.
void addArcToPoint(QPainterPath& path, QPointF corner, QPointF towards, qreal radius);

} // namespace pomwick
