#ifndef SCROLLBUTTON_H
#define SCROLLBUTTON_H

#include <QAbstractButton>

/*!
  A square touch button with an arrow that points the way it scrolls.

  The operator sees a rounded button in the theme's gradient with a light
  arrow; it lights up in the border colour while pressed and repeats its
  click while held. The arrow is painted, so the platform needs no pictures.
*/
class ScrollButton : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(Qt::ArrowType direction READ direction WRITE setDirection)

public:
    explicit ScrollButton(Qt::ArrowType direction, QWidget* parent = nullptr);

    Qt::ArrowType direction() const;
    void setDirection(Qt::ArrowType direction);

    QSize sizeHint() const override;

signals:
    //! The finger left the button, after any click it made.
    void mouseUp();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Qt::ArrowType m_direction = Qt::NoArrow;
};

#endif // SCROLLBUTTON_H
