#ifndef DDS_BASEOBJ_H
#define DDS_BASEOBJ_H

#include <atomic>
#include <functional>

namespace Brenmoor {

class DDS_ParticipantHolder;

/*!
  Base of every DDS entity owner of the interface: it reaches the process's
  participant, and lets the frame retire and delete a subscription of any
  payload.

  Teardown has two halves. retire(), on the owner's thread, stops every
  delivery that has not begun; the owner waits until delivering() is false
  before it goes. The DDS entities themselves are then deleted by
  dispose(), away from the owner's thread: deleting a reader waits for
  Fast DDS locks that a DDS thread may hold while it waits for the
  interface thread.
*/
class DDS_BaseObj
{
public:
    DDS_BaseObj() = default;
    virtual ~DDS_BaseObj();
    DDS_BaseObj(const DDS_BaseObj&) = delete;
    DDS_BaseObj& operator=(const DDS_BaseObj&) = delete;

    //! The holder of the process's participant; its participant may be null.
    static DDS_ParticipantHolder* DdsBase();

    //! No delivery begins after this returns; one already running goes on.
    void retire() { m_retired = true; }
    //! True while a delivery to the owner runs.
    bool delivering() const { return m_deliveries.load() > 0; }
    //! Returns once the entities of the object exist or have failed to; at once by default.
    virtual void waitForInitDone() const;
    /*!
      Called on a DDS thread when the last live writer of the topic falls
      silent or goes: its process died, hung or ended. Set before the
      entities are made.
    */
    void setWritersLostHandler(std::function<void()> handler) { m_writersLost = std::move(handler); }
    //! Tells the handler, unless retired. On a DDS thread.
    void writersLost();
    //! Deletes \a object on the process's teardown thread; it must be retired.
    static void dispose(DDS_BaseObj* object);
    //! Waits until every object handed to dispose() is deleted.
    static void waitForDisposals();

protected:
    /*!
      Brackets one delivery to the owner: it may go ahead only if allowed();
      retire() and delivering() see it for its whole length.
    */
    class Delivery
    {
    public:
        explicit Delivery(DDS_BaseObj& object);
        ~Delivery();
        Delivery(const Delivery&) = delete;
        Delivery& operator=(const Delivery&) = delete;
        bool allowed() const { return !m_object.m_retired; }

    private:
        DDS_BaseObj& m_object;
    };

private:
    std::atomic<bool> m_retired{false};
    std::atomic<int> m_deliveries{0};
    std::function<void()> m_writersLost;
};

} // namespace Brenmoor

#endif // DDS_BASEOBJ_H
