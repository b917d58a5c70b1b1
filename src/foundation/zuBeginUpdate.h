// A lazy update bracket.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Opens an update when the first real change is marked and closes it at its own end, so that a
/// pass that changes nothing costs nothing and any number of changes cost one update.
class KORVANE_CORE_API TzuBeginUpdate : public TObject
{
public:
    /// Either may be empty. `onEnd` runs in the destructor and must not throw.
    TzuBeginUpdate(TMethod<void()> onBegin, TMethod<void()> onEnd);
    /// Calls `onEnd` if a change was marked.
    ~TzuBeginUpdate() override;

    /// Whether `onBegin` has run.
    bool Marked() const { return m_marked; }
    /// To be called just before each change. When `onBegin` throws, nothing counts as marked.
    void Mark();

private:
    bool m_marked = false;
    TMethod<void()> m_onBegin;
    TMethod<void()> m_onEnd;
};

} // namespace korvane
