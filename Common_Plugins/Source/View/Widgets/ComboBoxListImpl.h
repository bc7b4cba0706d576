#ifndef COMBOBOXLISTIMPL_H
#define COMBOBOXLISTIMPL_H

#include "ComboBoxListStruct.h"

#include <QFrame>
#include <QList>
#include <QRect>

class ComboBoxImpl;
class ComboBoxItemImpl;
class QLabel;

/*!
  The open drop-down of a selector: a transparent frame over the whole
  screen holding a strip of rows that the operator drags with a finger. On
  opening, the selected row lies over the value field; the strip cannot be
  dragged past the field at either end, and a strip that fits the screen
  overhangs its edge by at most 2 pixels. Disabled choices are shown grey
  and refused. A touch beside the strip closes it without a choice.
*/
class ComboBoxListImpl : public QFrame
{
    Q_OBJECT

public:
    ComboBoxListImpl(ComboBoxImpl* owner, bool embedded, QWidget* parent = nullptr);
    ComboBoxListImpl(QWidget* owner, QLabel* valueField, bool embedded, QWidget* parent = nullptr);

    long getEnum() const;
    QString getText() const;
    QList<ComboBoxListStruct> getList() const;
    virtual void setEnum(long value);
    virtual void setText(const QString& text);
    virtual void setIndex(int i);
    virtual void setList(const QList<ComboBoxListStruct>& list, long current);
    //! The value field, widened by 2 each side, on the screen the list covers.
    QRect getGeometry() const;
    virtual int boundY(int y) const;

signals:
    void currentIndexChanged(int index);
    void requestHomePos();
    void requestList();
    void submit(long index);
    void closeInput();

public slots:
    virtual void beginMoveDropdown();
    virtual void beginShow();
    virtual void endMoveDropdown(int y);
    virtual void moveDropdown(int y);
    virtual void selectIndex(long idx);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    QList<ComboBoxItemImpl*> items() const;
    bool isChoosable(long value) const;
    void markSelectedRow();

    const long m_noValueEnum = -1;
    bool m_embedded = false;
    QWidget* m_owner = nullptr;
    QLabel* m_valueField = nullptr;
    QFrame* m_dropdown = nullptr;
    QList<ComboBoxListStruct> m_rows;
    int m_dragStart = 0;
    int m_rowTop = 0;
    int m_index = -1;
    int m_itemWidth = 0;
    int m_itemHeight = 0;
    bool m_moving = false;
    int m_missCount = 0;
    QRect m_fieldGeometry;
};

#endif // COMBOBOXLISTIMPL_H
