#ifndef WIDGETBASEIMPL_H
#define WIDGETBASEIMPL_H

#include "DDS_Subscriber_Object.h"
#include "FrameLabel.h"

#include <QList>
#include <QMutex>
#include <QWaitCondition>
#include <QWidget>

#include <boost/function.hpp>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

class AttributeLink;
class QLabel;
class QPushButton;
struct LinkFamily;

// The engine's object references, without the ORB's headers.
namespace CORBA {
class Object;
typedef Object* Object_ptr;
}
namespace Brenmoor {
class _objref_EngineReadingBase;
class _objref_EngineAttribBase;
typedef _objref_EngineReadingBase* EngineReadingBase_ptr;
typedef _objref_EngineAttribBase* EngineAttribBase_ptr;
}

/*!
  The frame of every widget that shows or sets an engine attribute.

  It carries the attribute's name, an optional label, the update delay of
  the live value and a debug switch; a transparent overlay covers the widget
  and swallows touches while the engine holds the attribute locked; and a
  touch asks for the one entry mechanism of the interface (keypad, list,
  spinner), which the widget opens on DisplayEntryMechanism().

  Bound to an engine attribute it owns the reference and every DDS
  subscription of the widget. A widget binds through bindAs<Link>(), which
  checks the attribute's type name against the interfaces the widget takes,
  narrows once and writes the widget's mismatch line; the link it returns
  reads, sends and follows the attribute, and the frame keeps every link of
  the widget, one per attribute, until the binding is released. A lost engine (a call that finds it gone or
  hung, or its topics falling silent) veils every bound widget, is told
  once in the status bar (EngineLink), and nothing calls the engine until
  the host binds again.

  Teardown: a DDS thread may be blocked in a blocking queued emission
  towards the interface thread while that thread destroys the widget. The
  frame retires the subscriptions, so that no sample starts towards the
  widget, cuts the widget's connections to itself and drops the pending
  meta-call events of the widget and its parts, which frees such a thread,
  and waits for a sample already on its way. The readers are deleted on the
  disposal thread: Fast DDS may hold a lock that deleting needs while one
  of its threads waits for the interface thread on another widget's
  behalf. Sends still running on workers are waited for (a call times out
  after 1.5 s). A widget whose DDS callbacks or sends read members of its
  own must call waitForSends() and releaseSubscriptions() first thing in
  its destructor.
*/
class WidgetBaseImpl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString AttributeName READ getAttributeName WRITE setAttributeName)
    Q_PROPERTY(QString LabelText READ getLabel WRITE setLabel)
    Q_PROPERTY(int UpdateDelay READ getUpdateDelay WRITE setUpdateDelay)
    Q_PROPERTY(bool SuppressReceiveDebug READ getSuppressDebug WRITE setSuppressDebug)

public:
    explicit WidgetBaseImpl(QWidget* parent = nullptr);
    ~WidgetBaseImpl() override;

    QString getAttributeName() const;
    void setAttributeName(const QString& name);
    bool getSuppressDebug() const;
    void setSuppressDebug(bool suppress);
    void setDesktop(QWidget* desktop);
    QLabel* getLabelWidget() const;
    //! Takes ownership of \a label; an earlier, different label is deleted.
    void setLabelWidget(QLabel* label);
    //! True while this widget holds the entry mechanism.
    bool isLocked() const;

    Q_INVOKABLE virtual void setLabel(const QString& label);
    virtual QString getLabel() const;
    virtual void setUpdateDelay(int delay);
    virtual int getUpdateDelay() const;
    //! Shows the frame's texts in the current language.
    virtual void retranslate();

    //! Takes ownership of \a attr, follows its lock state; nil unbinds.
    virtual void bindAttribute(Brenmoor::EngineReadingBase_ptr attr);
    //! Follows \a topic; \a callback runs on a DDS thread. Returns at once.
    template<class T>
    void subscribeToDDS(const char* topic, boost::function<void(const char*, T)> callback);
    //! Follows a payload-free topic (lock, list or limits changed).
    void subscribeToVoidDDS(const char* topic, boost::function<void(const char*)> callback);
    /*!
      A broken engine link, found by this widget: the widget is veiled,
      closes the entry mechanism it holds and sends no more, and the whole
      interface learns that the engine is lost (EngineLink). A new binding
      lifts it. Safe from any thread.
    */
    virtual void disconnectCORBA(const QString& reason);
    bool isEngineLinkLost() const;
    //! True once a host has tried to bind the widget, whatever came of it.
    bool isBindingAttempted() const;
    /*!
      Drops the attribute and every live value, so that the widget can be
      bound again (to an engine that came back). Waits for a sample on its
      way, running its pending emission.
    */
    virtual void releaseBinding();
    //! A host could not bind the widget: it shows the disconnected look and acts on nothing.
    void bindingFailed(const QString& reason);
    /*!
      The engine has no attribute of the widget's name: the widget says so
      on its veil and acts on nothing, until a binding lifts it.
    */
    void attributeUnknown();

    //! How an engine call ended.
    enum class EngineCall
    {
        Done,      //!< the engine did it
        LinkLost,  //!< the engine cannot be reached; disconnectCORBA has run
        Refused    //!< the engine said no, or failed in another way
    };

signals:
    void CloseEntryMechanism();
    void DisplayEntryMechanism();
    void SetLocked(bool lock);
    void exceptionMessage(QString message);
    void suppressDebug(bool suppress);

public slots:
    void setWidgetLocked(bool isLocked = true);
    void releaseLock();
    virtual void raise();
    //! Applies the look of a size word ("Max", "Min", "Thumb"); none in the frame.
    virtual void changeSize(const QString& size);

    /*!
      Asks for the one entry mechanism of the interface; DisplayEntryMechanism()
      follows when it is granted. Public, since a field opens the mechanism
      of a selector it embeds.
    */
    void acquireLock();

