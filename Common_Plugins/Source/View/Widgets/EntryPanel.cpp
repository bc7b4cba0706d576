#include "EntryPanel.h"

#include "CSS.h"
#include "ContainerImpl.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

QFrame* placedFrame(const char* name, const QRect& area, QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setObjectName(QLatin1String(name));
    frame->setGeometry(area);
    return frame;
}

bool opaque()
{
    const QVariant noTransparency = qApp->property("-notransparency");
    return noTransparency.isValid() && noTransparency.toString() == QLatin1String("true");
}

//! One key's rule: \a widths are the top, right, bottom and left border widths.
QString keyRule(const char* name, const char* widths, const QString& extra = QString())
{
    return QStringLiteral("QPushButton#%1 { border-width: %2; %3 }")
        .arg(QLatin1String(name), QLatin1String(widths), extra);
}

} // namespace

EntryPanel::Parts EntryPanel::build(ContainerImpl* container, const QSize& size, const char* upperOverlay,
                                    const char* lowerOverlay)
{
    const int w = size.width();
    const int h = size.height();
    Parts parts;
    parts.mainFrame = new QFrame;
    parts.mainFrame->setObjectName(QStringLiteral("MainFrame"));
    parts.mainFrame->setMinimumSize(size);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(parts.mainFrame);
    // The upper overlay takes the place of the container's title bar.
    container->setLayout(row, false);

    placedFrame(upperOverlay, QRect(QPoint(0, 0), QPoint(w - 61, 63)), parts.mainFrame);
    parts.readOut = new QLineEdit(parts.mainFrame);
    parts.readOut->setGeometry(QRect(QPoint(10, 10), QPoint(w - 11, 49)));
    parts.readOut->setReadOnly(true);
    parts.readOut->setEnabled(false);
    parts.gap = new QLabel(parts.mainFrame);
    parts.gap->setGeometry(QRect(QPoint(18, 62), QPoint(w - 19, 79)));
    placedFrame(lowerOverlay, QRect(QPoint(0, 78), QPoint(w - 61, h - 5)), parts.mainFrame);
    return parts;
}

QString EntryPanel::frameStyle(const QString& overlaySelector)
{
    QString style = QStringLiteral("QPushButton { color: white; background-color: transparent;"
                                   " border: 1px solid white; font-size: 40px; }"
                                   "QPushButton:pressed { color: black; background-color: white; }"
                                   "QFrame#MainFrame { background-color: rgba(0,0,0,215); border: 2px solid %1;"
                                   " border-radius: 18px; border-left: none; }"
                                   "%2 { border: 2px solid %1;"
                                   " border-radius: 18px; border-right: none;"
                                   " border-top-right-radius: 0px; border-bottom-right-radius: 0px; }"
                                   "QLabel { background-color: transparent; border: 2px solid %1; border-left: none;"
                                   " border-top-right-radius: 9px; border-bottom-right-radius: 9px; }"
                                   "QLineEdit { background-color: transparent; border: 2px solid white;"
                                   " border-radius: 10px; font-size: 40px; min-height: 40px; max-height: 40px;"
                                   " color: white; padding-left: 4px;"
                                   " selection-color: white; selection-background-color: black; }")
                        .arg(CSS::border(), overlaySelector);
    if (opaque())
        style += QStringLiteral("QFrame#MainFrame{    background-color: #000;}");
    return style;
}

