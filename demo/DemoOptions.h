#ifndef DEMOOPTIONS_H
#define DEMOOPTIONS_H

#include <QCommandLineParser>
#include <QStringList>

/*!
  rv-demo's command line: every option with what it does, the instrument
  host's switches ("-systype handheld") among them, and whether a run can
  start at all. A host switch takes one dash or two.
*/
class DemoOptions
{
public:
    explicit DemoOptions(const QStringList& arguments);

    //! Whether \a argv asks for the usage; needs no application object, hence no display.
    static bool asksForHelp(int argc, char* argv[]);
    QString helpText() const;

    //! Empty when the demo can run; otherwise one line that says why not.
    QString error() const;

    //! The forms to show: the one of --form, those of --forms, or the built-in screens.
    QStringList formFiles() const;
    //! True for the demo's own screens, whose attributes the demo's scenario has.
    bool showsBuiltInScreens() const;
    //! Empty when the demo starts a simulated engine of its own on scenario().
    QString engineIorFile() const;
    QString scenario() const;
    //! Empty unless the screens are to be written as PNGs and the demo then ends.
    QString renderFolder() const;
    int seconds() const;

    //! Copies the host switches given into application properties, where the widgets read them.
    void applyStartupSwitches() const;

private:
    QString formsFolder() const;
    QString valueError() const;

    QCommandLineParser m_parser;
    bool m_parsed = false;
};

#endif // DEMOOPTIONS_H
