#include "ColorPickerController.h"

#include "MessageNames.h"
#include "MessagingCenter.h"

namespace pomwick {

void ColorPickerController::viewWillDisappear(bool) {
    MessagingCenter::centerNamed(CenterName::preferences).sendMessageName(MessageName::reloadData);
}

} // namespace pomwick
