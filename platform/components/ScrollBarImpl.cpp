#include "ScrollBarImpl.h"

#include "CSS.h"

namespace Kelvane {
namespace gui {

namespace {

//! One sheet for both directions: only the axis names and the numbers differ.
QString sheetFor(Qt::Orientation orientation, int thickness)
{
    const bool vertical = orientation == Qt::Vertical;
    const QString across = vertical ? QStringLiteral("width") : QStringLiteral("height");
    const QString along = vertical ? QStringLiteral("height") : QStringLiteral("width");
    const QString gradientAxis = vertical ? QStringLiteral("x1:0, y1:0, x2:1, y2:0")
                                          : QStringLiteral("x1:0, y1:0, x2:0, y2:1");
    return QStringLiteral("QScrollBar {"
                          "    %1: %3px;"
                          "    background-color: %5;"
                          "    border: 1px solid %9;"
                          "    border-radius: %4px;"
                          "    margin: 0px;"
                          "}"
                          "QScrollBar::handle {"
                          "    min-%2: %3px;"
                          "    background-color: qlineargradient(%7, stop:0 %8, stop:0.5 %9, stop:1 %6);"
                          "    border: 2px solid %10;"
                          "    border-radius: %4px;"
                          "}"
                          "QScrollBar::handle:pressed { background-color: %10; }"
                          "QScrollBar::add-line, QScrollBar::sub-line {"
                          "    %2: 0px; border: none; background: none;"
                          "}"
                          "QScrollBar::add-page, QScrollBar::sub-page { background: none; }")
        .arg(across, along, QString::number(thickness), QString::number(thickness / 4))
        .arg(CSS::background(), CSS::gradientDark(), gradientAxis, CSS::gradientLight(),
             CSS::gradientMiddle(), CSS::border());
}

} // namespace

ScrollBarImpl::ScrollBarImpl(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent)
{
    applyStyle();
}

ScrollBarImpl::Style ScrollBarImpl::scrollBarStyle() const { return m_style; }

void ScrollBarImpl::setStyle(Style style)
{
    m_style = style;
    applyStyle();
}

int ScrollBarImpl::thickness(Style style)
{
    return style == Thin ? 20 : 40;
}

void ScrollBarImpl::applyStyle()
{
    setStyleSheet(sheetFor(orientation(), thickness(m_style)));
}

} // namespace gui
} // namespace Kelvane
