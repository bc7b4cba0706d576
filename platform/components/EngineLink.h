#ifndef ENGINELINK_H
#define ENGINELINK_H

#include <QObject>
#include <QString>

#include <atomic>

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
    // Counts changes, so that an announcement overtaken by a newer change is dropped.
    std::atomic<unsigned> m_generation{0};
};

#endif // ENGINELINK_H
