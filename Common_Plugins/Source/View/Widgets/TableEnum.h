#ifndef TABLEENUM_H
#define TABLEENUM_H

#include "EnumTableBase.h"

#include <QModelIndex>

namespace Kelvane {
namespace gui {

/*!
  An enumerated engine setting shown as a table, one row per choice, on a
  white rounded panel; the row of the engine's current value is selected,
  and touching another row sends its value. With SplitCSVData each label is
  a comma-separated record that fills several columns. Binds an
  EngineAttribEnum: its value topic moves the selection, its params topic
  refills the table.
*/
class TableEnum : public EnumTableBase
{
    Q_OBJECT
    Q_PROPERTY(bool SplitCSVData READ getSplitByCSV WRITE setSplitByCSV)
    Q_PROPERTY(QString ColumnHeading READ getColumnHeading WRITE setColumnHeading)
    Q_PROPERTY(QString ColumnWidths READ getColumnWidths WRITE setColumnWidths)
    Q_PROPERTY(bool ReadOnly READ getReadOnly WRITE setReadOnly)

public:
    explicit TableEnum(QWidget* parent = nullptr);
    ~TableEnum() override;

    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    Q_INVOKABLE void setColumnHeading(const QString& name);
    QString getColumnHeading() const;
    //! Comma-separated percentages of the width left of the scroll bar, one per column.
    void setColumnWidths(const QString& widths);
    QString getColumnWidths() const;
    void setReadOnly(bool readOnly);
    bool getReadOnly() const;
    void setSplitByCSV(bool split);
    bool getSplitByCSV() const;

    Q_INVOKABLE QString getLiteral(long index);
    Q_INVOKABLE bool literalExists(const QString& str) const;
    Q_INVOKABLE int rowCount() const;

signals:
    void valueChanged(long index);
    void rowUpdate(int row);
    void synchronize();

public slots:
    void changeSize(const QString& size) override;
    void rowSelectedEvent(const QModelIndex& index);
    void syncTable();

protected:
    virtual void requestCorbaList();
    virtual void getCorbaValue();
    void setEnum(const long& value);
    void configureReadOnly(bool on);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void dds_callback(const char* topic, int value);
    void dds_params_callback(const char* topic);
    void followRow(int row);

    EnumColumn rowOfValue;
    bool splitCSV = false;
    QString columnWidths = QStringLiteral("100");
    bool readOnly = false;
    long currentValue = 0;
};

} // namespace gui
} // namespace Kelvane

#endif // TABLEENUM_H
