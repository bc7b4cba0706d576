#include "AlertItem.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

AlertItem::AlertItem(const QString& text, QWidget* parent)
    : QWidget(parent)
    , m_text(text)
{
    auto* radio = new QPushButton(this);
    radio->setObjectName(QStringLiteral("radio_btn"));
    connect(radio, &QPushButton::clicked, this, &AlertItem::selectClicked);
    auto* label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("itm_text"));
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(radio);
    layout->addWidget(label, 1);
    setStyleSheet(styleSheetFor("error_radio.png"));
}

QString AlertItem::styleSheetFor(const char* radioImage)
{
    return QStringLiteral("QLabel#itm_text { background: transparent; color: #000; font-size: 16px; min-width: 200px; }"
                          "QPushButton#radio_btn { background: transparent; border: none;"
                          " border-image: url(:/images/%1); margin: 6px;"
                          " min-width: 32px; max-width: 32px; min-height: 32px; max-height: 32px; }")
        .arg(QLatin1String(radioImage));
}

bool AlertItem::selected() const { return m_selected; }
bool AlertItem::shown() const { return m_shown; }
void AlertItem::setShown(bool shown) { m_shown = shown; }
QString AlertItem::data() const { return m_text; }

QString AlertItem::details() const
{
    const int separator = m_text.indexOf(QLatin1String(": "));
    return separator < 0 ? m_text : m_text.mid(separator + 2);
}

void AlertItem::selectClicked()
{
    setSelected(!selected());
}

void AlertItem::setSelected(bool on)
{
    if (on == m_selected)
        return;
    m_selected = on;
    // Qt repolishes the button on a new sheet only once this row is polished
    // itself; a row selected before it first shows would keep its old look.
    ensurePolished();
    setStyleSheet(styleSheetFor(on ? "error_radio_selected.png" : "error_radio.png"));
    emit itemSelected(on ? data() : QString());
}
