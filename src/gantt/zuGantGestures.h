// What the mouse does in the area of a Gantt chart.
#pragma once

#include "gantt/zuGantSelection.h"

namespace korvane {

/// Adds the mouse gestures to the chart.
class TGantGestures : public TGantSelection
{
public:
    using TGantSelection::TGantSelection;

    TOnBeginUserChange OnBeginUserChange;
    TOnEndUserChange OnEndUserChange;

protected:
    /// Runs `body`, which tells whether it has changed anything, between OnBeginUserChange and
    /// OnEndUserChange. Within another one it only runs. When `body` throws, the end is told that
    /// there may be changes, and the exception goes on.
    template <typename Body>
    void AsUserChange(TGantUserChange kind, const Body &body);

private:
    void BeginUserChange(TGantUserChange kind);
    void EndUserChange(TGantUserChange kind, bool changed);

    int m_userChanges = 0; ///< nesting of AsUserChange
};

template <typename Body>
void TGantGestures::AsUserChange(TGantUserChange kind, const Body &body)
{
    BeginUserChange(kind);
    bool changed = true;
    try {
        changed = body();
    } catch (...) {
        EndUserChange(kind, true);
        throw;
    }
    EndUserChange(kind, changed);
}

} // namespace korvane
