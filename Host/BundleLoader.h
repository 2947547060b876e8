#pragma once

#include "PreferenceBundle.h"

#include <QImage>
#include <QString>

namespace pomwick {

// The preference bundle installed in the device root, loaded as a plugin.
struct LoadedBundle {
    PreferenceBundle* bundle = nullptr; // null: `error` says why
    QString name;
    QImage icon;
    QString error;
};

LoadedBundle loadPreferenceBundle();

} // namespace pomwick
