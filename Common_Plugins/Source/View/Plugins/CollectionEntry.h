#ifndef COLLECTIONENTRY_H
#define COLLECTIONENTRY_H

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <vector>

/*!
  One row of the widget collection: the palette texts of a widget, the form
  a designer drops for it, and how to make it. The rows live in
  CollectionTable.h, in registration order.
*/
struct CollectionRow
{
    //! The shapes of domXml(): A a bare widget element, B the same inside a
    //! ui element, C a page container with its customwidget block, D form B
    //! with a default geometry.
    enum class DomForm { A, B, C, D };
    //! StatusBarIcon is complete but kept out of every palette.
    enum class Listing { Listed, NeverListed };

    using WidgetFactory = QWidget* (*)(QWidget* parent);
    using EntryFactory = QDesignerCustomWidgetInterface* (*)(QObject* parent);

    const char* name;
    const char* group;
    const char* includeFile;
    bool isContainer;
    const char* toolTip;
    const char* whatsThis;
    DomForm form;
    const char* objectName;
    Listing listing;
    //! Null while the widget class is not in the tree yet.
    WidgetFactory createWidget;
    EntryFactory createEntry;

    //! An entry joins the collection once its widget can be made.
    bool isRegistered() const { return createWidget && listing == Listing::Listed; }
};

//! Every row, in registration order.
const std::vector<CollectionRow>& collectionRows();

/*!
  The collection entry of one widget: answers the designer's questions from
  its row. The named entry classes (CollectionEntries.h) only pick the row.
*/
class CollectionEntry : public QObject, public QDesignerCustomWidgetInterface
{
public:
    CollectionEntry(const CollectionRow& row, QObject* parent);

    bool isContainer() const override;
    bool isInitialized() const override;
    QIcon icon() const override;
    QString domXml() const override;
    QString group() const override;
    QString includeFile() const override;
    QString name() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    //! Null for a widget that is not in the tree yet.
    QWidget* createWidget(QWidget* parent) override;
    //! No entry registers anything with the form editor.
    void initialize(QDesignerFormEditorInterface* core) override;

private:
    const CollectionRow& m_row;
    bool m_initialized = false;
};

#endif // COLLECTIONENTRY_H
