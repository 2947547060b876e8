#pragma once

#include "ViewController.h"

namespace pomwick {

// The page that shows a color grid as its view. Leaving it asks the settings screen, through the
// screen's own message center, to refresh its table and preview.
class ColorPickerController : public ViewController {
    Q_OBJECT
public:
    void viewWillDisappear(bool animated) override;
};

} // namespace pomwick
