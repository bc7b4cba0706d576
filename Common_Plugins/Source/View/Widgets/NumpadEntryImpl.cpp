#include "NumpadEntryImpl.h"

#include "EntryPanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>


namespace {

struct KeyDefinition
{
    const char* key;
    const char* label;
    const char* objectName;
    const char* member;
    bool translated;
    bool realTimeOnly;
};

const char* const press = SLOT(buttonPress());

// Every key exists whatever the mode; Initialize() lays out those the mode shows.
const KeyDefinition keyDefinitions[] = {
    {"A", "A", "kbBtn", press, false, false},
    {"B", "B", "kbBtn", press, false, false},
    {"C", "C", "kbBtn", press, false, false},
    {"D", "D", "kbBtnRight", press, false, false},
    {"E", "E", "kbBtnRight", press, false, false},
    {"F", "F", "kbBtnRight", press, false, false},
    {"bksp", " ", "bksp", press, false, false},
    {"dot", QT_TRANSLATE_NOOP("NumpadEntryImpl", "."), "kbBtnBottomLeft", press, true, false},
    {"enter", QT_TRANSLATE_NOOP("NumpadEntryImpl", "Enter"), "enter", SLOT(submit()), true, false},
    {"plmin", QT_TRANSLATE_NOOP("NumpadEntryImpl", "\u00b1"), "kbBtnBottom", press, true, false},
    {"cancel", QT_TRANSLATE_NOOP("NumpadEntryImpl", "Cancel"), "cancel", SIGNAL(cancelEntry()), true, false},
    {"clear", QT_TRANSLATE_NOOP("NumpadEntryImpl", "Clear"), "clear", press, true, false},
    {"uparrow", " ", "upArrow", SLOT(increment()), false, true},
    {"downarrow", " ", "downArrow", SLOT(decrement()), false, true},
    {"incr", QT_TRANSLATE_NOOP("NumpadEntryImpl", "x10"), "incr", SLOT(incrStep()), true, true},
    {"decr", QT_TRANSLATE_NOOP("NumpadEntryImpl", "/10"), "decr", SLOT(decrStep()), true, true},
};

QString keypadStyle(bool realTime)
{
    QString style = EntryPanel::rotateKeyStyle();
    if (realTime)
        style += QStringLiteral("QLineEdit {selection-color: black; selection-background-color: white;}");
    return style;
}

} // namespace

NumpadEntryImpl::NumpadEntryImpl(QObject* target, QWidget* parent, const QList<QString>* units, const bool& isHex,
                                 int width, int height, bool realTime, double lower, double upper, int precision)
    : BaseEntryImpl(target, parent, width, height)
    , m_precision(precision)
    , m_lower(lower)
    , m_upper(upper)
    , m_realTime(realTime && !isHex)
    , m_hexMode(isHex)
    , m_unitLayout(keyColumn())
{
    borderFrame()->setStyleSheet(EntryPanel::hiddenBorderFrameStyle());
    m_styleText += keypadStyle(m_realTime);
    createButtons();
    Initialize();
    // After the layout, so that a unit named like a hex digit cannot take that digit's place in the grid.
    setUnitList(units ? *units : QList<QString>());
}

NumpadEntryImpl::~NumpadEntryImpl()
{
    // In hex mode the unit column is never laid out, so no widget owns it.
    if (!m_unitLayout->parent())
        delete m_unitLayout;
}

bool NumpadEntryImpl::realtimeUpdate() const { return m_realTime; }

void NumpadEntryImpl::updateLimits(double lower, double upper)
{
    m_lower = lower;
    m_upper = upper;
}

double NumpadEntryImpl::lowerLimit() const { return m_lower; }
double NumpadEntryImpl::upperLimit() const { return m_upper; }

void NumpadEntryImpl::resetStep() { m_step.reset(); }

void NumpadEntryImpl::updateCursorPosition()
{
    const int position = m_step.markIn(m_echoEdit);
    if (m_targetEdit)
        m_targetEdit->setCursorPosition(position);
}

void NumpadEntryImpl::changePrecision(int precision)
{
    m_precision = precision;
    updateKeypad();
}

void NumpadEntryImpl::setUnitList(const QList<QString>& labels)
{
    fillUnitColumn(m_unitLayout, m_unitList, labels, SLOT(submit()), QStringLiteral("unit"),
                   QStringLiteral("lastUnit"));
    m_unitList = labels;
    // Hex mode keeps Enter in its grid; otherwise a unit key submits too, so
    // Enter has a place in the column only while no unit is offered.
    if (!m_hexMode)
        placeEnterKey(m_unitLayout, m_unitList.isEmpty());
}

void NumpadEntryImpl::setValue(const QString& text)
{
    BaseEntryImpl::setValue(text);
    if (m_realTime)
        m_currentValue = text.toDouble();
    else
        m_echoEdit->selectAll(); // leaves the cursor at the end
}

void NumpadEntryImpl::retranslate()
{
    BaseEntryImpl::retranslate();
    for (const KeyDefinition& definition : keyDefinitions) {
        QPushButton* key = getButton(QLatin1String(definition.key));
        if (definition.translated && key)
            key->setText(tr(definition.label));
    }
}

