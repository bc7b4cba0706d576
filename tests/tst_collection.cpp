#include "CollectionEntries.h"
#include "RuvellWidgets.h"
#include "StatusBarIcon.h"

#include <QDir>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <functional>
#include <memory>

extern "C" QObject* qt_plugin_instance();
extern "C" const char* qt_plugin_query_verification_data();

using Kelvane::gui::RuvellWidgets;
using MakeEntry = std::function<CollectionEntry*()>;
Q_DECLARE_METATYPE(MakeEntry)

class TestCollection : public QObject
{
    Q_OBJECT

private slots:
    void registeredEntriesInTableOrder();
    void customWidgetsHandsOutACopy();
    void pluginInstanceIsKeptUntilDeleted();
    void initializeTwiceStaysInitialized();
    void everyEntryNamesItsClassInDomXml_data();
    void everyEntryNamesItsClassInDomXml();
    void domXmlForms_data();
    void domXmlForms();
    void containerFormTellsHowToAddPages();
    void keptPaletteOddities();
    void createWidgetMakesTheNamedClass();
    void verificationDataStatesThisQt();
    void pluginLoaderInAnotherProcess();
    void designerLoadsTheLibrary();
    void designerLoadsTheInstalledPlugin();

private:
    //! Starts Qt Designer with QT_PLUGIN_PATH set to \a plugins and expects it
    //! to load the collection from below \a root and live on.
    void designerLoadsFrom(const QString& plugins, const QString& root);
};

namespace {

const QStringList registeredNames{
    QStringLiteral("Kelvane::gui::BatteryStatusIndicatorImpl"),
    QStringLiteral("ComboBoxImpl"), QStringLiteral("ConfirmationPushButtonImpl"), QStringLiteral("ConfirmationToggleButtonImpl"),
    QStringLiteral("ContainerImpl"), QStringLiteral("FlagStatusImpl"), QStringLiteral("Kelvane::gui::HorizontalSliderImpl"),
    QStringLiteral("MeterBarImpl"), QStringLiteral("NumericEntryImpl"), QStringLiteral("ProgressBar"), QStringLiteral("TabImpl"),
    QStringLiteral("Kelvane::gui::TableEnum"), QStringLiteral("Kelvane::gui::TableEnumMulti"),
    QStringLiteral("Kelvane::gui::TableImpl"), QStringLiteral("Kelvane::gui::TableViewImpl"), QStringLiteral("TextEntryImpl"),
    QStringLiteral("ToggleButtonImpl"), QStringLiteral("Kelvane::gui::VerticalSliderImpl"),
};

QStringList namesOf(const QList<QDesignerCustomWidgetInterface*>& entries)
{
    QStringList names;
    for (const QDesignerCustomWidgetInterface* entry : entries)
        names << entry->name();
    return names;
}

//! Elements as "path[attribute=value ...]", texts as "path: text", a parse error as "error: ...".
QStringList outlineOf(const QString& xml)
{
    QStringList outline;
    QStringList path;
    QXmlStreamReader reader(xml);
    while (reader.readNext() != QXmlStreamReader::Invalid && !reader.atEnd()) {
        if (reader.isStartElement()) {
            path << reader.name().toString();
            QStringList attributes;
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                attributes << attribute.name().toString() + QLatin1Char('=') + attribute.value();
            outline << path.join(QLatin1Char('/')) + QLatin1Char('[') + attributes.join(QLatin1Char(' '))
                           + QLatin1Char(']');
        } else if (reader.isEndElement()) {
            path.removeLast();
        } else if (reader.isCharacters() && !reader.isWhitespace()) {
            outline << path.join(QLatin1Char('/')) + QStringLiteral(": ") + reader.text().toString();
        }
    }
    if (reader.hasError())
        outline << QStringLiteral("error: ") + reader.errorString();
    return outline;
}

template <typename Entry>
MakeEntry make()
{
    return [] { return new Entry; };
}

} // namespace

void TestCollection::registeredEntriesInTableOrder()
{
    RuvellWidgets collection;
    QCOMPARE(namesOf(collection.customWidgets()), registeredNames);
    for (QDesignerCustomWidgetInterface* entry : collection.customWidgets())
        QCOMPARE(dynamic_cast<QObject*>(entry)->parent(), &collection);
}

void TestCollection::customWidgetsHandsOutACopy()
{
    RuvellWidgets collection;
    QList<QDesignerCustomWidgetInterface*> copy = collection.customWidgets();
    copy.removeFirst();
    copy.append(nullptr);
    QCOMPARE(namesOf(collection.customWidgets()), registeredNames);
}

