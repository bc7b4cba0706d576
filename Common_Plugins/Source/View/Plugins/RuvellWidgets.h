#ifndef RUVELLWIDGETS_H
#define RUVELLWIDGETS_H

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace Kelvane::gui {

/*!
  The library's plugin object: hands Qt Designer and the form loaders one
  entry per widget that a form may contain, in the order of
  CollectionTable.h. Only widgets present in the library are listed.
*/
class RuvellWidgets : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    //! The entries are children of the collection and die with it.
    explicit RuvellWidgets(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};

} // namespace Kelvane::gui

#endif // RUVELLWIDGETS_H
