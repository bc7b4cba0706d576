#include "QRVUtil.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QPoint>
#include <QStyle>
#include <QVariant>
#include <QWidget>

QString QRVUtil::startupSwitch(const char* name)
{
    const QCoreApplication* app = QCoreApplication::instance();
    if (!app)
        return QString();
    const QVariant value = app->property(name);
    return value.isValid() ? value.toString() : QString();
}

bool QRVUtil::startupSwitchIs(const char* name, const QString& value)
{
    return !value.isEmpty() && startupSwitch(name) == value;
}

bool QRVUtil::isHandheld()
{
    return startupSwitchIs("-systype", QStringLiteral("handheld"));
}

QString QRVUtil::initialSize()
{
    return isHandheld() ? QStringLiteral("Max") : QStringLiteral("Min");
}

QString QRVUtil::demotedSize(const QString& size)
{
    if (size == QLatin1String("Max") && startupSwitchIs("-size", QStringLiteral("small_portrait")))
        return QStringLiteral("Min");
    return size;
}

bool QRVUtil::applyMaxMinSheet(QWidget* widget, const QString& size, const QString& maxSheet,
                               const QString& minSheet)
{
    if (size == QLatin1String("Max"))
        widget->setStyleSheet(maxSheet);
    else if (size == QLatin1String("Min"))
        widget->setStyleSheet(minSheet);
    else
        return false;
    return true;
}

QPoint QRVUtil::centredOn(const QWidget* anchor, const QWidget* other)
{
    return QPoint(anchor->x() + anchor->width() / 2 - other->width() / 2,
                  anchor->y() + anchor->height() / 2 - other->height() / 2);
}

void QRVUtil::processString(QString& text)
{
    text = text.trimmed();
    text.replace(QLatin1String("\\n"), QLatin1String("\n"));
}

int QRVUtil::calculateStringWidth(const QFontMetrics& metrics, const QString& text)
{
    int widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        widest = qMax(widest, metrics.horizontalAdvance(line));
    return widest;
}

namespace {

// QLabel sets a text inside a frame off by half an "x" unless told an indent.
int textIndent(const QLabel* label, const QFontMetrics& metrics)
{
    const int indent = label->indent();
    if (indent >= 0)
        return indent;
    return label->frameWidth() > 0 ? qMax(0, metrics.horizontalAdvance(QLatin1Char('x')) / 2 - label->margin()) : 0;
}

} // namespace

int QRVUtil::labelWidthFor(const QLabel* label, const QString& text)
{
    const QFontMetrics metrics(label->font());
    const QMargins frame = label->contentsMargins();
    return calculateStringWidth(metrics, text) + textIndent(label, metrics) + 2 * label->margin() + frame.left()
           + frame.right();
}

QRect QRVUtil::labelTextRect(const QLabel* label)
{
    const int margin = label->margin();
    QRect rect = label->contentsRect().adjusted(margin, margin, -margin, -margin);
    const int indent = textIndent(label, QFontMetrics(label->font()));
    const Qt::Alignment align = QStyle::visualAlignment(label->layoutDirection(), label->alignment());
    if (align & Qt::AlignLeft)
        rect.setLeft(rect.left() + indent);
    if (align & Qt::AlignRight)
        rect.setRight(rect.right() - indent);
    if (align & Qt::AlignTop)
        rect.setTop(rect.top() + indent);
    if (align & Qt::AlignBottom)
        rect.setBottom(rect.bottom() - indent);
    return rect;
}
