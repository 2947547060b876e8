#pragma once

#include "Colour.h"

#include <QString>

namespace pomwick {

// How a colour is read out to assistive technology: "red 100% green 50% blue 0%".
QString describeColour(const Colour& colour);

} // namespace pomwick
