// The widget collection, one row per entry class, in registration order.
// No include guard: each includer defines RV_COLLECTION_ROW to make one
// thing of every row (the entry classes in CollectionEntries.h, the rows and
// the constructors in CollectionTable.cpp).
//
// RV_COLLECTION_ROW(scope, entry class,
//                   name(), group(), includeFile(), isContainer(),
//                   toolTip(), whatsThis(),
//                   domXml form, object name in the form,
//                   listing, widget factory)
//
// scope is KelvaneGui for Kelvane::gui, TopLevel for the global namespace.
// A row stays out of the collection while its factory is RV_NOT_IN_TREE.
// When the widget arrives, its factory becomes RV_MADE_BY(Class) for a
// constructor taking the parent alone, or a factory function defined in
// CollectionTable.cpp, which also includes the widget's header.
// StatusBarIconPlugin stays NeverListed: no palette offers that widget.

RV_COLLECTION_ROW(KelvaneGui, BatteryStatusIndicatorPlugin,
    "Kelvane::gui::BatteryStatusIndicatorImpl", "GPS Plugins", "BatteryStatusIndicatorImpl.h", true,
    "A Battery Status Indicator", "A Battery Status Indicator",
    B, "BatteryStatusIndicatorImpl", Listed, RV_MADE_BY(Kelvane::gui::BatteryStatusIndicatorImpl))

// Made as ComboBoxImpl(false, parent) with the sample list (1, "ENUM 01"),
// (2, "ENUM 02"), (4, "ENUM 04"), all true, given to setList(list, true).
RV_COLLECTION_ROW(TopLevel, ComboBoxPlugin,
    "ComboBoxImpl", "Ruvell", "ComboBoxImpl.h", false,
    "ComboBox", "Combobox with a populated list",
    A, "ComboBox", Listed, makeComboBox)

RV_COLLECTION_ROW(TopLevel, ConfirmationPushButtonPlugin,
    "ConfirmationPushButtonImpl", "Ruvell", "ConfirmationPushButton.h", false,
    "ConfirmationPushButton", "Push Button with Message Box confirmation before sending clicked() event",
    A, "ConfirmationPushButton", Listed, RV_MADE_BY(ConfirmationPushButtonImpl))

RV_COLLECTION_ROW(TopLevel, ConfirmationToggleButtonPlugin,
    "ConfirmationToggleButtonImpl", "Ruvell", "ConfirmationToggleButtonImpl.h", false,
    "ConfirmationToggleButton", "Toggle Button with Message Box confirmation before sending pressed() event",
    A, "ConfirmationToggleButton", Listed, RV_MADE_BY(ConfirmationToggleButtonImpl))

RV_COLLECTION_ROW(TopLevel, ContainerPlugin,
    "ContainerImpl", "Ruvell", "ContainerImpl.h", true,
    "Custom widget for Containers", "Custom widget for Containers",
    C, "containerimpl", Listed, RV_MADE_BY(ContainerImpl))

RV_COLLECTION_ROW(TopLevel, FlagStatusPlugin,
    "FlagStatusImpl", "Ruvell", "FlagStatusImpl.h", false,
    "FlagStatus", "Read only status widget",
    A, "FlagStatus", Listed, RV_MADE_BY(FlagStatusImpl))

