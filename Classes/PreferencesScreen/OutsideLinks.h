#pragma once

#include <QUrl>

namespace pomwick::OutsideLink {

// The pages the "Contact Us / Donate" rows open with the desktop's own handler. Product
// configuration: nothing else depends on them.
inline const QUrl makerProfile{QStringLiteral("https://twitter.com/velquor")};
// The maker's other packages, in the package manager's scheme that software centers handle.
inline const QUrl otherPackages{QStringLiteral("apt:velquor-tweaks")};
inline const QUrl donation{QStringLiteral("https://liberapay.com/velquor/donate")};

} // namespace pomwick::OutsideLink
