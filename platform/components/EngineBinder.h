#ifndef ENGINEBINDER_H
#define ENGINEBINDER_H

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class QTimer;
class QWidget;
class WidgetBaseImpl;
struct EngineBinderAttempt;
struct EngineBinding;

/*!
  Binds the widgets of a host's screens to the engine by their
  AttributeName, as the instrument's UI process does, and binds them again
  when a lost engine comes back.

  The engine is found through a reference the host gives: an IOR or
  corbaloc text, or the path of a file holding one, read anew at each
  attempt (a restarted engine writes its new reference there). Looking the
  attributes up runs on a worker, where an absent or hung engine costs no
  interface time; the widgets are then bound on the interface thread, and
  an engine that dies under that pass ends it at its first failed call.

  While the widgets are bound, a worker asks the engine every
  watchInterval() milliseconds whether it is there, with a short time-out
  of its own, so that a dead or hung engine is seen within a second
  whatever the engine's topics say. While the engine is lost (EngineLink)
  the binder asks for it again every retryInterval() milliseconds; when it
  answers, every widget is bound anew, which lifts the veils, and the
  status bar says so once.

  Form conventions read here: "moreAttributes" (further attributes of a
  multi-column table, each heading its own column), "sizeWord" (the size
  word applied before binding), "readingSelector" and "unitSelector"
  (object names of the selectors that drive a meter).
*/
class EngineBinder : public QObject
{
    Q_OBJECT

public:
    explicit EngineBinder(const QString& engineReference, QObject* parent = nullptr);
    ~EngineBinder() override;

    //! Binds the screen's widgets now, or as soon as the engine answers.
    void addScreen(QWidget* screen);

    int retryInterval() const;
    void setRetryInterval(int milliseconds);
    int watchInterval() const;

    //! True while the widgets are bound to a live engine.
    bool isBound() const;

signals:
    //! After each pass that bound the widgets; \a widgets counts those bound.
    void bound(int widgets);
    /*!
      Something the host should tell the operator: a refused binding, or
      the names the engine does not know, all of a pass in one message.
    */
    void problem(const QString& text);

private:
    void attempt();
    std::shared_ptr<EngineBinderAttempt> widgetsToBind() const;
    void finishAttempt(const std::shared_ptr<EngineBinderAttempt>& result);
    void bindAll(EngineBinderAttempt& result);
    //! Adds the names the engine does not know; returns why the engine is lost, if it is.
    QString bindWidget(EngineBinding& binding, QStringList& unknownNames);
    void showLoss(const EngineBinderAttempt& result, const QString& reason);
    void engineLost();
    void watch();

    QString m_reference;
    QString m_boundReference;
    QList<QPointer<QWidget>> m_screens;
    QTimer* m_retry = nullptr;
    QTimer* m_watch = nullptr;
    bool m_attemptRunning = false;
    bool m_watchRunning = false;
    bool m_attemptAgain = false;
    bool m_bound = false;
};

#endif // ENGINEBINDER_H
