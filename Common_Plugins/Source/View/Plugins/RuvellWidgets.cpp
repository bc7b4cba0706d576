#include "RuvellWidgets.h"

#include "CollectionEntry.h"

namespace Kelvane::gui {

RuvellWidgets::RuvellWidgets(QObject* parent)
    : QObject(parent)
{
    for (const CollectionRow& row : collectionRows()) {
        if (row.isRegistered())
            m_widgets.append(row.createEntry(this));
    }
}

QList<QDesignerCustomWidgetInterface*> RuvellWidgets::customWidgets() const
{
    return m_widgets;
}

} // namespace Kelvane::gui

// qt_plugin_instance comes from Q_PLUGIN_METADATA: moc's instance function
// keeps one parentless collection in a function-local QPointer and makes a
// new one when that was deleted.

// The text a Qt 4 plugin loader checks before it resolves anything else; Qt 5
// ignores it, so it states the Qt this library was built against.
#if defined(Q_PROCESSOR_X86_64)
#define RV_BUILD_ARCH "x86_64"
#elif defined(Q_PROCESSOR_ARM_64)
#define RV_BUILD_ARCH "arm64"
#elif defined(Q_PROCESSOR_ARM)
#define RV_BUILD_ARCH "arm"
#elif defined(Q_PROCESSOR_X86_32)
#define RV_BUILD_ARCH "i386"
#else
#define RV_BUILD_ARCH "unknown"
#endif

#if defined(Q_OS_LINUX)
#define RV_BUILD_OS "linux"
#else
#define RV_BUILD_OS "unknown"
#endif

#define RV_STRINGIFY_(x) #x
#define RV_STRINGIFY(x) RV_STRINGIFY_(x)
#if defined(Q_CC_CLANG)
#define RV_BUILD_COMPILER "clang"
#elif defined(Q_CC_GNU)
#define RV_BUILD_COMPILER "g++-" RV_STRINGIFY(__GNUC__)
#else
#define RV_BUILD_COMPILER "unknown"
#endif

extern "C" Q_DECL_EXPORT const char* qt_plugin_query_verification_data()
{
    // Debug stays false: the Qt this links is a release build.
    static const char data[] = "pattern=QT_PLUGIN_VERIFICATION_DATA\n"
                               "version=" QT_VERSION_STR "\n"
                               "debug=false\n"
                               "buildkey=" RV_BUILD_ARCH " " RV_BUILD_OS " " RV_BUILD_COMPILER " full-config";
    return data;
}
