#include "StorageRoots.h"

#include <QDir>

QString StorageRoots::userStorage() { return underRoot(QStringLiteral("USER")); }

QString StorageRoots::removableMedia() { return underRoot(QStringLiteral("mnt")); }

// An empty variable counts as unset: it would put the roots in the working directory.
QString StorageRoots::underRoot(const QString& name)
{
    const QString root = qEnvironmentVariable("RV_STORAGE_ROOT");
    if (root.isEmpty())
        return QLatin1Char('/') + name;
    return QDir::cleanPath(QDir(root).absoluteFilePath(name));
}
