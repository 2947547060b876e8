#pragma once

#include "NavigationController.h"

#include <QParallelAnimationGroup>

namespace pomwick {

// The slide in progress, null when none is, so that a test can hold a page mid-slide and land it.
struct NavigationControllerTestAccess {
    static QAbstractAnimation* transition(NavigationController& navigation) {
        return navigation.transition_;
    }
};

} // namespace pomwick
