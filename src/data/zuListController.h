// The handler slots through which a data list tells its owner what happens to it.
#pragma once

#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

namespace korvane {

class TzuDataEntity;
class TzuDataList;

/// What happened to one entity.
using TOnDataEntityNotify = TMethod<void(TzuDataEntity *theDataEntity)>;
/// What happened to a whole list.
using TOnDataListNotify = TMethod<void(TzuDataList *theDataList)>;
/// What happened to an entity, as its list tells it.
using TOnDataListDataEntityNotify =
    TMethod<void(TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
/// Less than, equal to or greater than 0 as the first entity stands before, with or after the
/// second.
using TOnEntityCompare = TMethod<int(TzuDataEntity *the1, TzuDataEntity *the2)>;
/// The entity has been moved; both indexes count as before and after the move.
using TOnHandlePerformedMove =
    TMethod<void(TzuDataEntity *theDataEntity, int theOldIndex, int theNewIndex)>;
/// Asks whether the entity may be unloaded; `canUnload` is false on entry.
using TOnDataEntityUnloadNotify = TMethod<void(TzuDataEntity *theDataEntity, bool &canUnload)>;

/// Events of the components that hold lists; `theCaller` is the component, or the part of it that
/// holds the list.
using TOnContentChanged = TMethod<void(TObject *theCaller, TzuDataList *theDataList)>;
using TOnSelectionChanged =
    TMethod<void(TObject *theCaller, TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
using TOnDeleteItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnInsertItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnInfoPush = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;
using TOnBeforeCanEditItem = TMethod<void(TObject *theCaller, TzuDataEntity *theDataEntity)>;

/// Called for each selected entity; see IteratorOfSelectedDataEntities.
using TSelectedDataEntityEvent =
    TMethod<void(TzuDataList *theDataList, TzuDataEntity *theDataEntity)>;
/// Whether an entity is the one that is sought.
using TFindFunc = TMethod<bool(TzuDataEntity *theDataEntity)>;

/// One controller serves any number of lists and outlives them; the component that made it owns it.
/// Empty slots are skipped. A handler may change, empty or release the list that it is called for.
class TzuListController : public TObject
{
public:
    /// Before an entity is freed; it is in its list no longer, but still knows it.
    TOnDataEntityNotify OnDeleteItem;
    /// The entity is in its list. OnContentChanged follows.
    TOnDataEntityNotify OnInsertItem;
    /// On the controller of the list that the entity came to.
    TOnDataEntityNotify OnAfterChangeOwner;
    /// On the controller of the list that the entity is about to leave.
    TOnDataEntityNotify OnBeforeChangeOwner;
    /// The order of the list; without a handler it cannot be sorted.
    TOnEntityCompare OnEntityCompare;
    /// Move has brought an entity of the list to another index.
    TOnHandlePerformedMove OnHandlePerformedMove;
    /// Selected of an entity has changed; also when a new one comes up selected.
    TOnDataListDataEntityNotify OnSelectionChanged;
    /// After an entity came, went or changed owner, and after AddUnloaded and Sort. Not when an
    /// item that is not loaded is deleted, nor for loading and unloading.
    TOnDataListNotify OnContentChanged;
    /// An entity was hidden or shown.
    TOnDataEntityNotify OnVisibleChanged;
    /// Before CanEdit is read; the handler may set it.
    TOnDataEntityNotify OnBeforeCanEditItem;
    /// DoInfoPush was called: the values of the entity have changed.
    TOnDataEntityNotify OnInfoPush;
    /// For each entity that came to be because its index was asked for.
    TOnDataEntityNotify OnLoadItem;
    /// Whether the entity may be dropped until it is asked for again; false on entry.
    TOnDataEntityUnloadNotify OnCanUnload;
    /// After AddUnloaded and Clear.
    TOnDataListNotify OnCountChanged;
};

} // namespace korvane
