#pragma once

#include <QString>

namespace pomwick {

namespace CenterName {
inline const QString renderer = QStringLiteral("com.velquor.pomwick");
inline const QString preferences = QStringLiteral("com.velquor.pomwickpreferences");
} // namespace CenterName

namespace MessageName {
inline const QString saveBadgeImages = QStringLiteral("saveBadgeImages");
inline const QString badgeSavedToTmp = QStringLiteral("badgeSavedToTmp");
inline const QString reloadData = QStringLiteral("reloadData");
} // namespace MessageName

} // namespace pomwick
