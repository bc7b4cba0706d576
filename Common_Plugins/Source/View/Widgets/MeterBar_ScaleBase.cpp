#include "MeterBar_ScaleBase.h"

#include "CSS.h"
#include "QRVUtil.h"

#include <QPainter>
#include <QPixmapCache>

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
}

void MeterBar_ScaleBase::setTextNonGuiThread(QString text)
{
    emit newScaleText(text);
}

void MeterBar_ScaleBase::fixWidthTo(const QString& text, int margin)
{
    setFixedWidth(QRVUtil::calculateStringWidth(fontMetrics(), text) + margin);
}

void MeterBar_ScaleBase::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
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
