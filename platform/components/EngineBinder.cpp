#include "EngineBinder.h"

#include "EngineLink.h"
#include "ORB_Wrapper.h"
#include "WidgetBaseImpl.h"

#include <Brenmoor.hh>

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QVariant>
#include <QtConcurrent>

#include <vector>

//! A widget of a pass, the names it takes and, once looked up, their references.
struct EngineBinding
{
    QPointer<WidgetBaseImpl> widget;
    QPointer<QWidget> screen;
    QStringList names;
    std::vector<Brenmoor::EngineReadingBase_var> references;  // nil for a name the engine does not know
};

/*
  One pass of the binder: the widgets to bind and the names each takes,
  filled in on a worker with the engine's references, or the reason the
  engine did not answer.
*/
struct EngineBinderAttempt
{
    std::vector<EngineBinding> bindings;
    //! The reference the look-up used, as read from the host's file or text.
    QString referenceText;
    QString lossReason;
};

namespace {

constexpr int defaultRetryMs = 500;
constexpr int watchMs = 250;
// An engine that takes longer than this to say it is there is taken as hung.
constexpr int watchTimeoutMs = 500;

QString engineReferenceText(const QString& reference)
{
    if (!QFileInfo(reference).isFile())
        return reference;
    QFile file(reference);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed() : QString();
}

// On a worker: every CORBA wait of a pass happens here, away from the interface thread.
void lookUp(EngineBinderAttempt& attempt, const QString& reference)
{
    attempt.referenceText = engineReferenceText(reference);
    if (attempt.referenceText.isEmpty()) {
        attempt.lossReason = QStringLiteral("no engine reference in \"%1\"").arg(reference);
        return;
    }
    try {
        CORBA::Object_var object = ORB_Wrapper::objectFromString(attempt.referenceText.toStdString());
        Brenmoor::AttributeDirectory_var directory = Brenmoor::AttributeDirectory::_narrow(object);
        if (CORBA::is_nil(directory) || directory->_non_existent()) {
            attempt.lossReason = QStringLiteral("no attribute directory at the engine reference");
            return;
        }
        for (EngineBinding& binding : attempt.bindings)
            for (const QString& name : qAsConst(binding.names)) {
                try {
                    binding.references.emplace_back(directory->find(name.toUtf8().constData()));
                } catch (const Brenmoor::AttributeDirectory::UnknownAttribute&) {
                    binding.references.emplace_back(Brenmoor::EngineReadingBase::_nil());
                }
            }
    } catch (const CORBA::Exception& error) {
        attempt.lossReason = QString::fromLatin1(error._name());
    }
}

// On a worker: the reason the bound engine at \a text does not answer, or an empty string.
QString askIfThere(const QString& text)
{
    try {
        CORBA::Object_var object = ORB_Wrapper::objectFromString(text.toStdString());
        omniORB::setClientCallTimeout(object, watchTimeoutMs);
        if (object->_non_existent())
            return QStringLiteral("CORBA::OBJECT_NOT_EXIST");
    } catch (const CORBA::Exception& error) {
        if (const char* reason = EngineLink::lossReason(error))
            return QString::fromLatin1(reason);
    }
    return QString();
}

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
        if (QWidget* selector = name.isEmpty() || !screen ? nullptr : screen->findChild<QWidget*>(name))
            QMetaObject::invokeMethod(widget, kind[1], Q_ARG(QWidget*, selector));
    }
}

QString unknownAttributesText(const QStringList& names)
{
    QStringList quoted;
    for (const QString& name : names)
        quoted << QLatin1Char('"') + name + QLatin1Char('"');
    return QStringLiteral("the engine has no attribute%1 %2")
        .arg(names.size() > 1 ? QStringLiteral("s") : QString(), quoted.join(QStringLiteral(", ")));
}

bool needsBinding(const WidgetBaseImpl* widget)
{
    return !widget->isBindingAttempted() || widget->isEngineLinkLost();
}

} // namespace

EngineBinder::EngineBinder(const QString& engineReference, QObject* parent)
    : QObject(parent)
    , m_reference(engineReference)
    , m_retry(new QTimer(this))
    , m_watch(new QTimer(this))
{
    m_retry->setInterval(defaultRetryMs);
    connect(m_retry, &QTimer::timeout, this, &EngineBinder::attempt);
    m_watch->setInterval(watchMs);
    connect(m_watch, &QTimer::timeout, this, &EngineBinder::watch);
    connect(EngineLink::instance(), &EngineLink::lost, this, &EngineBinder::engineLost);
}

EngineBinder::~EngineBinder()
{
    EngineLink::instance()->setSilenceCheck({});
}

void EngineBinder::addScreen(QWidget* screen)
{
    m_screens << screen;
    // Screens added together are bound in one pass.
    QTimer::singleShot(0, this, &EngineBinder::attempt);
}

int EngineBinder::retryInterval() const { return m_retry->interval(); }
int EngineBinder::watchInterval() const { return m_watch->interval(); }
void EngineBinder::setRetryInterval(int milliseconds) { m_retry->setInterval(milliseconds); }
bool EngineBinder::isBound() const { return m_bound; }

