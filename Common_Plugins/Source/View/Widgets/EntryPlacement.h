#ifndef ENTRYPLACEMENT_H
#define ENTRYPLACEMENT_H

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

/*!
  Where an entry mechanism opens beside the field it edits: to the right of
  the field and its unit selector when it fits, else to the left; below the
  field when it fits, else above; 5 pixels from the field and never off the
  screen. The corner it took tells a mechanism that replaces it by rotation
  where to line up.
*/
class EntryPlacement
{
public:
    //! Corners of the field that the mechanism sits at.
    enum Corner
    {
        AboveRight = 1,
        AboveLeft = 2,
        BelowRight = 3,
        BelowLeft = 4
    };

    EntryPlacement() = default;
    //! \a field in screen coordinates; \a selectorWidth 0 without a unit selector.
    EntryPlacement(const QRect& field, const QSize& pad, int selectorWidth, const QSize& screen, int margin = 40);

    /*!
      The rectangle of \a field in the coordinates of \a area, the widget the
      mechanism opens on; on the screen without an area. The field may be on
      a window of its own.
    */
    static QRect fieldRect(const QWidget* field, const QWidget* area);
    //! The size of \a area, the widget a mechanism opens on; the screen's without one.
    static QSize areaSize(const QWidget* area);
    //! Moves \a mechanism beside \a field on the mechanism's parent (the screen without one).
    static EntryPlacement place(QWidget* mechanism, const QWidget* field, int selectorWidth);

    //! Where the mechanism is moved.
    QPoint position() const;
    int entryX() const;
    int entryY() const;
    Corner corner() const;
    bool isAbove() const;
    bool isLeft() const;
    //! The size of the mechanism placed first, which the others line up with.
    QSize padSize() const;

    /*!
      Where a mechanism \a width wide that replaces the first by rotation
      starts horizontally: at entryX(), unless that would take it off the
      screen, in which case it keeps the margin from the edge it would pass.
    */
    int checkEntryWidthPos(int width) const;
    //! The same vertically, for a mechanism \a height high.
    int checkEntryHeightPos(int height) const;

private:
    void placeHorizontally(const QRect& field, int selectorWidth);
    void placeVertically(const QRect& field);

    QSize m_pad;
    QSize m_screen;
    int m_margin = 40;
    int m_entryX = 0;
    int m_entryY = 0;
    QPoint m_position;
    bool m_left = false;
    bool m_above = false;
};

#endif // ENTRYPLACEMENT_H
