#ifndef STORAGEROOTS_H
#define STORAGEROOTS_H

#include <QString>

/*!
  Where the instrument keeps the operator's files and where removable media
  appear: "/USER" and "/mnt".

  A host, a test or the demo that must not touch those folders sets the
  environment variable RV_STORAGE_ROOT to a folder of its own; the two roots
  are then "<that folder>/USER" and "<that folder>/mnt". The variable is read
  on every call, so a test may set it before it builds a browser. File
  classes ask here and never name the roots themselves.
*/
class StorageRoots
{
public:
    //! The operator's storage: "/USER", or "USER" under RV_STORAGE_ROOT.
    static QString userStorage();
    //! Where removable media are mounted: "/mnt", or "mnt" under RV_STORAGE_ROOT.
    static QString removableMedia();

private:
    static QString underRoot(const QString& name);
};

#endif // STORAGEROOTS_H
