#include "DemoBinding.h"

#include "WidgetBaseImpl.h"

#include <Brenmoor.hh>

int bindScreenToEngine(QWidget* screen, Brenmoor::AttributeDirectory_ptr directory, QStringList& problems)
{
    int bound = 0;
    for (WidgetBaseImpl* widget : screen->findChildren<WidgetBaseImpl*>()) {
        const QString name = widget->getAttributeName();
        if (name.isEmpty() || name == QLatin1String("AttributeName"))
            continue;
        try {
            widget->bindAttribute(directory->find(name.toUtf8().constData()));
            ++bound;
        } catch (const Brenmoor::AttributeDirectory::UnknownAttribute&) {
            problems << QStringLiteral("the engine has no attribute \"%1\"").arg(name);
        } catch (const CORBA::SystemException& error) {
            problems << QStringLiteral("binding \"%1\" failed: %2").arg(name, QString::fromLatin1(error._name()));
        }
    }
    return bound;
}
