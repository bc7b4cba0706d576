#include "ComboBoxListImpl.h"

#include "ComboBoxImpl.h"
#include "ComboBoxItemImpl.h"

#include <QDebug>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>
#include <QStyle>
#include <QVBoxLayout>

namespace {
// Height of one row of the strip, its dashed line included.
constexpr int rowHeight = 44;
}

ComboBoxListImpl::ComboBoxListImpl(ComboBoxImpl* owner, bool embedded, QWidget* parent)
    : ComboBoxListImpl(owner, owner->getValueField(), embedded, parent)
{
}

ComboBoxListImpl::ComboBoxListImpl(QWidget* owner, QLabel* valueField, bool embedded, QWidget* parent)
    : QFrame(parent)
    , m_embedded(embedded)
    , m_owner(owner)
    , m_valueField(valueField)
    , m_dropdown(new QFrame(this))
{
    setObjectName(QStringLiteral("ComboBoxList"));
    m_dropdown->setObjectName(QStringLiteral("dropdown"));
    auto* layout = new QVBoxLayout(m_dropdown);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    hide();
}

QList<ComboBoxItemImpl*> ComboBoxListImpl::items() const
{
    return m_dropdown->findChildren<ComboBoxItemImpl*>(QString(), Qt::FindDirectChildrenOnly);
}

long ComboBoxListImpl::getEnum() const
{
    if (m_rows.isEmpty())
        return m_noValueEnum;
    if (m_index < 0 || m_index >= m_rows.size()) {
        qDebug() << "UserInterface - ComboBoxList::getEnum m_index=" << m_index;
        return m_noValueEnum;
    }
    return m_rows.at(m_index).value;
}

QString ComboBoxListImpl::getText() const
{
    return m_index >= 0 && m_index < m_rows.size() ? m_rows.at(m_index).text : QString();
}

QList<ComboBoxListStruct> ComboBoxListImpl::getList() const { return m_rows; }

void ComboBoxListImpl::setEnum(long value)
{
    ++m_missCount;
    for (int i = 0; i < m_rows.size(); ++i) {
        if (m_rows.at(i).value == value) {
            setIndex(i);
            m_missCount = 0;
        }
    }
    // An embedded selector keeps its row: its owner decides what the value means.
    if (m_missCount == 0 || m_embedded)
        return;
    if (m_missCount == 1) {
        // The engine may know a choice this list does not yet have.
        emit requestList();
        return;
    }
    m_missCount = 0;
    if (!m_rows.isEmpty())
        setIndex(0);
}

void ComboBoxListImpl::setText(const QString& text)
{
    for (int i = 0; i < m_rows.size(); ++i) {
        if (m_rows.at(i).text == text)
            setIndex(i);
    }
}

void ComboBoxListImpl::selectIndex(long idx)
{
    if (!isChoosable(idx))
        return;
    setEnum(idx);
    emit submit(idx);
}

bool ComboBoxListImpl::isChoosable(long value) const
{
    for (const ComboBoxListStruct& row : m_rows) {
        if (row.value == value)
            return row.enabled;
    }
    return false;
}

void ComboBoxListImpl::setIndex(int i)
{
    if ((i < 0 || i >= m_rows.size()) && !m_rows.isEmpty())
        return;
    m_index = i;
    markSelectedRow();
    // Only an open list closes: a fetch before opening must not end the entry.
    if (isVisible())
        emit closeInput();
    if (m_valueField)
        m_valueField->setText(getText());
    emit currentIndexChanged(i);
}

void ComboBoxListImpl::markSelectedRow()
{
    const QList<ComboBoxItemImpl*> buttons = items();
    for (int i = 0; i < buttons.size(); ++i) {
        ComboBoxItemImpl* button = buttons.at(i);
        const bool selected = i == m_index;
        QFont font = button->font();
        font.setWeight(selected ? 75 : 50);
        button->setFont(font);
        if (button->property("selected").toBool() == selected)
            continue;
        button->setProperty("selected", selected);
        button->style()->unpolish(button);
        button->style()->polish(button);
    }
}

