#include "DemoUiLoader.h"

#include "HorizontalScrollBarImpl.h"
#include "PushButtonImpl.h"
#include "QRVStatusBar.h"
#include "QRVWidgetBaseInterim.h"
#include "RuvellWidgets.h"
#include "VerticalScrollBarImpl.h"
#include "WidgetBaseImpl.h"

#include <QFile>
#include <QThread>
#include <functional>

namespace {

using Factory = std::function<QWidget*(QWidget*)>;

//! Classes a form may name that the widget collection does not offer.
const QHash<QString, Factory>& platformClasses()
{
    static const QHash<QString, Factory> factories{
        {QStringLiteral("QRVWidgetBaseInterim"), [](QWidget* p) { return new QRVWidgetBaseInterim(p); }},
        {QStringLiteral("WidgetBaseImpl"), [](QWidget* p) { return new WidgetBaseImpl(p); }},
        {QStringLiteral("QRVStatusBar"), [](QWidget* p) { return new QRVStatusBar(p); }},
        {QStringLiteral("Kelvane::gui::PushButtonImpl"), [](QWidget* p) { return new Kelvane::gui::PushButtonImpl(p); }},
        {QStringLiteral("Kelvane::gui::VerticalScrollBarImpl"),
         [](QWidget* p) { return new Kelvane::gui::VerticalScrollBarImpl(p); }},
        {QStringLiteral("Kelvane::gui::HorizontalScrollBarImpl"),
         [](QWidget* p) { return new Kelvane::gui::HorizontalScrollBarImpl(p); }},
    };
    return factories;
}

/*
  While a form loads, the loading thread's messages are held back: QUiLoader
  tells its failures in warnings of its own, and the demo tells them once,
  in its error. The messages of a form that loads are passed on.
*/
class HeldMessages
{
public:
    HeldMessages()
    {
        s_thread = QThread::currentThread();
        s_previous = qInstallMessageHandler(&HeldMessages::hold);
    }
    ~HeldMessages()
    {
        qInstallMessageHandler(s_previous);
        s_held.clear();
    }
    HeldMessages(const HeldMessages&) = delete;
    HeldMessages& operator=(const HeldMessages&) = delete;

    void passOn() const
    {
        for (const auto& [type, text] : qAsConst(s_held))
            s_previous(type, QMessageLogContext(), text);
    }

private:
    static void hold(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (QThread::currentThread() == s_thread)
            s_held.append({type, text});
        else
            s_previous(type, context, text);
    }

    static inline QThread* s_thread = nullptr;
    static inline QtMessageHandler s_previous = nullptr;
    static inline QList<QPair<QtMsgType, QString>> s_held;
};

} // namespace

DemoUiLoader::DemoUiLoader(QObject* parent)
    : QUiLoader(parent)
{
    // The library is linked, so its collection is asked directly; loading it
    // again as a plugin would run its static initialisers twice.
    const auto* collection = new Kelvane::gui::RuvellWidgets(this);
    for (QDesignerCustomWidgetInterface* entry : collection->customWidgets())
        m_libraryWidgets.insert(entry->name(), entry);
    const QStringList qtClasses = availableWidgets();
    m_qtClasses = QSet<QString>(qtClasses.cbegin(), qtClasses.cend());
}

QWidget* DemoUiLoader::createWidget(const QString& className, QWidget* parent, const QString& name)
{
    QWidget* widget = nullptr;
    const auto factory = platformClasses().constFind(className);
    if (QDesignerCustomWidgetInterface* entry = m_libraryWidgets.value(className))
        widget = entry->createWidget(parent);
    else if (factory != platformClasses().constEnd())
        widget = (*factory)(parent);
    // Asked for a class it lacks, QUiLoader makes the base class a form
    // declares for it (every Designer form declares its custom classes).
    else if (m_qtClasses.contains(className))
        widget = QUiLoader::createWidget(className, parent, name);
    if (!widget) {
        m_unknownClasses << className;
        return nullptr;
    }
    widget->setObjectName(name);
    return widget;
}

QWidget* DemoUiLoader::loadForm(const QString& path, QWidget* parent)
{
    m_unknownClasses.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("cannot open form %1: %2").arg(path, file.errorString());
        return nullptr;
    }
    const HeldMessages held;
    QWidget* form = load(&file, parent);
    if (form && m_unknownClasses.isEmpty()) {
        held.passOn();
        return form;
    }
    delete form;
    m_error = form ? QStringLiteral("form %1 names unknown classes: %2").arg(path, m_unknownClasses.join(QStringLiteral(", ")))
                   : QStringLiteral("form %1: %2").arg(path, QUiLoader::errorString());
    return nullptr;
}

QString DemoUiLoader::errorString() const
{
    return m_error;
}
