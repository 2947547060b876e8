#pragma once

namespace pomwick {

// The maker's mailbox that the "Contact Us" row writes to.
inline constexpr const char* feedbackAddress = "feedback@velquor.com";

} // namespace pomwick
