#ifndef ALERTITEM_H
#define ALERTITEM_H

#include <QWidget>

class QPushButton;

/*!
  One row of a list of alerts: a radio-style button and the alert's text,
  wrapped. A touch on the button selects the row or, when it is selected,
  deselects it; itemSelected() tells the list the text, or an empty text
  for none.
*/
class AlertItem : public QWidget
{
    Q_OBJECT

public:
    explicit AlertItem(const QString& text, QWidget* parent = nullptr);

    bool selected() const;
    void setSelected(bool on);
    bool shown() const;
    void setShown(bool shown);
    //! The whole text.
    QString data() const;
    //! The text after its first ": ", the whole text without one.
    QString details() const;

signals:
    void itemSelected(QString msg);

public slots:
    void selectClicked();

private:
    static QString styleSheetFor(const char* radioImage);

    bool m_selected = false;
    bool m_shown = false;
    QString m_text;
};

#endif // ALERTITEM_H
