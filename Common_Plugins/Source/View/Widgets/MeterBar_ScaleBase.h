#ifndef METERBAR_SCALEBASE_H
#define METERBAR_SCALEBASE_H

#include <QLabel>

class QPainter;

/*!
  What the two limit labels beside a meter bar share: a limit text whose
  label is as wide as the text plus a margin, but no wider than the room
  the meter gives it (where a text too long for it is elided), a text that
  other threads hand over through newScaleText(), and a decoration in the
  border colour painted over the label. Style sheets address both as
  "MetBar_Scale".
*/
class MeterBar_ScaleBase : public QLabel
{
    Q_OBJECT

public:
    //! The width that shows the text whole in the label's font and sheet.
    int wholeTextWidth() const;
    //! Keeps the label at most \a width wide; -1 for no bound.
    void setRoom(int width);

signals:
    void newScaleText(QString text);
    //! The text changed, and with it wholeTextWidth().
    void textWidthChanged();

public slots:
    //! Relays out only when the prepared text differs from the one shown.
    void setText(QString text);
    //! For threads other than the label's: the text reaches it queued.
    void setTextNonGuiThread(QString text);

protected:
    MeterBar_ScaleBase(const QString& text, int initialMargin, QWidget* parent);

    //! Pixels added to the width of a text that replaces the first one.
    virtual int textMargin() const = 0;
    //! The dash picture; both labels share one cache entry, so the label
    //! painted first decides for both.
    virtual QString dashResource() const = 0;
    //! Draws the decoration; the painter holds the border pen, antialiased.
    virtual void paintDecoration(QPainter& painter, const QPixmap& dash) = 0;

    void paintEvent(QPaintEvent* event) final;

private:
    void fixWidthTo(const QString& text, int margin);
    void applyWidth();
    //! The sheet's frame and as much of the text as the label's width shows, ending in an ellipsis.
    void paintElided(QPaintEvent* event);

    int m_wantedWidth = 0;
    int m_room = -1;
};

#endif // METERBAR_SCALEBASE_H
