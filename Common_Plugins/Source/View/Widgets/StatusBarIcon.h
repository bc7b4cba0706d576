#ifndef STATUSBARICON_H
#define STATUSBARICON_H

#include "WidgetBaseImpl.h"

#include <QString>

/*!
  A round icon for the status bar: a picture from the resources under
  ":/images/", in a black disc with a border of the theme's colour. It
  carries the widget frame but binds nothing of its own.
*/
class StatusBarIcon : public WidgetBaseImpl
{
    Q_OBJECT

public:
    explicit StatusBarIcon(QWidget* parent = nullptr);

    QString imageName() const;
    //! A file name below ":/images/"; a host supplies the default one.
    void setImageName(const QString& name);

private:
    static QString styleHead();

    QString m_imageName = QStringLiteral("statusicon_default.png");
    const QString m_styleHead = styleHead();
    const QString m_styleTail = QStringLiteral("); }");
};

#endif // STATUSBARICON_H
