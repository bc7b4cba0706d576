#include "EntryPanel.h"

#include "CSS.h"
#include "ContainerImpl.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QFrame* namedFrame(const char* name, QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

bool opaque()
{
    const QVariant noTransparency = qApp->property("-notransparency");
    return noTransparency.isValid() && noTransparency.toString() == QLatin1String("true");
}

} // namespace

EntryPanel::Parts EntryPanel::build(ContainerImpl* container, const QSize& size, const char* upperOverlay,
                                    const char* lowerOverlay)
{
    Parts parts;
    parts.mainFrame = new QFrame;
    parts.mainFrame->setObjectName(QStringLiteral("MainFrame"));
    parts.mainFrame->setMinimumSize(size);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(parts.mainFrame);
    // The upper overlay takes the place of the container's title bar.
    container->setLayout(row, false);

    parts.upperOverlay = namedFrame(upperOverlay, parts.mainFrame);
    parts.readOut = new QLineEdit(parts.mainFrame);
    parts.readOut->setReadOnly(true);
    parts.readOut->setEnabled(false);
    parts.gap = new QLabel(parts.mainFrame);
    parts.lowerOverlay = namedFrame(lowerOverlay, parts.mainFrame);
    place(parts, size);
    return parts;
}

void EntryPanel::place(const Parts& parts, const QSize& size)
{
    const int w = size.width();
    const int h = size.height();
    parts.upperOverlay->setGeometry(QRect(QPoint(0, 0), QPoint(w - 61, 63)));
    parts.readOut->setGeometry(QRect(QPoint(10, 10), QPoint(w - 11, 49)));
    parts.gap->setGeometry(QRect(QPoint(18, 62), QPoint(w - 19, 79)));
    parts.lowerOverlay->setGeometry(QRect(QPoint(0, 78), QPoint(w - 61, h - 5)));
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

QString EntryPanel::keyRule(const char* name, const char* widths, KeyCorners corners, const QString& extra)
{
    QString rounded;
    switch (corners) {
    case KeyCorners::Square:
        break;
    case KeyCorners::Left:
        rounded = QStringLiteral(" border-top-left-radius: 10px; border-bottom-left-radius: 10px;");
        break;
    case KeyCorners::Right:
        rounded = QStringLiteral(" border-top-right-radius: 10px; border-bottom-right-radius: 10px;");
        break;
    case KeyCorners::All:
        rounded = QStringLiteral(" border-radius: 10px;");
        break;
    }
    return QStringLiteral("QPushButton#%1 { border-width: %2;%3 %4 }")
        .arg(QLatin1String(name), QLatin1String(widths), rounded, extra);
}

QPushButton* EntryPanel::key(const QString& name, const QString& text, QWidget* parent)
{
    auto* key = new QPushButton(text, parent);
    key->setObjectName(name);
    key->setFocusPolicy(Qt::NoFocus);
    return key;
}

QGridLayout* EntryPanel::keyGrid()
{
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    return grid;
}

void EntryPanel::shareColumns(QGridLayout* grid)
{
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnStretch(column, 1);
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