void TestCollection::pluginInstanceIsKeptUntilDeleted()
{
    QPointer<QObject> first = qt_plugin_instance();
    QVERIFY(qobject_cast<RuvellWidgets*>(first));
    QCOMPARE(first->parent(), nullptr);
    QCOMPARE(qt_plugin_instance(), first.data());

    delete first.data();
    QObject* renewed = qt_plugin_instance();
    QVERIFY(qobject_cast<RuvellWidgets*>(renewed));
    QCOMPARE(renewed->parent(), nullptr);
    QCOMPARE(qt_plugin_instance(), renewed);
}

void TestCollection::initializeTwiceStaysInitialized()
{
    RuvellWidgets collection;
    for (QDesignerCustomWidgetInterface* entry : collection.customWidgets()) {
        QVERIFY(!entry->isInitialized());
        entry->initialize(nullptr);
        entry->initialize(nullptr);
        QVERIFY(entry->isInitialized());
    }
    QVERIFY(!ContainerPlugin().isInitialized());
}

void TestCollection::everyEntryNamesItsClassInDomXml_data()
{
    QTest::addColumn<MakeEntry>("makeEntry");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("objectName");
#define ENTRY(Entry, className, objectName)                                                                            \
    QTest::newRow(#Entry) << make<Entry>() << QStringLiteral(className) << QStringLiteral(objectName)
    using namespace Kelvane::gui;
    ENTRY(BatteryStatusIndicatorPlugin, "Kelvane::gui::BatteryStatusIndicatorImpl", "BatteryStatusIndicatorImpl");
    ENTRY(ComboBoxPlugin, "ComboBoxImpl", "ComboBox");
    ENTRY(ConfirmationPushButtonPlugin, "ConfirmationPushButtonImpl", "ConfirmationPushButton");
    ENTRY(ConfirmationToggleButtonPlugin, "ConfirmationToggleButtonImpl", "ConfirmationToggleButton");
    ENTRY(ContainerPlugin, "ContainerImpl", "containerimpl");
    ENTRY(FlagStatusPlugin, "FlagStatusImpl", "FlagStatus");
    ENTRY(GroupBoxPlugin, "Kelvane::gui::GroupBoxImpl", "GroupBox");
    ENTRY(HorizontalSliderPlugin, "Kelvane::gui::HorizontalSliderImpl", "HSlider");
    ENTRY(MeterBarPlugin, "MeterBarImpl", "MeterBar");
    ENTRY(NumericEntryPlugin, "NumericEntryImpl", "NumericEntry");
    ENTRY(PlotPlugin, "Kelvane::gui::PlotManagerImpl", "PlotManager");
    ENTRY(PlotScalePlugin, "Kelvane::gui::PlotScale", "PlotScale");
    ENTRY(ProgressBarPlugin, "ProgressBar", "ProgressBar");
    ENTRY(SaveTraceButtonPlugin, "SaveTraceButton", "SaveTraceButton");
    ENTRY(TabPlugin, "TabImpl", "Tab");
    ENTRY(TableEnumPlugin, "Kelvane::gui::TableEnum", "TableEnum");
    ENTRY(TableEnumMultiPlugin, "Kelvane::gui::TableEnumMulti", "CustomWidget_TableEnumMulti");
    ENTRY(TablePlugin, "Kelvane::gui::TableImpl", "Table");
    ENTRY(TableViewPlugin, "Kelvane::gui::TableViewImpl", "Table View");
    ENTRY(TextEntryPlugin, "TextEntryImpl", "TextEntry");
    ENTRY(TimeDatePlugin, "TimeDate", "TimeDate");
    ENTRY(ToggleButtonPlugin, "ToggleButtonImpl", "ToggleButton");
    ENTRY(TranslatableLabelPlugin, "TranslatableLabel", "TranslatableLabel");
    ENTRY(VerticalSliderPlugin, "Kelvane::gui::VerticalSliderImpl", "Vertical Slider");
    ENTRY(WebBrowserPlugin, "Kelvane::gui::WebBrowser", "WebBrowser");
    ENTRY(CheckBoxPlugin, "Kelvane::gui::CheckBoxImpl", "CheckBox");
    ENTRY(SimpleScrollAreaPlugin, "SimpleScrollArea", "SimpleScrollArea");
    ENTRY(TimeImplPlugin, "TimeImpl", "TimeImpl");
    ENTRY(DateImplPlugin, "DateImpl", "DateImpl");
    ENTRY(StatusBarIconPlugin, "StatusBarIcon", "StatusBarIcon");
#undef ENTRY
}

void TestCollection::everyEntryNamesItsClassInDomXml()
{
    QFETCH(MakeEntry, makeEntry);
    QFETCH(QString, className);
    QFETCH(QString, objectName);
    const std::unique_ptr<CollectionEntry> entry(makeEntry());
    QCOMPARE(entry->name(), className);
    const QStringList outline = outlineOf(entry->domXml());
    QVERIFY2(!outline.last().startsWith(QLatin1String("error")), qPrintable(outline.last()));
    const QString widget = QStringLiteral("widget[class=%1 name=%2]").arg(className, objectName);
    QVERIFY2(outline.first() == widget || outline.value(1) == QStringLiteral("ui/") + widget,
             qPrintable(outline.join('\n')));
}

void TestCollection::domXmlForms_data()
{
    QTest::addColumn<MakeEntry>("makeEntry");
    QTest::addColumn<QString>("domXml");
    QTest::newRow("A: a bare widget") << make<ProgressBarPlugin>()
                                      << QStringLiteral("<widget class=\"ProgressBar\" name=\"ProgressBar\">\n"
                                                        "</widget>\n");
    QTest::newRow("B: the widget in a ui element")
        << make<Kelvane::gui::TableViewPlugin>()
        << QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"Kelvane::gui::TableViewImpl\" name=\"Table View\">\n"
                          " </widget>\n"
                          "</ui>\n");
    QTest::newRow("D: form B with a geometry")
        << make<PlotScalePlugin>()
        << QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"Kelvane::gui::PlotScale\" name=\"PlotScale\">\n"
                          "  <property name=\"geometry\">\n"
                          "   <rect>\n"
                          "    <x>0</x>\n"
                          "    <y>0</y>\n"
                          "    <width>140</width>\n"
                          "    <height>40</height>\n"
                          "   </rect>\n"
                          "  </property>\n"
                          " </widget>\n"
                          "</ui>\n");
}

