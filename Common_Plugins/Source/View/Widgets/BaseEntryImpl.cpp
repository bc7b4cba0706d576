#include "BaseEntryImpl.h"

#include "CSS.h"
#include "EntryPanel.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegExpValidator>
#include <QVBoxLayout>

namespace {

// The keys of every pad, by object name.
QString padKeyStyle()
{
    using Corners = EntryPanel::KeyCorners;
    const QString small = QStringLiteral("font-size: 14px; text-align: bottom;");
    const QString medium = QStringLiteral("font-size: 16px;");
    const QString step = QStringLiteral("font-size: 18px;");
    return EntryPanel::keyRule("kbBtn", "1px 0px 0px 1px")
        + EntryPanel::keyRule("kbBtnLeft", "1px 0px 0px 1px", Corners::Left)
        + EntryPanel::keyRule("kbBtnRight", "1px 1px 0px 1px", Corners::Right)
        + EntryPanel::keyRule("kbBtnAllRound", "1px 1px 1px 1px", Corners::All)
        + EntryPanel::keyRule("kbBtnBottomAllRound", "1px 1px 1px 1px", Corners::All)
        + EntryPanel::keyRule("kbBtnBottomLeft", "1px 0px 1px 1px", Corners::Left)
        + EntryPanel::keyRule("kbBtnBottom", "1px 0px 1px 1px")
        + EntryPanel::keyRule("kbBtnBottomRight", "1px 1px 1px 1px", Corners::Right)
        + EntryPanel::keyRule("cancel", "1px 0px 0px 1px", Corners::Left, small)
        + EntryPanel::keyRule("clear", "1px 0px 0px 1px", Corners::Square, small)
        + EntryPanel::keyRule("bksp", "1px 1px 0px 1px", Corners::Right,
                              QStringLiteral("image: url(:/images/backspace.png); image-position: right center;"))
        + EntryPanel::keyRule("upArrow", "1px 0px 0px 1px", Corners::Square,
                              QStringLiteral("image: url(:/images/upArrow.png); image-position: center;"))
        + EntryPanel::keyRule("downArrow", "1px 0px 0px 1px", Corners::Square,
                              QStringLiteral("image: url(:/images/downArrow.png); image-position: center;"))
        + EntryPanel::keyRule("enter", "1px 1px 1px 1px", Corners::Right,
                              medium
                                  + QStringLiteral(" text-align: bottom; background-color: qlineargradient(x1:0,"
                                                   " y1:0, x2:0, y2:1, stop:0 rgba(0,255,0,170),"
                                                   " stop:1 rgba(0,255,0,50));"))
        + EntryPanel::keyRule("unit", "1px 1px 0px 1px", Corners::Right, medium)
        + EntryPanel::keyRule("lastUnit", "1px 1px 1px 1px", Corners::Right, medium)
        + EntryPanel::keyRule("incr", "1px 0px 0px 1px", Corners::Square, step)
        + EntryPanel::keyRule("decr", "1px 0px 1px 1px", Corners::Square, step)
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

} // namespace

template<typename Apply>
void BaseEntryImpl::forEachEdit(Apply apply)
{
    for (QLineEdit* edit : {m_targetEdit, m_echoEdit}) {
        if (edit)
            apply(edit);
    }
}

BaseEntryImpl::BaseEntryImpl(QObject* target, QWidget* parent, int width, int height)
    : ContainerImpl(parent)
    , m_styleText(EntryPanel::frameStyle(QStringLiteral("QFrame#TopOverlay, QFrame#BottomOverlay")) + padKeyStyle())
    , m_targetEdit(qobject_cast<QLineEdit*>(target))
    , m_validator(new QRegExpValidator(QRegExp(QStringLiteral(".*")), this))
    , m_padWidth(width)
    , m_padHeight(height)
{
}

BaseEntryImpl::~BaseEntryImpl()
{
    // Keys that the pad's mode leaves out of the layout have no parent to delete them.
    qDeleteAll(m_buttons);
}

QPushButton* BaseEntryImpl::createButton(const QString& text, const char* member, const QString& name)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setFocusPolicy(Qt::NoFocus);
    // Before clicked(), so that a key that refuses again shows its own reason.
    connect(button, &QPushButton::pressed, this, &BaseEntryImpl::withdrawRefusal);
    connect(button, SIGNAL(clicked()), this, member);
    return button;
}

void BaseEntryImpl::addButton(const QString& key, QPushButton* button)
{
    QPushButton* replaced = m_buttons.value(key);
    m_buttons.insert(key, button);
    // A replaced key outside the layout would have no owner left.
    if (replaced && replaced != button && !replaced->parent())
        replaced->deleteLater();
}

