#ifndef NUMERICUNITSELECTOR_H
#define NUMERICUNITSELECTOR_H

#include <QList>
#include <QStringList>

#include <functional>

class ComboBoxImpl;
class QWidget;

/*!
  The unit selector at the right of a numeric field's box: an embedded
  ComboBoxImpl, made the first time the field has units to offer, listing
  their labels under their keys in the field's unit table. Before that
  there is no selector, and what is asked of it changes or tells nothing.
*/
class NumericUnitSelector
{
public:
    //! The selector takes the cell right of \a field's box; \a onChoice gets each key the operator chooses.
    NumericUnitSelector(QWidget* field, std::function<void(long)> onChoice);

    //! Lists \a labels under \a keys; the first list makes the selector, disabled and showing \a shown.
    void offer(const QStringList& labels, const QList<long>& keys, long shown);
    //! Lists the base unit alone, when none of the field's units fit it: nothing can be chosen then.
    void offerOnly(const QString& label);
    //! True if \a key can be chosen.
    bool offers(long key) const;
    const QList<long>& keys() const;
    const QStringList& labels() const;
    //! A unit stands beside the value.
    bool showsUnit() const;

    //! Null until the first offer.
    ComboBoxImpl* widget() const;
    QString text() const;
    //! The key shown; \a otherwise without a selector.
    long key(long otherwise = 0) const;
    void show(long key);
    void setEnabled(bool enabled);
    //! Its width when it shows, for placing a mechanism beside it; 0 otherwise.
    int visibleWidth() const;
    void clear();
    void setReadOnlyStyle();

private:
    QWidget* const m_field;
    const std::function<void(long)> m_onChoice;
    ComboBoxImpl* m_selector = nullptr;
    QStringList m_labels;
    QList<long> m_keys;
    bool m_onlyBaseUnit = false;
};

#endif // NUMERICUNITSELECTOR_H
