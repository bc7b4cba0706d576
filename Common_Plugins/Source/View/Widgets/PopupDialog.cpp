#include "PopupDialog.h"

#include "ConfirmationImpl.h"
#include "ContainerDialog.h"
#include "GlobalImpl.h"
#include "SystemModule.h"

#include <QLabel>
#include <QPointer>

QString PopupDialog::message() const { return m_message; }
void PopupDialog::setMessage(const QString& message) { m_message = message; }
int PopupDialog::promptType() const { return m_promptType; }
void PopupDialog::setPromptType(int type) { m_promptType = type; }
int PopupDialog::promptFlag() const { return m_promptFlag; }
void PopupDialog::setPromptFlag(int flag) { m_promptFlag = flag; }

int PopupDialog::displayDialog(const QString& title, const QString& text, const QString& buttons)
{
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    // The screen may go while the question stands, and take the dialog with it.
    QPointer<ContainerDialog> dialog = new ContainerDialog(screen);
    dialog->setQuestion(text, buttons)->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    dialog->setWindowTitle(title, 0);
    const int result = dialog->exec(1);
    delete dialog.data();
    return result;
}

// The prompt types are the button styles of the confirmation buttons.
bool PopupDialog::displayPrompt()
{
    return displayDialog(QString(), m_message, ConfirmationImpl::buttonList(m_promptType)) == 1;
}
