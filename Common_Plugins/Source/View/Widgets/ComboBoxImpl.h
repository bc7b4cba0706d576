#ifndef COMBOBOXIMPL_H
#define COMBOBOXIMPL_H

#include "ComboBoxListStruct.h"
#include "ReadingSelector.h"
#include "WidgetBaseImpl.h"

#include <QList>
#include <QPointer>

#include <atomic>

class ComboBoxListImpl;
class QLabel;

/*!
  A value field showing one choice of an enumerated engine attribute
  (EngineAttribEnum); a touch opens the drop-down of all choices over the
  screen. The list is fetched with params() on binding and on every
  opening, the value and the list are followed on the value and params
  topics, and a choice is sent from a worker: the field goes on showing the
  engine's value until the engine's sample confirms the choice, and a
  refused choice brings a fresh list and value. Unbound it is a local
  selector, as the numeric field's unit picker uses it, or the selector of
  a meter's reading (ReadingSelector).
*/
class ComboBoxImpl : public WidgetBaseImpl, public ReadingSelector
{
    Q_OBJECT
    Q_INTERFACES(ReadingSelector)
    Q_PROPERTY(bool ForceReadOnly READ isReadOnly WRITE setReadOnly)

public:
    explicit ComboBoxImpl(bool embedded = false, QWidget* parent = nullptr);
    ~ComboBoxImpl() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    virtual QLabel* getValueField() const;
    Q_INVOKABLE virtual long getEnum() const;
    virtual QList<ComboBoxListStruct> getList() const;
    virtual QString getText() const;
    virtual void setList(const QList<ComboBoxListStruct>& list, long current);
    virtual void setText(const QString& text);
    //! The open drop-down, for hosts and tests that look at it.
    ComboBoxListImpl* listWidget() const;
    //! Makes the field exactly as wide as its widest choice in the font of its size.
    void fitToWidestChoice();

    void offerReadings(const QStringList& names) override;
    QMetaObject::Connection followReadingChoice(QObject* receiver, std::function<void(long)> onChoice) override;

    bool isReadOnly() const;
    Q_INVOKABLE void setReadOnly(bool state);
    Q_INVOKABLE void setReadOnlyStyle();
    Q_INVOKABLE void clear();
    Q_INVOKABLE QString getFileName();

signals:
    void currentIndexChanged(int index);
    void guiSetEnum(long idx);
    void updateEnum(long idx);
    void guiRequestCorbaList();

public slots:
    void changeSize(const QString& size) override;
    virtual void displayInput();
    virtual void closeInput();
    virtual void setEnum(long idx);
    virtual void setIndex(int idx);
    virtual void submit(long idx);
    virtual void requestCorbaList();

protected:
    virtual void sendEnum(long idx);
    void setLockImageVisible(const bool& visible) override;

private:
    void dds_callback(const char* topic, int value);
    void dds_params_callback(const char* topic);
    static QString baseStyleSheet();
    static QString valueFieldStyle(int heightPx, int fontPx, bool embedded, bool lockImage);
    QString sizeStyle(const QString& size) const;

    QString m_baseStyle = baseStyleSheet();
    QString m_styleMax = valueFieldStyle(32, 20, false, false);
    QString m_embeddedStyleMax = valueFieldStyle(32, 20, true, false);
    QString m_styleMin = valueFieldStyle(25, 14, false, false);
    QString m_embeddedStyleMin = valueFieldStyle(25, 14, true, false);
    QString m_styleThumb = valueFieldStyle(37, 32, false, false);
    QString m_embeddedStyleThumb = valueFieldStyle(37, 32, true, false);
    QString m_disabledStyle;
    bool m_embedded = false;
    QLabel* m_valueField = nullptr;
    // The open list belongs to the screen it covers, which may go first.
    QPointer<ComboBoxListImpl> m_list;
    QString m_sizeWord;
    //! The engine's value as last confirmed; a worker reads it.
    std::atomic<long> m_lastEnum{0};
    bool m_readOnly = false;
};

#endif // COMBOBOXIMPL_H