void TestCollection::domXmlForms()
{
    QFETCH(MakeEntry, makeEntry);
    QFETCH(QString, domXml);
    QCOMPARE(std::unique_ptr<CollectionEntry>(makeEntry())->domXml(), domXml);
}

void TestCollection::containerFormTellsHowToAddPages()
{
    // Form C is one line with runs of blanks between the tags.
    const QString form = ContainerPlugin().domXml();
    QVERIFY(!form.contains(QLatin1Char('\n')));
    QVERIFY(form.contains(QLatin1String(">    <")));
    const QString customWidget = QStringLiteral("ui/customwidgets/customwidget");
    QCOMPARE(outlineOf(form), (QStringList{
                                  QStringLiteral("ui[]"),
                                  QStringLiteral("ui/widget[class=ContainerImpl name=containerimpl]"),
                                  QStringLiteral("ui/widget/widget[class=QWidget name=page]"),
                                  QStringLiteral("ui/customwidgets[]"),
                                  customWidget + QStringLiteral("[]"),
                                  customWidget + QStringLiteral("/class[]"),
                                  customWidget + QStringLiteral("/class: ContainerImpl"),
                                  customWidget + QStringLiteral("/extends[]"),
                                  customWidget + QStringLiteral("/extends: QWidget"),
                                  customWidget + QStringLiteral("/addpagemethod[]"),
                                  customWidget + QStringLiteral("/addpagemethod: addPage"),
                              }));
}

void TestCollection::keptPaletteOddities()
{
    // The battery indicator takes dropped children and has a group of its own.
    Kelvane::gui::BatteryStatusIndicatorPlugin battery;
    QVERIFY(battery.isContainer());
    QCOMPARE(battery.group(), QStringLiteral("GPS Plugins"));
    QCOMPARE(TabPlugin().group(), QStringLiteral("Ruvell"));
    QVERIFY(!ProgressBarPlugin().isContainer());

    QCOMPARE(ConfirmationPushButtonPlugin().includeFile(), QStringLiteral("ConfirmationPushButton.h"));
    QCOMPARE(SaveTraceButtonPlugin().includeFile(), QStringLiteral("SaveTraceButtonPlugin.h"));
    QCOMPARE(TranslatableLabelPlugin().whatsThis(), TextEntryPlugin().whatsThis());
    QCOMPARE(DateImplPlugin().whatsThis(), TimeImplPlugin().whatsThis());
}

void TestCollection::createWidgetMakesTheNamedClass()
{
    RuvellWidgets collection;
    QWidget parent;
    for (QDesignerCustomWidgetInterface* entry : collection.customWidgets()) {
        QWidget* widget = entry->createWidget(&parent);
        QVERIFY2(widget, qPrintable(entry->name()));
        QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), entry->name());
        QCOMPARE(widget->parentWidget(), &parent);
        // Designer shows the raster tile; an SVG icon would be the Qt logo.
        QVERIFY(!entry->icon().availableSizes().isEmpty());
    }
    QCOMPARE(PlotPlugin().createWidget(&parent), nullptr);
    // Complete, though no palette lists it; only a host supplies its default picture.
    QTest::ignoreMessage(QtWarningMsg, "Could not create pixmap from :/images/statusicon_default.png");
    QWidget* icon = StatusBarIconPlugin().createWidget(&parent);
    QVERIFY(qobject_cast<StatusBarIcon*>(icon));
    QCOMPARE(icon->parentWidget(), &parent);
}

