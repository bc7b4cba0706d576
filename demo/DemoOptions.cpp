#include "DemoOptions.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace {

const QString builtInForms = QStringLiteral(":/demo/forms");

//! The switches the instrument's host passes to every UI process; the widgets read them as properties.
const QList<QCommandLineOption>& startupSwitches()
{
    static const QList<QCommandLineOption> switches{
        {QStringLiteral("systype"), QStringLiteral("Instrument the widgets are drawn for: \"handheld\" for the handheld one."),
         QStringLiteral("type")},
        {QStringLiteral("size"), QStringLiteral("Screen the widgets are sized for: \"small_portrait\" for the small portrait one."),
         QStringLiteral("screen")},
        {QStringLiteral("res"), QStringLiteral("Screen resolution, handed to the widgets as the host does (none reads it yet)."),
         QStringLiteral("resolution")},
        {QStringLiteral("notransparency"), QStringLiteral("\"true\" draws the entry pop-ups on an opaque background."),
         QStringLiteral("true|false")},
    };
    return switches;
}

QList<QCommandLineOption> demoOptions()
{
    return {
        {QStringLiteral("form"),
         QStringLiteral("Show only the Qt Designer form <file> (.ui), each widget bound by its AttributeName "
                        "to the engine's attribute of that name."),
         QStringLiteral("file")},
        {QStringLiteral("forms"), QStringLiteral("Show the .ui forms in <folder> instead of the built-in screens."),
         QStringLiteral("folder")},
        {QStringLiteral("engine-ior"),
         QStringLiteral("Bind to the running engine whose attribute directory IOR is in <file> (as rv-sim-engine "
                        "--ior-file writes it) instead of starting a simulated engine."),
         QStringLiteral("file")},
        {QStringLiteral("scenario"),
         QStringLiteral("Attributes of the simulated engine started here (default: the demo's scenario.json)."),
         QStringLiteral("file"), QStringLiteral(RV_DEMO_SCENARIO)},
        {QStringLiteral("render"),
         QStringLiteral("After --seconds, write a PNG of each screen into <folder> and exit (with "
                        "QT_QPA_PLATFORM=offscreen no display is needed)."),
         QStringLiteral("folder")},
        {QStringLiteral("seconds"), QStringLiteral("With --render, how long the screens run live first (default: 3)."),
         QStringLiteral("seconds"), QStringLiteral("3")},
    };
}

} // namespace

DemoOptions::DemoOptions(const QStringList& arguments)
{
    m_parser.setApplicationDescription(
        QStringLiteral("Demo instrument: the widget library's screens, or a form of your own, bound live to a "
                       "measurement engine (a simulated one started here unless --engine-ior is given)."));
    // Not the parser's own help option: its --help-all is acted on only by
    // process(), which cannot run before the application strips Qt's options.
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print these options and exit.")});
    m_parser.addOptions(demoOptions());
    m_parser.addOptions(startupSwitches());
    // The host passes its switches with one dash ("-systype handheld").
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    m_parsed = m_parser.parse(arguments);
}

bool DemoOptions::asksForHelp(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // Other mistakes are told after the application starts, which strips Qt's own options.
    DemoOptions options(arguments);
    return options.m_parser.isSet(QStringLiteral("help"));
}

QString DemoOptions::helpText() const { return m_parser.helpText(); }

QString DemoOptions::error() const
{
    if (!m_parsed)
        return m_parser.errorText() + QStringLiteral(" (see --help)");
    if (!m_parser.positionalArguments().isEmpty())
        return QStringLiteral("unexpected argument \"%1\" (see --help)").arg(m_parser.positionalArguments().constFirst());
    return valueError();
}

QString DemoOptions::valueError() const
{
    bool isNumber = false;
    if (m_parser.value(QStringLiteral("seconds")).toInt(&isNumber) < 0 || !isNumber)
        return QStringLiteral("--seconds takes a whole number of seconds, not \"%1\"").arg(m_parser.value(QStringLiteral("seconds")));
    if (m_parser.isSet(QStringLiteral("form")) && m_parser.isSet(QStringLiteral("forms")))
        return QStringLiteral("give --form or --forms, not both");
    const QFileInfo ior(engineIorFile());
    if (!engineIorFile().isEmpty() && !(ior.isFile() && ior.isReadable()))
        return QStringLiteral("cannot read the engine reference file %1").arg(engineIorFile());
    if (!m_parser.isSet(QStringLiteral("form")) && formFiles().isEmpty())
        return QStringLiteral("no .ui forms in %1").arg(formsFolder());
    return QString();
}

QStringList DemoOptions::formFiles() const
{
    if (m_parser.isSet(QStringLiteral("form")))
        return {m_parser.value(QStringLiteral("form"))};
    const QDir folder(formsFolder());
    QStringList files;
    for (const QString& name : folder.entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name))
        files << folder.filePath(name);
    return files;
}

bool DemoOptions::showsBuiltInScreens() const
{
    return !m_parser.isSet(QStringLiteral("form")) && formsFolder() == builtInForms;
}

QString DemoOptions::formsFolder() const
{
    return m_parser.isSet(QStringLiteral("forms")) ? m_parser.value(QStringLiteral("forms")) : builtInForms;
}

QString DemoOptions::engineIorFile() const { return m_parser.value(QStringLiteral("engine-ior")); }
QString DemoOptions::scenario() const { return m_parser.value(QStringLiteral("scenario")); }
QString DemoOptions::renderFolder() const { return m_parser.value(QStringLiteral("render")); }
int DemoOptions::seconds() const { return m_parser.value(QStringLiteral("seconds")).toInt(); }

void DemoOptions::applyStartupSwitches() const
{
    for (const QCommandLineOption& option : startupSwitches()) {
        const QString name = option.names().constFirst();
        if (m_parser.isSet(name))
            qApp->setProperty(qPrintable(QLatin1Char('-') + name), m_parser.value(name));
    }
}