void ComboBoxListImpl::setList(const QList<ComboBoxListStruct>& list, long current)
{
    m_rows = list;
    qDeleteAll(items());
    m_itemWidth = 0;
    m_itemHeight = 0;
    for (int i = 0; i < m_rows.size(); ++i) {
        const ComboBoxListStruct& row = m_rows.at(i);
        auto* item = new ComboBoxItemImpl(this, row.text, row.value);
        if (i == m_rows.size() - 1)
            item->setObjectName(QStringLiteral("lastPushButton"));
        item->setProperty("choosable", row.enabled);
        m_dropdown->layout()->addWidget(item);
        item->ensurePolished();
        m_itemWidth = qMax(m_itemWidth, QFontMetrics(item->font()).horizontalAdvance(row.text) + 6);
        m_itemHeight += rowHeight;
    }
    setEnum(current);
}

QRect ComboBoxListImpl::getGeometry() const
{
    if (!m_valueField)
        return QRect();
    const QRect field = m_valueField->rect().adjusted(-2, -2, 2, 2);
    const QWidget* screen = parentWidget();
    if (!screen)
        return field;
    return QRect(screen->mapFromGlobal(m_valueField->mapToGlobal(field.topLeft())), field.size());
}

void ComboBoxListImpl::beginShow()
{
    if (m_rows.isEmpty()) {
        emit closeInput();
        return;
    }
    m_dragStart = 0;
    m_moving = false;
    if (parentWidget())
        setGeometry(parentWidget()->rect());
    m_fieldGeometry = getGeometry();
    show();
    raise();
    m_dropdown->resize(qMax(m_itemWidth + 24, m_fieldGeometry.width() + 1), m_itemHeight);
    // The selected row's place is needed now, before the first paint.
    m_dropdown->layout()->activate();
    moveDropdown(0);
}

void ComboBoxListImpl::moveDropdown(int y)
{
    m_rowTop = 0;
    const long selected = getEnum();
    for (const ComboBoxItemImpl* item : items()) {
        if (item->getIndex() == selected) {
            m_rowTop = item->y() - 2;
            break;
        }
    }
    const int stripY = m_fieldGeometry.top() + m_dragStart - m_rowTop + boundY(y);
    const int left = m_fieldGeometry.left();
    const int right = m_fieldGeometry.right();
    int x = right - 3;
    // Not enough room to the right of the field: open to its left.
    if (m_dropdown->width() + right + 1 > width()) {
        x = left + 4 - m_dropdown->width();
        if (x < 0)
            x = left;
    }
    m_dropdown->move(x, stripY);
}

int ComboBoxListImpl::boundY(int y) const
{
    if (m_rows.isEmpty())
        return y;
    const int fieldHeight = m_valueField ? m_valueField->height() : 0;
    const int stripHeight = m_dropdown->height();
    const int screenHeight = height();
    const int fieldTop = m_fieldGeometry.top();
    int p = y + m_dragStart - m_rowTop;
    if (p < fieldHeight + 4 - stripHeight)
        p = fieldHeight + 4 - stripHeight;
    if (p >= 1)
        p = 0;
    if (stripHeight < screenHeight) {
        const int top = qMax(-2, qMin(p + fieldTop, screenHeight - stripHeight + 2));
        p = top - fieldTop;
    }
    return p - m_dragStart + m_rowTop;
}

void ComboBoxListImpl::beginMoveDropdown()
{
    if (m_moving)
        return;
    m_dragStart = 0;
    moveDropdown(0);
    m_dragStart = boundY(0);
    m_moving = true;
}

void ComboBoxListImpl::endMoveDropdown(int y)
{
    m_dragStart += boundY(y);
}

void ComboBoxListImpl::mousePressEvent(QMouseEvent* event)
{
    if (!m_dropdown->geometry().contains(event->pos()))
        emit closeInput();
    QWidget::mousePressEvent(event);
}
