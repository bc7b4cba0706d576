#include "FileBrowserImpl.h"

#include "BrowserFilters.h"
#include "BrowserNavigation.h"
#include "ComboBoxImpl.h"
#include "ListView.h"
#include "NewFolderPrompt.h"
#include "PushButtonImpl.h"
#include "ScrollButton.h"
#include "TextEntryImpl.h"
#include "TextWidget.h"
#include "TreeView.h"
#include "VerticalScrollBarImpl.h"

#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSplitter>
#include <QVBoxLayout>

using Kelvane::gui::PushButtonImpl;

FileBrowserImpl::FileBrowserImpl(const QString& path, QWidget* parent)
    : ContainerImpl(parent)
    , m_newFolderButton(new PushButtonImpl)
    , m_cancelButton(new PushButtonImpl)
    , m_openButton(new PushButtonImpl)
    , m_fileTypeCombo(new ComboBoxImpl)
    , m_lookInText(new TextWidget(nullptr, QStringLiteral("Look in")))
    , m_scrollUpButton(new ScrollButton(Qt::LeftArrow, m_lookInText))
    , m_scrollDownButton(new ScrollButton(Qt::RightArrow, m_lookInText))
    , m_fileNameEntry(new TextEntryImpl(nullptr, QStringLiteral("File name")))
    , m_treeView(new TreeView)
    , m_listView(new ListView)
    , m_fileSystemModel(new QFileSystemModel(this))
    , m_newFolderPrompt(new NewFolderPrompt(parent))
{
    setMinimumSize(480, 480);
    m_fileTypeCombo->setLabel(QStringLiteral("Files of type"));
    m_newFolderButton->setButtonText(QStringLiteral("New Folder"));
    m_scrollButtonY = m_lookInText->y() + 12;
    BrowserNavigation::setUpLookInRow(m_lookInText, m_newFolderButton, m_scrollUpButton, m_scrollDownButton,
                                      m_scrollButtonY);
    buildViews();
    connectParts();
    setFilters(QStringLiteral("Python Scripts (*.py)|All Files (*)"));
    m_openButton->setButtonText(QStringLiteral("Open"));
    m_cancelButton->setButtonText(QStringLiteral("Cancel"));
    m_openButton->setMaximumWidth(120);
    m_cancelButton->setMaximumWidth(120);
    buildLayout();
    setWindowTitle(QStringLiteral("File Find"), 0);

    const bool known = !path.isNull() && m_fileSystemModel->index(path).isValid();
    m_rootPath = known ? path : QDir::homePath();
    m_fileSystemModel->setResolveSymlinks(true);
    setRootPath(m_rootPath);
}

FileBrowserImpl::~FileBrowserImpl()
{
    delete m_newFolderPrompt.data();
}

void FileBrowserImpl::buildViews()
{
    m_listView->useSystemScrollBars();
    auto* treeBar = new Kelvane::gui::VerticalScrollBarImpl;
    treeBar->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    m_treeView->setVerticalScrollBar(treeBar);
    m_treeView->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

    // Filtered files vanish rather than grey out.
    m_fileSystemModel->setNameFilterDisables(false);
    m_treeView->setModel(m_fileSystemModel);
    m_listView->setModel(m_fileSystemModel);
    for (int column = 1; column <= 3; ++column)
        m_treeView->hideColumn(column);
    m_treeView->header()->hide();
    m_treeView->setFocusPolicy(Qt::ClickFocus);
    m_listView->setFocusPolicy(Qt::ClickFocus);
}

void FileBrowserImpl::buildLayout()
{
    auto* topRow = new QHBoxLayout;
    topRow->setSpacing(20);
    topRow->addWidget(m_lookInText);
    // Level with the path line, not as tall as the row.
    topRow->addWidget(m_newFolderButton, 0, Qt::AlignBottom);

    auto* viewer = new QFrame;
    viewer->setObjectName(QStringLiteral("Viewer"));
    auto* splitter = new QSplitter;
    splitter->addWidget(m_treeView);
    splitter->addWidget(m_listView);
    auto* viewerBox = new QHBoxLayout(viewer);
    viewerBox->setSpacing(0);
    viewerBox->setContentsMargins(0, 0, 0, 0);
    viewerBox->addWidget(splitter);

    auto* entries = new QVBoxLayout;
    entries->setSpacing(0);
    entries->setContentsMargins(0, 0, 0, 0);
    entries->addWidget(m_fileNameEntry);
    entries->addWidget(m_fileTypeCombo);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(0);
    buttons->setContentsMargins(0, 10, 0, 0);
    buttons->addWidget(m_openButton);
    buttons->addWidget(m_cancelButton);
    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(12);
    bottom->addLayout(entries, 1);
    bottom->addLayout(buttons);

    auto* frame = new QVBoxLayout;
    frame->addLayout(topRow);
    // Room that the browser gains goes to the views.
    frame->addWidget(viewer, 1);
    frame->addLayout(bottom);
    setLayout(frame);
    getContainerFrame()->setStyleSheet(QStringLiteral(
        "QFrame {    background-color: transparent;    border: none;}"
        "QFrame#Viewer {    background: transparent;    border: 2px solid white;    border-radius: 10px;}"
        "QListView {    background-color: transparent;}"
        "QListView::item:selected {   selection-color: black;   selection-background-color: white;}"
        "QListView::item::text {    color: white;}"
        "QTreeView {    background-color: transparent;}"
        "QTreeView::item:selected {   selection-color: black;   selection-background-color: white;}"
        "QTreeView::item::text {    color: white;}"));
}

