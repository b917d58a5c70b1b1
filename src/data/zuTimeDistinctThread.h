// Separation of overlapping intervals in the background.
#pragma once

#include "data/zuTimeDistinctGeneric.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <atomic>
#include <memory>

namespace korvane {

/// One separation that runs on a worker thread and hands its result back on the main thread.
///
/// It is created suspended: fill Holders, set OnDone, then Resume. Except for Execute it belongs to
/// the main thread, and while it runs nobody else may touch the holders. It keeps itself alive
/// until it is done; whoever started it lets go of it at any time, after Terminate.
class KORVANE_CORE_API TTimeDistinctGenericThread
    : public TObject,
      public std::enable_shared_from_this<TTimeDistinctGenericThread>
{
public:
    /// Called on the main thread.
    using TDone = TMethod<void(TTimeDistinctGenericThread *sender)>;

    /// Suspended; nothing runs before Resume.
    static std::shared_ptr<TTimeDistinctGenericThread> Create();

    /// To be filled before Resume and read in OnDone; the worker's in between.
    TDistinctTimeHolderList &Holders() { return m_holders; }
    /// Queues the work in the shared pool. Once only.
    void Resume();
    /// Makes the work stop early. OnDone is not called any more.
    void Terminate() { m_terminated = true; }
    /// Whether Terminate was called; on any thread.
    bool IsTerminated() const { return m_terminated; }

    /// The work itself: separates, then asks for DoOnDone unless terminated meanwhile.
    void Execute();
    /// Calls OnDone, unless terminated. Main thread.
    void DoOnDone();

    /// The sub-rows are found. Main thread.
    TDone OnDone;

private:
    TTimeDistinctGenericThread() = default;

    TDistinctTimeHolderList m_holders;
    std::atomic<bool> m_terminated = false;
};

} // namespace korvane
