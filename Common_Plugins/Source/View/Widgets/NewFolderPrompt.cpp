#include "NewFolderPrompt.h"

#include "PushButtonImpl.h"
#include "QRVUtil.h"
#include "TextEntryImpl.h"

#include <QFileSystemModel>
#include <QHBoxLayout>

NewFolderPrompt::NewFolderPrompt(QWidget* parent)
    : ContainerImpl(parent)
    , m_folderEntry(new TextEntryImpl(nullptr, QStringLiteral("New Folder Name")))
    , m_okButton(new Kelvane::gui::PushButtonImpl)
{
    setMinimumSize(380, 160);
    m_folderEntry->setObjectName(QStringLiteral("folder"));
    m_folderEntry->addKeyboard();
    m_okButton->setObjectName(QStringLiteral("Ok"));
    m_okButton->setButtonText(QStringLiteral("OK"));

    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    // Both at their own heights, the button level with the line.
    row->addWidget(m_folderEntry, 1, Qt::AlignBottom);
    row->addWidget(m_okButton, 0, Qt::AlignBottom);
    setLayout(row);
    setWindowTitle(QStringLiteral("Rename Folder"), 0);
    hide();
    // A name is typed, not read at length: the prompt has one size.
    if (QWidget* maxRestore = findChild<QWidget*>(QStringLiteral("ContainerMaxRestore")))
        maxRestore->hide();
    connect(m_okButton, &Kelvane::gui::PushButtonImpl::clicked, this, &NewFolderPrompt::done);
}

QString NewFolderPrompt::freeFolderName(const QFileSystemModel* model, const QString& directory)
{
    const QString plain = QStringLiteral("New Folder");
    QString candidate = plain;
    for (int suffix = 2; model->index(directory + QLatin1Char('/') + candidate).isValid(); ++suffix)
        candidate = plain + QLatin1Char('_') + QString::number(suffix);
    return candidate;
}

void NewFolderPrompt::propose(const QFileSystemModel* model, const QString& directory, const QWidget* anchor)
{
    setFolderName(freeFolderName(model, directory));
    // Centre on the size the prompt will show with.
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    move(QRVUtil::centredOn(anchor, this));
    setVisible(true);
    raise();
}

QString NewFolderPrompt::folderName() const { return m_folderEntry->text(); }
void NewFolderPrompt::setFolderName(const QString& name) { m_folderEntry->setText(name); }

void NewFolderPrompt::done()
{
    hide();
    emit newFolderName(m_folderEntry->text());
}
