#ifndef COMBOBOXITEMIMPL_H
#define COMBOBOXITEMIMPL_H

#include <QPushButton>

class ComboBoxListImpl;

/*!
  One row of an open selector's strip. A short touch chooses the row; a
  finger that travels dragThreshold pixels or more drags the whole strip
  instead, and that touch chooses nothing, however it ends. Below the
  threshold the strip stays still, so a tap never moves it.
*/
class ComboBoxItemImpl : public QPushButton
{
    Q_OBJECT

public:
    ComboBoxItemImpl(ComboBoxListImpl* list, const QString& text, long value);

    long getIndex() const;

    /*!
      Finger travel, in pixels, from which a touch is a drag. A finger
      always wanders a little; without this slop a tap would scroll the
      list instead of choosing its row.
    */
    static constexpr int dragThreshold = 20;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int travel(const QMouseEvent* event) const;
    //! Moves the strip once the touch is a drag; true from then on.
    bool followDrag(int dy);

    ComboBoxListImpl* m_list = nullptr;
    long m_value = 0;
    bool m_pressed = false;
    int m_pressY = 0;
    bool m_dragging = false;
};

#endif // COMBOBOXITEMIMPL_H