RV_COLLECTION_ROW(KelvaneGui, GroupBoxPlugin,
    "Kelvane::gui::GroupBoxImpl", "Ruvell", "GroupBoxImpl.h", true,
    "A Group Box", "A Ruvell Group Box",
    B, "GroupBox", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(KelvaneGui, HorizontalSliderPlugin,
    "Kelvane::gui::HorizontalSliderImpl", "Ruvell", "HorizontalSliderImpl.h", false,
    "A Horizontal Slider", "A Ruvell Horizontal Slider",
    B, "HSlider", Listed, RV_MADE_BY(Kelvane::gui::HorizontalSliderImpl))

RV_COLLECTION_ROW(TopLevel, MeterBarPlugin,
    "MeterBarImpl", "Ruvell", "MeterBarImpl.h", false,
    "MeterBar", "Meter that can be customized",
    A, "MeterBar", Listed, RV_MADE_BY(MeterBarImpl))

// Made as NumericEntryImpl(parent, empty string, null list pointer).
RV_COLLECTION_ROW(TopLevel, NumericEntryPlugin,
    "NumericEntryImpl", "Ruvell", "NumericEntryImpl.h", false,
    "NumericEntry", "Numeric entry with keypad, slider, etc.",
    A, "NumericEntry", Listed, RV_MADE_BY(NumericEntryImpl))

RV_COLLECTION_ROW(TopLevel, PlotPlugin,
    "Kelvane::gui::PlotManagerImpl", "Ruvell", "PlotManagerImpl.h", false,
    "Custom widget plot", "Custom widget plot",
    A, "PlotManager", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, PlotScalePlugin,
    "Kelvane::gui::PlotScale", "Ruvell", "PlotScale.h", false,
    "Custom widget for plot scales", "Custom widget for plot scales",
    D, "PlotScale", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, ProgressBarPlugin,
    "ProgressBar", "Ruvell", "ProgressBar.h", false,
    "ProgressBar", "Progress bar",
    A, "ProgressBar", Listed, RV_MADE_BY(ProgressBar))

RV_COLLECTION_ROW(TopLevel, SaveTraceButtonPlugin,
    "SaveTraceButton", "Ruvell", "SaveTraceButtonPlugin.h", false,
    "SaveTraceButton", "Saves trace",
    A, "SaveTraceButton", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, TabPlugin,
    "TabImpl", "Ruvell", "TabImpl.h", true,
    "A Tab Widget", "A Ruvell Tab Widget",
    B, "Tab", Listed, RV_MADE_BY(TabImpl))

RV_COLLECTION_ROW(KelvaneGui, TableEnumPlugin,
    "Kelvane::gui::TableEnum", "Ruvell", "TableEnum.h", false,
    "A Table Enum View", "A Ruvell Table Enum View",
    B, "TableEnum", Listed, RV_MADE_BY(Kelvane::gui::TableEnum))

RV_COLLECTION_ROW(KelvaneGui, TableEnumMultiPlugin,
    "Kelvane::gui::TableEnumMulti", "Ruvell", "TableEnumMulti.h", false,
    "A Table Enum Multi View", "A Ruvell Table Enum Multiple Columns View",
    B, "CustomWidget_TableEnumMulti", Listed, RV_MADE_BY(Kelvane::gui::TableEnumMulti))

RV_COLLECTION_ROW(KelvaneGui, TablePlugin,
    "Kelvane::gui::TableImpl", "Ruvell", "TableImpl.h", false,
    "A Table", "A Ruvell Table",
    B, "Table", Listed, RV_MADE_BY(Kelvane::gui::TableImpl))

RV_COLLECTION_ROW(KelvaneGui, TableViewPlugin,
    "Kelvane::gui::TableViewImpl", "Ruvell", "TableViewImpl.h", false,
    "A Table View", "A Ruvell Table View",
    B, "Table View", Listed, RV_MADE_BY(Kelvane::gui::TableViewImpl))

// Made as TextEntryImpl(parent, empty string, false).
RV_COLLECTION_ROW(TopLevel, TextEntryPlugin,
    "TextEntryImpl", "Ruvell", "TextEntryImpl.h", false,
    "TextEntry", "Entry widget with onscreen keyboard",
    A, "TextEntry", Listed, RV_MADE_BY(TextEntryImpl))

RV_COLLECTION_ROW(TopLevel, TimeDatePlugin,
    "TimeDate", "Ruvell", "TimeDate.h", false,
    "TimeDate", "Time and Date widget.",
    A, "TimeDate", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, ToggleButtonPlugin,
    "ToggleButtonImpl", "Ruvell", "ToggleButtonImpl.h", false,
    "Togglebutton", "On/Off toggle button with wait states",
    A, "ToggleButton", Listed, RV_MADE_BY(ToggleButtonImpl))

// The keyboard text of the text entry is this entry's own, as it stands.
RV_COLLECTION_ROW(TopLevel, TranslatableLabelPlugin,
    "TranslatableLabel", "Ruvell", "TranslatableLabel.h", false,
    "TranslatableLabel", "Entry widget with onscreen keyboard",
    A, "TranslatableLabel", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(KelvaneGui, VerticalSliderPlugin,
    "Kelvane::gui::VerticalSliderImpl", "Ruvell", "VerticalSliderImpl.h", false,
    "A Vertical Slider", "A Ruvell Vertical Slider",
    B, "Vertical Slider", Listed, RV_MADE_BY(Kelvane::gui::VerticalSliderImpl))

RV_COLLECTION_ROW(KelvaneGui, WebBrowserPlugin,
    "Kelvane::gui::WebBrowser", "Ruvell", "WebBrowser.h", false,
    "WebBrowser", "Custom widget web browser",
    A, "WebBrowser", Listed, RV_NOT_IN_TREE)

// Made as Kelvane::gui::CheckBoxImpl(parent, "CheckBox").
RV_COLLECTION_ROW(KelvaneGui, CheckBoxPlugin,
    "Kelvane::gui::CheckBoxImpl", "Ruvell", "CheckBoxImpl.h", false,
    "A CheckBox", "A Ruvell CheckBox",
    B, "CheckBox", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, SimpleScrollAreaPlugin,
    "SimpleScrollArea", "Ruvell", "SimpleScrollArea.h", false,
    "SimpleScrollArea", "SimpleScrollArea with a custom vertical scroll bar",
    A, "SimpleScrollArea", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, TimeImplPlugin,
    "TimeImpl", "Ruvell", "TimeImpl.h", false,
    "TimeImpl", "Time widget",
    A, "TimeImpl", Listed, RV_NOT_IN_TREE)

// Calls itself a time widget, as it stands.
RV_COLLECTION_ROW(TopLevel, DateImplPlugin,
    "DateImpl", "Ruvell", "DateImpl.h", false,
    "DateImpl", "Time widget",
    A, "DateImpl", Listed, RV_NOT_IN_TREE)

RV_COLLECTION_ROW(TopLevel, StatusBarIconPlugin,
    "StatusBarIcon", "Ruvell", "StatusBarIcon.h", false,
    "StatusBarIcon", "An icon that appears in the status bar",
    A, "StatusBarIcon", NeverListed, RV_MADE_BY(StatusBarIcon))
