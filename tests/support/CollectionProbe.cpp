// rv-collection-probe LIBRARY: loads a designer plugin the way Qt Designer
// does, in a process that does not link it, and prints one line per entry:
// "<name()> <class of the widget createWidget made>". Exits non-zero when
// the plugin does not load or is no widget collection.
#include <QApplication>
#include <QJsonObject>
#include <QPluginLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: rv-collection-probe LIBRARY\n");
        return 2;
    }
    QPluginLoader loader(QString::fromLocal8Bit(argv[1]));
    std::printf("iid %s\n", qPrintable(loader.metaData().value(QStringLiteral("IID")).toString()));
    QObject* instance = loader.instance();
    if (!instance) {
        std::fprintf(stderr, "rv-collection-probe: %s\n", qPrintable(loader.errorString()));
        return 1;
    }
    auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(instance);
    if (!collection) {
        std::fprintf(stderr, "rv-collection-probe: %s is no widget collection\n",
                     instance->metaObject()->className());
        return 1;
    }
    for (QDesignerCustomWidgetInterface* entry : collection->customWidgets()) {
        QWidget* widget = entry->createWidget(nullptr);
        std::printf("%s %s\n", qPrintable(entry->name()), widget ? widget->metaObject()->className() : "-");
        delete widget;
    }
    return 0;
}
