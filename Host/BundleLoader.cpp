#include "BundleLoader.h"

#include "BundleInstallation.h"
#include "ImageFile.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QPluginLoader>

namespace pomwick {

LoadedBundle loadPreferenceBundle() {
    // Code comes only from where the bundle was built or installed; the device root's copy of
    // the bundle folder holds its resources, never a plugin.
    const auto folder = installedBundleDirectory();
    const QString path = QString::fromStdString(installedBundlePlugin().string());
    QPluginLoader loader(path);
    LoadedBundle loaded;
    const QJsonObject metadata = loader.metaData().value("MetaData").toObject();
    loaded.name = metadata.value("name").toString("Pomwick");
    loaded.icon = imageWithContentsOfFile(folder / metadata.value("icon").toString().toStdString());
    QObject* instance = loader.instance();
    loaded.bundle = qobject_cast<PreferenceBundle*>(instance);
    if (loaded.bundle == nullptr)
        loaded.error =
            instance == nullptr
                ? loader.errorString()
                : QCoreApplication::translate("main", "%1 is not a preference bundle").arg(path);
    return loaded;
}

} // namespace pomwick
