#ifndef WAITSPINNER_H
#define WAITSPINNER_H

#include <QWidget>

class QLabel;
class QSvgRenderer;
class QTimer;

/*!
  A busy indicator: three rings of dots turning at different speeds, the
  innermost the other way, with an optional white text in the middle
  (a percentage, or a word). It turns from construction for as long as it
  exists; alignText() centres the text after it changed.
*/
class WaitSpinner : public QWidget
{
    Q_OBJECT

public:
    //! The flag is not read; it stays for the hosts that pass it.
    WaitSpinner(QWidget* parent, bool);

public slots:
    void timeOverEvent();
    //! Shows \a percent (0.256 is "26%").
    void setTextDouble(double percent = 0.0);
    void setTextString(QString text = QString());
    void setTextVisible(bool visible = true);
    void alignText();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer* m_timer = nullptr;
    QLabel* m_textLabel = nullptr;
    QSvgRenderer* m_ring1 = nullptr;
    QSvgRenderer* m_ring2 = nullptr;
    QSvgRenderer* m_ring3 = nullptr;
    double m_angle = 0.0;
    double m_angleStep = 0.1;
};

#endif // WAITSPINNER_H