void TestCollection::verificationDataStatesThisQt()
{
    const QStringList lines = QString::fromLatin1(qt_plugin_query_verification_data()).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QStringLiteral("pattern=QT_PLUGIN_VERIFICATION_DATA"));
    QCOMPARE(lines.at(1), QStringLiteral("version=") + QLatin1String(qVersion()));
    QCOMPARE(lines.at(2), QStringLiteral("debug=false"));
    QVERIFY(lines.at(3).startsWith(QLatin1String("buildkey=")));
    const QStringList key = lines.at(3).mid(9).split(QLatin1Char(' '));
    QCOMPARE(key.size(), 4);
    QCOMPARE(key.at(0), QSysInfo::buildCpuArchitecture());
    QCOMPARE(key.at(1), QSysInfo::kernelType());
    QCOMPARE(key.at(3), QStringLiteral("full-config"));
}

void TestCollection::pluginLoaderInAnotherProcess()
{
    QProcess probe;
    probe.start(QStringLiteral(RV_COLLECTION_PROBE), {QStringLiteral(RV_COLLECTION_LIBRARY)});
    QVERIFY(probe.waitForFinished(30000));
    const QString output = QString::fromLocal8Bit(probe.readAllStandardOutput());
    QVERIFY2(probe.exitCode() == 0, qPrintable(output + probe.readAllStandardError()));

    QStringList expected{QStringLiteral("iid org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")};
    for (const QString& name : registeredNames)
        expected << name + QLatin1Char(' ') + name;
    QCOMPARE(output.split(QLatin1Char('\n'), Qt::SkipEmptyParts), expected);
}

void TestCollection::designerLoadsTheLibrary()
{
    // A link, not a copy: the library finds its dependencies from where it is.
    QTemporaryDir plugins;
    QVERIFY(QDir(plugins.path()).mkpath(QStringLiteral("designer")));
    QVERIFY(QFile::link(QStringLiteral(RV_COLLECTION_LIBRARY),
                        plugins.filePath(QStringLiteral("designer/librvuicommonplugins.so"))));
    designerLoadsFrom(plugins.path(), QString());
}

void TestCollection::designerLoadsTheInstalledPlugin()
{
    // Designer's own plugin folder is the installed one, moved into a root
    // that the package was unpacked to: no library path, no link of ours.
    const QString root = qEnvironmentVariable("RV_INSTALLED_ROOT");
    if (root.isEmpty())
        QSKIP("the install_designer test runs this against an unpacked package");
    designerLoadsFrom(qEnvironmentVariable("RV_INSTALLED_PLUGINS"), root);
}

void TestCollection::designerLoadsFrom(const QString& plugins, const QString& root)
{
#ifdef RV_SANITIZED
    QSKIP("Qt Designer is not instrumented: it cannot load a sanitised build of the library");
#endif
    QString designer = QStandardPaths::findExecutable(QStringLiteral("designer"));
    if (designer.isEmpty())
        designer = QStandardPaths::findExecutable(QStringLiteral("designer"), {QStringLiteral("/usr/lib/qt5/bin")});
    if (designer.isEmpty())
        QSKIP("Qt Designer (qttools5-dev-tools) is not installed");

    QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), plugins);
    environment.insert(QStringLiteral("QT_DEBUG_PLUGINS"), QStringLiteral("1"));
    environment.insert(QStringLiteral("HOME"), home.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    environment.remove(QStringLiteral("LD_LIBRARY_PATH"));

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(designer, QStringList());
    QVERIFY2(process.waitForStarted(10000), qPrintable(process.errorString()));

    QString output;
    const QRegularExpression loaded(QStringLiteral("loaded library \"?") + QRegularExpression::escape(root)
                                    + QStringLiteral(".*librvuicommonplugins"));
    QElapsedTimer waited;
    waited.start();
    while (!output.contains(loaded) && waited.elapsed() < 20000 && process.state() == QProcess::Running) {
        process.waitForReadyRead(500);
        output += QString::fromLocal8Bit(process.readAll());
    }
    // Designer fills its widget box from the collection right after loading it.
    QTest::qWait(2000);
    output += QString::fromLocal8Bit(process.readAll());
    const bool survived = process.state() == QProcess::Running;
    process.kill();
    process.waitForFinished(5000);
    output += QString::fromLocal8Bit(process.readAll());

    QVERIFY2(output.contains(loaded), qPrintable(output.right(4000)));
    QVERIFY2(survived, qPrintable(output.right(4000)));
    const QRegularExpression failed(QStringLiteral("librvuicommonplugins.*(Cannot load library|undefined symbol)"));
    QVERIFY2(!output.contains(failed), qPrintable(failed.match(output).captured()));
}

QTEST_MAIN(TestCollection)
#include "tst_collection.moc"
