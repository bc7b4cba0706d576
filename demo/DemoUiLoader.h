#ifndef DEMOUILOADER_H
#define DEMOUILOADER_H

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QUiLoader>

class QDesignerCustomWidgetInterface;

/*!
  Builds the demo's screens from .ui forms. The widget library's classes are
  made by the entries of its collection, the platform's by their own
  constructors; a class that nobody can make is an error, never a silent
  plain QWidget.
*/
class DemoUiLoader : public QUiLoader
{
    Q_OBJECT

public:
    explicit DemoUiLoader(QObject* parent = nullptr);

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;

    //! Loads a form from a file or resource path; null with errorString() set on failure.
    QWidget* loadForm(const QString& path, QWidget* parent);
    QString errorString() const;

private:
    //! The library's collection entries by the class they make.
    QHash<QString, QDesignerCustomWidgetInterface*> m_libraryWidgets;
    //! The classes of Qt and its designer plugins that QUiLoader makes.
    QSet<QString> m_qtClasses;
    QStringList m_unknownClasses;
    QString m_error;
};

#endif // DEMOUILOADER_H
