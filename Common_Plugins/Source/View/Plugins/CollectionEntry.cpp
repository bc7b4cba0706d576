#include "CollectionEntry.h"

#include "CSS.h"

#include <QIcon>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>

namespace {

QString formA(const QString& className, const QString& objectName)
{
    return QStringLiteral("<widget class=\"%1\" name=\"%2\">\n"
                          "</widget>\n")
        .arg(className, objectName);
}

QString formB(const QString& className, const QString& objectName)
{
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"%2\">\n"
                          " </widget>\n"
                          "</ui>\n")
        .arg(className, objectName);
}

// Designer reads the customwidget block to know how to add pages to the
// container it drops.
QString formC(const QString& className, const QString& objectName)
{
    return QStringLiteral("<ui>"
                          "    <widget class=\"%1\" name=\"%2\">"
                          "        <widget class=\"QWidget\" name=\"page\" />"
                          "    </widget>"
                          "    <customwidgets>"
                          "        <customwidget>"
                          "            <class>%1</class>"
                          "            <extends>QWidget</extends>"
                          "            <addpagemethod>addPage</addpagemethod>"
                          "        </customwidget>"
                          "    </customwidgets>"
                          "</ui>")
        .arg(className, objectName);
}

QString formD(const QString& className, const QString& objectName)
{
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"%2\">\n"
                          "  <property name=\"geometry\">\n"
                          "   <rect>\n"
                          "    <x>0</x>\n"
                          "    <y>0</y>\n"
                          "    <width>140</width>\n"
                          "    <height>40</height>\n"
                          "   </rect>\n"
                          "  </property>\n"
                          " </widget>\n"
                          "</ui>\n")
        .arg(className, objectName);
}

//! The capitals of the class name without namespace and "Impl": "TB" for ToggleButtonImpl.
QString initialsOf(const QString& className)
{
    QString word = className.section(QStringLiteral("::"), -1);
    if (word.endsWith(QLatin1String("Impl")))
        word.chop(4);
    QString initials;
    for (const QChar c : qAsConst(word)) {
        if (c.isUpper() && initials.size() < 3)
            initials += c;
    }
    return initials.isEmpty() ? word.left(1) : initials;
}

// Designer shows an SVG icon as the Qt logo, so the palette gets a raster
// tile in the theme's colours.
QIcon paletteIcon(const QString& className)
{
    constexpr int side = 32;
    QPixmap tile(side, side);
    tile.fill(Qt::transparent);

    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient fill(0, 0, 0, side);
    fill.setColorAt(0, QColor(CSS::gradientLight()));
    fill.setColorAt(1, QColor(CSS::gradientDark()));
    painter.setPen(QPen(QColor(CSS::border()), 2));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(1, 1, side - 2, side - 2), 6, 6);

    const QString initials = initialsOf(className);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(initials.size() > 2 ? 11 : 14);
    painter.setFont(font);
    painter.setPen(QColor(CSS::text()));
    painter.drawText(tile.rect(), Qt::AlignCenter, initials);
    painter.end();
    return QIcon(tile);
}

} // namespace

CollectionEntry::CollectionEntry(const CollectionRow& row, QObject* parent)
    : QObject(parent)
    , m_row(row)
{
}

bool CollectionEntry::isContainer() const
{
    return m_row.isContainer;
}

bool CollectionEntry::isInitialized() const
{
    return m_initialized;
}

QIcon CollectionEntry::icon() const
{
    return paletteIcon(name());
}

QString CollectionEntry::domXml() const
{
    const QString className = name();
    const QString objectName = QString::fromLatin1(m_row.objectName);
    switch (m_row.form) {
    case CollectionRow::DomForm::A:
        return formA(className, objectName);
    case CollectionRow::DomForm::B:
        return formB(className, objectName);
    case CollectionRow::DomForm::C:
        return formC(className, objectName);
    case CollectionRow::DomForm::D:
        return formD(className, objectName);
    }
    return QString();
}

QString CollectionEntry::group() const
{
    return QString::fromLatin1(m_row.group);
}

QString CollectionEntry::includeFile() const
{
    return QString::fromLatin1(m_row.includeFile);
}

QString CollectionEntry::name() const
{
    return QString::fromLatin1(m_row.name);
}

QString CollectionEntry::toolTip() const
{
    return QString::fromLatin1(m_row.toolTip);
}

QString CollectionEntry::whatsThis() const
{
    return QString::fromLatin1(m_row.whatsThis);
}

QWidget* CollectionEntry::createWidget(QWidget* parent)
{
    return m_row.createWidget ? m_row.createWidget(parent) : nullptr;
}

void CollectionEntry::initialize(QDesignerFormEditorInterface*)
{
    m_initialized = true;
}
