#ifndef FRAMELABEL_H
#define FRAMELABEL_H

#include <QPointer>
#include <QString>

class QLabel;

/*!
  The optional label of a widget frame, owned by the frame: it remembers the
  untranslated text so that the label can follow a change of language.
*/
class FrameLabel
{
public:
    FrameLabel() = default;
    ~FrameLabel();
    FrameLabel(const FrameLabel&) = delete;
    FrameLabel& operator=(const FrameLabel&) = delete;

    QLabel* widget() const;
    //! Takes ownership of \a label; an earlier, different label is deleted.
    void setWidget(QLabel* label);

    //! The shown text, empty without a label.
    QString text() const;
    //! Sets the text; without a label nothing happens.
    void setText(const QString& text);
    //! The translation in \a context if the source text is shown, else the source text.
    void retranslate(const char* context);

private:
    QPointer<QLabel> m_label;
    QString m_source;
};

#endif // FRAMELABEL_H
