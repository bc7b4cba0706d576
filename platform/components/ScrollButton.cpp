#include "ScrollButton.h"

#include "CSS.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

//! The arrow's three corners in a square of side 1 centred on the origin, pointing right.
QPolygonF rightArrow()
{
    return QPolygonF() << QPointF(-0.2, -0.35) << QPointF(0.25, 0.0) << QPointF(-0.2, 0.35);
}

qreal arrowAngle(Qt::ArrowType direction)
{
    switch (direction) {
    case Qt::DownArrow: return 90.0;
    case Qt::LeftArrow: return 180.0;
    case Qt::UpArrow: return 270.0;
    default: return 0.0;
    }
}

} // namespace

ScrollButton::ScrollButton(Qt::ArrowType direction, QWidget* parent)
    : QAbstractButton(parent)
    , m_direction(direction)
{
    setObjectName(QStringLiteral("ScrollButton"));
    setFocusPolicy(Qt::NoFocus);
    setAutoRepeat(true);
}

Qt::ArrowType ScrollButton::direction() const { return m_direction; }

void ScrollButton::setDirection(Qt::ArrowType direction)
{
    m_direction = direction;
    update();
}

QSize ScrollButton::sizeHint() const { return QSize(40, 40); }

void ScrollButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
    QLinearGradient gradient(face.topLeft(), face.bottomLeft());
    gradient.setColorAt(0.0, QColor(CSS::gradientLight()));
    gradient.setColorAt(0.5, QColor(CSS::gradientMiddle()));
    gradient.setColorAt(1.0, QColor(CSS::gradientDark()));
    painter.setPen(QPen(QColor(CSS::border()), 2));
    painter.setBrush(isDown() ? QBrush(QColor(CSS::border())) : QBrush(gradient));
    const qreal radius = qMin(face.width(), face.height()) / 5;
    painter.drawRoundedRect(face, radius, radius);

    if (m_direction == Qt::NoArrow)
        return;
    const qreal side = qMin(face.width(), face.height());
    QTransform place;
    place.translate(face.center().x(), face.center().y());
    place.rotate(arrowAngle(m_direction));
    place.scale(side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(isEnabled() ? CSS::text() : CSS::gradientLight()));
    painter.drawPolygon(place.map(rightArrow()));
}

void ScrollButton::mouseReleaseEvent(QMouseEvent* event)
{
    QAbstractButton::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        emit mouseUp();
}
