// The process-wide queue of deferred method calls.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// A call that is put off: the slot to call and nothing else; its argument is given when it is
/// queued.
using TDoLaterCall = TMethod<void(TObject *)>;

/// Runs calls when the thread's event loop next comes round, once per call and parameter however
/// often they were asked for. Main thread only. Whoever queues calls on itself withdraws them with
/// NeverMind in its destructor.
class KORVANE_CORE_API TDoLater
{
public:
    TDoLater() = delete;

    /// Queues `call(parameter)` unless an equal call with the same parameter is queued or running.
    static void DoLater(const TDoLaterCall &call, TObject *parameter = nullptr);
    /// Withdraws every queued entry of the call, whatever its parameter; a running entry finishes
    /// but is not kept for another run when it throws.
    static void NeverMind(const TDoLaterCall &call);
    /// Runs every queued call in the order of the requests, those queued meanwhile included. When a
    /// call throws, its entry stays first in the queue and the next DoAllNow runs it again. Called
    /// from a running call, it runs the others only. What is still queued when the process ends is
    /// run then.
    static void DoAllNow();
    /// Whether an equal call with the identical parameter is queued or running.
    static bool AlreadyInList(const TDoLaterCall &call, TObject *parameter);
    /// The equality by which calls are merged.
    static bool CompareMethodPointer(const TDoLaterCall &a, const TDoLaterCall &b)
    {
        return a == b;
    }
    /// Releases the toolkit's message target, if there is one; the next DoLater makes a new one.
    static void FreeDoLaterWindow();
};

/// How the queue reaches the event loop. The toolkit half installs it; without one the queue runs
/// only through DoAllNow.
struct TDoLaterTransport
{
    /// Arranges for DoAllNow to run on the main thread after the current event. Called once per
    /// accepted request.
    TMethod<void()> Post;
    /// Destroys the message target.
    TMethod<void()> Destroy;
};

/// Replaces the transport. Main thread only.
KORVANE_CORE_API void SetDoLaterTransport(TDoLaterTransport transport);

} // namespace korvane
