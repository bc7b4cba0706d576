#ifndef PROCESSMANAGER_H
#define PROCESSMANAGER_H

#include <QObject>
#include <QQueue>

class QProcess;

/*!
  Runs the file operations of the interface (copy, delete, sync) as
  external programs, one at a time, without blocking the interface thread.

  A command line is split into words with the usual quote rules and the
  program is executed directly: no shell ever sees the text, so a file name
  such as "a;reboot" or "$(rm -rf ~)" stays one harmless word. Commands
  given while one runs wait their turn. Every command ends with finished(),
  with a non-zero status when it could not start or crashed.
*/
class ProcessManager : public QObject
{
    Q_OBJECT

public:
    //! Status reported for a command that could not be started.
    static constexpr int FailedToStart = 127;
    //! Status reported for a program that crashed.
    static constexpr int Crashed = 128;

    explicit ProcessManager(QObject* parent = nullptr);
    ~ProcessManager() override;

    bool isRunning() const;

public slots:
    void startProcess(const QString& command);

signals:
    void started();
    void finished(int status);

private:
    void scheduleNext();
    void startNext();
    void reportEnd(int status);
    void onFinished(int exitCode, int exitStatus);
    void onErrorOccurred(int error);

    QProcess* m_process = nullptr;
    QQueue<QStringList> m_pending;
    bool m_busy = false;
};

#endif // PROCESSMANAGER_H
