#include "IPEntryImpl.h"

#include "EntryPanel.h"

#include <QFrame>
#include <QPushButton>

#include <algorithm>

namespace {

bool decimalDigitsOnly(const QString& text)
{
    // QChar::isDigit() would also let digits of other scripts through.
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); });
}

//! Why \a text is no address, or nothing when it is one.
QString addressFault(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return IPEntryImpl::tr("An address has four parts");
    for (const QString& part : parts) {
        if (part.isEmpty())
            return IPEntryImpl::tr("A part between the dots is empty");
        if (!decimalDigitsOnly(part))
            return IPEntryImpl::tr("Only digits and dots");
        if (part.size() > 1 && part.startsWith(QLatin1Char('0')))
            return IPEntryImpl::tr("No leading zeros");
        if (part.size() > 3 || part.toInt() > 255)
            return IPEntryImpl::tr("Each part is 0 to 255");
    }
    return QString();
}

} // namespace

IPEntryImpl::IPEntryImpl(QObject* target, QWidget* parent, int width, int height)
    // Precision 1 enables the point key; the limits only serve the arrows, which this pad has not.
    : NumpadEntryImpl(target, parent, nullptr, false, width, height, false, 0.0, 200.0, 1)
{
    // "255.255.255.255" must fit the read-out whole; the keypad has laid its sheet already.
    m_styleText += EntryPanel::longReadOutStyle();
    getContainerFrame()->setStyleSheet(m_styleText);
    getButton(QStringLiteral("plmin"))->setEnabled(false);
    // An address has no other mechanism to turn to.
    findChild<QPushButton*>(QStringLiteral("RotateEntry"))->hide();
    connect(this, &NumpadEntryImpl::updateUnit, this, &IPEntryImpl::enterPressed);
    connect(this, &NumpadEntryImpl::closeEntry, this, &ContainerBase::WindowClosed);
    connect(this, &BaseEntryImpl::cancelEntry, this, &ContainerBase::WindowClosed);
}

bool IPEntryImpl::isValidAddress(const QString& text, QString* reason)
{
    const QString fault = addressFault(text);
    if (reason)
        *reason = fault;
    return fault.isEmpty();
}

void IPEntryImpl::buttonPress()
{
    // The keypad allows a single decimal point; an address needs three.
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (m_targetEdit && button && button == getButton(QStringLiteral("dot"))) {
        insert(button->text());
        emit valueChanged();
    } else {
        NumpadEntryImpl::buttonPress();
    }
}

bool IPEntryImpl::acceptsEntry()
{
    QString reason;
    if (isValidAddress(editedText(), &reason))
        return true;
    showRefusal(reason);
    return false;
}
