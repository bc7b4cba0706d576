#include "StatusBarIcon.h"

#include "CSS.h"

#include <QHBoxLayout>
#include <QLabel>

StatusBarIcon::StatusBarIcon(QWidget* parent)
    : WidgetBaseImpl(parent)
{
    setObjectName(QStringLiteral("StatusBarIcon"));
    setImageName(m_imageName);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* icon = new QLabel;
    icon->setObjectName(QStringLiteral("Icon"));
    layout->addWidget(icon);
}

QString StatusBarIcon::styleHead()
{
    return QStringLiteral("QLabel#Icon {  min-width:  28px;  max-width:  28px;  min-height: 28px;"
                          "  max-height: 28px;  border: 4px solid ")
        + CSS::border()
        + QStringLiteral(";  border-radius: 14px;  background-color: #000;  background-image: url(:/images/");
}

QString StatusBarIcon::imageName() const { return m_imageName; }

void StatusBarIcon::setImageName(const QString& name)
{
    m_imageName = name;
    // Qt repolishes the icon on a new sheet only once this widget is polished
    // itself; a picture named before the icon first shows would not appear.
    ensurePolished();
    setStyleSheet(m_styleHead + m_imageName + m_styleTail);
}
