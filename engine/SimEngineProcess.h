#ifndef SIMENGINEPROCESS_H
#define SIMENGINEPROCESS_H

#include <Brenmoor.hh>
#include <SimControl.hh>

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/*!
  A simulated engine in a process of its own, for tests: starts
  rv-sim-engine on a scenario, waits until it serves, and hands out its
  directory and control objects. kill() ends it as a crash would, pause()
  as a hang; the destructor ends a process still running with SIGTERM, and
  SIGKILL only if that does not end it, so that it leaves no shared memory
  behind.

  The program is taken from RV_SIM_ENGINE, else the one built with this
  library. It inherits the environment, and so the DDS domain, and ends
  when the thread that started it ends, should the test crash.
*/
class SimEngineProcess
{
public:
    SimEngineProcess();
    ~SimEngineProcess();
    SimEngineProcess(const SimEngineProcess&) = delete;
    SimEngineProcess& operator=(const SimEngineProcess&) = delete;

    //! False, with errorString(), if the engine did not serve within the time.
    bool start(const QString& scenarioFile, int timeoutMs = 10000);
    //! New references, owned by the caller; nil before a successful start().
    Brenmoor::AttributeDirectory_ptr directory() const;
    SimEngineControl::Control_ptr control() const;

    //! SIGKILL, then waits for the process to end.
    void kill();
    //! SIGSTOP and SIGCONT: the engine hangs, and comes back.
    void pause();
    void resume();
    /*!
      Ends the engine if it runs, then starts it again on the same scenario
      and the same IOR files, as an engine restarted in place would be.
    */
    bool restart(int timeoutMs = 10000);
    //! SIGTERM; true if the engine then ended cleanly within the time.
    bool terminate(int timeoutMs = 5000);
    //! True if the engine ended cleanly (code 0) within the time; killed if it did not end.
    bool waitForExit(int timeoutMs = 5000);
    bool isRunning() const;
    QString errorString() const;
    //! Where the engine writes its directory's IOR.
    QString iorFile() const;

    static QString program();

private:
    bool waitForIorFiles(int timeoutMs);
    bool failStart(const QString& error);

    void signal(int number);

    QTemporaryDir m_folder;
    QString m_scenario;
    QProcess m_process;
    QString m_error;
    Brenmoor::AttributeDirectory_var m_directory;
    SimEngineControl::Control_var m_control;
};

#endif // SIMENGINEPROCESS_H
