#ifndef ENUMTABLEBASE_H
#define ENUMTABLEBASE_H

#include "EnumColumn.h"
#include "WidgetBaseImpl.h"

#include <functional>

class EnumLink;
class QStandardItemModel;

namespace Kelvane {
namespace gui {

class TableViewImpl;

/*!
  What the operator sees of TableEnum and TableEnumMulti alike: a table of
  enumerator labels under a "Data Source" header, where a touched row is
  sent to the engine. Holds the view and model and talks to
  EngineAttribEnum attributes: reads their lists and values, and sends a
  value with one retry on a fresh list.
*/
class EnumTableBase : public WidgetBaseImpl
{
    Q_OBJECT

public:
    explicit EnumTableBase(QWidget* parent = nullptr);

    //! Wide enough for every text of every column beside the scroll bar; a tight layout may give less.
    QSize sizeHint() const override;

protected:
    enum class SendOutcome
    {
        Sent,
        LinkLost,
        RetryFailed
    };

    //! Reads the enumerators of \a enumeration; false without one, or when the engine fails.
    bool fetchEntries(const EnumLink* enumeration, QList<EnumColumn::Entry>* entries);
    bool fetchValue(const EnumLink* enumeration, long* value);
    /*!
      Sets \a value; a refusal gets \a refreshList and exactly one more set.
      \a logPrefix starts the log lines of a failure.
    */
    SendOutcome sendWithOneRetry(const EnumLink* enumeration, long value,
                                 const std::function<void()>& refreshList, const char* logPrefix);

    /*!
      Runs \a call, which talks to the engine about \a enumeration; the
      frame's callEngine() unless a table keeps its attributes apart.
    */
    virtual EngineCall callFor(const EnumLink* enumeration, const std::function<void()>& call,
                               QString* failure = nullptr);

    //! The rows take the touches: neither the debug switch nor the entry mechanism applies.
    void mouseReleaseEvent(QMouseEvent* event) override;

    TableViewImpl* view = nullptr;
    QStandardItemModel* model = nullptr;
};

} // namespace gui
} // namespace Kelvane

#endif // ENUMTABLEBASE_H
