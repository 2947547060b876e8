#pragma once

namespace pomwick {

// How the feedback mail composer ended.
enum MailComposeResult {
    MailComposeResultCancelled = 0,
    MailComposeResultSaved = 1,
    MailComposeResultSent = 2,
    MailComposeResultFailed = 3,
};

} // namespace pomwick
