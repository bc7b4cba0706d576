#include "ComboBoxImpl.h"

#include "CSS.h"
#include "ComboBoxListImpl.h"
#include "EnumLink.h"
#include "GlobalImpl.h"
#include "QRVUtil.h"
#include "SystemModule.h"

#include <QDebug>
#include <QFileDialog>
#include <QLabel>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

#include <algorithm>

using namespace boost::placeholders;

ComboBoxImpl::ComboBoxImpl(bool embedded, QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_disabledStyle(QStringLiteral("QLabel:disabled#cboText {    border-color: ") + CSS::border() + QStringLiteral(";}"))
    , m_embedded(embedded)
    , m_valueField(new QLabel(this))
{
    setObjectName(QStringLiteral("ComboBox"));
    m_valueField->setObjectName(QStringLiteral("cboText"));
    m_list = new ComboBoxListImpl(this, m_embedded);

    connect(this, &WidgetBaseImpl::DisplayEntryMechanism, this, &ComboBoxImpl::displayInput);
    connect(this, &WidgetBaseImpl::CloseEntryMechanism, this, &ComboBoxImpl::closeInput);
    // The engine's value also becomes the confirmed one that a send falls back to.
    connect(
        this, &ComboBoxImpl::guiSetEnum, this,
        [this](long idx) {
            m_lastEnum = idx;
            setEnum(idx);
        },
        Qt::BlockingQueuedConnection);
    connect(m_list, &ComboBoxListImpl::submit, this, &ComboBoxImpl::submit);
    connect(m_list, &ComboBoxListImpl::currentIndexChanged, this, &ComboBoxImpl::currentIndexChanged);
    connect(m_list, &ComboBoxListImpl::closeInput, this, &ComboBoxImpl::closeInput);
    connect(m_list, &ComboBoxListImpl::requestList, this, &ComboBoxImpl::requestCorbaList);
    connect(this, &ComboBoxImpl::guiRequestCorbaList, this, &ComboBoxImpl::requestCorbaList,
            Qt::BlockingQueuedConnection);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_valueField);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    if (!m_embedded) {
        auto* label = new QLabel;
        setLabelWidget(label);
        layout->insertWidget(0, label, 0, Qt::AlignTop);
    }
    changeSize(QRVUtil::initialSize());
    setLockImageVisible(false);
}

ComboBoxImpl::~ComboBoxImpl()
{
    // Sends and samples read the list and the confirmed value.
    waitForSends();
    releaseSubscriptions();
    delete m_list;
}

QString ComboBoxImpl::baseStyleSheet()
{
    return QStringLiteral("QLabel#cboText { background-color: %1; color: #fff; padding: 0px 8px; }"
                          "QFrame#ComboBoxList { background: transparent; border: none; }"
                          "QFrame#dropdown { background-color: %3; border: none; border-radius: 10px; }"
                          "QPushButton#cbPushButton, QPushButton#lastPushButton { background: transparent;"
                          " color: #fff; border: none; min-height: 42px; max-height: 42px; font-size: 26px;"
                          " padding: 0px 12px; text-align: left; }"
                          "QPushButton#cbPushButton { border-bottom: 1px dashed #fff; }"
                          // As specific as the row rules above, so that these win.
                          "QPushButton#cbPushButton[selected=\"true\"], QPushButton#lastPushButton[selected=\"true\"]"
                          " { background-color: %1; border-left: 4px solid %2; }"
                          "QPushButton#cbPushButton[choosable=\"false\"],"
                          " QPushButton#lastPushButton[choosable=\"false\"] { color: #666666; }"
                          "QLabel#Label { color: #fff; font-size: 14px; padding: 0px 0px 2px 4px; }")
        .arg(CSS::accentRGBA(), CSS::border(), CSS::panel());
}