QPushButton* BaseEntryImpl::getButton(const QString& key) const { return m_buttons.value(key); }

void BaseEntryImpl::removeButton(const QString& key)
{
    if (QPushButton* button = m_buttons.take(key)) {
        button->setParent(nullptr);
        button->deleteLater();
    }
}

void BaseEntryImpl::clearAllButtons()
{
    for (const QString& key : m_buttons.keys())
        removeButton(key);
}

void BaseEntryImpl::setValue(const QString& text)
{
    withdrawRefusal();
    if (m_echoEdit)
        m_echoEdit->setText(text);
}

void BaseEntryImpl::setText(const QString& text)
{
    QString candidate = text;
    int position = candidate.size();
    if (m_validator->validate(candidate, position) != QValidator::Invalid)
        forEachEdit([&](QLineEdit* edit) { edit->setText(text); });
}

void BaseEntryImpl::clear()
{
    forEachEdit([](QLineEdit* edit) { edit->clear(); });
}

void BaseEntryImpl::setCursorPosition(int position)
{
    forEachEdit([position](QLineEdit* edit) { edit->setCursorPosition(position); });
}

void BaseEntryImpl::insert(const QString& text)
{
    const QLineEdit* source = editedLine();
    if (!source)
        return;
    QString candidate = source->text();
    int position = source->cursorPosition();
    if (source->hasSelectedText()) {
        position = source->selectionStart();
        candidate.remove(position, source->selectionLength());
    }
    candidate.insert(position, text);
    position += text.size();
    int validatedPosition = position;
    if (m_validator->validate(candidate, validatedPosition) == QValidator::Invalid)
        return;
    forEachEdit([&](QLineEdit* edit) {
        edit->setText(candidate);
        edit->setCursorPosition(position);
    });
}

bool BaseEntryImpl::hasValidEdits() const { return m_targetEdit && m_echoEdit; }

int BaseEntryImpl::getWidth() const { return m_padWidth; }
void BaseEntryImpl::setWidth(int width) { m_padWidth = width; }
int BaseEntryImpl::getHeight() const { return m_padHeight; }
void BaseEntryImpl::setHeight(int height) { m_padHeight = height; }

QLayout* BaseEntryImpl::getEntryMechanismLayout() { return getContainerFrame()->layout(); }
QFrame* BaseEntryImpl::getEntryFrame() { return m_entryFrame; }
QFrame* BaseEntryImpl::getMainFrame() { return m_panel.mainFrame; }

bool BaseEntryImpl::eventFilter(QObject* watched, QEvent* event)
{
    // The gap between the echo and the keys is no handle: a touch there must not drag the pad.
    if (watched == m_gapLabel && EntryPanel::isPointerEvent(event))
        return true;
    // A pad without a maximum size may be given the whole screen.
    if (watched == m_panel.mainFrame && event->type() == QEvent::Resize)
        placePanel(m_panel.mainFrame->size());
    return ContainerImpl::eventFilter(watched, event);
}

void BaseEntryImpl::buttonPress()
{
    if (const auto* button = qobject_cast<QPushButton*>(sender()))
        insert(button->text());
}

void BaseEntryImpl::Initialize()
{
    const QSize size(m_padWidth, m_padHeight);
    m_panel = EntryPanel::build(this, size, "TopOverlay", "BottomOverlay");
    m_echoEdit = m_panel.readOut;
    if (m_targetEdit)
        m_echoEdit->setEchoMode(m_targetEdit->echoMode());
    m_gapLabel = m_panel.gap;
    m_gapLabel->setObjectName(QStringLiteral("Gap"));
    m_gapLabel->setAlignment(Qt::AlignCenter);
    m_gapLabel->installEventFilter(this);
    m_entryFrame = new QFrame(m_panel.mainFrame);
    m_entryFrame->setObjectName(QStringLiteral("EntryFrame"));
    placePanel(size);
    m_panel.mainFrame->installEventFilter(this);
    resize(size);
}

void BaseEntryImpl::placePanel(const QSize& size)
{
    EntryPanel::place(m_panel, size);
    m_entryFrame->setGeometry(QRect(QPoint(0, 78), QPoint(size.width() - 1, size.height() - 51)));
}

void BaseEntryImpl::keepFocusOnTheField()
{
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setFocusProxy(m_targetEdit);
}

void BaseEntryImpl::addDigitKeys()
{
    for (int digit = 0; digit <= 9; ++digit) {
        const char* name = digit == 0 ? "kbBtnBottom" : digit % 3 == 1 ? "kbBtnLeft" : "kbBtn";
        const QString key = QString::number(digit);
        addButton(key, createButton(key, SLOT(buttonPress()), QLatin1String(name)));
    }
}

