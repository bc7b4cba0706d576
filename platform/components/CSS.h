#ifndef CSS_H
#define CSS_H

#include <QString>

/*!
  The colour theme of the instrument's interface.

  Every style sheet of the platform and of the widgets is assembled from
  literals and these fragments, so the whole look changes here and nowhere
  else. Each function returns a colour in a form a style sheet accepts.
*/
class CSS
{
public:
    //! Frame and outline colour, the most used accent.
    static QString border();

    //! Stops of the button and bar gradients, dark to light.
    static QString gradientDark();
    static QString gradientMiddle();
    static QString gradientLight();

    //! Strong accent for selections and "off" lamps.
    static QString highlight();
    //! Translucent accent, in rgba() form.
    static QString accentRGBA();

    //! Screen and panel backgrounds, and the text colour on them.
    static QString background();
    static QString panel();
    static QString text();
    //! Text and outline colour of warnings and errors.
    static QString alert();
};

#endif // CSS_H