void EngineBinder::attempt()
{
    if (m_attemptRunning) {
        m_attemptAgain = true;
        return;
    }
    std::shared_ptr<EngineBinderAttempt> pass = widgetsToBind();
    if (pass->bindings.empty() && m_bound)
        return;
    m_attemptRunning = true;
    // The binder may be gone when the worker ends; the application is not.
    QPointer<EngineBinder> self(this);
    QtConcurrent::run([self, pass, reference = m_reference] {
        lookUp(*pass, reference);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [self, pass] {
                if (self)
                    self->finishAttempt(pass);
            },
            Qt::QueuedConnection);
    });
}

std::shared_ptr<EngineBinderAttempt> EngineBinder::widgetsToBind() const
{
    auto pass = std::make_shared<EngineBinderAttempt>();
    for (const QPointer<QWidget>& screen : m_screens) {
        if (!screen)
            continue;
        for (WidgetBaseImpl* widget : screen->findChildren<WidgetBaseImpl*>()) {
            const QString name = widget->getAttributeName();
            if (name.isEmpty() || name == QLatin1String("AttributeName") || !needsBinding(widget))
                continue;
            QStringList names{name};
            for (const QString& more :
                 widget->property("moreAttributes").toString().split(QLatin1Char(','), Qt::SkipEmptyParts))
                names << more.trimmed();
            pass->bindings.push_back({widget, screen, names, {}});
        }
    }
    return pass;
}

void EngineBinder::finishAttempt(const std::shared_ptr<EngineBinderAttempt>& result)
{
    m_attemptRunning = false;
    if (result->lossReason.isEmpty())
        bindAll(*result);
    else
        showLoss(*result, result->lossReason);
    if (m_attemptAgain) {
        m_attemptAgain = false;
        attempt();
    }
}

void EngineBinder::bindAll(EngineBinderAttempt& result)
{
    // The engine has just answered the look-up.
    EngineLink::instance()->reportLive();
    int boundWidgets = 0;
    QStringList unknownNames;
    for (EngineBinding& binding : result.bindings) {
        if (!binding.widget)
            continue;
        // A widget's own call found the engine gone (its failures stay
        // inside it): nothing more is asked of the engine in this pass.
        const QString loss = EngineLink::instance()->isLost() ? QStringLiteral("lost while binding")
                                                               : bindWidget(binding, unknownNames);
        if (!loss.isEmpty()) {
            showLoss(result, loss);
            return;
        }
        registerSelectors(binding.screen, binding.widget);
        ++boundWidgets;
    }
    // One message for the whole pass: a form full of misspelt names must not bury the status bar.
    if (!unknownNames.isEmpty())
        emit problem(unknownAttributesText(unknownNames));
    m_bound = true;
    m_boundReference = result.referenceText;
    // A silent topic is a lost engine only if the engine does not answer either.
    EngineLink::instance()->setSilenceCheck([text = m_boundReference] { return askIfThere(text); });
    m_retry->stop();
    m_watch->start();
    emit bound(boundWidgets);
}

QString EngineBinder::bindWidget(EngineBinding& binding, QStringList& unknownNames)
{
    WidgetBaseImpl* widget = binding.widget;
    if (widget->isBindingAttempted())
        widget->releaseBinding();
    else
        applySizeWord(widget);
    for (int i = 0; i < binding.names.size(); ++i) {
        const QString& name = binding.names.at(i);
        if (CORBA::is_nil(binding.references[size_t(i)])) {
            if (!unknownNames.contains(name))
                unknownNames << name;
            if (i == 0)
                widget->attributeUnknown();
            continue;
        }
        // The widget takes its reference; this one answers whether the engine still does.
        const CORBA::Object_var reference = CORBA::Object::_duplicate(binding.references[size_t(i)].in());
        try {
            // A multi-column table takes one attribute per call.
            widget->bindAttribute(binding.references[size_t(i)]._retn());
            if (i > 0)
                QMetaObject::invokeMethod(widget, "setColumnHeading", Q_ARG(QString, name), Q_ARG(long, i));
        } catch (const CORBA::Exception& error) {
            // Gone under this pass: nothing more is asked of it.
            if (const char* reason = EngineLink::lossReason(error, reference))
                return QString::fromLatin1(reason);
            emit problem(QStringLiteral("binding \"%1\" failed: %2").arg(name, QString::fromLatin1(error._name())));
            widget->bindingFailed(QString::fromLatin1(error._name()));
        }
    }
    return QString();
}

void EngineBinder::showLoss(const EngineBinderAttempt& result, const QString& reason)
{
    m_bound = false;
    m_watch->stop();
    EngineLink::instance()->reportLost(reason);
    // Widgets the pass did not reach show the loss too: none acts on its own.
    for (const EngineBinding& binding : result.bindings)
        if (binding.widget && !binding.widget->isEngineLinkLost())
            binding.widget->bindingFailed(reason);
    m_retry->start();
}

void EngineBinder::engineLost()
{
    m_bound = false;
    m_watch->stop();
    if (!m_retry->isActive())
        m_retry->start();
}

void EngineBinder::watch()
{
    if (m_watchRunning)
        return;
    m_watchRunning = true;
    QPointer<EngineBinder> self(this);
    // The engine these widgets are bound to, even if the host's file names another by now.
    QtConcurrent::run([self, text = m_boundReference] {
        const QString reason = askIfThere(text);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [self, reason] {
                if (!self)
                    return;
                self->m_watchRunning = false;
                if (!reason.isEmpty() && self->m_bound)
                    EngineLink::instance()->reportLost(reason);
            },
            Qt::QueuedConnection);
    });
}
