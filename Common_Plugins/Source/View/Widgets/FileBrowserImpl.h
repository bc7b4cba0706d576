#ifndef FILEBROWSERIMPL_H
#define FILEBROWSERIMPL_H

#include "ContainerImpl.h"

#include <QModelIndex>
#include <QPointer>

class ComboBoxImpl;
class ListView;
class NewFolderPrompt;
class QFileSystemModel;
class QTreeView;
class ScrollButton;
class TextEntryImpl;
class TextWidget;
class TreeView;

namespace Kelvane {
namespace gui {
class PushButtonImpl;
}
}

/*!
  The two-pane file chooser: the directory tree beside the list of the
  directory chosen in it, over one file system model, with the "Look in"
  path line, a file name field and the file type list. Open reports the
  "Look in" path, "/" and the file name, as they stand, and closes; the
  arrows at the ends of the path line step to the directory on the tree's
  line above or below. The base of the Save As dialog, which rewires the
  buttons and views it reaches here.
*/
class FileBrowserImpl : public ContainerImpl
{
    Q_OBJECT
    Q_PROPERTY(QString FileName READ fileName)
    Q_PROPERTY(QString FilterStrings READ filters WRITE setFilters)

public:
    FileBrowserImpl(const QString& path, QWidget* parent);
    ~FileBrowserImpl() override;

    QString fileName() const;
    void setFileName(const QString& name);
    //! The file type entries joined with "|".
    QString filters() const;
    //! The text of the Open button, such as "Save"; a change of language puts back "Open".
    void setButtonText(const QString& text);
    //! Gives the file name field its on-screen keyboard.
    void addKeyboard();
    void retranslate() override;

signals:
    //! The "Look in" path, "/", and the file name, on Open.
    void fileSelected(QString file);
    //! The entry the browser moved to; followed by the file name unless a derived class cuts it.
    void newPath(QModelIndex index);

public slots:
    //! Replaces the file type entries ("Python Scripts (*.py)|All Files (*)") and chooses the first.
    void setFilters(const QString& flts);
    void setRootPath(const QString& path);
    void setBrowserTitle(const QString& title);

protected slots:
    void setRootIndex(const QModelIndex& index);
    void moveUp();
    void moveDown();
    void setFilter();
    void promptForFolderName();
    void createNewFolder(const QString& folderName);
    void setFileName(const QModelIndex& index);
    void submit();
    void closePrompt();

protected:
    void resizeEvent(QResizeEvent* event) override;

    Kelvane::gui::PushButtonImpl* m_newFolderButton = nullptr;
    Kelvane::gui::PushButtonImpl* m_cancelButton = nullptr;
    Kelvane::gui::PushButtonImpl* m_openButton = nullptr;
    ComboBoxImpl* m_fileTypeCombo = nullptr;
    TextWidget* m_lookInText = nullptr;
    //! At the two ends of the "Look in" line, and its children.
    ScrollButton* m_scrollUpButton = nullptr;
    ScrollButton* m_scrollDownButton = nullptr;
    TextEntryImpl* m_fileNameEntry = nullptr;
    TreeView* m_treeView = nullptr;
    ListView* m_listView = nullptr;
    QFileSystemModel* m_fileSystemModel = nullptr;
    int m_scrollButtonY = 0;
    QString m_rootPath;
    //! Lives beside the browser, on its parent; the browser deletes it.
    QPointer<NewFolderPrompt> m_newFolderPrompt;

private:
    void buildViews();
    void buildLayout();
    void connectParts();
    //! Steps along the tree's lines from its current one to the next directory, if any.
    void stepToDirectory(QModelIndex (QTreeView::*step)(const QModelIndex&) const);
};

#endif // FILEBROWSERIMPL_H
