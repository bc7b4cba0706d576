#include "ComboBoxItemImpl.h"

#include "ComboBoxListImpl.h"
#include "QRVUtil.h"

#include <QMouseEvent>

ComboBoxItemImpl::ComboBoxItemImpl(ComboBoxListImpl* list, const QString& text, long value)
    : QPushButton(text)
    , m_list(list)
    , m_value(value)
{
    setObjectName(QStringLiteral("cbPushButton"));
    setFocusPolicy(Qt::NoFocus);
}

long ComboBoxItemImpl::getIndex() const { return m_value; }

int ComboBoxItemImpl::travel(const QMouseEvent* event) const
{
    return event->globalPos().y() - m_pressY;
}

void ComboBoxItemImpl::mousePressEvent(QMouseEvent* event)
{
    m_pressed = true;
    m_dragging = false;
    m_pressY = event->globalPos().y();
    m_list->beginMoveDropdown();
    // Only the handheld shows the pressed look; elsewhere the row stays flat.
    if (QRVUtil::isHandheld())
        QPushButton::mousePressEvent(event);
}

void ComboBoxItemImpl::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed)
        return;
    followDrag(travel(event));
}

bool ComboBoxItemImpl::followDrag(int dy)
{
    if (!m_dragging && qAbs(dy) < dragThreshold)
        return false;
    m_dragging = true;
    m_list->moveDropdown(dy);
    return true;
}

void ComboBoxItemImpl::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed)
        return;
    m_pressed = false;
    const int dy = travel(event);
    // A finger that came back after a drag still only dragged.
    if (followDrag(dy))
        m_list->endMoveDropdown(dy);
    else
        m_list->selectIndex(m_value);
    if (QRVUtil::isHandheld())
        QPushButton::mouseReleaseEvent(event);
}
