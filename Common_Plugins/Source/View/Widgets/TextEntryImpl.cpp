#include "TextEntryImpl.h"

#include "CSS.h"
#include "EntryPlacement.h"
#include "GlobalImpl.h"
#include "IPEntryImpl.h"
#include "KeyboardEntryImpl.h"
#include "QRVUtil.h"
#include "StringLink.h"
#include "SystemModule.h"

#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <limits>

namespace {

//! The numbers in which the sheets of the two size words differ.
struct Metrics
{
    int editFont;
    int editHeight;
    int captionFont;
    int captionHeight;
};

QString textStyle(const Metrics& m, bool lockImage)
{
    const QString lock = lockImage ? QStringLiteral(" background-image: url(:/images/lock_generic.png);"
                                                    " background-position: top right; background-repeat: no-repeat;")
                                   : QString();
    return QStringLiteral("QLineEdit { padding: 1px 5px 0px 5px; margin: 0px 0px 0px 0px; border: 2px solid #000;"
                          " border-radius: 10px; color: #000; min-width: 20px; background-color: #fff;"
                          " selection-color: #000; selection-background-color: #fff;"
                          " font-size: %1px; min-height: %2px; max-height: %2px; }"
                          "QLineEdit:disabled { background-color: transparent; border: 2px solid white; color: white;%3 }"
                          "QLabel#Label { font-size: %4px; padding: 4px 5px 0px 8px; margin: 0px 0px 0px 0px;"
                          " border: none; color: #fff; min-height: %5px; }")
        .arg(m.editFont)
        .arg(m.editHeight)
        .arg(lock)
        .arg(m.captionFont)
        .arg(m.captionHeight);
}

const Metrics maxMetrics{20, 32, 16, 16};
const Metrics minMetrics{14, 25, 12, 12};

} // namespace

TextEntryImpl::TextEntryImpl(QWidget* parent, const QString& label, bool password)
    : WidgetBaseImpl(parent)
    , m_textEdit(new QLineEdit(QString(), this))
    , m_styleReadOnly(QStringLiteral("   QLineEdit:disabled {       border-color: ") + CSS::border()
                      + QStringLiteral(";   }"))
    , m_sizeName(QRVUtil::initialSize())
{
    setObjectName(QStringLiteral("TextEntry"));
    setLabelWidget(new QLabel);
    getLabelWidget()->setObjectName(QStringLiteral("Label"));
    setLabel(label);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(getLabelWidget());
    layout->addWidget(m_textEdit);
    m_textEdit->setEnabled(false);
    // An engine's text may be far longer than a line edit's usual 32767 characters.
    m_textEdit->setMaxLength(std::numeric_limits<int>::max());
    setIsPassword(password);
    setLockImageVisible(false);

    connect(this, &WidgetBaseImpl::DisplayEntryMechanism, this, &TextEntryImpl::displayEntryMechanism);
    connect(this, &WidgetBaseImpl::CloseEntryMechanism, this, &TextEntryImpl::closeInput);
    connect(this, &TextEntryImpl::incomingText, this, &TextEntryImpl::takeEngineText, Qt::QueuedConnection);
    connect(m_textEdit, &QLineEdit::returnPressed, this, &TextEntryImpl::enterText);
}

TextEntryImpl::~TextEntryImpl()
{
    // Sends read the attribute's name and samples emit into this class.
    waitForSends();
    releaseSubscriptions();
    // The mechanism lives on the main screen, not in the field.
    delete m_keyboard;
}

TextEntryImpl::EntryModeEnum TextEntryImpl::getEntryMode() const { return m_entryMode; }
void TextEntryImpl::setEntryMode(EntryModeEnum mode) { m_entryMode = mode; }
bool TextEntryImpl::getReadOnly() const { return m_readOnly; }
QLineEdit* TextEntryImpl::getLineEdit() const { return m_textEdit; }
QString TextEntryImpl::getOldText() const { return m_oldText; }
void TextEntryImpl::setOldText(const QString& text) { m_oldText = text; }
BaseEntryImpl* TextEntryImpl::entryMechanism() const { return m_keyboard; }