QString ComboBoxImpl::valueFieldStyle(int heightPx, int fontPx, bool embedded, bool lockImage)
{
    // An embedded field joins the field on its left with square corners.
    const QString corners = embedded ? QStringLiteral(" border-top-left-radius: 0px; border-bottom-left-radius: 0px;")
                                     : QString();
    const QString image = lockImage ? QStringLiteral(" background-image: url(:/images/lock_generic.png);"
                                                     " background-repeat: no-repeat; background-position: right center;")
                                    : QString();
    return QStringLiteral("QLabel#cboText { min-height: %1px; max-height: %1px; font-size: %2px;"
                          " border: 2px solid #fff; border-radius: 10px;%3%4 }")
        .arg(heightPx)
        .arg(fontPx)
        .arg(corners, image);
}

QString ComboBoxImpl::sizeStyle(const QString& size) const
{
    if (size == QLatin1String("Max"))
        return m_embedded ? m_embeddedStyleMax : m_styleMax;
    if (size == QLatin1String("Min"))
        return m_embedded ? m_embeddedStyleMin : m_styleMin;
    if (size == QLatin1String("Thumb"))
        return m_embedded ? m_embeddedStyleThumb : m_styleThumb;
    return QString();
}

void ComboBoxImpl::changeSize(const QString& size)
{
    const QString word = QRVUtil::demotedSize(size);
    const QString style = sizeStyle(word);
    if (style.isEmpty())
        return;
    m_sizeWord = word;
    const QString sheet = m_baseStyle + style + (m_readOnly ? m_disabledStyle : QString());
    m_list->setStyleSheet(sheet);
    setStyleSheet(sheet);
}

void ComboBoxImpl::setLockImageVisible(const bool& visible)
{
    const bool image = visible && !m_readOnly;
    m_styleMax = valueFieldStyle(32, 20, false, image);
    m_styleMin = valueFieldStyle(25, 14, false, image);
    m_styleThumb = valueFieldStyle(37, 32, false, image);
    changeSize(m_sizeWord);
}

QLabel* ComboBoxImpl::getValueField() const { return m_valueField; }
long ComboBoxImpl::getEnum() const { return m_list->getEnum(); }
QList<ComboBoxListStruct> ComboBoxImpl::getList() const { return m_list->getList(); }
QString ComboBoxImpl::getText() const { return m_list->getText(); }
void ComboBoxImpl::setText(const QString& text) { m_list->setText(text); }
void ComboBoxImpl::setEnum(long idx) { m_list->setEnum(idx); }
void ComboBoxImpl::setIndex(int idx) { m_list->setIndex(idx); }
ComboBoxListImpl* ComboBoxImpl::listWidget() const { return m_list; }
bool ComboBoxImpl::isReadOnly() const { return m_readOnly; }
void ComboBoxImpl::setReadOnlyStyle() { setReadOnly(true); }
void ComboBoxImpl::clear() { m_valueField->clear(); }

void ComboBoxImpl::setList(const QList<ComboBoxListStruct>& list, long current)
{
    if (list.isEmpty())
        m_valueField->setText(QString());
    m_list->setList(list, current);
}

void ComboBoxImpl::fitToWidestChoice()
{
    // The sheet for the size word sets the field's font, border and padding.
    ensurePolished();
    int widest = 0;
    for (const ComboBoxListStruct& choice : getList())
        widest = std::max(widest, QRVUtil::labelWidthFor(m_valueField, choice.text));
    const QMargins around = contentsMargins() + layout()->contentsMargins();
    setFixedWidth(widest + around.left() + around.right());
}

void ComboBoxImpl::offerReadings(const QStringList& names)
{
    QList<ComboBoxListStruct> list;
    for (int i = 0; i < names.size(); ++i)
        list << ComboBoxListStruct(i, names.at(i), true);
    setList(list, 0);
}

QMetaObject::Connection ComboBoxImpl::followReadingChoice(QObject* receiver, std::function<void(long)> onChoice)
{
    return connect(this, &ComboBoxImpl::updateEnum, receiver, std::move(onChoice));
}

void ComboBoxImpl::setReadOnly(bool state)
{
    m_readOnly = state;
    if (state)
        setLockImageVisible(false);
    else
        changeSize(m_sizeWord);
}

