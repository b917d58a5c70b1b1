// Deferred release of data objects.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuLifeWatch.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Root of every data object. It is released in two steps: CleanForFree lets go of whatever refers
/// to it, then it is freed; FreeWheneverPossible does both and is the one way to release.
class KORVANE_CORE_API TzuExposable : public TObject, public TzuLifeWatched
{
public:
    TzuExposable() { Initialize(); }

    /// Detaches the object from lists, owners, selections and listeners.
    virtual void CleanForFree() = 0;

    /// Whether the object may be freed at once. Always true here.
    bool CanDelete() const { return true; }
    /// Cleans the object, then frees it. The object must live on the heap; it is gone afterwards.
    void FreeWheneverPossible();
    /// Frees the object when it can be, else marks it as waiting for release.
    /// Throws std::bad_cast when the object is not a TzuExposable.
    static void FreeCall(TObject *object);

    /// Whether FreeCall found that it could not be freed yet.
    bool FreeRequested() const { return m_freeRequested; }

private:
    void Initialize() {}

    bool m_freeRequested = false;
};

} // namespace korvane