void TextEntryImpl::setEntryMechanism(BaseEntryImpl* mechanism)
{
    takeMechanism(mechanism);
}

void TextEntryImpl::setReadOnly(bool state)
{
    m_readOnly = state;
    if (state)
        setReadOnlyStyle();
}

void TextEntryImpl::setText(const QString& text) { m_textEdit->setText(text); }
QString TextEntryImpl::text() const { return m_textEdit->text(); }
void TextEntryImpl::clear() { m_textEdit->clear(); }
void TextEntryImpl::submit() { enterText(); }

void TextEntryImpl::setIsPassword(bool on)
{
    m_textEdit->setEchoMode(on ? QLineEdit::Password : QLineEdit::Normal);
}

// ---- the look ----------------------------------------------------------------

void TextEntryImpl::setLockImageVisible(const bool& visible)
{
    m_styleMax = textStyle(maxMetrics, visible);
    m_styleMin = textStyle(minMetrics, visible);
    if (m_readOnly)
        setReadOnlyStyle();
    changeSize(m_sizeName);
}

void TextEntryImpl::setReadOnlyStyle()
{
    if (!m_styleMax.endsWith(m_styleReadOnly)) {
        m_styleMax += m_styleReadOnly;
        m_styleMin += m_styleReadOnly;
    }
    changeSize(m_sizeName);
}

void TextEntryImpl::changeSize(const QString& size)
{
    const QString shown = QRVUtil::demotedSize(size);
    if (QRVUtil::applyMaxMinSheet(this, shown, m_styleMax, m_styleMin))
        m_sizeName = shown;
}

void TextEntryImpl::raise()
{
    WidgetBaseImpl::raise();
    if (m_keyboard)
        m_keyboard->raise();
}

// ---- the engine ----------------------------------------------------------------

void TextEntryImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    const StringLink* link = bindAs<StringLink>(attr, StringLink::AttribString | StringLink::ReadingString,
                                                "UserInterface - >>>>>Expected String type but received: %s (%s)");
    if (!link)
        return;
    QString value;
    if (callEngine([&] { value = link->value(); }) != EngineCall::Done)
        return;
    m_textEdit->setText(value);
    m_oldText = value;
    if (link->isSettable())
        addKeyboard();
    else
        setReadOnlyStyle();
    link->follow([this](const char*, const QString& text) { emit incomingText(text); });
}

void TextEntryImpl::takeEngineText(const QString& text)
{
    qDebug().noquote() << QStringLiteral("UserInterface - \"%1\" @ \"%2\" Received: %3")
                              .arg(getAttributeName(), GlobalImpl::getParentWindowName(this), text.left(200));
    m_oldText = text;
    m_textEdit->setText(text);
    m_textEdit->setCursorPosition(0);
    emit textChanged(m_oldText);
}

QString TextEntryImpl::refusal(const QString& text) const
{
    // UTF-8 has no form for half a pair: the engine would get a replacement character.
    if (!text.isValidUtf16())
        return tr("the text holds a character that cannot be sent (a lone surrogate)");
    QString reason;
    if (m_entryMode == IPEntry && !IPEntryImpl::isValidAddress(text, &reason))
        return reason;
    return QString();
}

void TextEntryImpl::enterText()
{
    const QString text = m_textEdit->text();
    const StringLink* link = this->link<StringLink>();
    if (!link) {
        m_oldText = text;
    } else {
        m_textEdit->setText(m_oldText);
        const QString refused = refusal(text);
        if (refused.isEmpty()) {
            sendOnWorker([this, link, text] { sendText(link, text); });
        } else {
            qDebug().noquote() << QStringLiteral("UserInterface - TextEntry: \"%1\" not sent: %2")
                                      .arg(getAttributeName(), refused);
            emit exceptionMessage(getAttributeName() + QStringLiteral(" not sent: ") + refused);
        }
    }
    emit textChanged(m_textEdit->text());
    closeInput();
}