protected:
    virtual void setLockImageVisible(const bool& visible);

    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    QWidget* desktop() const;
    //! Stops every live value of the widget; see the class comment.
    void releaseSubscriptions();
    /*!
      Runs \a call, which talks to the engine, with the one catch order of
      every send: an unreachable, broken, timed-out or vanished engine ends in
      disconnectCORBA(); any other failure is Refused, its name in \a failure.
      After a lost link nothing is called any more. Safe from any thread.
    */
    EngineCall callEngine(const std::function<void()>& call, QString* failure = nullptr);
    /*!
      As callEngine(), for one of several attributes that a widget follows
      side by side: a loss that \a call finds is \link's alone. It ends in
      LinkLost, its reason in \a failure, and neither the widget nor the
      interface is told, so that the widget goes on with its other
      attributes; an engine that is gone as a whole still shows everywhere,
      through its topics falling silent.
    */
    EngineCall callAttribute(const AttributeLink* link, const std::function<void()>& call,
                             QString* failure = nullptr);
    //! Runs \a send on a worker of the global pool; the widget waits for it before it dies.
    void sendOnWorker(std::function<void()> send);
    //! Waits for every send still running on a worker.
    void waitForSends();
    /*!
      Binds \a attr as one of the interfaces of \a Link's family that
      \a accepted names (a mask of Link::Interface). Returns the link, kept
      by the frame until the binding is released; null for a nil attribute,
      or after writing \a mismatchLine (a format with the interface name and
      the attribute name; null: say nothing) for another interface, or the
      narrowing failure line. Does not take \a attr.
    */
    template<class Link>
    Link* bindAs(Brenmoor::EngineReadingBase_ptr attr, int accepted, const char* mismatchLine)
    {
        return static_cast<Link*>(addLink(Link::family, attr, accepted, mismatchLine));
    }
    /*!
      The link of the present binding bound \a index-th, counted from 0, or
      from the last one back for a negative index (-1: the latest); null if
      there is none, as after a binding to an attribute the widget does not
      take. Safe from any thread.
    */
    template<class Link>
    Link* link(int index = -1) const
    {
        return static_cast<Link*>(linkAt(index));
    }
    //! A Control touch: flips the debug switch, says so, and emits suppressDebug().
    void flipDebugSwitch();
    /*!
      The frame's binding without the lock: remembers the desktop, takes
      ownership of \a attr in place of the earlier one, starts a new set of
      links, and notes the attempt. For widgets that show no lock of their
      attribute.
    */
    void takeAttribute(Brenmoor::EngineReadingBase_ptr attr);
    /*!
      Every binding starts here (the frame's bindAttribute calls it): the
      widget is a bound one from now on, and a binding to a live engine
      lifts the veil of a lost one.
    */
    void noteBindingAttempt(Brenmoor::EngineReadingBase_ptr attr);

    int m_updateDelay = 100;
    bool m_suppressDebug = false;
    //! The bound attribute and the same narrowed for writing (nil for a reading); owned.
    Brenmoor::EngineReadingBase_ptr m_attribute = nullptr;
    Brenmoor::EngineAttribBase_ptr m_settableAttribute = nullptr;
    QList<DDS_Subscriber_Object> m_subscriptions;

private:
    enum class LossScope
    {
        Engine,
        Attribute
    };
    EngineCall runEngineCall(const std::function<void()>& call, QString* failure, CORBA::Object_ptr object,
                             LossScope scope);
    AttributeLink* addLink(const LinkFamily& family, Brenmoor::EngineReadingBase_ptr attr, int accepted,
                           const char* mismatchLine);
    AttributeLink* linkAt(int index) const;
    //! A new reference to the bound attribute, owned by the caller; nil when unbound.
    CORBA::Object_ptr engineObject() const;
    void addSubscription(int tag, Brenmoor::DDS_BaseObj* subscription);
    void releaseAttribute();
    void dds_lock_callback(const char* topic);
    void followEngineLoss(const QString& reason);
    void markEngineLinkLost(const QString& reason);
    //! Veils the widget with \a text, \a reason in its tool tip, and gives back its entry mechanism.
    void showUnbound(const QString& text, const QString& reason);
    std::vector<Brenmoor::DDS_BaseObj*> retireSubscriptions();
    //! Waits until no delivery runs, handling the widget's and its parts' pending meta-calls meanwhile.
    void awaitDeliveries(const std::vector<Brenmoor::DDS_BaseObj*>& subscriptions,
                         void (*freeWaitingSenders)(QObject* receiver, int eventType));
    static void disposeSubscriptions(const std::vector<Brenmoor::DDS_BaseObj*>& subscriptions);

    QWidget* m_desktop = nullptr;
    QPushButton* m_lockOverlay = nullptr;
    QString m_attributeName = QStringLiteral("AttributeName");
    FrameLabel m_label;
    bool m_locked = false;
    // Subscriptions without a tag, owned all the same.
    std::vector<Brenmoor::DDS_BaseObj*> m_untaggedSubscriptions;
    std::vector<std::unique_ptr<AttributeLink>> m_links;
    // Links of earlier bindings, kept for sends still running until the binding is released.
    std::vector<std::unique_ptr<AttributeLink>> m_earlierLinks;
    // Guards the attribute references and the links against the lock callback's and the senders' threads.
    mutable QMutex m_attributeMutex;
    std::atomic<bool> m_engineLinkLost{false};
    bool m_bindingAttempted = false;
    QMutex m_sendsMutex;
    QWaitCondition m_sendsDone;
    int m_sendsRunning = 0;
};

#endif // WIDGETBASEIMPL_H
