#ifndef QRVSTATUSBAR_H
#define QRVSTATUSBAR_H

#include "EventClass.h"

#include <QFrame>
#include <QStringList>

class QLabel;

/*!
  The bar at the foot of the screen where the interface tells the operator
  what went wrong or what happened.

  The newest message stands in the bar, coloured by its class; the bar keeps
  the last historyLimit() messages, newest first, with their times, and shows
  them as its tool tip.
*/
class QRVStatusBar : public QFrame
{
    Q_OBJECT

public:
    explicit QRVStatusBar(QWidget* parent = nullptr);

    //! Puts \a widget at the bar's right end, before the time, where no message covers it.
    void addPermanentWidget(QWidget* widget);

    //! The kept messages, newest first, each prefixed by its time.
    QStringList history() const;
    //! The message now shown, without its time.
    QString currentMessage() const;
    static int historyLimit();

public slots:
    void addMessage(const QString& message);
    void addMessage(const QString& message, const QString& detail, Brenmoor::Event::EventClass cls);

signals:
    void messageAdded(const QString& message);

private:
    void applyClassStyle(Brenmoor::Event::EventClass cls);

    QLabel* m_messageLabel = nullptr;
    QLabel* m_timeLabel = nullptr;
    QStringList m_history;
};

#endif // QRVSTATUSBAR_H