void TextEntryImpl::sendText(const StringLink* link, const QString& text)
{
    qDebug().noquote() << QStringLiteral("UserInterface - \"%1\" - sending: \"%2\"").arg(getAttributeName(),
                                                                                         text.left(200));
    QString failure;
    if (callEngine([link, &text] { link->set(text); }, &failure) != EngineCall::Refused)
        return; // a sample brings the accepted text; a lost link shows on the field
    qDebug().noquote() << "UserInterface - TextEntry:" << getAttributeName() << GlobalImpl::getParentWindowName(this)
                       << "threw an exception while sending:" << text.left(200) << failure;
    emit exceptionMessage(getAttributeName() + QStringLiteral(" threw an exception while sending: ") + text);
}

// ---- the mechanism ---------------------------------------------------------------

void TextEntryImpl::addKeyboard()
{
    if (m_entryMode == None)
        return;
    QWidget* window = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    if (m_entryMode == IPEntry) {
        auto* pad = new IPEntryImpl(m_textEdit, window, 260, 380);
        connect(pad, &IPEntryImpl::enterPressed, this, &TextEntryImpl::enterText);
        takeMechanism(pad);
        return;
    }
    if (m_entryMode == PasswordEntry)
        setIsPassword(true);
    auto* keyboard = new KeyboardEntryImpl(m_textEdit, window, 680, 325);
    connect(keyboard, &KeyboardEntryImpl::enterPressed, this, &TextEntryImpl::enterText);
    takeMechanism(keyboard);
}

void TextEntryImpl::takeMechanism(BaseEntryImpl* mechanism)
{
    delete m_keyboard;
    m_keyboard = mechanism;
    m_keyboard->hide();
    connect(m_keyboard, &ContainerBase::WindowClosed, this, &TextEntryImpl::cancelInput);
    connect(m_keyboard, &BaseEntryImpl::cancelEntry, this, &TextEntryImpl::cancelInput);
}

void TextEntryImpl::displayEntryMechanism()
{
    if (!m_keyboard || m_readOnly) {
        closeInput();
        return;
    }
    placeMechanism();
    m_textEdit->setEnabled(true);
    m_textEdit->setFocus();
    m_textEdit->end(false);
    if (m_entryMode == IPEntry)
        m_textEdit->selectAll();
    m_keyboard->show();
    m_keyboard->raise();
    m_keyboard->setValue(m_textEdit->text());
}

// Across the middle of its screen, at the bottom for a field in the upper
// half and at the top for one in the lower half, so the field stays seen.
void TextEntryImpl::placeMechanism()
{
    const QWidget* area = m_keyboard->parentWidget();
    const QRect field = EntryPlacement::fieldRect(m_textEdit, area);
    const QSize room = EntryPlacement::areaSize(area);
    const QSize pad = m_keyboard->size();
    const int y = field.top() < room.height() / 2 ? room.height() - pad.height() - 5 : 5;
    m_keyboard->move(room.width() / 2 - pad.width() / 2, y);
}

void TextEntryImpl::closeInput()
{
    if (m_keyboard)
        m_keyboard->hide();
    m_textEdit->setEnabled(false);
    m_textEdit->setFocus(Qt::OtherFocusReason);
    releaseLock();
}

void TextEntryImpl::cancelInput()
{
    m_textEdit->setText(m_oldText);
    closeInput();
}

void TextEntryImpl::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_keyboard)
        m_keyboard->hide();
    WidgetBaseImpl::mouseReleaseEvent(event);
}

void TextEntryImpl::hideEvent(QHideEvent* event)
{
    closeInput();
    WidgetBaseImpl::hideEvent(event);
}
