#include "ContainerDialog.h"

#include "PushButtonImpl.h"
#include "QRVUtil.h"

#include <QApplication>
#include <QDebug>
#include <QEventLoop>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>

namespace {

bool isOperatorInput(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return true;
    default:
        return false;
    }
}

} // namespace

ContainerDialog::ContainerDialog(QWidget* parent)
    : ContainerImpl(parent)
{
    setObjectName(QStringLiteral("ContainerDialog"));
    // Wide enough that a question of a sentence or two reads in few lines.
    setMinimumWidth(360);
    // A question has one size: the operator answers it, not enlarges it.
    if (QWidget* maxRestore = findChild<QWidget*>(QStringLiteral("ContainerMaxRestore")))
        maxRestore->hide();
    connect(this, &ContainerBase::WindowClosed, this, &ContainerDialog::cancelDialog);
}

ContainerDialog::~ContainerDialog()
{
    setOthersBlocked(false);
    if (m_loop)
        m_loop->quit();
}

QHBoxLayout* ContainerDialog::createButtonLayout(QWidget* dialog, const QString& buttons, long& count)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    count = 0;
    if (buttons.isEmpty())
        return row;
    for (const QString& entry : buttons.split(QLatin1Char('|'))) {
        const int comma = entry.lastIndexOf(QLatin1Char(','));
        const QString label = entry.left(comma).trimmed();
        bool whole = false;
        const int result = entry.mid(comma + 1).trimmed().toInt(&whole);
        if (comma < 0 || label.isEmpty() || !whole) {
            qDebug() << "ContainerDialog - skipping malformed button entry:" << entry;
            continue;
        }
        auto* button = new Kelvane::gui::PushButtonImpl(dialog);
        button->setObjectName(label);
        button->setButtonText(label);
        button->setMinimumWidth(100);
        QObject::connect(button, &Kelvane::gui::PushButtonImpl::clicked, dialog, [dialog, result] {
            QMetaObject::invokeMethod(dialog, "done", Q_ARG(int, result));
        });
        row->addWidget(button);
        ++count;
    }
    return row;
}

QHBoxLayout* ContainerDialog::createButtonLayout(const QString& buttons, int& count)
{
    long made = 0;
    QHBoxLayout* row = createButtonLayout(this, buttons, made);
    count = static_cast<int>(made);
    return row;
}

QLabel* ContainerDialog::setQuestion(const QString& text, const QString& buttons)
{
    auto* label = new QLabel(text);
    label->setObjectName(QStringLiteral("dialog_text"));
    label->setWordWrap(true);

    auto* grid = new QGridLayout;
    int count = 0;
    QHBoxLayout* row = createButtonLayout(buttons, count);
    if (count > 0) {
        row->insertStretch(0);
        grid->addLayout(row, 1, 0);
    } else {
        delete row;
    }
    grid->addWidget(label, 0, 0, 1, qMax(1, count));
    setLayout(grid);
    return label;
}

int ContainerDialog::exec(bool block)
{
    if (m_loop) {
        qWarning() << "ContainerDialog - exec() while already waiting for an answer";
        return 0;
    }
    m_result = 0;
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    // centredOn works in the anchor's parent's coordinates; the dialog lives in the anchor's own.
    if (QWidget* holder = parentWidget())
        move(QRVUtil::centredOn(holder, this) - holder->pos());
    show();
    raise();
    setOthersBlocked(true);
    if (!block)
        return 0;

    const QPointer<ContainerDialog> alive(this);
    QEventLoop loop;
    m_loop = &loop;
    loop.exec();
    if (!alive)
        return 0;
    m_loop = nullptr;
    return m_result;
}

int ContainerDialog::result() const { return m_result; }

void ContainerDialog::done(int result)
{
    m_result = result;
    setOthersBlocked(false);
    hide();
    if (m_loop)
        m_loop->quit();
    emit finished(result);
}

void ContainerDialog::cancelDialog() { done(0); }

bool ContainerDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (m_othersBlocked && watched->isWidgetType() && isOperatorInput(event)) {
        const auto* target = static_cast<QWidget*>(watched);
        if (target != this && !isAncestorOf(target))
            return true;
    }
    return ContainerImpl::eventFilter(watched, event);
}

void ContainerDialog::setOthersBlocked(bool blocked)
{
    if (blocked == m_othersBlocked)
        return;
    m_othersBlocked = blocked;
    if (blocked)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}
