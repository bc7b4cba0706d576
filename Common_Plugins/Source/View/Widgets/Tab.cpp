#include "Tab.h"

#include "ScrollableMenuBarFrame.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

//! A finger that travels this far (both axes summed) drags the strip.
constexpr int dragDistance = 21;
//! Room beside the label inside the rounded border.
constexpr int labelPadding = 24;

} // namespace

Tab::Tab(const QString& text, ScrollableMenuBarFrame* bar, int index)
    : QPushButton(bar)
    , m_bar(bar)
    , m_index(index)
    , m_labelText(text)
{
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    show();
}

void Tab::setChecked(bool checked)
{
    QPushButton::setChecked(checked);
    if (checked)
        alignTab();
}

void Tab::setOrientation(QTabWidget::TabPosition orientation)
{
    m_orientation = orientation;
    updateGeometry();
    update();
}

void Tab::setLabelText(const QString& text)
{
    m_labelText = text;
    updateGeometry();
    update();
}

QString Tab::labelText() const { return m_labelText; }
int Tab::index() const { return m_index; }

void Tab::alignTab()
{
    const QWidget* view = m_bar->parentWidget();
    if (!view || !m_bar->size().isValid())
        return;
    const QPoint strip = m_bar->pos();
    QPoint target = strip;
    if (x() + strip.x() < 0)
        target = QPoint(-x(), y());
    else if (x() + width() + strip.x() > view->width())
        target = QPoint(view->width() - width() - x(), y());
    else if (y() + strip.y() < 0)
        target = QPoint(x(), -y());
    else if (y() + height() + strip.y() > view->height())
        target = QPoint(x(), view->height() - height() - y());
    m_bar->move(target);
}

QSize Tab::sizeHint() const
{
    // The button's own text stays empty; a label longer than the sheet's minimum widens the tab.
    QSize hint = QPushButton::sizeHint();
    const int label = fontMetrics().horizontalAdvance(shownText()) + labelPadding;
    if (runsAlongSide())
        hint.setHeight(qMax(hint.height(), label));
    else
        hint.setWidth(qMax(hint.width(), label));
    return hint;
}

QSize Tab::minimumSizeHint() const { return sizeHint(); }

void Tab::mousePressEvent(QMouseEvent* event)
{
    QPushButton::mousePressEvent(event);
    m_grabOffset = event->globalPos() - m_bar->pos();
    m_pressPos = event->globalPos();
}

void Tab::mouseMoveEvent(QMouseEvent* event)
{
    m_bar->move(event->globalPos() - m_grabOffset);
}

void Tab::mouseReleaseEvent(QMouseEvent* event)
{
    bool checkedAfter = isChecked();
    const bool tap = (m_pressPos - event->globalPos()).manhattanLength() < dragDistance;
    if (tap) {
        alignTab();
        emit currentChanged(m_index);
        checkedAfter = true;
    } else {
        blockSignals(true);
    }
    QPushButton::mouseReleaseEvent(event);
    setChecked(checkedAfter);
    blockSignals(false);
}

void Tab::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    if (isChecked())
        painter.setPen(Qt::black);
    const qreal angle = m_orientation == QTabWidget::West ? -90.0 : m_orientation == QTabWidget::East ? 90.0 : 0.0;
    painter.translate(rect().center());
    painter.save();
    painter.rotate(angle);
    painter.setFont(font());
    const QString text = shownText();
    const QRect bounds = painter.boundingRect(QRect(), Qt::AlignHCenter | Qt::AlignVCenter, text);
    painter.drawText(QRect(int(-bounds.width() * 0.5), int(-bounds.height() * 0.5), bounds.width(), bounds.height()),
                     Qt::AlignVCenter, text);
    painter.restore();
}

bool Tab::runsAlongSide() const
{
    return m_orientation == QTabWidget::West || m_orientation == QTabWidget::East;
}

QString Tab::shownText() const
{
    // Hosts give tab titles in the source language; the catalog of the day translates them.
    return tr(m_labelText.toUtf8().constData());
}
