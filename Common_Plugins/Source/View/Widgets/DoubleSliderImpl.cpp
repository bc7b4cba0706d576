#include "DoubleSliderImpl.h"

#include "CSS.h"
#include "EntryPanel.h"
#include "SliderBarImpl.h"
#include "SliderIndicatorImpl.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel* marker(const char* name)
{
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    return label;
}


//! The keys beside a ruler: \a rim round them, rounded on their outer side.
QString stepKeyRules(const char* prefix, const QString& rim)
{
    return QStringLiteral("QPushButton#%1IncStep, QPushButton#%1DecStep { color: white; border: 2px solid %2; font-size: 20px;"
                          " min-width: 44px; max-width: 44px; min-height: 62px; max-height: 62px; }"
                          "QPushButton#%1IncStep { border-top-left-radius: 10px; border-bottom-left-radius: 10px; }"
                          "QPushButton#%1DecStep { border-top-right-radius: 10px; border-bottom-right-radius: 10px; }")
        .arg(QLatin1String(prefix), rim);
}

} // namespace

DoubleSliderImpl::DoubleSliderImpl(QWidget* parent, double value, double lower, double upper, int precision)
    : SliderImpl(parent)
    , m_topBar(new SliderBarImpl(nullptr, value, lower, upper, precision))
    , m_bottomBar(new SliderBarImpl(nullptr, value, lower, upper, precision))
{
    setFixedSize(m_sliderWidth, m_sliderHeight);
    m_topBar->setObjectName(QStringLiteral("topSliderBar"));
    m_bottomBar->setObjectName(QStringLiteral("btmSliderBar"));
    m_bottomBar->setBottomMode();
    m_indicator = new SliderIndicatorImpl(m_topBar, m_bottomBar);
    // The read-out takes what room the rulers and markers leave.
    m_indicator->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);

    // The fine ruler lies above the read-out and the coarse one below it, each
    // with the marker that points at its centre on its outer side.
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(marker("topMarker"));
    column->addWidget(rulerRow(m_bottomBar, QStringLiteral("btm"), &DoubleSliderImpl::incBtmBar,
                               &DoubleSliderImpl::decBtmBar));
    column->addWidget(m_indicator);
    column->addWidget(rulerRow(m_topBar, QStringLiteral("top"), &DoubleSliderImpl::incTopBar,
                               &DoubleSliderImpl::decTopBar));
    column->addWidget(marker("btmMarker"));
    QPushButton* enter = EntryPanel::key(QStringLiteral("enter"), tr("Enter"));
    auto* outer = new QHBoxLayout;
    outer->setContentsMargins(5, 5, 5, 5);
    outer->setSpacing(6);
    outer->addLayout(column);
    outer->addWidget(enter);
    setLayout(outer, false);
    getContainerFrame()->setStyleSheet(style());

    connect(m_topBar, &SliderBarImpl::valueChanged, this, &DoubleSliderImpl::updateValueTopBar);
    connect(m_bottomBar, &SliderBarImpl::valueChanged, this, &DoubleSliderImpl::updateValueBtmBar);
    connect(enter, &QPushButton::clicked, this, &DoubleSliderImpl::submit);
}

void DoubleSliderImpl::setValue(const QString& value, const QString& unit)
{
    m_topBar->setValue(value, unit);
    m_bottomBar->setValue(value, unit);
    m_indicator->setValue(value, unit);
}

void DoubleSliderImpl::changePrecision(int precision)
{
    m_topBar->changePrecision(precision);
    m_bottomBar->changePrecision(precision);
}

void DoubleSliderImpl::updateLimits(double lower, double upper)
{
    m_topBar->updateLimits(lower, upper);
    m_bottomBar->updateLimits(lower, upper);
}

void DoubleSliderImpl::clear() { m_indicator->setValue(QString(), QString()); }
int DoubleSliderImpl::getWidth() const { return m_sliderWidth; }
int DoubleSliderImpl::getHeight() const { return m_sliderHeight; }

void DoubleSliderImpl::decTopBar()
{
    m_topBar->changeStep(-1.0);
    m_indicator->setMajorStep();
}

void DoubleSliderImpl::incTopBar()
{
    m_topBar->changeStep(1.0);
    m_indicator->setMajorStep();
}

void DoubleSliderImpl::decBtmBar()
{
    m_bottomBar->changeStep(-1.0);
    m_indicator->setMinorStep();
}

void DoubleSliderImpl::incBtmBar()
{
    m_bottomBar->changeStep(1.0);
    m_indicator->setMinorStep();
}

void DoubleSliderImpl::submit() { emit closeEntry(); }

void DoubleSliderImpl::updateValueTopBar(const QString& value, const QString& unit)
{
    m_bottomBar->setValue(value, unit);
    m_indicator->setValue(value, unit);
    emit valueChanged(value);
}

void DoubleSliderImpl::updateValueBtmBar(const QString& value, const QString& unit)
{
    m_topBar->setValue(value, unit);
    m_indicator->setValue(value, unit);
    emit valueChanged(value);
}

QFrame* DoubleSliderImpl::rulerRow(SliderBarImpl* bar, const QString& prefix, void (DoubleSliderImpl::*coarser)(),
                                   void (DoubleSliderImpl::*finer)())
{
    auto* frame = new QFrame;
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    QPushButton* coarserKey = EntryPanel::key(prefix + QStringLiteral("IncStep"), QStringLiteral("x10"));
    QPushButton* finerKey = EntryPanel::key(prefix + QStringLiteral("DecStep"), QStringLiteral("/10"));
    row->addWidget(coarserKey);
    row->addWidget(bar);
    row->addWidget(finerKey);
    connect(coarserKey, &QPushButton::clicked, this, coarser);
    connect(finerKey, &QPushButton::clicked, this, finer);
    return frame;
}

QString DoubleSliderImpl::style()
{
    return QStringLiteral(
               "QLabel#topMarker { image: url(images/inverted_triangle.png); image-position: bottom center;"
               " background-color: transparent; }"
               "QLabel#btmMarker { image: url(images/triangle.png); image-position: top center;"
               " background-color: transparent; }"
               "QPushButton#enter { color: white; border: 2px solid #0a0; border-radius: 10px;"
               " max-width: 44px; min-height: 60px; }"
               "QFrame#topSliderBar { border: none; border-top: 2px solid #0c0; border-bottom: 2px solid #0c0;"
               " min-height: 62px; max-height: 62px;"
               " background-color: qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 rgba(0,255,0,75),"
               " stop:0.48 rgba(0,255,0,150), stop:0.52 rgba(0,255,0,150), stop:1 rgba(0,255,0,75)); }"
               "QFrame#btmSliderBar { border: 2px solid %1;"
               " background-color: qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 rgba(0,100,185,100),"
               " stop:0.48 rgba(0,100,185,175), stop:0.52 rgba(0,100,185,175), stop:1 rgba(0,100,185,100)); }"
               "QPushButton#btmIncStep:pressed, QPushButton#btmDecStep:pressed { border-color: #0bf;"
               " background-color: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 rgba(43,198,255,125),"
               " stop:0.4 rgba(0,0,0,150), stop:0.6 rgba(0,0,0,150), stop:1 rgba(43,198,255,125)); }")
               .arg(CSS::border())
        + EntryPanel::confirmPressedRule(QStringLiteral("QPushButton#enter"), QStringLiteral("#0f0")) + stepKeyRules("top", QStringLiteral("#0a0"))
        + stepKeyRules("btm", CSS::border());
}
