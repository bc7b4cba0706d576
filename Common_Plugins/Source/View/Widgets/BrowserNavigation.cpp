#include "BrowserNavigation.h"

#include "ListView.h"
#include "PushButtonImpl.h"
#include "ScrollButton.h"
#include "TextWidget.h"
#include "TreeView.h"

#include <QFileSystemModel>

namespace {

constexpr int scrollButtonSide = 32;

} // namespace

bool BrowserNavigation::isDirectory(const QFileSystemModel* model, const QModelIndex& index)
{
    return index.isValid() && model->isDir(index);
}

void BrowserNavigation::showDirectory(const QFileSystemModel* model, ListView* list, TreeView* tree,
                                      TextWidget* lookIn, const QModelIndex& index)
{
    QModelIndex directory = index.sibling(index.row(), 0);
    if (!isDirectory(model, directory))
        directory = directory.parent();
    if (directory == list->rootIndex() || !isDirectory(model, directory))
        return;
    list->setRootIndex(directory);
    tree->setCurrentIndex(index);
    lookIn->setText(model->filePath(directory));
}

QString BrowserNavigation::fileNameFor(const QFileSystemModel* model, const QModelIndex& index)
{
    return isDirectory(model, index) ? QString() : index.data().toString();
}

void BrowserNavigation::setUpLookInRow(TextWidget* lookIn, Kelvane::gui::PushButtonImpl* newFolder,
                                       ScrollButton* up, ScrollButton* down, int buttonY)
{
    lookIn->setCSS(QStringLiteral("QLineEdit{margin: 0px 35px 0px 35px;} QLabel{margin-left: 45px;}"));
    lookIn->setFixedWidth(300);
    lookIn->setReadOnly();
    newFolder->setMaximumWidth(162);
    up->resize(scrollButtonSide, scrollButtonSide);
    down->resize(scrollButtonSide, scrollButtonSide);
    placeScrollButtons(lookIn->width(), up, down, buttonY);
}

void BrowserNavigation::fitLookInRow(int browserWidth, TextWidget* lookIn,
                                     Kelvane::gui::PushButtonImpl* newFolder, ScrollButton* up, ScrollButton* down,
                                     int buttonY)
{
    // The button's width as the layout is about to give it: its new minimum is its maximum.
    const int button = static_cast<int>(browserWidth * 0.3);
    newFolder->setMinimumWidth(button);
    newFolder->setMaximumWidth(button);
    const int line = static_cast<int>((browserWidth - button) - 0.235 * button);
    lookIn->setMinimumWidth(line);
    lookIn->setMaximumWidth(line);
    placeScrollButtons(line, up, down, buttonY);
}

void BrowserNavigation::placeScrollButtons(int lookInWidth, ScrollButton* up, ScrollButton* down, int buttonY)
{
    up->move(0, buttonY);
    down->move(lookInWidth - scrollButtonSide, buttonY);
}
