#ifndef BROWSERNAVIGATION_H
#define BROWSERNAVIGATION_H

#include <QModelIndex>

class ListView;
class QFileSystemModel;
class ScrollButton;
class TextWidget;
class TreeView;

namespace Kelvane {
namespace gui {
class PushButtonImpl;
}
}

/*!
  What the pop-up browsers share in finding their way: which directory an
  entry leads to, how the list, the tree and the "Look in" line follow it,
  the file name an entry proposes, and the "Look in" line with its two
  scroll buttons beside the new-folder button.
*/
class BrowserNavigation
{
public:
    //! True for a valid entry that is a directory (the model's invisible root is none).
    static bool isDirectory(const QFileSystemModel* model, const QModelIndex& index);
    /*!
      Lists the directory of \a index (itself, or the directory holding it)
      in \a list, makes \a index the tree's current line and writes the
      directory's path into \a lookIn. Nothing changes when the list shows
      that directory already.
    */
    static void showDirectory(const QFileSystemModel* model, ListView* list, TreeView* tree, TextWidget* lookIn,
                              const QModelIndex& index);
    //! The name \a index proposes for the file name: its own, or empty for a directory.
    static QString fileNameFor(const QFileSystemModel* model, const QModelIndex& index);

    /*!
      Readies the "Look in" line: fixed at 300 pixels, read-only, its text
      kept clear of \a up and \a down, which stand at its two ends at
      \a buttonY; and the new-folder button, at most 162 pixels wide.
    */
    static void setUpLookInRow(TextWidget* lookIn, Kelvane::gui::PushButtonImpl* newFolder, ScrollButton* up,
                               ScrollButton* down, int buttonY);
    /*!
      Shares \a browserWidth out on a resize: the new-folder button takes
      three tenths, the "Look in" line what is left less a quarter of the
      button's width, and the scroll buttons follow the line's ends.
    */
    static void fitLookInRow(int browserWidth, TextWidget* lookIn, Kelvane::gui::PushButtonImpl* newFolder,
                             ScrollButton* up, ScrollButton* down, int buttonY);

private:
    static void placeScrollButtons(int lookInWidth, ScrollButton* up, ScrollButton* down, int buttonY);
};

#endif // BROWSERNAVIGATION_H
