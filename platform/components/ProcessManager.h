#ifndef PROCESSMANAGER_H
#define PROCESSMANAGER_H

#include <QObject>
#include <QQueue>
#include <QStringList>

class QProcess;

/*!
  Runs the file operations of the interface (copy, delete, sync) as
  external programs, one at a time, without blocking the interface thread.

  A command line is split into words with the usual quote rules and the
  program is executed directly: no shell ever sees the text, so a file name
  such as "a;reboot" or "$(rm -rf ~)" stays one harmless word. Callers that
  hold file names give the program and its arguments as a list instead, so
  that no name is ever split or unquoted; they put "--" before the paths,
  so that a name beginning with a dash is never taken for an option.
  Commands given while one runs wait their turn. Every command ends with
  finished(), with a non-zero status when it could not start or crashed.
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

    /*!
      Runs \a program with exactly \a arguments, each one word as given.
      \a shownCommand is how the command reads in the debug channel (for a
      copy, the command line as an operator would type it); it is never run.
    */
    void startProcess(const QString& program, const QStringList& arguments, const QString& shownCommand);

public slots:
    //! Runs a command line, split into words as described above.
    void startProcess(const QString& command);

signals:
    void started();
    void finished(int status);

private:
    struct Command
    {
        QString program;
        QStringList arguments;
        QString shown;
    };

    void enqueue(Command command);
    void scheduleNext();
    void startNext();
    void reportEnd(int status);
    void onFinished(int exitCode, int exitStatus);
    void onErrorOccurred(int error);

    QProcess* m_process = nullptr;
    QQueue<Command> m_pending;
    bool m_busy = false;
};

#endif // PROCESSMANAGER_H