void ComboBoxImpl::displayInput()
{
    if (m_readOnly && !m_embedded) {
        releaseLock();
        return;
    }
    QWidget* screen = GlobalImpl::getInstance()->systemModule()->getSystemScreen(QStringLiteral("MainWindow"));
    setDesktop(screen ? screen : window());
    m_list->setParent(desktop());
    // Fresh each time it opens: choices may have been enabled or disabled meanwhile.
    requestCorbaList();
    m_list->beginShow();
}

void ComboBoxImpl::closeInput()
{
    m_list->hide();
    releaseLock();
}

void ComboBoxImpl::submit(long idx)
{
    // Only a widget never bound (in a form designer) acts on its own.
    if (!isBindingAttempted()) {
        m_lastEnum = idx;
        emit updateEnum(idx);
        emit CloseEntryMechanism();
        return;
    }
    // Only the engine's sample shows the choice; until then the engine's value stays.
    setEnum(m_lastEnum);
    sendOnWorker([this, idx] { sendEnum(idx); });
}

void ComboBoxImpl::sendEnum(long idx)
{
    const EnumLink* enumeration = link<EnumLink>();
    const EngineCall outcome = callEngine([this, enumeration, idx] {
        if (!enumeration)
            return;
        qDebug() << "UserInterface - ENUM:" << getAttributeName() << "- Sending" << idx;
        enumeration->set(idx);
    });
    if (outcome == EngineCall::Refused) {
        qDebug() << "UserInterface - ENUM:" << getAttributeName() << "@" << GlobalImpl::getParentWindowName(this)
                 << "threw exception while sending:" << idx;
        // Queued, not blocking: the destructor waits for this worker on the interface thread.
        QMetaObject::invokeMethod(this, &ComboBoxImpl::requestCorbaList, Qt::QueuedConnection);
    }
    emit CloseEntryMechanism();
}

void ComboBoxImpl::requestCorbaList()
{
    const EnumLink* enumeration = link<EnumLink>();
    if (!enumeration)
        return;
    QList<ComboBoxListStruct> rows;
    long current = 0;
    QString failure;
    const EngineCall outcome = callEngine(
        [&] {
            for (const EnumLink::Entry& entry : enumeration->entries())
                rows.append(ComboBoxListStruct(entry.value, entry.label, entry.enabled));
            current = enumeration->value();
        },
        &failure);
    if (outcome == EngineCall::Refused)
        qDebug() << "UserInterface -" << getAttributeName() << "list fetch failed:" << failure;
    if (outcome != EngineCall::Done)
        return;
    m_lastEnum = current;
    setList(rows, current);
}

void ComboBoxImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    const EnumLink* enumeration = bindAs<EnumLink>(
        attr, EnumLink::AttribEnum, "UserInterface - >>>>>Expected Enumeration type but received: %s (%s)");
    if (!enumeration)
        return;
    // Followed before the fetch, so that no change falls between the two.
    enumeration->follow(boost::bind(&ComboBoxImpl::dds_callback, this, _1, _2),
                        boost::bind(&ComboBoxImpl::dds_params_callback, this, _1));
    requestCorbaList();
}

void ComboBoxImpl::dds_callback(const char*, int value)
{
    if (!m_suppressDebug)
        qDebug() << "UserInterface -" << getAttributeName() << "@" << GlobalImpl::getParentWindowName(this)
                 << "Received:" << value;
    emit guiSetEnum(value);
    emit updateEnum(value);
}

void ComboBoxImpl::dds_params_callback(const char*)
{
    emit guiRequestCorbaList();
}

QString ComboBoxImpl::getFileName()
{
    const QString name =
        QFileDialog::getOpenFileName(this, QStringLiteral("Open Almanac data"), QStringLiteral("."),
                                     QStringLiteral("Almanacs(*.*)"));
    if (name.isEmpty())
        return QStringLiteral("NONE");
    qDebug() << "fileName: " << name;
    return name;
}
