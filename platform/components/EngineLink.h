#ifndef ENGINELINK_H
#define ENGINELINK_H

#include <QMutex>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>

namespace CORBA {
class Exception;
class Object;
typedef Object* Object_ptr;
}

/*!
  The interface's one link to the measurement engine, as every bound widget
  sees it.

  A call that finds the engine gone or hung, or the engine's topics falling
  silent, marks the link lost; from then on no widget calls the engine, and
  each bound widget shows the loss. The host marks it live again once the
  engine answers (see EngineBinder). Each change is told once in the status
  bar, whatever number of widgets noticed it.
*/
class EngineLink : public QObject
{
    Q_OBJECT

public:
    //! Never null; lives on the interface thread. Safe from any thread.
    static EngineLink* instance();

    bool isLost() const;
    //! The first report of a loss wins; the others are ignored. Safe from any thread.
    void reportLost(const QString& reason);
    //! The engine answers again. Safe from any thread.
    void reportLive();
    /*!
      A topic of the engine fell silent. That alone may be a killed engine's
      writer, still listed for a while after a new engine took its place;
      so when a check is set, the link is lost only if the engine fails it
      too. Without a check, silence is a loss. Safe from any thread.
    */
    void reportSilence();
    /*!
      \a check asks the engine, on a worker, and returns why it is gone, or
      an empty string when it answers. An empty function removes the check.
    */
    void setSilenceCheck(std::function<QString()> check);

    /*!
      The name of \a error if it means the engine is gone or hung (not
      reachable, connection broken, call timed out, object vanished);
      null for a refusal or an unreadable value. A broken connection is a
      loss only if \a engineObject, when given, does not answer either:
      the ORB also breaks it on a reply larger than it takes.
    */
    static const char* lossReason(const CORBA::Exception& error, CORBA::Object_ptr engineObject = nullptr);

signals:
    //! On the interface thread, once per loss.
    void lost(const QString& reason);
    void restored();

private:
    EngineLink();
    void announce(bool lost, const QString& reason, unsigned generation);

    std::atomic<bool> m_lost{false};
    std::atomic<bool> m_checkingSilence{false};
    QMutex m_silenceCheckMutex;
    std::function<QString()> m_silenceCheck;
    // Counts changes, so that an announcement overtaken by a newer change is dropped.
    std::atomic<unsigned> m_generation{0};
};

#endif // ENGINELINK_H
