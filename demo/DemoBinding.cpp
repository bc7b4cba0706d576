#include "DemoBinding.h"

#include "WidgetBaseImpl.h"

#include <Brenmoor.hh>

#include <QVariant>

namespace {

bool bindOne(WidgetBaseImpl* widget, const QString& name, Brenmoor::AttributeDirectory_ptr directory,
             QStringList& problems)
{
    try {
        widget->bindAttribute(directory->find(name.toUtf8().constData()));
        return true;
    } catch (const Brenmoor::AttributeDirectory::UnknownAttribute&) {
        problems << QStringLiteral("the engine has no attribute \"%1\"").arg(name);
    } catch (const CORBA::SystemException& error) {
        problems << QStringLiteral("binding \"%1\" failed: %2").arg(name, QString::fromLatin1(error._name()));
    }
    return false;
}

// A widget that takes several attributes (a multi-column table) names the
// others in the dynamic property "moreAttributes"; each is bound in turn and
// heads its own column.
void bindMore(WidgetBaseImpl* widget, Brenmoor::AttributeDirectory_ptr directory, QStringList& problems)
{
    const QStringList more = widget->property("moreAttributes").toString().split(QLatin1Char(','), Qt::SkipEmptyParts);
    long column = 1;
    for (const QString& name : more) {
        if (!bindOne(widget, name.trimmed(), directory, problems))
            continue;
        QMetaObject::invokeMethod(widget, "setColumnHeading", Q_ARG(QString, name.trimmed()), Q_ARG(long, column));
        ++column;
    }
}

// A form states what the instrument's screen code would do by hand: the
// size word of a widget ("sizeWord"), and the selectors that drive a meter
// ("readingSelector", "unitSelector", each the object name of a widget on
// the same screen). Selectors are registered once the meter is bound.
void applySizeWord(QWidget* widget)
{
    const QString size = widget->property("sizeWord").toString();
    if (!size.isEmpty())
        QMetaObject::invokeMethod(widget, "changeSize", Q_ARG(QString, size));
}

void registerSelectors(QWidget* screen, QWidget* widget)
{
    static const char* const kinds[][2] = {{"readingSelector", "registerReadingSelector"},
                                           {"unitSelector", "registerUnitSelector"}};
    for (const auto& kind : kinds) {
        const QString name = widget->property(kind[0]).toString();
        if (QWidget* selector = name.isEmpty() ? nullptr : screen->findChild<QWidget*>(name))
            QMetaObject::invokeMethod(widget, kind[1], Q_ARG(QWidget*, selector));
    }
}

} // namespace

int bindScreenToEngine(QWidget* screen, Brenmoor::AttributeDirectory_ptr directory, QStringList& problems)
{
    int bound = 0;
    for (WidgetBaseImpl* widget : screen->findChildren<WidgetBaseImpl*>()) {
        const QString name = widget->getAttributeName();
        if (name.isEmpty() || name == QLatin1String("AttributeName"))
            continue;
        applySizeWord(widget);
        if (bindOne(widget, name, directory, problems)) {
            ++bound;
            bindMore(widget, directory, problems);
            registerSelectors(screen, widget);
        }
    }
    return bound;
}
