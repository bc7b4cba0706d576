#include "BaseEntryImpl.h"

#include "CSS.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegExpValidator>

namespace {

QString frameStyle()
{
    QString style = QStringLiteral("QPushButton { color: white; background-color: transparent;"
                                   " border: 1px solid white; font-size: 40px; }"
                                   "QPushButton:pressed { color: black; background-color: white; }"
                                   "QFrame#MainFrame { background-color: rgba(0,0,0,215); border: 2px solid %1;"
                                   " border-radius: 18px; border-left: none; }"
                                   "QFrame#TopOverlay, QFrame#BottomOverlay { border: 2px solid %1;"
                                   " border-radius: 18px; border-right: none;"
                                   " border-top-right-radius: 0px; border-bottom-right-radius: 0px; }"
                                   "QLabel { background-color: transparent; border: 2px solid %1; border-left: none;"
                                   " border-top-right-radius: 9px; border-bottom-right-radius: 9px; }"
                                   "QLineEdit { background-color: transparent; border: 2px solid white;"
                                   " border-radius: 10px; font-size: 40px; min-height: 40px; max-height: 40px;"
                                   " color: white; padding-left: 4px;"
                                   " selection-color: white; selection-background-color: black; }")
                        .arg(CSS::border());
    const QVariant noTransparency = qApp->property("-notransparency");
    if (noTransparency.isValid() && noTransparency.toString() == QLatin1String("true"))
        style += QStringLiteral("QFrame#MainFrame{    background-color: #000;}");
    return style;
}

QFrame* placedFrame(const char* name, const QRect& area, QWidget* parent)
{
    auto* frame = new QFrame(parent);
    frame->setObjectName(QLatin1String(name));
    frame->setGeometry(area);
    return frame;
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
    , m_styleText(frameStyle())
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
    const QLineEdit* source = m_targetEdit ? m_targetEdit : m_echoEdit;
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
    if (watched == m_gapLabel) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
            return true;
        default:
            break;
        }
    }
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
    m_mainFrame = new QFrame;
    m_mainFrame->setObjectName(QStringLiteral("MainFrame"));
    m_mainFrame->setMinimumSize(w, h);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_mainFrame);
    // The pad has no title: its top overlay takes the place of the container's title bar.
    setLayout(row, false);

    placedFrame("TopOverlay", QRect(QPoint(0, 0), QPoint(w - 61, 63)), m_mainFrame);
    m_echoEdit = new QLineEdit(m_mainFrame);
    m_echoEdit->setGeometry(QRect(QPoint(10, 10), QPoint(w - 11, 49)));
    m_echoEdit->setReadOnly(true);
    m_echoEdit->setEnabled(false);
    if (m_targetEdit)
        m_echoEdit->setEchoMode(m_targetEdit->echoMode());
    m_gapLabel = new QLabel(m_mainFrame);
    m_gapLabel->setGeometry(QRect(QPoint(18, 62), QPoint(w - 19, 79)));
    m_gapLabel->installEventFilter(this);
    placedFrame("BottomOverlay", QRect(QPoint(0, 78), QPoint(w - 61, h - 5)), m_mainFrame);
    m_entryFrame = placedFrame("EntryFrame", QRect(QPoint(0, 78), QPoint(w - 1, h - 51)), m_mainFrame);
    resize(w, h);
}
