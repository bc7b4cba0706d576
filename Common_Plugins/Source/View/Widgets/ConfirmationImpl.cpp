#include "ConfirmationImpl.h"

#include "ContainerDialog.h"
#include "GlobalImpl.h"
#include "SystemModule.h"

namespace {

QWidget* findTopContainer(QWidget* widget)
{
    for (QWidget* ancestor = widget; ancestor; ancestor = ancestor->parentWidget())
        if (ancestor->objectName() == QLatin1String("TopContainerObject"))
            return ancestor;
    return nullptr;
}

} // namespace

ConfirmationImpl::ConfirmationImpl(QWidget* widget)
    : m_topContainer(findTopContainer(widget))
    , m_widget(widget)
{
}

ConfirmationImpl::~ConfirmationImpl() = default;

QString ConfirmationImpl::dialogText() const { return m_dialogText; }
void ConfirmationImpl::setDialogText(const QString& text) { m_dialogText = text; }
int ConfirmationImpl::buttonStyle() const { return m_buttonStyle; }
void ConfirmationImpl::setButtonStyle(int style) { m_buttonStyle = style; }
int ConfirmationImpl::promptStyle() const { return m_promptStyle; }
void ConfirmationImpl::setPromptStyle(int style) { m_promptStyle = style; }

QString ConfirmationImpl::buttonList(int style)
{
    switch (style) {
    case 0: return QStringLiteral("Cancel,0|OK,1");
    case 1: return QStringLiteral("No,0|Yes,1");
    case 2: return QStringLiteral("OK,0");
    case 3: return QStringLiteral("OK,1");
    default: return QString();
    }
}

bool ConfirmationImpl::displayPrompt()
{
    return displayDialog(QString(), m_dialogText, buttonList(m_buttonStyle)) == 1;
}

QWidget* ConfirmationImpl::topContainer()
{
    // A form may give the button its screen only after construction.
    if (!m_topContainer)
        m_topContainer = findTopContainer(m_widget);
    return m_topContainer;
}

int ConfirmationImpl::displayDialog(const QString& title, const QString& text, const QString& buttons)
{
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    // The screen may go while the question stands, and take the dialog with it.
    QPointer<ContainerDialog> dialog = new ContainerDialog(screen);
    QWidget* top = topContainer();
    if (top && top->metaObject()->indexOfSignal("WindowClosed()") >= 0)
        QObject::connect(top, SIGNAL(WindowClosed()), dialog, SLOT(cancelDialog()));

    dialog->setQuestion(text, buttons);
    dialog->setWindowTitle(title, 0);
    const int result = dialog->exec(true);
    delete dialog.data();
    return result;
}