void FileBrowserImpl::connectParts()
{
    connect(m_treeView, &QTreeView::clicked, this, &FileBrowserImpl::setRootIndex);
    connect(m_listView, &QListView::doubleClicked, this, &FileBrowserImpl::setRootIndex);
    connect(m_listView, &QListView::clicked, this, qOverload<const QModelIndex&>(&FileBrowserImpl::setFileName));
    connect(this, &FileBrowserImpl::newPath, this, qOverload<const QModelIndex&>(&FileBrowserImpl::setFileName));
    connect(m_scrollUpButton, &ScrollButton::mouseUp, this, &FileBrowserImpl::moveUp);
    connect(m_scrollDownButton, &ScrollButton::mouseUp, this, &FileBrowserImpl::moveDown);
    connect(m_fileTypeCombo, &ComboBoxImpl::currentIndexChanged, this, &FileBrowserImpl::setFilter);
    connect(m_newFolderButton, &PushButtonImpl::clicked, this, &FileBrowserImpl::promptForFolderName);
    connect(m_cancelButton, &PushButtonImpl::clicked, this, &FileBrowserImpl::close);
    connect(m_openButton, &PushButtonImpl::clicked, this, &FileBrowserImpl::submit);
    connect(m_newFolderPrompt, &NewFolderPrompt::newFolderName, this, &FileBrowserImpl::createNewFolder);
    connect(this, &ContainerBase::WindowClosed, this, &FileBrowserImpl::closePrompt);
}

QString FileBrowserImpl::fileName() const { return m_fileNameEntry->text(); }
void FileBrowserImpl::setFileName(const QString& name) { m_fileNameEntry->setText(name); }
QString FileBrowserImpl::filters() const { return BrowserFilters::filters(m_fileTypeCombo); }
void FileBrowserImpl::setButtonText(const QString& text) { m_openButton->setButtonText(text); }
void FileBrowserImpl::addKeyboard() { m_fileNameEntry->addKeyboard(); }

void FileBrowserImpl::setFilters(const QString& flts) { BrowserFilters::setFilters(m_fileTypeCombo, flts); }
void FileBrowserImpl::setFilter() { BrowserFilters::applyFilter(m_fileTypeCombo, m_fileSystemModel); }
void FileBrowserImpl::setBrowserTitle(const QString& title) { ContainerBase::setWindowTitle(title, 0); }

void FileBrowserImpl::setRootPath(const QString& path)
{
    m_fileSystemModel->setRootPath(path);
    const QModelIndex index = m_fileSystemModel->index(path);
    m_treeView->setRootIndex(index);
    setRootIndex(index);
}

void FileBrowserImpl::setRootIndex(const QModelIndex& index)
{
    BrowserNavigation::showDirectory(m_fileSystemModel, m_listView, m_treeView, m_lookInText, index);
    emit newPath(index);
}

void FileBrowserImpl::setFileName(const QModelIndex& index)
{
    m_fileNameEntry->setText(BrowserNavigation::fileNameFor(m_fileSystemModel, index));
}

// "Up" and "down" are the lines of the tree as it is expanded, not parent
// and child: the arrows walk the tree's directories one line at a time.
void FileBrowserImpl::moveUp() { stepToDirectory(&QTreeView::indexAbove); }
void FileBrowserImpl::moveDown() { stepToDirectory(&QTreeView::indexBelow); }

void FileBrowserImpl::stepToDirectory(QModelIndex (QTreeView::*step)(const QModelIndex&) const)
{
    QModelIndex line = (m_treeView->*step)(m_treeView->currentIndex());
    while (line.isValid() && !m_fileSystemModel->isDir(line))
        line = (m_treeView->*step)(line);
    if (line.isValid())
        setRootIndex(line);
}

void FileBrowserImpl::promptForFolderName()
{
    m_newFolderPrompt->propose(m_fileSystemModel, m_lookInText->getText(), this);
}

void FileBrowserImpl::createNewFolder(const QString& folderName)
{
    m_fileSystemModel->mkdir(m_fileSystemModel->index(m_lookInText->getText()), folderName);
}

void FileBrowserImpl::closePrompt() { m_newFolderPrompt->hide(); }

// Neither the name nor the file is checked: the host that asked decides.
void FileBrowserImpl::submit()
{
    emit fileSelected(m_lookInText->getText() + QLatin1Char('/') + m_fileNameEntry->text());
    close();
}

void FileBrowserImpl::resizeEvent(QResizeEvent* event)
{
    ContainerImpl::resizeEvent(event);
    const int w = width();
    BrowserNavigation::fitLookInRow(w, m_lookInText, m_newFolderButton, m_scrollUpButton, m_scrollDownButton,
                                    m_scrollButtonY);
    const int actionWidth = static_cast<int>(w * 0.2222);
    m_openButton->setMaximumWidth(actionWidth);
    m_cancelButton->setMaximumWidth(actionWidth);
}

// The fixed texts come back as first given: a browser relabelled "Save"
// reads "Open" again, and the two entries take their short labels.
void FileBrowserImpl::retranslate()
{
    ContainerBase::retranslate();
    m_lookInText->retranslate();
    m_newFolderButton->setButtonText(QStringLiteral("New Folder"));
    m_cancelButton->setButtonText(QStringLiteral("Cancel"));
    m_openButton->setButtonText(QStringLiteral("Open"));
    m_fileTypeCombo->setLabel(QStringLiteral("File of type"));
    m_fileNameEntry->setLabel(QStringLiteral("File"));
    if (auto* ok = m_newFolderPrompt->findChild<PushButtonImpl*>(QStringLiteral("Ok")))
        ok->setButtonText(QStringLiteral("OK"));
    if (auto* folder = m_newFolderPrompt->findChild<TextEntryImpl*>(QStringLiteral("folder")))
        folder->setLabel(QStringLiteral("New Folder Name"));
}