QGridLayout* BaseEntryImpl::digitGrid(const QString& bottomLeft, const QString& bottomRight)
{
    QGridLayout* grid = EntryPanel::keyGrid();
    for (int digit = 1; digit <= 9; ++digit)
        grid->addWidget(getButton(QString::number(digit)), (digit - 1) / 3, (digit - 1) % 3);
    grid->addWidget(getButton(bottomLeft), 3, 0);
    grid->addWidget(getButton(QStringLiteral("0")), 3, 1);
    grid->addWidget(getButton(bottomRight), 3, 2);
    EntryPanel::shareColumns(grid);
    return grid;
}

void BaseEntryImpl::stackKeyRows(QLayout* lowerRow)
{
    auto* topRow = new QHBoxLayout;
    topRow->setSpacing(0);
    for (const char* key : {"cancel", "clear", "bksp"})
        topRow->addWidget(getButton(QLatin1String(key)));
    auto* rows = new QVBoxLayout(m_entryFrame);
    rows->setContentsMargins(10, 10, 10, 10);
    rows->setSpacing(0);
    rows->addLayout(topRow, 1);
    rows->addLayout(lowerRow, 4);
}

QVBoxLayout* BaseEntryImpl::keyColumn()
{
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

void BaseEntryImpl::fillUnitColumn(QVBoxLayout* column, const QList<QString>& previous, const QList<QString>& labels,
                                   const char* member, const QString& name, const QString& lastName)
{
    for (const QString& label : previous) {
        column->removeWidget(getButton(label));
        removeButton(label);
    }
    for (int i = 0; i < labels.size(); ++i) {
        QPushButton* key = createButton(labels.at(i), member, i + 1 < labels.size() ? name : lastName);
        addButton(labels.at(i), key);
        column->addWidget(key);
    }
}

void BaseEntryImpl::placeEnterKey(QVBoxLayout* column, bool shown)
{
    QPushButton* enter = getButton(QStringLiteral("enter"));
    const bool placed = column->indexOf(enter) >= 0;
    if (shown && !placed) {
        column->addWidget(enter);
    } else if (!shown && placed) {
        column->removeWidget(enter);
        enter->setParent(nullptr);
    }
}

bool BaseEntryImpl::eraseBeforeCursor()
{
    QLineEdit* source = editedLine();
    const int cursor = source ? source->cursorPosition() : 0;
    if (cursor == 0)
        return false;
    QString text = source->text();
    int start = cursor - 1;
    // A character beyond the 16-bit range is stored as a surrogate pair; half of one is no character.
    if (start > 0 && text.at(start).isLowSurrogate() && text.at(start - 1).isHighSurrogate())
        --start;
    text.remove(start, cursor - start);
    setText(text);
    setCursorPosition(start);
    return true;
}

bool BaseEntryImpl::backspace()
{
    if (!m_targetEdit || !eraseBeforeCursor())
        return false;
    // A sign alone is no number.
    if (m_targetEdit->text() == QLatin1String("-"))
        setText(QString());
    if (m_targetEdit->text().isEmpty())
        emit clearEntry();
    return true;
}

bool BaseEntryImpl::insertPoint()
{
    if (!m_targetEdit)
        return false;
    const QString text = m_targetEdit->text();
    if (!text.contains(QLatin1Char('.'))) {
        if (text.isEmpty())
            setText(QStringLiteral("0."));
        else
            insert(QStringLiteral("."));
    } else if (m_targetEdit->hasSelectedText()) {
        setText(QStringLiteral("0."));
    } else {
        return false;
    }
    return true;
}

QString BaseEntryImpl::editedText() const
{
    const QLineEdit* line = editedLine();
    return line ? line->text() : QString();
}

void BaseEntryImpl::setValidatorPattern(const QString& pattern) { m_validator->setRegExp(QRegExp(pattern)); }

void BaseEntryImpl::showRefusal(const QString& reason)
{
    if (!m_gapLabel)
        return;
    m_gapLabel->setText(reason);
    m_gapLabel->setStyleSheet(QStringLiteral("QLabel { color: %1; font-size: 11px; }").arg(CSS::alert()));
    m_echoEdit->setStyleSheet(QStringLiteral("QLineEdit { border-color: %1; }").arg(CSS::alert()));
}

void BaseEntryImpl::withdrawRefusal()
{
    if (!m_gapLabel || m_gapLabel->text().isEmpty())
        return;
    m_gapLabel->clear();
    m_gapLabel->setStyleSheet(QString());
    m_echoEdit->setStyleSheet(QString());
}

QLineEdit* BaseEntryImpl::editedLine() const { return m_targetEdit ? m_targetEdit : m_echoEdit; }
