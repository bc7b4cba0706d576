#include "EntryPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {
const int gap = 5;
}

EntryPlacement::EntryPlacement(const QRect& field, const QSize& pad, int selectorWidth, const QSize& screen,
                               int margin)
    : m_pad(pad)
    , m_screen(screen)
    , m_margin(margin)
{
    placeHorizontally(field, selectorWidth);
    placeVertically(field);
}

void EntryPlacement::placeHorizontally(const QRect& field, int selectorWidth)
{
    const int x = field.x();
    const int right = x + field.width();
    const int far = right + m_pad.width() + selectorWidth;
    const int w = m_screen.width();
    m_left = far > w - 1 && x - m_pad.width() >= w - far;
    if (m_left) {
        m_entryX = x - m_pad.width() - gap;
        m_position.setX(x - m_pad.width() < gap ? m_margin : m_entryX);
        return;
    }
    m_entryX = right + gap + selectorWidth;
    m_position.setX(far >= w - gap ? w - m_pad.width() - gap : m_entryX);
}

void EntryPlacement::placeVertically(const QRect& field)
{
    const int y = field.y();
    const int bottom = y + field.height() + m_pad.height();
    const int h = m_screen.height();
    m_above = bottom > h - 1 && y - m_pad.height() >= h - bottom;
    if (m_above) {
        m_entryY = y - m_pad.height() - gap;
        m_position.setY(y - m_pad.height() < gap ? m_margin : m_entryY);
        return;
    }
    m_entryY = y + field.height() + gap;
    m_position.setY(bottom >= h - gap ? h - m_pad.height() - gap : m_entryY);
}

QRect EntryPlacement::fieldRect(const QWidget* field, const QWidget* area)
{
    QPoint topLeft;
    if (!area)
        topLeft = field->mapToGlobal(QPoint());
    else if (field->window() == area->window())
        // Within one window, whatever the window system makes of where it stands.
        topLeft = field->mapTo(field->window(), QPoint()) - area->mapTo(area->window(), QPoint());
    else
        // A field on a window of its own (a pop-up, a dialog) meets the area only on the desktop.
        topLeft = area->mapFromGlobal(field->mapToGlobal(QPoint()));
    return QRect(topLeft, field->size());
}

QPoint EntryPlacement::position() const { return m_position; }
int EntryPlacement::entryX() const { return m_entryX; }
int EntryPlacement::entryY() const { return m_entryY; }

EntryPlacement::Corner EntryPlacement::corner() const
{
    if (m_above)
        return m_left ? AboveLeft : AboveRight;
    return m_left ? BelowLeft : BelowRight;
}

bool EntryPlacement::isAbove() const { return m_above; }
bool EntryPlacement::isLeft() const { return m_left; }
QSize EntryPlacement::padSize() const { return m_pad; }

int EntryPlacement::checkEntryWidthPos(int width) const
{
    if (m_left)
        return m_entryX + m_pad.width() - width < 0 ? m_margin : m_entryX;
    return width + m_entryX > m_screen.width() ? m_screen.width() - width - m_margin : m_entryX;
}

int EntryPlacement::checkEntryHeightPos(int height) const
{
    if (m_above)
        return m_entryY + m_pad.height() - height < 0 ? m_margin : m_entryY;
    return height + m_entryY > m_screen.height() ? m_screen.height() - height - m_margin : m_entryY;
}

QSize EntryPlacement::areaSize(const QWidget* area)
{
    if (area)
        return area->size();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->size() : QSize(800, 480);
}

EntryPlacement EntryPlacement::place(QWidget* mechanism, const QWidget* field, int selectorWidth)
{
    const QWidget* area = mechanism->parentWidget();
    const EntryPlacement placement(fieldRect(field, area), mechanism->size(), selectorWidth, areaSize(area));
    mechanism->move(placement.position());
    return placement;
}
