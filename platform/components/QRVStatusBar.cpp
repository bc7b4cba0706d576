#include "QRVStatusBar.h"

#include "CSS.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTime>

QRVStatusBar::QRVStatusBar(QWidget* parent)
    : QFrame(parent)
    , m_messageLabel(new QLabel(this))
    , m_timeLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("StatusBar"));
    m_messageLabel->setObjectName(QStringLiteral("StatusMessage"));
    m_timeLabel->setObjectName(QStringLiteral("StatusTime"));
    m_messageLabel->setTextInteractionFlags(Qt::NoTextInteraction);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 8, 2);
    layout->addWidget(m_messageLabel, 1);
    layout->addWidget(m_timeLabel);
    setMinimumHeight(32);
    applyClassStyle(Brenmoor::Event::Information);
}

void QRVStatusBar::addPermanentWidget(QWidget* widget)
{
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->insertWidget(row->indexOf(m_timeLabel), widget);
}

QStringList QRVStatusBar::history() const { return m_history; }

QString QRVStatusBar::currentMessage() const { return m_messageLabel->text(); }

int QRVStatusBar::historyLimit() { return 20; }

void QRVStatusBar::addMessage(const QString& message)
{
    addMessage(message, QString(), Brenmoor::Event::Information);
}

void QRVStatusBar::addMessage(const QString& message, const QString& detail,
                              Brenmoor::Event::EventClass cls)
{
    const QString text = detail.isEmpty() ? message : message + QStringLiteral(": ") + detail;
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss"));

    m_messageLabel->setText(text);
    m_timeLabel->setText(time);
    applyClassStyle(cls);

    m_history.prepend(time + QLatin1Char(' ') + text);
    while (m_history.size() > historyLimit())
        m_history.removeLast();
    setToolTip(m_history.join(QLatin1Char('\n')));

    emit messageAdded(text);
}

void QRVStatusBar::applyClassStyle(Brenmoor::Event::EventClass cls)
{
    const QString accent = cls == Brenmoor::Event::Information ? CSS::text()
                         : cls == Brenmoor::Event::Warning     ? CSS::highlight()
                                                               : CSS::alert();
    setStyleSheet(QStringLiteral("QFrame#StatusBar { background-color: %1; border-top: 2px solid %2; }"
                                 "QLabel#StatusMessage { color: %3; font: bold 16px; }"
                                 "QLabel#StatusTime { color: %4; font: 14px; }")
                      .arg(CSS::panel(), CSS::border(), accent, CSS::text()));
}