void NumpadEntryImpl::buttonPress()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (!m_targetEdit || !button)
        return;
    if (button == getButton(QStringLiteral("bksp"))) {
        if (backspace() && !m_targetEdit->text().isEmpty())
            emit valueChanged();
    } else if (button == getButton(QStringLiteral("plmin"))) {
        toggleSign();
    } else if (button == getButton(QStringLiteral("dot"))) {
        if (insertPoint())
            emit valueChanged();
    } else if (button == getButton(QStringLiteral("clear"))) {
        clear();
        emit clearEntry();
    } else {
        insert(button->text());
        emit valueChanged();
    }
}

void NumpadEntryImpl::Initialize()
{
    BaseEntryImpl::Initialize();
    const int w = getWidth();
    const int h = getHeight();
    m_rotateButton = new QPushButton(getMainFrame());
    m_rotateButton->setObjectName(QStringLiteral("RotateEntry"));
    m_rotateButton->setFocusPolicy(Qt::NoFocus);
    m_rotateButton->setGeometry(QRect(QPoint(w - 46, h - 46), QPoint(w - 11, h - 11)));
    setObjectName(QStringLiteral("NumpadEntry"));
    setMaximumSize(w, h);

    auto* lowerRow = new QHBoxLayout;
    lowerRow->setSpacing(0);
    lowerRow->addLayout(keypadGrid(), m_realTime ? 4 : 3);
    if (m_hexMode) {
        lowerRow->addLayout(hexGrid(), 2);
        for (QPushButton* key : {m_rotateButton, getButton(QStringLiteral("plmin")), getButton(QStringLiteral("dot"))})
            key->setEnabled(false);
    } else {
        lowerRow->addLayout(m_unitLayout, 1);
    }
    stackKeyRows(lowerRow);

    getContainerFrame()->setStyleSheet(m_styleText);
    keepFocusOnTheField();
    connect(m_rotateButton, &QPushButton::clicked, this, &NumpadEntryImpl::rotate);
    updateKeypad();
}

bool NumpadEntryImpl::acceptsEntry() { return true; }

void NumpadEntryImpl::submit()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (button && acceptsEntry())
        emit updateUnit(button->text());
}

void NumpadEntryImpl::rotate() { emit rotateEntryMechanism(objectName()); }

void NumpadEntryImpl::increment() { updateValue(1.0); }
void NumpadEntryImpl::decrement() { updateValue(-1.0); }
void NumpadEntryImpl::incrStep() { changeStep(1.0); }
void NumpadEntryImpl::decrStep() { changeStep(-1.0); }

void NumpadEntryImpl::createButtons()
{
    addDigitKeys();
    for (const KeyDefinition& definition : keyDefinitions) {
        if (definition.realTimeOnly && !m_realTime)
            continue;
        const QString label = definition.translated ? tr(definition.label) : QLatin1String(definition.label);
        addButton(QLatin1String(definition.key), createButton(label, definition.member, QLatin1String(definition.objectName)));
    }
}

QGridLayout* NumpadEntryImpl::keypadGrid()
{
    QGridLayout* grid = digitGrid(QStringLiteral("dot"), QStringLiteral("plmin"));
    if (m_realTime) {
        int row = 0;
        for (const char* key : {"uparrow", "downarrow", "incr", "decr"})
            grid->addWidget(getButton(QLatin1String(key)), row++, 3);
        EntryPanel::shareColumns(grid);
    }
    return grid;
}

QGridLayout* NumpadEntryImpl::hexGrid()
{
    QGridLayout* grid = EntryPanel::keyGrid();
    const QString letters = QStringLiteral("ABCDEF");
    for (int i = 0; i < letters.size(); ++i)
        grid->addWidget(getButton(letters.at(i)), i % 3, i / 3);
    grid->addWidget(getButton(QStringLiteral("enter")), 3, 0, 1, 2);
    EntryPanel::shareColumns(grid);
    return grid;
}

void NumpadEntryImpl::updateKeypad()
{
    if (!m_hexMode)
        getButton(QStringLiteral("dot"))->setEnabled(m_precision >= 1);
}

void NumpadEntryImpl::toggleSign()
{
    QString text = m_targetEdit->text();
    const int minus = text.indexOf(QLatin1Char('-'));
    if (text.isEmpty() || m_targetEdit->hasSelectedText())
        text = QStringLiteral("-");
    else if (minus >= 0)
        text.remove(minus, 1);
    else
        text.prepend(QLatin1Char('-'));
    setText(text);
    emit valueChanged();
}

void NumpadEntryImpl::updateValue(double direction)
{
    double candidate = m_currentValue + m_step.size() * direction;
    if (candidate < m_lower || candidate > m_upper)
        candidate = m_currentValue;
    setValue(QString::number(candidate, 'f', m_precision));
    updateCursorPosition();
    // The field sends this to the engine at once.
    emit valueChanged(m_echoEdit->text());
}

void NumpadEntryImpl::changeStep(double direction)
{
    if (m_step.change(direction, m_currentValue, m_lower, m_upper, m_precision))
        updateCursorPosition();
}
