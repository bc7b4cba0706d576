#ifndef NEWFOLDERPROMPT_H
#define NEWFOLDERPROMPT_H

#include "ContainerImpl.h"

class QFileSystemModel;
class TextEntryImpl;

namespace Kelvane {
namespace gui {
class PushButtonImpl;
}
}

/*!
  The small pop-up in which the operator names a new folder, typing on the
  on-screen keyboard; OK hides it and hands the name on. The browsers
  propose a free name first: "New Folder", else "New Folder_2", "_3", ...
*/
class NewFolderPrompt : public ContainerImpl
{
    Q_OBJECT

public:
    explicit NewFolderPrompt(QWidget* parent);

    //! The first of "New Folder", "New Folder_2", "New Folder_3", ... that \a model knows no entry of in \a directory.
    static QString freeFolderName(const QFileSystemModel* model, const QString& directory);
    //! Proposes the free name in \a directory and shows the prompt centred on \a anchor, a sibling of the prompt.
    void propose(const QFileSystemModel* model, const QString& directory, const QWidget* anchor);

    QString folderName() const;
    void setFolderName(const QString& name);

signals:
    void newFolderName(QString folderName);

private slots:
    void done();

private:
    TextEntryImpl* m_folderEntry = nullptr;
    Kelvane::gui::PushButtonImpl* m_okButton = nullptr;
};

#endif // NEWFOLDERPROMPT_H
