#include "KeyboardEntryImpl.h"

#include "EntryPanel.h"
#include "QRVUtil.h"

#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

const char* const press = SLOT(buttonPress());

//! A key of the letter pages other than a letter: on page 0 under its key, on page 1 under the key in capitals.
struct PageKey
{
    const char* key;
    const char* label;
    const char* objectName;
    const char* lowerMember;
    const char* upperMember;
    //! The label is a word, which a change of language relabels.
    bool word;
};

const PageKey pageKeys[] = {
    {"shift", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "Shift"), "shift", SLOT(swapUppercase()),
     SLOT(swapLowercase()), true},
    {"bksp", " ", "bksp", press, press, false},
    {"slash", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "/"), "kbBtn", press, press, false},
    {"dot", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "."), "kbBtnRight", press, press, false},
    {"hyphen", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "-"), "kbBtnBottom", press, press, false},
    {"underscore", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "_"), "kbBtnBottom", press, press, false},
    {"enter", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "Enter"), "enter", SLOT(submit()), SLOT(submit()), true},
    {"space", QT_TRANSLATE_NOOP("KeyboardEntryImpl", "Spacebar"), "space", press, press, true},
};

//! The first three rows of a letter page, ten keys a row, by their page-0 keys.
const char* const letterRows[] = {
    "q",     "w", "e", "r", "t", "y", "u", "i", "o", "p",
    "a",     "s", "d", "f", "g", "h", "j", "k", "l", "bksp",
    "shift", "z", "x", "c", "v", "b", "n", "m", "slash", "dot",
};

QString letterObjectName(QChar letter)
{
    if (letter == QLatin1Char('q') || letter == QLatin1Char('a'))
        return QStringLiteral("kbBtnLeft");
    return letter == QLatin1Char('p') ? QStringLiteral("kbBtnRight") : QStringLiteral("kbBtn");
}

QString digitObjectName(int digit)
{
    static const char* const byColumn[] = {"kbBtnLeft", "kbBtn", "kbBtnRight"};
    return QLatin1String(digit == 0 ? "kbBtnBottom" : byColumn[(digit - 1) % 3]);
}

//! Font sizes in pixels of the keys, by what they show.
struct KeyFonts
{
    int character; //!< letters, digits, marks and space
    int word;      //!< Shift and Enter
    int caption;   //!< Cancel and Clear
};

const KeyFonts normalFonts{40, 14, 14};
// The portrait keyboard's keys are too narrow and too low for the normal type.
const KeyFonts portraitFonts{30, 11, 11};
const KeyFonts largeFonts{72, 32, 14};

QString keyboardStyle(const KeyFonts& fonts)
{
    using Corners = EntryPanel::KeyCorners;
    const QString character = QStringLiteral("font-size: %1px;").arg(fonts.character);
    const QString caption = QStringLiteral("font-size: %1px; text-align: bottom;").arg(fonts.caption);
    return QStringLiteral("QPushButton { %1 }").arg(character)
        + EntryPanel::keyRule("shift", "1px 0px 0px 1px", Corners::Left,
                              QStringLiteral("font-size: %1px; text-align: bottom;").arg(fonts.word))
        + QStringLiteral("QPushButton#enter { font-size: %1px; }").arg(fonts.word)
        + EntryPanel::keyRule("space", "1px 0px 1px 1px", Corners::Left, character)
        + EntryPanel::keyRule("cancelBottomLeft", "1px 0px 1px 1px", Corners::Left, caption)
        + EntryPanel::keyRule("clearBottomRight", "1px 1px 1px 1px", Corners::Right, caption)
        + QStringLiteral("QPushButton#shift:pressed, QPushButton#shift:checked"
                         " { color: black; background-color: white; }");
}

const QString largeBackspaceRules =
    QStringLiteral("QPushButton#bksp { image: url(:/images/bksp_max.png); image-position: center; }"
                   "QPushButton#bksp:pressed { image: url(:/images/bksp_max.png); background-color: #b00; }");

bool portraitScreen() { return QRVUtil::startupSwitchIs("-res", QStringLiteral("480x800")); }

} // namespace

KeyboardEntryImpl::KeyboardEntryImpl(QObject* target, QWidget* parent, int width, int height)
    : BaseEntryImpl(target, parent, portraitScreen() ? 480 : width, portraitScreen() ? 280 : height)
    , m_styleMax(m_styleText + keyboardStyle(largeFonts) + largeBackspaceRules)
{
    borderFrame()->setStyleSheet(EntryPanel::hiddenBorderFrameStyle());
    setMinimumSize(getWidth(), getHeight());
    // A text, unlike a number, has descenders and underscores, which the tall read-out type cuts off.
    m_styleText += keyboardStyle(portraitScreen() ? portraitFonts : normalFonts) + EntryPanel::longReadOutStyle();
    Initialize();
}

void KeyboardEntryImpl::retranslate()
{
    BaseEntryImpl::retranslate();
    for (const PageKey& pageKey : pageKeys) {
        if (!pageKey.word)
            continue;
        const QString key = QLatin1String(pageKey.key);
        getButton(key)->setText(tr(pageKey.label));
        getButton(key.toUpper())->setText(tr(pageKey.label));
    }
    getButton(QStringLiteral("cancel"))->setText(cancelLabel());
    getButton(QStringLiteral("clear"))->setText(tr("Clear"));
}

