#include "PushButtonImpl.h"

#include "CSS.h"
#include "CommandLink.h"
#include "GlobalImpl.h"

#include <QCoreApplication>
#include <QDebug>
#include <QPushButton>
#include <QVBoxLayout>

namespace Kelvane {
namespace gui {

PushButtonImpl::PushButtonImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_button(new QPushButton(this))
{
    m_button->setObjectName(QStringLiteral("PushButton"));
    m_button->setFocusPolicy(Qt::NoFocus);
    m_button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    // The sheet sits on the frame, not on the button, so that a derived
    // button can restyle itself with a sheet of its own.
    setStyleSheet(faceStyleSheet());
    connect(m_button, &QPushButton::clicked, this, &PushButtonImpl::buttonClicked);
}

PushButtonImpl::~PushButtonImpl()
{
    // A command still on its way reads this button's interface.
    waitForSends();
}

QString PushButtonImpl::buttonText() const { return m_buttonText; }

void PushButtonImpl::setButtonText(const QString& text)
{
    m_buttonText = text;
    retranslate();
}

void PushButtonImpl::retranslate()
{
    WidgetBaseImpl::retranslate();
    m_button->setText(QCoreApplication::translate("PushButtonImpl", m_buttonText.toUtf8().constData()));
}

void PushButtonImpl::buttonClicked()
{
    emit clicked();
    if (const CommandLink* command = link<CommandLink>())
        sendOnWorker([this, command] { sendCommand(command); });
}

void PushButtonImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    bindAs<CommandLink>(attr, CommandLink::AttribBoolean | CommandLink::AttribLong,
                        ">>>>>Expected Boolean/Long type but received: %s (%s)");
}

void PushButtonImpl::sendCommand(const CommandLink* command)
{
    QString failure;
    const EngineCall outcome = callEngine(
        [this, command] {
            qDebug() << "UserInterface - PushButton:" << getAttributeName() << "- Sending command";
            command->trigger();
        },
        &failure);
    if (outcome != EngineCall::Refused)
        return;
    qDebug() << "UserInterface - PushButton:" << getAttributeName() << "threw exception while sending:" << failure;
    emit exceptionMessage(getAttributeName() + QStringLiteral(" threw an exception while sending: ") + failure);
}

QPushButton* PushButtonImpl::button() const { return m_button; }

QString PushButtonImpl::faceStyleSheet()
{
    return QStringLiteral("QPushButton#PushButton {"
                          "    color: %1;"
                          "    background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
                          "        stop:0 %2, stop:0.5 %3, stop:1 %4);"
                          "    border: 2px solid %5;"
                          "    border-radius: 10px;"
                          "    font-size: 18px;"
                          "    min-height: 32px;"
                          "    padding: 2px 8px;"
                          "}"
                          "QPushButton#PushButton:pressed { background-color: %5; }"
                          "QPushButton#PushButton:disabled { color: %3; border-color: %3; }")
        .arg(CSS::text(), CSS::gradientLight(), CSS::gradientMiddle(), CSS::gradientDark(), CSS::border());
}

} // namespace gui
} // namespace Kelvane
