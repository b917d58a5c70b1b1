// The handler slots through which a data list tells its owner what happens to it.
#pragma once

#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

namespace korvane {

class TzuDataEntity;
class TzuDataList;

using TOnDataEntityNotify = TMethod<void(TzuDataEntity *theDataEntity)>;
using TOnDataListNotify = TMethod<void(TzuDataList *theDataList)>;
using TOnDataListDataEntityNotify =
    TMethod<void(TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
/// Less than, equal to or greater than 0 as the first entity stands before, with or after the
/// second.
using TOnEntityCompare = TMethod<int(TzuDataEntity *the1, TzuDataEntity *the2)>;
using TOnHandlePerformedMove =
    TMethod<void(TzuDataEntity *theDataEntity, int theOldIndex, int theNewIndex)>;
using TOnDataEntityUnloadNotify = TMethod<void(TzuDataEntity *theDataEntity, bool &canUnload)>;

/// Events of the components that hold lists.
using TOnContentChanged = TMethod<void(TObject *theCaller, TzuDataList *theDataList)>;
using TOnSelectionChanged =
    TMethod<void(TObject *theCaller, TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
using TOnDeleteItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnInsertItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnInfoPush = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnBeforeCanEditItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;

using TSelectedDataEntityEvent =
    TMethod<void(TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
using TFindFunc = TMethod<bool(TzuDataEntity *theDataEntity)>;

/// One controller serves any number of lists and outlives them; the component that made it owns it.
/// Empty slots are skipped. A handler may change, empty or release the list that it is called for.
class TzuListController : public TObject
{
public:
    /// Before an entity is freed; it is in its list no longer, but still knows it.
    TOnDataEntityNotify OnDeleteItem;
    TOnDataEntityNotify OnInsertItem;
    /// On the controller of the list that the entity came to.
    TOnDataEntityNotify OnAfterChangeOwner;
    /// On the controller of the list that the entity is about to leave.
    TOnDataEntityNotify OnBeforeChangeOwner;
    TOnEntityCompare OnEntityCompare;
    TOnHandlePerformedMove OnHandlePerformedMove;
    TOnDataListDataEntityNotify OnSelectionChanged;
    TOnDataListNotify OnContentChanged;
    TOnDataEntityNotify OnVisibleChanged;
    /// Before CanEdit is read; the handler may set it.
    TOnDataEntityNotify OnBeforeCanEditItem;
    TOnDataEntityNotify OnInfoPush;
    /// For each entity that came to be because its index was asked for.
    TOnDataEntityNotify OnLoadItem;
    /// Whether the entity may be dropped until it is asked for again; false on entry.
    TOnDataEntityUnloadNotify OnCanUnload;
    TOnDataListNotify OnCountChanged;
};

} // namespace korvane
