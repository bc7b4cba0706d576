#ifndef PROGRESSBAR_H
#define PROGRESSBAR_H

#include "WidgetBaseImpl.h"

class QProgressBar;
struct NumericSample;

/*!
  A bar that shows a whole percentage from the engine, with an optional
  label above it. Binds an EngineReadingLong and follows its int topic;
  sends nothing, and a touch does nothing. Unbound it shows 70 percent,
  so a form designer has something to look at.

  The bar runs from 0 to 1000, in tenths of a percent.
*/
class ProgressBar : public WidgetBaseImpl
{
    Q_OBJECT

public:
    explicit ProgressBar(QWidget* parent = nullptr);
    ~ProgressBar() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;
    //! Act on the tenths scale of the bar, without a factor.
    void setMinimum(int minimum);
    void setMaximum(int maximum);

signals:
    void newBarValue(int percent);

public slots:
    void updateProgress(int percent);
    void changeSize(const QString& size) override;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void dds_callback(const char* topic, const NumericSample& sample);
    static QString styleSheetFor(int labelFontPx, int frameHeightPx, int barPaddingPx, int barFontPx);

    QProgressBar* m_bar = nullptr;
    QString m_styleMin;
    QString m_styleMax;
};

#endif // PROGRESSBAR_H
