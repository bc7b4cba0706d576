#include "ScrollableMenuBarFrame.h"

#include "ScrollButton.h"

#include <QBoxLayout>
#include <QEvent>
#include <QMouseEvent>

namespace {

//! Widest the scroll buttons get along the strip, in pixels.
constexpr int maxButtonSide = 40;

//! Offset of a piece of \a length in \a room, by where the alignment puts it.
int alignedOffset(int length, int room, bool toEnd, bool centred)
{
    if (toEnd)
        return room - length;
    return centred ? (room - length) / 2 : 0;
}

} // namespace

ScrollableMenuBarFrame::ScrollableMenuBarFrame(QWidget* parent, Qt::Alignment alignment)
    : QFrame(parent)
    , m_alignment(alignment)
    , m_backButton(new ScrollButton(Qt::LeftArrow))
    , m_forwardButton(new ScrollButton(Qt::RightArrow))
{
    setObjectName(QStringLiteral("ScrollableMenuBar"));
    m_backButton->setObjectName(QStringLiteral("MenuBarBack"));
    m_forwardButton->setObjectName(QStringLiteral("MenuBarForward"));
    connect(m_backButton, &ScrollButton::clicked, this, [this] { scrollBy(-1); });
    connect(m_forwardButton, &ScrollButton::clicked, this, [this] { scrollBy(1); });
    adoptHolder();
}

ScrollableMenuBarFrame::~ScrollableMenuBarFrame()
{
    // The buttons live in the holder, beside the strip, so they are not our children.
    delete m_backButton;
    delete m_forwardButton;
}

Qt::Alignment ScrollableMenuBarFrame::alignment() const { return m_alignment; }

void ScrollableMenuBarFrame::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    refit();
}

void ScrollableMenuBarFrame::addWidget(QWidget* widget)
{
    if (!layout()) {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(4);
    }
    layout()->addWidget(widget);
    refit();
}

bool ScrollableMenuBarFrame::isPlacedByHolder() const { return m_placedByHolder; }

void ScrollableMenuBarFrame::setPlacedByHolder(bool placed)
{
    m_placedByHolder = placed;
    refit();
}

bool ScrollableMenuBarFrame::isScrollable() const
{
    if (!m_holder)
        return false;
    return runsVertically() ? height() > m_holder->height() : width() > m_holder->width();
}

void ScrollableMenuBarFrame::move(int x, int y)
{
    move(QPoint(x, y));
}

void ScrollableMenuBarFrame::move(const QPoint& position)
{
    const QSize room = m_holder ? m_holder->size() : size();
    const bool vertical = runsVertically();
    const int length = vertical ? height() : width();
    const int roomAlong = vertical ? room.height() : room.width();
    const int wanted = vertical ? position.y() : position.x();

    int along = 0;
    if (isScrollable()) {
        const int arrow = arrowRoom();
        along = qBound(roomAlong - length - arrow, wanted, arrow);
    } else if (vertical) {
        along = alignedOffset(length, roomAlong, m_alignment & Qt::AlignBottom, m_alignment & Qt::AlignVCenter);
    } else {
        along = alignedOffset(length, roomAlong, m_alignment & Qt::AlignRight, m_alignment & Qt::AlignHCenter);
    }
    const int across = vertical
        ? alignedOffset(width(), room.width(), m_alignment & Qt::AlignRight, m_alignment & Qt::AlignHCenter)
        : alignedOffset(height(), room.height(), m_alignment & Qt::AlignBottom, m_alignment & Qt::AlignVCenter);

    const QPoint before = pos();
    QFrame::move(vertical ? QPoint(across, along) : QPoint(along, across));
    placeScrollButtons();
    if (pos() != before)
        emit moving();
}

bool ScrollableMenuBarFrame::event(QEvent* event)
{
    const bool handled = QFrame::event(event);
    if (event->type() == QEvent::LayoutRequest)
        refit();
    else if (event->type() == QEvent::Resize && m_placedByHolder)
        move(pos());
    else if (event->type() == QEvent::ParentChange)
        adoptHolder();
    return handled;
}

bool ScrollableMenuBarFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_holder && event->type() == QEvent::Resize)
        refit();
    return QFrame::eventFilter(watched, event);
}

void ScrollableMenuBarFrame::mousePressEvent(QMouseEvent* event)
{
    m_grabOffset = event->globalPos() - pos();
    event->accept();
}

void ScrollableMenuBarFrame::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        move(event->globalPos() - m_grabOffset);
}

bool ScrollableMenuBarFrame::runsVertically() const
{
    const auto* box = qobject_cast<const QBoxLayout*>(layout());
    return box && (box->direction() == QBoxLayout::TopToBottom || box->direction() == QBoxLayout::BottomToTop);
}

void ScrollableMenuBarFrame::adoptHolder()
{
    if (m_holder == parentWidget())
        return;
    if (m_holder)
        m_holder->removeEventFilter(this);
    m_holder = parentWidget();
    if (m_holder)
        m_holder->installEventFilter(this);
    for (ScrollButton* button : {m_backButton.data(), m_forwardButton.data()}) {
        button->setParent(m_holder);
        button->hide();
    }
    refit();
}

void ScrollableMenuBarFrame::refit()
{
    if (layout() && !m_placedByHolder)
        resize(layout()->sizeHint());
    if (m_holder) {
        const bool vertical = runsVertically();
        const int side = qMin(maxButtonSide, vertical ? m_holder->width() : m_holder->height());
        m_backButton->resize(side, side);
        m_forwardButton->resize(side, side);
        m_backButton->setDirection(vertical ? Qt::UpArrow : Qt::LeftArrow);
        m_forwardButton->setDirection(vertical ? Qt::DownArrow : Qt::RightArrow);
    }
    // A strip that has just outgrown its holder starts with its first item beside the back arrow.
    const bool startOver = !m_placedByHolder && isScrollable() && !m_backButton->isVisibleTo(m_holder);
    move(startOver ? QPoint(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : pos());
}

void ScrollableMenuBarFrame::scrollBy(int steps)
{
    const QPoint shift = runsVertically() ? QPoint(0, steps * scrollStep()) : QPoint(steps * scrollStep(), 0);
    move(pos() - shift);
}

void ScrollableMenuBarFrame::placeScrollButtons()
{
    const bool needed = isScrollable() && !m_placedByHolder;
    m_backButton->setVisible(needed);
    m_forwardButton->setVisible(needed);
    if (!needed)
        return;
    const bool vertical = runsVertically();
    const int side = m_backButton->width();
    const QSize room = m_holder->size();
    if (vertical) {
        m_backButton->move((room.width() - side) / 2, 0);
        m_forwardButton->move((room.width() - side) / 2, room.height() - side);
    } else {
        m_backButton->move(0, (room.height() - side) / 2);
        m_forwardButton->move(room.width() - side, (room.height() - side) / 2);
    }
    const int along = vertical ? y() : x();
    m_backButton->setEnabled(along < side);
    m_forwardButton->setEnabled(along > (vertical ? room.height() - height() : room.width() - width()) - side);
    m_backButton->raise();
    m_forwardButton->raise();
}

int ScrollableMenuBarFrame::arrowRoom() const
{
    return m_placedByHolder ? 0 : m_backButton->width();
}

int ScrollableMenuBarFrame::scrollStep() const
{
    const int room = runsVertically() ? m_holder->height() : m_holder->width();
    return qMax(maxButtonSide, room / 4);
}
