// The bundle's entry point for the host.
#include "PomwickPreferencesViewController.h"
#include "PreferenceBundle.h"

#include <QObject>

namespace pomwick {

class PomwickPreferencesBundle : public QObject, public PreferenceBundle {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PomwickPreferenceBundle_iid FILE "PomwickPreferences.json")
    Q_INTERFACES(pomwick::PreferenceBundle)
public:
    ViewController* makePrincipalController() override {
        return new PomwickPreferencesViewController;
    }
};

} // namespace pomwick

#include "PomwickPreferencesBundle.moc"
