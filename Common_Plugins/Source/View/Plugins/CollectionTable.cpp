#include "CollectionEntries.h"

#include "BatteryStatusIndicatorImpl.h"
#include "ComboBoxImpl.h"
#include "ConfirmationPushButton.h"
#include "ConfirmationToggleButtonImpl.h"
#include "ContainerImpl.h"
#include "FlagStatusImpl.h"
#include "HorizontalSliderImpl.h"
#include "MeterBarImpl.h"
#include "NumericEntryImpl.h"
#include "ProgressBar.h"
#include "StatusBarIcon.h"
#include "TabImpl.h"
#include "TableEnum.h"
#include "TableEnumMulti.h"
#include "TableImpl.h"
#include "TableViewImpl.h"
#include "TextEntryImpl.h"
#include "ToggleButtonImpl.h"
#include "VerticalSliderImpl.h"

// The factory column of CollectionTable.h.
#define RV_MADE_BY(Widget) [](QWidget* parent) -> QWidget* { return new Widget(parent); }
#define RV_NOT_IN_TREE nullptr

namespace {

// Designer shows the selector with a sample list, so that it looks filled.
QWidget* makeComboBox(QWidget* parent)
{
    auto* combo = new ComboBoxImpl(false, parent);
    combo->setList({{1, QStringLiteral("ENUM 01"), true},
                    {2, QStringLiteral("ENUM 02"), true},
                    {4, QStringLiteral("ENUM 04"), true}},
                   true);
    return combo;
}

} // namespace

// The scope column.
#define RV_QUALIFIED_KelvaneGui(entry) Kelvane::gui::entry
#define RV_QUALIFIED_TopLevel(entry) entry

namespace {

// Each entry class finds its row by its place in the table.
enum class RowOf {
#define RV_COLLECTION_ROW(scope, entry, ...) entry,
#include "CollectionTable.h"
#undef RV_COLLECTION_ROW
};

} // namespace

const std::vector<CollectionRow>& collectionRows()
{
    using Row = CollectionRow;
    static const std::vector<CollectionRow> rows{
#define RV_COLLECTION_ROW(scope, entry, name, group, includeFile, isContainer, toolTip, whatsThis, form, objectName,   \
                          listing, factory)                                                                            \
    {name, group, includeFile, isContainer, toolTip, whatsThis, Row::DomForm::form, objectName, Row::Listing::listing, \
     factory,                                                                                                          \
     [](QObject* parent) -> QDesignerCustomWidgetInterface* { return new RV_QUALIFIED_##scope(entry)(parent); }},
#include "CollectionTable.h"
#undef RV_COLLECTION_ROW
    };
    return rows;
}

#define RV_COLLECTION_ROW(scope, entry, ...)                                                                           \
    RV_QUALIFIED_##scope(entry)::entry(QObject* parent)                                                                \
        : CollectionEntry(collectionRows()[static_cast<size_t>(RowOf::entry)], parent)                                 \
    {                                                                                                                  \
    }
#include "CollectionTable.h"
#undef RV_COLLECTION_ROW
