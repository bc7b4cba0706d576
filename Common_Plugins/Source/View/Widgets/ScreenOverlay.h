#ifndef SCREENOVERLAY_H
#define SCREENOVERLAY_H

#include <QFrame>

/*!
  A black panel with rounded corners, laid over part of a screen to set
  what stands on it apart from the rest.
*/
class ScreenOverlay : public QFrame
{
    Q_OBJECT

public:
    explicit ScreenOverlay(QWidget* parent);
};

#endif // SCREENOVERLAY_H
