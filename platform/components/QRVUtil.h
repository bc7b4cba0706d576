#ifndef QRVUTIL_H
#define QRVUTIL_H

#include <QString>

class QWidget;
class QLabel;
class QPoint;
class QRect;
class QFontMetrics;

/*!
  Small helpers shared by the platform and the widgets: the host's start-up
  switches and the layout arithmetic of pop-ups.

  The host copies its command-line switches into dynamic properties of the
  application object ("-systype", "-size", "-res", "-notransparency"); they
  are read as strings, and a property that is not set counts as absent.
*/
class QRVUtil
{
public:
    //! The switch's value, or an empty string when the host did not set it.
    static QString startupSwitch(const char* name);
    static bool startupSwitchIs(const char* name, const QString& value);

    //! True on the handheld instrument ("-systype" is "handheld").
    static bool isHandheld();
    //! The size word a widget starts with: "Max" on a handheld, else "Min".
    static QString initialSize();
    //! On the small portrait screen "Max" is shown as "Min"; other words pass.
    static QString demotedSize(const QString& size);

    /*!
      Applies to \a widget the sheet of \a size for a widget that knows the
      words "Max" and "Min"; any other word changes nothing and gives false.
    */
    static bool applyMaxMinSheet(QWidget* widget, const QString& size, const QString& maxSheet,
                                 const QString& minSheet);

    //! Top-left corner that centres \a other on \a anchor (integer halves).
    static QPoint centredOn(const QWidget* anchor, const QWidget* other);

    //! Readies a text for display, in place: trims it and turns each backslash-n pair into a line break.
    static void processString(QString& text);
    //! Width in pixels of the widest line of \a text.
    static int calculateStringWidth(const QFontMetrics& metrics, const QString& text);
    /*!
      The width \a label needs to show \a text whole, as its sheet has set it
      up: the widest line in its font, its contents margins (a sheet's margin,
      border and padding), its margin, and the indent QLabel gives a text
      inside a frame unless told one.
    */
    static int labelWidthFor(const QLabel* label, const QString& text);
    //! Where \a label sets its text: its contents less its margin and that indent.
    static QRect labelTextRect(const QLabel* label);
};

#endif // QRVUTIL_H