QString EntryPanel::keyStyle()
{
    const QString left = QStringLiteral("border-top-left-radius: 10px; border-bottom-left-radius: 10px;");
    const QString right = QStringLiteral("border-top-right-radius: 10px; border-bottom-right-radius: 10px;");
    const QString round = QStringLiteral("border-radius: 10px;");
    const QString small = QStringLiteral(" font-size: 14px; text-align: bottom;");
    const QString medium = QStringLiteral(" font-size: 16px;");
    const QString step = QStringLiteral("font-size: 18px;");
    return keyRule("kbBtn", "1px 0px 0px 1px") + keyRule("kbBtnLeft", "1px 0px 0px 1px", left)
        + keyRule("kbBtnRight", "1px 1px 0px 1px", right) + keyRule("kbBtnAllRound", "1px 1px 1px 1px", round)
        + keyRule("kbBtnBottomAllRound", "1px 1px 1px 1px", round)
        + keyRule("kbBtnBottomLeft", "1px 0px 1px 1px", left) + keyRule("kbBtnBottom", "1px 0px 1px 1px")
        + keyRule("kbBtnBottomRight", "1px 1px 1px 1px", right) + keyRule("cancel", "1px 0px 0px 1px", left + small)
        + keyRule("clear", "1px 0px 0px 1px", small)
        + keyRule("bksp", "1px 1px 0px 1px",
                  right + QStringLiteral(" image: url(:/images/backspace.png); image-position: right center;"))
        + keyRule("upArrow", "1px 0px 0px 1px",
                  QStringLiteral("image: url(:/images/upArrow.png); image-position: center;"))
        + keyRule("downArrow", "1px 0px 0px 1px",
                  QStringLiteral("image: url(:/images/downArrow.png); image-position: center;"))
        + keyRule("enter", "1px 1px 1px 1px",
                  right + medium
                      + QStringLiteral(" text-align: bottom; background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
                                       " stop:0 rgba(0,255,0,170), stop:1 rgba(0,255,0,50));"))
        + keyRule("unit", "1px 1px 0px 1px", right + medium) + keyRule("lastUnit", "1px 1px 1px 1px", right + medium)
        + keyRule("incr", "1px 0px 0px 1px", step) + keyRule("decr", "1px 0px 1px 1px", step)
        + QStringLiteral("QPushButton#kbBtn:disabled, QPushButton#kbBtnBottomLeft:disabled,"
                         " QPushButton#kbBtnBottom:disabled, QPushButton#kbBtnRight:disabled"
                         " { background-color: #555; }"
                         "QPushButton#bksp:pressed { image: url(:/images/bksp_pressed.png); background-color: white; }"
                         "QPushButton#upArrow:pressed { image: url(:/images/upArrowPressed.png);"
                         " background-color: white; }"
                         "QPushButton#downArrow:pressed { image: url(:/images/downArrowPressed.png);"
                         " background-color: white; }"
                         "QPushButton#enter:pressed { background-color: #0b0; }");
}

QString EntryPanel::longReadOutStyle() { return QStringLiteral("QLineEdit { font-size: 26px; }"); }

QString EntryPanel::rotateKeyStyle()
{
    return QStringLiteral("QPushButton#RotateEntry { border: none; border-image: url(:/images/rotateEntry.png); }"
                          "QPushButton#RotateEntry:pressed { border-image: url(:/images/rotateEntryPressed.png);"
                          " background-color: transparent; }");
}

QString EntryPanel::confirmPressedRule(const QString& selector, const QString& rimColour)
{
    return QStringLiteral("%1:pressed { border-color: %2; background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1,"
                          " stop:0 rgba(0,255,0,125), stop:0.4 rgba(0,0,0,150), stop:0.6 rgba(0,0,0,150),"
                          " stop:1 rgba(0,255,0,125)); }")
        .arg(selector, rimColour);
}

QString EntryPanel::hiddenBorderFrameStyle()
{
    return QStringLiteral("QFrame#BorderFrame {\tbackground-color:transparent;\tborder: none;}");
}

QString EntryPanel::withLanguageRule(const QString& style, const QString& chineseRule)
{
    const QString language = qApp->property("currentLanguage").toString();
    if (language == QLatin1String("zh_cn") || language == QLatin1String("zh_tw"))
        return style + chineseRule;
    return style;
}

bool EntryPanel::isPointerEvent(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return true;
    default:
        return false;
    }
}
