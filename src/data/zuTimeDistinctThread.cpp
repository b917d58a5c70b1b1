#include "data/zuTimeDistinctThread.h"

#include "foundation/zuSynchronize.h"
#include "foundation/zuWorkerPool.h"

namespace korvane {

std::shared_ptr<TTimeDistinctGenericThread> TTimeDistinctGenericThread::Create()
{
    return std::shared_ptr<TTimeDistinctGenericThread>(new TTimeDistinctGenericThread);
}

void TTimeDistinctGenericThread::Resume()
{
    TWorkerPool::Shared().Run([self = shared_from_this()] { self->Execute(); });
}

void TTimeDistinctGenericThread::Execute()
{
    if (m_terminated) {
        return;
    }
    TTimeDistinctGeneric(m_holders, &m_terminated).ResolveConflicts();
    if (!m_terminated) {
        TSynchronize::Post([self = shared_from_this()] { self->DoOnDone(); });
    }
}

void TTimeDistinctGenericThread::DoOnDone()
{
    if (!m_terminated) {
        const TDone done = OnDone; // may be cleared by whom it calls
        done(this);
    }
}

} // namespace korvane
