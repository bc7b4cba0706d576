#include "LatLonEntryImpl.h"

#include "EntryPanel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

//! The hemisphere letters of \a mode, the upper key first.
QString hemispheres(LatLonEntryImpl::LatLonMode mode)
{
    return mode == LatLonEntryImpl::Latitude ? QStringLiteral("NS") : QStringLiteral("EW");
}

QString typingPattern(LatLonEntryImpl::LatLonMode mode)
{
    const QString degreeDigits = mode == LatLonEntryImpl::Latitude ? QStringLiteral("{1,2}") : QStringLiteral("{1,3}");
    return QStringLiteral("^[0-9]%1[\u00b0][0-9]{1,2}[.][0-9]{1,4}[N|S|E|W]$").arg(degreeDigits);
}

//! Why \a text is no position of \a mode, or nothing when it is one.
QString positionFault(const QString& text, LatLonEntryImpl::LatLonMode mode)
{
    const bool latitude = mode == LatLonEntryImpl::Latitude;
    const int letter = text.indexOf(QRegExp(QStringLiteral("[NSEW|]")));
    if (letter >= 0 && letter + 1 < text.size())
        return latitude ? LatLonEntryImpl::tr("N or S goes at the end") : LatLonEntryImpl::tr("E or W goes at the end");
    if (!QRegExp(typingPattern(mode)).exactMatch(text))
        return latitude ? LatLonEntryImpl::tr("Complete it, for example 51\u00b030.25N")
                        : LatLonEntryImpl::tr("Complete it, for example 0\u00b007.5W");
    if (!hemispheres(mode).contains(text.back()))
        return latitude ? LatLonEntryImpl::tr("Latitude ends in N or S")
                        : LatLonEntryImpl::tr("Longitude ends in E or W");
    const int degreeSign = text.indexOf(QChar(0x00b0));
    const int degrees = text.leftRef(degreeSign).toInt();
    // Between the degree sign and the hemisphere letter.
    const double minutes = text.midRef(degreeSign + 1, text.size() - degreeSign - 2).toDouble();
    if (minutes >= 60.0)
        return LatLonEntryImpl::tr("Minutes are below 60");
    const int most = latitude ? 90 : 180;
    if (degrees > most || (degrees == most && minutes > 0.0))
        return latitude ? LatLonEntryImpl::tr("Latitude is 90\u00b0 at most")
                        : LatLonEntryImpl::tr("Longitude is 180\u00b0 at most");
    return QString();
}

} // namespace

LatLonEntryImpl::LatLonEntryImpl(QObject* target, LatLonMode mode, QWidget* parent, const QList<QString>* units,
                                 int width, int height)
    : BaseEntryImpl(target, parent, width, height)
    , m_unitLayout(keyColumn())
    , m_mode(mode)
{
    // The unit keys have a look of their own.
    m_styleText += EntryPanel::longReadOutStyle()
        + QStringLiteral("QPushButton#enterButton{    border-width: 1px 1px 1px 1px;    border-top-right-radius: 10px;"
                         "    border-bottom-right-radius: 10px;    font-size: 14px;    text-align: bottom;}");
    borderFrame()->setStyleSheet(EntryPanel::hiddenBorderFrameStyle());
    setValidatorPattern(typingPattern(mode));
    createButtons();
    Initialize();
    setUnitList(units ? *units : QList<QString>());
}

void LatLonEntryImpl::setUnitList(const QList<QString>& labels)
{
    fillUnitColumn(m_unitLayout, m_unitList, labels, SLOT(submit()), QStringLiteral("enterButton"),
                   QStringLiteral("enterButton"));
    m_unitList = labels;
    placeEnterKey(m_unitLayout, m_unitList.isEmpty());
}

bool LatLonEntryImpl::isValidPosition(const QString& text, LatLonMode mode, QString* reason)
{
    const QString fault = positionFault(text, mode);
    if (reason)
        *reason = fault;
    return fault.isEmpty();
}

void LatLonEntryImpl::Initialize()
{
    BaseEntryImpl::Initialize();
    setObjectName(QStringLiteral("LatLonPadEntry"));
    QVBoxLayout* hemisphereColumn = keyColumn();
    for (const QChar letter : hemispheres(m_mode))
        hemisphereColumn->addWidget(getButton(letter));
    auto* lowerRow = new QHBoxLayout;
    lowerRow->setSpacing(0);
    lowerRow->addLayout(digitGrid(QStringLiteral("dot"), QStringLiteral("degree")), 3);
    lowerRow->addLayout(hemisphereColumn, 1);
    lowerRow->addLayout(m_unitLayout, 1);
    stackKeyRows(lowerRow);
    getContainerFrame()->setStyleSheet(m_styleText);
}

void LatLonEntryImpl::buttonPress()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (!hasValidEdits() || !button)
        return;
    if (button == getButton(QStringLiteral("bksp"))) {
        backspace();
    } else if (button == getButton(QStringLiteral("dot"))) {
        insertPoint();
    } else if (button == getButton(QStringLiteral("clear"))) {
        clear();
        emit clearEntry();
    } else {
        BaseEntryImpl::buttonPress();
    }
}

void LatLonEntryImpl::submit()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (!button)
        return;
    QString reason;
    if (isValidPosition(editedText(), m_mode, &reason))
        emit updateUnit(button->text());
    else
        showRefusal(reason);
}

void LatLonEntryImpl::createButtons()
{
    const char* const press = SLOT(buttonPress());
    const auto add = [this](const QString& key, const QString& label, const char* member, const char* name) {
        addButton(key, createButton(label, member, QLatin1String(name)));
    };
    addDigitKeys();
    add(QStringLiteral("cancel"), tr("Cancel"), SIGNAL(cancelEntry()), "cancel");
    add(QStringLiteral("clear"), tr("Clear"), press, "clear");
    add(QStringLiteral("bksp"), QStringLiteral(" "), press, "bksp");
    add(QStringLiteral("dot"), tr("."), press, "kbBtnBottomLeft");
    add(QStringLiteral("degree"), QStringLiteral("\u00b0"), press, "kbBtnBottom");
    add(QStringLiteral("enter"), tr("Enter"), SLOT(submit()), "enter");
    const QString letters = hemispheres(m_mode);
    add(letters.at(0), letters.at(0), press, "kbBtn");
    add(letters.at(1), letters.at(1), press, "kbBtnBottom");
}
