#include "ProgressBar.h"

#include "CSS.h"
#include "DisplayFrame.h"
#include "NumericLink.h"
#include "QRVUtil.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

using namespace boost::placeholders;

ProgressBar::ProgressBar(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_styleMin(styleSheetFor(12, 26, 1, 12))
    , m_styleMax(styleSheetFor(16, 32, 2, 14))
{
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);

    auto* frame = new QFrame;
    auto* label = new QLabel;
    setLabelWidget(label);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(frame);

    m_bar = new QProgressBar;
    auto* frameLayout = new QVBoxLayout(frame);
    frameLayout->setSpacing(0);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->addWidget(m_bar);
    m_bar->setRange(0, 1000);
    m_bar->setTextVisible(true);
    m_bar->setValue(700);
    m_bar->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);

    changeSize(QRVUtil::initialSize());
    connect(this, &ProgressBar::newBarValue, this, &ProgressBar::updateProgress, Qt::BlockingQueuedConnection);
}

ProgressBar::~ProgressBar() = default;

QString ProgressBar::styleSheetFor(int labelFontPx, int frameHeightPx, int barPaddingPx, int barFontPx)
{
    return QStringLiteral("QLabel#Label { font-size: %1px; padding: 4px 5px 0px 8px; margin: 0px; border: none;"
                          " color: #fff; min-height: 12px; }"
                          "QFrame { background: transparent; border: 2px solid %2; border-radius: 10px;"
                          " min-height: %3px; max-height: %3px; }"
                          "QProgressBar::chunk { border-radius: 7px; background-color: qlineargradient("
                          "x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 %4, stop: 0.5 %5, stop: 1 %4); }"
                          "QProgressBar { padding: %6px; font-size: %7px; background-color: rgba(0,0,0,125);"
                          " border: none; text-align: center; border-radius: 8px; color: #fff; }")
        .arg(labelFontPx)
        .arg(CSS::border())
        .arg(frameHeightPx)
        .arg(CSS::gradientDark(), CSS::gradientMiddle())
        .arg(barPaddingPx)
        .arg(barFontPx);
}

void ProgressBar::changeSize(const QString& size)
{
    QRVUtil::applyMaxMinSheet(this, size, m_styleMax, m_styleMin);
}

void ProgressBar::setMinimum(int minimum) { m_bar->setMinimum(minimum); }
void ProgressBar::setMaximum(int maximum) { m_bar->setMaximum(maximum); }

void ProgressBar::updateProgress(int percent)
{
    // Outside the range QProgressBar keeps its value: 101 percent changes nothing.
    // Painted at the display's next frame: a DDS thread waiting for this
    // slot never waits for a paint, and a screen of bars paints in one pass.
    DisplayFrame::instance()->change(m_bar, [this, percent] { m_bar->setValue(percent * 10); });
}

void ProgressBar::mouseReleaseEvent(QMouseEvent*) {}

void ProgressBar::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    // The one widget that stays silent on a type mismatch.
    const NumericLink* reading = bindAs<NumericLink>(attr, NumericLink::ReadingLong, nullptr);
    if (!reading)
        return;
    NumericSample percent;
    reading->read(&percent);
    updateProgress(int(percent.value));
    reading->follow(boost::bind(&ProgressBar::dds_callback, this, _1, _2));
}

void ProgressBar::dds_callback(const char*, const NumericSample& sample)
{
    emit newBarValue(int(sample.value));
}
