#pragma once

#include <QtPlugin>

namespace pomwick {

class ViewController;

// What a preference bundle offers the host: its principal class, made afresh each time the user
// opens the bundle's entry. The bundle's metadata JSON names the entry ("name") and its icon
// ("icon", a file in the bundle folder).
class PreferenceBundle {
public:
    virtual ~PreferenceBundle() = default;
    virtual ViewController* makePrincipalController() = 0;
};

} // namespace pomwick

#define PomwickPreferenceBundle_iid "com.velquor.pomwick.PreferenceBundle/1.0"
Q_DECLARE_INTERFACE(pomwick::PreferenceBundle, PomwickPreferenceBundle_iid)
