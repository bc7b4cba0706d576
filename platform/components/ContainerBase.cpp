#include "ContainerBase.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

ContainerBase::ContainerBase(QWidget* parent)
    : QWidget(parent)
{
    init();
}

void ContainerBase::init()
{
    m_borderFrame = new QFrame(this);
    m_borderFrame->setObjectName(QStringLiteral("BorderFrame"));
    auto* outer = new QVBoxLayout;
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_borderFrame);
    QWidget::setLayout(outer);

    m_titleBar = new QFrame(m_borderFrame);
    m_titleBar->setObjectName(QStringLiteral("TitleBar"));
    m_titleLabel = new QLabel(m_titleBar);
    m_titleLabel->setObjectName(QStringLiteral("ContainerTitle"));
    m_titleLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* controls = new QFrame(m_titleBar);
    controls->setObjectName(QStringLiteral("ContainerControl"));
    m_closeButton = new QPushButton(QStringLiteral("\u00d7"), controls);
    m_closeButton->setObjectName(QStringLiteral("ContainerClose"));
    m_closeButton->setFocusPolicy(Qt::NoFocus);
    connect(m_closeButton, &QPushButton::clicked, this, &ContainerBase::close);

    m_controlRow = new QHBoxLayout(controls);
    m_controlRow->setContentsMargins(0, 0, 0, 0);
    m_controlRow->setSpacing(6);
    m_controlRow->addWidget(m_closeButton);
    auto* titleRow = new QHBoxLayout(m_titleBar);
    titleRow->setContentsMargins(10, 4, 4, 4);
    titleRow->addWidget(m_titleLabel, 1);
    titleRow->addWidget(controls);

    m_containerFrame = new QFrame(m_borderFrame);
    m_containerFrame->setObjectName(QStringLiteral("ContainerFrame"));
    auto* body = new QVBoxLayout(m_borderFrame);
    // No margins: the border of the style sheet takes its room from the frame's contents.
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    body->addWidget(m_titleBar);
    body->addWidget(m_containerFrame, 1);
}

QFrame* ContainerBase::getContainerFrame() { return m_containerFrame; }

void ContainerBase::setLayout(QLayout* layout)
{
    QLayout* old = m_containerFrame->layout();
    if (old == layout)
        return;
    delete old;
    m_containerFrame->setLayout(layout);
}

void ContainerBase::setLayout(QLayout* layout, bool showTitleBar)
{
    setLayout(layout);
    m_titleBar->setVisible(showTitleBar);
}

void ContainerBase::setWindowTitle(const QString& title, int alignment)
{
    m_titleSource = title;
    m_titleLabel->setAlignment(alignment ? Qt::Alignment(alignment) : Qt::AlignLeft | Qt::AlignVCenter);
    showTitle();
}

void ContainerBase::retranslate() { showTitle(); }

void ContainerBase::saveLocation()
{
    m_savedLocation = pos();
    m_hasSavedLocation = true;
}

void ContainerBase::restoreLocation()
{
    if (m_hasSavedLocation)
        QWidget::move(keptOnScreen(m_savedLocation));
}

bool ContainerBase::isVisible() const { return !isHidden(); }

void ContainerBase::addPage(QWidget* page)
{
    if (!m_containerFrame->layout()) {
        auto* pages = new QVBoxLayout(m_containerFrame);
        pages->setContentsMargins(0, 0, 0, 0);
    }
    m_containerFrame->layout()->addWidget(page);
}

void ContainerBase::raise() { QWidget::raise(); }

void ContainerBase::close()
{
    hide();
    emit WindowClosed();
}

void ContainerBase::setShown(bool shown)
{
    setVisible(shown);
    if (shown)
        raise();
}

void ContainerBase::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

QPoint ContainerBase::keptOnScreen(const QPoint& topLeft) const
{
    const QRect area = screenArea();
    if (!area.isValid())
        return topLeft;
    return QPoint(qBound(area.left(), topLeft.x(), area.left() + area.width() - width()),
                  qBound(area.top(), topLeft.y(), area.top() + area.height() - height()));
}

QRect ContainerBase::screenArea() const
{
    if (const QWidget* holder = parentWidget())
        return holder->rect();
    return screen() ? screen()->availableGeometry() : QRect();
}

QFrame* ContainerBase::borderFrame() const { return m_borderFrame; }
QFrame* ContainerBase::titleBar() const { return m_titleBar; }
QHBoxLayout* ContainerBase::controlRow() const { return m_controlRow; }

void ContainerBase::showTitle()
{
    const QString shown = QCoreApplication::translate("ContainerBase", m_titleSource.toUtf8().constData());
    m_titleLabel->setText(shown);
    QWidget::setWindowTitle(shown);
}
