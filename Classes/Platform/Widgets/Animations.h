#pragma once

#include "PomwickPlatformExport.h"

namespace pomwick::Animations {

// The one switch every transition's length goes through. The scale is read once: from
// POMWICK_ANIMATION_SCALE when set (0 turns every transition into a jump, as tests want), else 0
// when the style has widget animations off, else 1.
POMWICK_PLATFORM_EXPORT double scale();
// The given length in milliseconds, scaled; never negative.
POMWICK_PLATFORM_EXPORT int duration(int milliseconds);

// Runs transitions made while it lives at another scale: tests that step through one frame by
// frame, or that need one still under way, run it at its real length.
class POMWICK_PLATFORM_EXPORT ScaleOverride {
public:
    explicit ScaleOverride(double scale);
    ~ScaleOverride();
    ScaleOverride(const ScaleOverride&) = delete;
    ScaleOverride& operator=(const ScaleOverride&) = delete;

private:
    double previous_;
};

} // namespace pomwick::Animations
