#include "BrowserFilters.h"

#include "ComboBoxImpl.h"

#include <QFileSystemModel>

void BrowserFilters::setFilters(ComboBoxImpl* combo, const QString& filters)
{
    QList<ComboBoxListStruct> list;
    const QStringList parts = filters.split(QLatin1Char('|'), Qt::KeepEmptyParts);
    for (int i = 0; i < parts.size(); ++i)
        list << ComboBoxListStruct(i, parts.at(i), true);
    combo->setList(list, -1);
    combo->setEnum(0);
}

QString BrowserFilters::filters(const ComboBoxImpl* combo)
{
    QStringList texts;
    for (const ComboBoxListStruct& entry : combo->getList())
        texts << entry.text;
    return texts.join(QLatin1Char('|'));
}

void BrowserFilters::applyFilter(const ComboBoxImpl* combo, QFileSystemModel* model)
{
    const QString text = combo->getText();
    const int open = text.indexOf(QLatin1Char('('));
    const int close = text.indexOf(QLatin1Char(')'));
    if (open < 0 || close < 0)
        return;
    model->setNameFilters(QStringList{text.mid(open + 1, close - open - 1)});
}
