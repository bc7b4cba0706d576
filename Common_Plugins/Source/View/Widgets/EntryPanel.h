#ifndef ENTRYPANEL_H
#define ENTRYPANEL_H

#include <QString>

class ContainerImpl;
class QEvent;
class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSize;
class QWidget;

/*!
  The panel that every entry mechanism opens in: a black translucent frame
  (opaque with "-notransparency"), a read-only read-out of the value at the
  top, a gap under it and the overlays that frame both. The keypads, the
  spin wheel and the slider each lay their own controls over it.
*/
class EntryPanel
{
public:
    //! The parts that a mechanism lays its controls on or around.
    struct Parts
    {
        QFrame* mainFrame = nullptr;
        QLineEdit* readOut = nullptr;
        QLabel* gap = nullptr;
        QFrame* upperOverlay = nullptr;
        QFrame* lowerOverlay = nullptr;
    };

    /*!
      Lays the panel of \a size over \a container's content, which loses its
      title bar; \a upperOverlay and \a lowerOverlay name the two overlay
      frames. The read-out is read-only and disabled.
    */
    static Parts build(ContainerImpl* container, const QSize& size, const char* upperOverlay,
                       const char* lowerOverlay);
    //! Lays the read-out, the gap and the overlays over a main frame of \a size, as build() does at first.
    static void place(const Parts& parts, const QSize& size);
    //! The panel's rules, with \a overlaySelector for the overlay frames.
    static QString frameStyle(const QString& overlaySelector);
    //! Which corners of a key are rounded, where a row of keys ends.
    enum class KeyCorners { Square, Left, Right, All };
    /*!
      The rule of the keys named \a name: \a widths are the top, right, bottom
      and left widths of their white border, \a extra any further declarations.
    */
    static QString keyRule(const char* name, const char* widths, KeyCorners corners = KeyCorners::Square,
                           const QString& extra = QString());
    //! A key named \a name that never takes the focus from the field being edited.
    static QPushButton* key(const QString& name, const QString& text, QWidget* parent = nullptr);
    //! A grid for keys that touch: no margin, no spacing.
    static QGridLayout* keyGrid();
    //! Gives every column of \a grid the same share of its width.
    static void shareColumns(QGridLayout* grid);
    //! Smaller type in the read-out, for pads whose text is longer than a number: an address, a position.
    static QString longReadOutStyle();
    //! The look of the key that hands over to the next mechanism ("RotateEntry").
    static QString rotateKeyStyle();
    //! The rule of a key pressed to confirm: a rim of \a rimColour and a green glow behind.
    static QString confirmPressedRule(const QString& selector, const QString& rimColour);
    //! The container's own frame, which a mechanism's panel replaces.
    static QString hiddenBorderFrameStyle();
    /*!
      \a style with \a chineseRule behind it while the interface speaks
      Chinese, whose glyphs need larger type on the small keys.
    */
    static QString withLanguageRule(const QString& style, const QString& chineseRule);
    //! A press, move, release or double click, which the gap swallows so that it never drags the panel.
    static bool isPointerEvent(const QEvent* event);
};

#endif // ENTRYPANEL_H
