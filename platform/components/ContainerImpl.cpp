#include "ContainerImpl.h"

#include "CSS.h"
#include "ContainerSizeTransition.h"
#include "ScrollButton.h"

#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QStateMachine>
#include <QVBoxLayout>

namespace {

const QString sizeMin = QStringLiteral("Min");
const QString sizeMax = QStringLiteral("Max");
const QString sizeThumb = QStringLiteral("Thumb");

const QString maximiseGlyph = QStringLiteral("\u25a1");
const QString restoreGlyph = QStringLiteral("\u2750");

//! Narrowest a thumb gets, so that a short title still leaves something to grab.
constexpr int thumbMinimumWidth = 160;
constexpr QSize drawerTabSize(24, 48);

} // namespace

ContainerImpl::ContainerImpl(QWidget* parent)
    : ContainerBase(parent)
{
    init();
}

void ContainerImpl::init()
{
    m_maxRestoreButton = new QPushButton(maximiseGlyph, controlRow()->parentWidget());
    m_maxRestoreButton->setObjectName(QStringLiteral("ContainerMaxRestore"));
    m_maxRestoreButton->setFocusPolicy(Qt::NoFocus);
    controlRow()->insertWidget(0, m_maxRestoreButton);
    connect(m_maxRestoreButton, &QPushButton::clicked, this, &ContainerImpl::toggleMaximised);

    m_drawer = new QFrame(borderFrame());
    m_drawer->setObjectName(QStringLiteral("ContainerDrawer"));
    auto* drawerColumn = new QVBoxLayout(m_drawer);
    drawerColumn->setContentsMargins(8, 8, 8, 8);
    m_drawer->hide();
    m_drawerTab = new ScrollButton(Qt::LeftArrow, borderFrame());
    m_drawerTab->setObjectName(QStringLiteral("ContainerDrawerTab"));
    m_drawerTab->setAutoRepeat(false);
    m_drawerTab->hide();
    connect(m_drawerTab, &ScrollButton::clicked, this, [this] { setDrawerOpen(!isDrawerOpen()); });
    getContainerFrame()->installEventFilter(this);
    if (parentWidget())
        parentWidget()->installEventFilter(this);

    m_sizeMachine = new QStateMachine(this);
    m_sizeMachine->setGlobalRestorePolicy(QState::RestoreProperties);
    m_stateMin = new QState(m_sizeMachine);
    m_stateMax = new QState(m_sizeMachine);
    m_stateThumb = new QState(m_sizeMachine);
    m_sizeMachine->setInitialState(m_stateMin);
    initStateMin();
    initStateMax();
    initStateThumb();
    m_sizeMachine->start();
    // start() only queues the start; a size asked for right after construction must not be lost.
    QCoreApplication::sendPostedEvents(m_sizeMachine, QEvent::MetaCall);

    updateStyle();
}

void ContainerImpl::setLayout(QLayout* layout)
{
    ContainerBase::setLayout(layout);
    resizeDrawers();
}

void ContainerImpl::move(const QPoint& position)
{
    QWidget::move(keptOnScreen(position));
}

void ContainerImpl::move(int x, int y)
{
    move(QPoint(x, y));
}

void ContainerImpl::resizeDrawers()
{
    const bool usable = hasDrawerContent() && currentSize() != sizeThumb;
    m_drawerTab->setVisible(usable);
    if (!usable) {
        m_drawer->hide();
        return;
    }
    const QRect content = getContainerFrame()->geometry();
    const int width = qMin(m_drawer->sizeHint().width(), content.width() - drawerTabSize.width());
    m_drawer->setGeometry(content.right() + 1 - width, content.top(), width, content.height());
    const int tabRight = isDrawerOpen() ? m_drawer->x() : content.right() + 1;
    m_drawerTab->setGeometry(QRect(QPoint(tabRight - drawerTabSize.width(),
                                          content.center().y() - drawerTabSize.height() / 2),
                                   drawerTabSize));
    m_drawer->raise();
    m_drawerTab->raise();
}

void ContainerImpl::updateStyle()
{
    const QString border = m_border ? QStringLiteral("2px solid ") + CSS::border() : QStringLiteral("none");
    setStyleSheet(QStringLiteral("QFrame#BorderFrame {"
                                 "    background-color: %1;"
                                 "    border: %2;"
                                 "    border-radius: 12px;"
                                 "}"
                                 "QFrame#TitleBar {"
                                 "    background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %3, stop:1 %4);"
                                 "    border: none;"
                                 "    border-top-left-radius: 10px;"
                                 "    border-top-right-radius: 10px;"
                                 "}"
                                 "QLabel { color: %5; background-color: transparent; }"
                                 "QLabel#ContainerTitle { font-size: 18px; font-weight: bold; }"
                                 "QFrame#ContainerControl, QFrame#ContainerFrame { background-color: transparent; border: none; }"
                                 "QPushButton#ContainerClose, QPushButton#ContainerMaxRestore {"
                                 "    color: %5;"
                                 "    background-color: transparent;"
                                 "    border: 2px solid %6;"
                                 "    border-radius: 8px;"
                                 "    font-size: 20px;"
                                 "    min-width: 32px; max-width: 32px;"
                                 "    min-height: 32px; max-height: 32px;"
                                 "    padding: 0px;"
                                 "}"
                                 "QPushButton#ContainerClose:pressed, QPushButton#ContainerMaxRestore:pressed {"
                                 "    background-color: %6;"
                                 "}"
                                 "QFrame#ContainerDrawer {"
                                 "    background-color: %7;"
                                 "    border: none;"
                                 "    border-left: 2px solid %6;"
                                 "    border-bottom-right-radius: 10px;"
                                 "}")
                      .arg(CSS::panel(), border, CSS::gradientLight(), CSS::gradientDark(), CSS::text(),
                           CSS::border(), CSS::gradientMiddle()));
}

