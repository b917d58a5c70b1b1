// Safety of pointers to rows, items and links that are kept from one event to the next.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantData.h"

namespace korvane {

/// Base of whoever keeps pointers to rows, items or links: it is told when one of them is freed,
/// also when its list unloads it without any event. Main thread only.
class KORVANE_CORE_API TGantDataKeeper
{
public:
    TGantDataKeeper(const TGantDataKeeper &) = delete;
    TGantDataKeeper &operator=(const TGantDataKeeper &) = delete;

protected:
    TGantDataKeeper();
    virtual ~TGantDataKeeper();

    /// From now on the release of the entity is told. Null is ignored.
    static void Keep(TzuDataEntity_Spanbar *item);
    static void Keep(TzuDataEntity_Link *link);
    static void Keep(TGantRow *row);

    /// The entity is being destroyed: its address alone may be used. It may be one that another
    /// keeper kept.
    virtual void _OnItemFreed(const TzuDataEntity_Spanbar * /*item*/) {}
    virtual void _OnLinkFreed(const TzuDataEntity_Link * /*link*/) {}
    virtual void _OnRowFreed(const TGantRow * /*row*/) {}

private:
    friend class TGantRow;
    friend class TzuDataEntity_Spanbar;
    friend class TzuDataEntity_Link;

    static void Freed(const TzuDataEntity_Spanbar *item);
    static void Freed(const TzuDataEntity_Link *link);
    static void Freed(const TGantRow *row);

    TGantDataKeeper *m_previous = nullptr;
    TGantDataKeeper *m_next;

    static TGantDataKeeper *s_first;
};

} // namespace korvane
