#include "NumericUnitSelector.h"

#include "ComboBoxImpl.h"

#include <QGridLayout>

NumericUnitSelector::NumericUnitSelector(QWidget* field, std::function<void(long)> onChoice)
    : m_field(field)
    , m_onChoice(std::move(onChoice))
{
}

void NumericUnitSelector::offer(const QStringList& labels, const QList<long>& keys, long shown)
{
    m_labels = labels;
    m_keys = keys;
    m_onlyBaseUnit = false;
    const bool created = !m_selector;
    if (created) {
        m_selector = new ComboBoxImpl(true);
        static_cast<QGridLayout*>(m_field->layout())->addWidget(m_selector, 1, 1);
        QObject::connect(m_selector, &ComboBoxImpl::updateEnum, m_field, m_onChoice);
    }
    QList<ComboBoxListStruct> list;
    for (int i = 0; i < keys.size(); ++i)
        list << ComboBoxListStruct(keys.at(i), labels.at(i), true);
    m_selector->setList(list, -1);
    m_selector->fitToWidestChoice();
    if (!created)
        return;
    m_selector->setEnabled(false);
    m_selector->setEnum(shown);
}

void NumericUnitSelector::offerOnly(const QString& label)
{
    offer(QStringList{label}, QList<long>{0}, 0);
    m_onlyBaseUnit = true;
}

bool NumericUnitSelector::offers(long key) const
{
    return m_keys.contains(key) && !m_onlyBaseUnit;
}

const QList<long>& NumericUnitSelector::keys() const { return m_keys; }
const QStringList& NumericUnitSelector::labels() const { return m_labels; }
bool NumericUnitSelector::showsUnit() const { return !m_labels.isEmpty() && !m_labels.first().isEmpty(); }
ComboBoxImpl* NumericUnitSelector::widget() const { return m_selector; }
QString NumericUnitSelector::text() const { return m_selector ? m_selector->getText() : QString(); }
long NumericUnitSelector::key(long otherwise) const { return m_selector ? m_selector->getEnum() : otherwise; }

void NumericUnitSelector::show(long key)
{
    if (m_selector)
        m_selector->setEnum(key);
}

void NumericUnitSelector::setEnabled(bool enabled)
{
    if (m_selector)
        m_selector->setEnabled(enabled);
}

int NumericUnitSelector::visibleWidth() const
{
    return m_selector && m_selector->isVisible() ? m_selector->width() : 0;
}

void NumericUnitSelector::clear()
{
    if (m_selector)
        m_selector->clear();
}

void NumericUnitSelector::setReadOnlyStyle()
{
    if (m_selector)
        m_selector->setReadOnlyStyle();
}