void KeyboardEntryImpl::changeSizeSlot(QString size)
{
    if (!QRVUtil::applyMaxMinSheet(getContainerFrame(), size, m_styleMax, m_styleText))
        return;
    const int edge = size == QLatin1String("Max") ? 24 : 0;
    getEntryMechanismLayout()->setContentsMargins(0, edge, 0, edge);
}

void KeyboardEntryImpl::submit() { emit enterPressed(); }

void KeyboardEntryImpl::buttonPress()
{
    const QObject* key = sender();
    if (isPageKey(key, QStringLiteral("bksp")))
        eraseBeforeCursor();
    else if (key == getButton(QStringLiteral("clear")))
        clear();
    else if (isPageKey(key, QStringLiteral("space")))
        insert(QStringLiteral(" ")); // the key is labelled with its name
    else
        BaseEntryImpl::buttonPress();
}

void KeyboardEntryImpl::swapUppercase() { m_pages->setCurrentIndex(1); }

void KeyboardEntryImpl::swapLowercase()
{
    m_pages->setCurrentIndex(getButton(QStringLiteral("SHIFT"))->isChecked() ? 1 : 0);
}

void KeyboardEntryImpl::checkShiftState() { swapLowercase(); }

void KeyboardEntryImpl::Initialize()
{
    BaseEntryImpl::Initialize();
    setObjectName(QStringLiteral("KeyboardEntry"));
    createButtons();
    m_pages = new QStackedWidget;
    m_pages->addWidget(letterPage(false));
    m_pages->addWidget(letterPage(true));
    m_pageLayout = new QHBoxLayout;
    m_pageLayout->setContentsMargins(0, 0, 0, 0);
    m_pageLayout->setSpacing(5);
    m_pageLayout->addWidget(m_pages, 10);
    m_pageLayout->addWidget(digitBlock(), 3);

    auto* rows = new QVBoxLayout(getMainFrame());
    rows->setContentsMargins(8, 8, 8, 8);
    rows->setSpacing(0);
    // The keys start where the frame's entry area does, below the echo of the text.
    rows->addSpacing(getEntryFrame()->y());
    rows->addLayout(m_pageLayout);

    changeSizeSlot(QStringLiteral("Min"));
    keepFocusOnTheField();
}

void KeyboardEntryImpl::createButtons()
{
    for (int digit = 0; digit <= 9; ++digit)
        addButton(QString::number(digit), createButton(QString::number(digit), press, digitObjectName(digit)));
    for (const QChar letter : QStringLiteral("qwertyuiopasdfghjklzxcvbnm")) {
        for (const QString& key : {QString(letter), QString(letter.toUpper())})
            addButton(key, createButton(key, press, letterObjectName(letter)));
    }
    for (const PageKey& pageKey : pageKeys) {
        const QString key = QLatin1String(pageKey.key);
        const QString name = QLatin1String(pageKey.objectName);
        addButton(key, createButton(tr(pageKey.label), pageKey.lowerMember, name));
        addButton(key.toUpper(), createButton(tr(pageKey.label), pageKey.upperMember, name));
    }
    getButton(QStringLiteral("SHIFT"))->setCheckable(true);
    addButton(QStringLiteral("cancel"),
              createButton(cancelLabel(), SIGNAL(cancelEntry()), QStringLiteral("cancelBottomLeft")));
    addButton(QStringLiteral("clear"), createButton(tr("Clear"), press, QStringLiteral("clearBottomRight")));
}

QWidget* KeyboardEntryImpl::letterPage(bool upperCase)
{
    const auto key = [upperCase](const char* name) {
        const QString key = QLatin1String(name);
        return upperCase ? key.toUpper() : key;
    };
    QGridLayout* grid = EntryPanel::keyGrid();
    int index = 0;
    for (const char* name : letterRows) {
        grid->addWidget(getButton(key(name)), index / 10, index % 10);
        ++index;
    }
    grid->addWidget(getButton(key("space")), 3, 0, 1, 7);
    grid->addWidget(getButton(key("hyphen")), 3, 7);
    grid->addWidget(getButton(key("underscore")), 3, 8);
    grid->addWidget(getButton(key("enter")), 3, 9);
    EntryPanel::shareColumns(grid);
    auto* page = new QWidget;
    page->setLayout(grid);
    return page;
}

QWidget* KeyboardEntryImpl::digitBlock()
{
    auto* block = new QFrame;
    block->setLayout(digitGrid(QStringLiteral("cancel"), QStringLiteral("clear")));
    return block;
}

bool KeyboardEntryImpl::isPageKey(const QObject* button, const QString& name) const
{
    return button == getButton(name) || button == getButton(name.toUpper());
}

QString KeyboardEntryImpl::cancelLabel() const
{
    // The narrow portrait screen has no room for the whole word.
    return portraitScreen() ? tr("Cncl") : tr("Cancel");
}
