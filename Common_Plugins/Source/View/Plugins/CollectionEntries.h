#ifndef COLLECTIONENTRIES_H
#define COLLECTIONENTRIES_H

#include "CollectionEntry.h"

/*
  The thirty named entry classes, one per row of CollectionTable.h. Each
  only picks its row; hosts reach them through their designer interface,
  so they carry no meta-object of their own.
*/

#define RV_ENTRY_CLASS(entry)                                                                                          \
    class entry final : public CollectionEntry                                                                         \
    {                                                                                                                  \
    public:                                                                                                            \
        explicit entry(QObject* parent = nullptr);                                                                     \
    };
#define RV_ENTRY_IN_KelvaneGui(entry)                                                                                  \
    namespace Kelvane::gui {                                                                                           \
    RV_ENTRY_CLASS(entry)                                                                                              \
    }
#define RV_ENTRY_IN_TopLevel(entry) RV_ENTRY_CLASS(entry)
#define RV_COLLECTION_ROW(scope, entry, ...) RV_ENTRY_IN_##scope(entry)
#include "CollectionTable.h"
#undef RV_COLLECTION_ROW
#undef RV_ENTRY_IN_TopLevel
#undef RV_ENTRY_IN_KelvaneGui
#undef RV_ENTRY_CLASS

#endif // COLLECTIONENTRIES_H
