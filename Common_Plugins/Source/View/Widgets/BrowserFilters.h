#ifndef BROWSERFILTERS_H
#define BROWSERFILTERS_H

#include <QString>

class ComboBoxImpl;
class QFileSystemModel;

/*!
  The file type list of the browsers: entries such as "Python Scripts (*.py)"
  in a selector, of which the current one filters the browser's model by
  the pattern in its brackets. Filtered files vanish rather than grey out.
*/
class BrowserFilters
{
public:
    //! One entry per "|"-separated part of \a filters, empty parts kept; the first is chosen.
    static void setFilters(ComboBoxImpl* combo, const QString& filters);
    //! The texts of all entries, joined with "|".
    static QString filters(const ComboBoxImpl* combo);
    /*!
      Gives \a model the text between the first "(" and the first ")" of the
      current entry as its one name filter, unsplit: "(*.py *.txt)" is one
      pattern with a blank in it. Without both brackets nothing changes.
    */
    static void applyFilter(const ComboBoxImpl* combo, QFileSystemModel* model);
};

#endif // BROWSERFILTERS_H
