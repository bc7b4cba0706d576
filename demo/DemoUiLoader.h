#ifndef DEMOUILOADER_H
#define DEMOUILOADER_H

#include <QStringList>
#include <QUiLoader>

/*!
  Builds the demo's screens from .ui forms. Widgets of the platform and of
  the widget library are made by their own constructors; a class that
  nobody can make is an error, never a silent plain QWidget.
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
    QStringList m_unknownClasses;
    QString m_error;
};

#endif // DEMOUILOADER_H
