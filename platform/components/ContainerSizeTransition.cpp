#include "ContainerSizeTransition.h"

#include "ContainerImpl.h"

#include <QStateMachine>

ContainerSizeTransition::ContainerSizeTransition(ContainerImpl* container, const QString& sizeWord, QState* source,
                                                 QState* target)
    : QSignalTransition(container, &ContainerImpl::changeSize, source)
    , m_sizeWord(sizeWord)
{
    setTargetState(target);
}

bool ContainerSizeTransition::eventTest(QEvent* event)
{
    if (!QSignalTransition::eventTest(event))
        return false;
    const auto* signal = static_cast<QStateMachine::SignalEvent*>(event);
    return signal->arguments().value(0).toString() == m_sizeWord;
}