void ContainerImpl::setBorder(bool border)
{
    m_border = border;
    updateStyle();
}

bool ContainerImpl::hasBorder() const { return m_border; }

QString ContainerImpl::currentSize() const
{
    const QSet<QAbstractState*> active = m_sizeMachine->configuration();
    if (active.contains(m_stateMax))
        return sizeMax;
    return active.contains(m_stateThumb) ? sizeThumb : sizeMin;
}

void ContainerImpl::addDrawer(QWidget* widget)
{
    m_drawer->layout()->addWidget(widget);
    resizeDrawers();
}

bool ContainerImpl::isDrawerOpen() const { return !m_drawer->isHidden(); }

void ContainerImpl::raise()
{
    ContainerBase::raise();
    move(pos());
}

void ContainerImpl::setDrawerOpen(bool open)
{
    if (open && (!hasDrawerContent() || currentSize() == sizeThumb))
        return;
    m_drawer->setVisible(open);
    m_drawerTab->setDirection(open ? Qt::RightArrow : Qt::LeftArrow);
    resizeDrawers();
}

QAbstractTransition* ContainerImpl::findTransition(QObject* sender, QState* from, QState* to)
{
    for (QAbstractTransition* step : from->transitions()) {
        const auto* signalStep = qobject_cast<QSignalTransition*>(step);
        if (signalStep && signalStep->senderObject() == sender && step->targetState() == to)
            return step;
    }
    return nullptr;
}

void ContainerImpl::initStateMin()
{
    addStepsTo(m_stateMin, sizeMin);
    connect(m_stateMin, &QState::exited, this, &ContainerImpl::rememberNormalGeometry, Qt::UniqueConnection);
}

void ContainerImpl::initStateMax()
{
    addStepsTo(m_stateMax, sizeMax);
    m_stateMax->assignProperty(m_maxRestoreButton, "text", restoreGlyph);
    m_stateMax->assignProperty(this, "maximumSize", QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
}

void ContainerImpl::initStateThumb()
{
    addStepsTo(m_stateThumb, sizeThumb);
    m_stateThumb->assignProperty(m_maxRestoreButton, "text", restoreGlyph);
    m_stateThumb->assignProperty(this, "minimumSize", QSize(0, 0));
    connect(m_stateThumb, &QState::exited, this, &ContainerImpl::keepThumbPlace, Qt::UniqueConnection);
}

void ContainerImpl::mousePressEvent(QMouseEvent* event)
{
    m_dragging = event->button() == Qt::LeftButton && currentSize() != sizeMax;
    if (!m_dragging) {
        ContainerBase::mousePressEvent(event);
        return;
    }
    m_grabOffset = event->globalPos() - pos();
    event->accept();
}

void ContainerImpl::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragging)
        move(event->globalPos() - m_grabOffset);
    else
        ContainerBase::mouseMoveEvent(event);
}

void ContainerImpl::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    ContainerBase::mouseReleaseEvent(event);
}

void ContainerImpl::resizeEvent(QResizeEvent* event)
{
    ContainerBase::resizeEvent(event);
    move(pos());
}

void ContainerImpl::showEvent(QShowEvent* event)
{
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    ContainerBase::showEvent(event);
    move(pos());
}

bool ContainerImpl::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        if (watched == getContainerFrame())
            resizeDrawers();
        else if (watched == parentWidget() && currentSize() == sizeMax)
            fitToSize();
        else if (watched == parentWidget())
            move(pos());
    }
    return ContainerBase::eventFilter(watched, event);
}

void ContainerImpl::addStepsTo(QState* target, const QString& sizeWord)
{
    for (QState* source : {m_stateMin, m_stateMax, m_stateThumb}) {
        if (source != target && !findTransition(this, source, target))
            new ContainerSizeTransition(this, sizeWord, source, target);
    }
    connect(target, &QState::entered, this, &ContainerImpl::fitToSize, Qt::UniqueConnection);
}

void ContainerImpl::fitToSize()
{
    const QString size = currentSize();
    getContainerFrame()->setVisible(size != sizeThumb);
    if (size == sizeMax) {
        setGeometry(screenArea());
    } else if (size == sizeThumb) {
        setDrawerOpen(false);
        const QSize titleOnly = sizeHint();
        resize(qMax(thumbMinimumWidth, titleOnly.width()), titleOnly.height());
    } else if (m_normalGeometry.isValid()) {
        resize(m_normalGeometry.size());
        move(m_normalGeometry.topLeft());
    }
    resizeDrawers();
}

void ContainerImpl::rememberNormalGeometry()
{
    // A panel never sized by anyone comes back at the size its content asks for.
    m_normalGeometry = QRect(pos(), testAttribute(Qt::WA_Resized) ? size() : sizeHint());
}

void ContainerImpl::keepThumbPlace()
{
    m_normalGeometry.moveTopLeft(pos());
}

void ContainerImpl::toggleMaximised()
{
    emit changeSize(currentSize() == sizeMin ? sizeMax : sizeMin);
}

bool ContainerImpl::hasDrawerContent() const
{
    return m_drawer->layout()->count() > 0;
}
