#include "MeterBar_ScaleBase.h"

#include "CSS.h"
#include "QRVUtil.h"

#include <QPainter>
#include <QPixmapCache>
#include <QStyle>

#include <algorithm>

MeterBar_ScaleBase::MeterBar_ScaleBase(const QString& text, int initialMargin, QWidget* parent)
    : QLabel(text, parent)
{
    setObjectName(QStringLiteral("MetBar_Scale"));
    connect(this, &MeterBar_ScaleBase::newScaleText, this, &MeterBar_ScaleBase::setText);
    fixWidthTo(text, initialMargin);
}

void MeterBar_ScaleBase::setText(QString text)
{
    QString prepared = text;
    QRVUtil::processString(prepared);
    if (prepared == QLabel::text())
        return;
    QLabel::setText(prepared);
    fixWidthTo(text, textMargin());
    emit textWidthChanged();
}

void MeterBar_ScaleBase::setTextNonGuiThread(QString text)
{
    emit newScaleText(text);
}

void MeterBar_ScaleBase::fixWidthTo(const QString& text, int margin)
{
    m_wantedWidth = QRVUtil::calculateStringWidth(fontMetrics(), text) + margin;
    applyWidth();
}

int MeterBar_ScaleBase::wholeTextWidth() const
{
    return QRVUtil::labelWidthFor(this, text());
}

void MeterBar_ScaleBase::setRoom(int width)
{
    m_room = width;
    applyWidth();
}

void MeterBar_ScaleBase::applyWidth()
{
    setFixedWidth(m_room >= 0 ? std::min(m_wantedWidth, m_room) : m_wantedWidth);
}

void MeterBar_ScaleBase::paintElided(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect room = QRVUtil::labelTextRect(this);
    QStringList lines = text().split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, room.width());
    style()->drawItemText(&painter, room, QStyle::visualAlignment(layoutDirection(), alignment()), palette(),
                          isEnabled(), lines.join(QLatin1Char('\n')), foregroundRole());
}

void MeterBar_ScaleBase::paintEvent(QPaintEvent* event)
{
    // QLabel would draw a text too long for the label across its border.
    if (wholeTextWidth() <= width())
        QLabel::paintEvent(event);
    else
        paintElided(event);
    QPainter painter(this);

    const QString key = QStringLiteral("MeterBar_Scale-Dash");
    QPixmap dash;
    if (!QPixmapCache::find(key, &dash)) {
        dash.load(dashResource(), "png");
        QPixmapCache::insert(key, dash);
    }

    QPen pen(QColor(CSS::border()));
    pen.setWidth(3);
    painter.setPen(pen);
    painter.setRenderHint(QPainter::Antialiasing);
    paintDecoration(painter, dash);
}
