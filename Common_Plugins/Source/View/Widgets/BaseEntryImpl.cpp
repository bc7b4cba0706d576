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
    , m_styleText(EntryPanel::frameStyle(QStringLiteral("QFrame#TopOverlay, QFrame#BottomOverlay")))
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
QFrame* BaseEntryImpl::getMainFrame() { return m_mainFrame; }

bool BaseEntryImpl::eventFilter(QObject* watched, QEvent* event)
{
    // The gap between the echo and the keys is no handle: a touch there must not drag the pad.
    if (watched == m_gapLabel && EntryPanel::isPointerEvent(event))
        return true;
    return ContainerImpl::eventFilter(watched, event);
}

void BaseEntryImpl::buttonPress()
{
    if (const auto* button = qobject_cast<QPushButton*>(sender()))
        insert(button->text());
}

void BaseEntryImpl::Initialize()
{
    const int w = m_padWidth;
    const int h = m_padHeight;
    const EntryPanel::Parts parts = EntryPanel::build(this, QSize(w, h), "TopOverlay", "BottomOverlay");
    m_mainFrame = parts.mainFrame;
    m_echoEdit = parts.readOut;
    if (m_targetEdit)
        m_echoEdit->setEchoMode(m_targetEdit->echoMode());
    m_gapLabel = parts.gap;
    m_gapLabel->setObjectName(QStringLiteral("Gap"));
    m_gapLabel->setAlignment(Qt::AlignCenter);
    m_gapLabel->installEventFilter(this);
    m_entryFrame = new QFrame(m_mainFrame);
    m_entryFrame->setObjectName(QStringLiteral("EntryFrame"));
    m_entryFrame->setGeometry(QRect(QPoint(0, 78), QPoint(w - 1, h - 51)));
    resize(w, h);
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
    QGridLayout* grid = keyGrid();
    for (int digit = 1; digit <= 9; ++digit)
        grid->addWidget(getButton(QString::number(digit)), (digit - 1) / 3, (digit - 1) % 3);
    grid->addWidget(getButton(bottomLeft), 3, 0);
    grid->addWidget(getButton(QStringLiteral("0")), 3, 1);
    grid->addWidget(getButton(bottomRight), 3, 2);
    stretchColumns(grid);
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

QGridLayout* BaseEntryImpl::keyGrid()
{
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    return grid;
}

QVBoxLayout* BaseEntryImpl::keyColumn()
{
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    return column;
}

void BaseEntryImpl::stretchColumns(QGridLayout* grid)
{
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnStretch(column, 1);
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

bool BaseEntryImpl::backspace()
{
    if (!m_targetEdit || m_targetEdit->cursorPosition() == 0)
        return false;
    const int cursor = m_targetEdit->cursorPosition();
    QString text = m_targetEdit->text();
    text.remove(cursor - 1, 1);
    // A sign alone is no number.
    if (text == QLatin1String("-"))
        text.clear();
    setText(text);
    setCursorPosition(cursor - 1);
    if (text.isEmpty())
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

const QLineEdit* BaseEntryImpl::editedLine() const { return m_targetEdit ? m_targetEdit : m_echoEdit; }
