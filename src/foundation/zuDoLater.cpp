#include "foundation/zuDoLater.h"

#include <cstdio>
#include <list>
#include <unordered_map>
#include <utility>

namespace korvane {

namespace {

struct Entry
{
    TDoLaterCall Call;
    TObject *Parameter = nullptr;
    bool Running = false;
    /// Withdrawn while running: not kept for another run when the call throws, since what it is
    /// bound to may be gone.
    bool Withdrawn = false;
};

using EntryList = std::list<Entry>;

struct CallHash
{
    std::size_t operator()(const TDoLaterCall &call) const { return call.Hash(); }
};

/// The waiting entries in the order of the requests, the running ones (several when a call runs the
/// queue itself), and an index of both by call and parameter.
///
/// What leaves the queue is destroyed only when the queue is consistent again: a closure may own
/// objects that withdraw further calls in their destructors.
class Queue
{
public:
    Queue() = default;
    Queue(const Queue &) = delete;
    Queue &operator=(const Queue &) = delete;
    ~Queue();

    void SetTransport(TDoLaterTransport transport);

    Entry *Find(const TDoLaterCall &call, TObject *parameter);
    void Add(const TDoLaterCall &call, TObject *parameter);
    void Withdraw(const TDoLaterCall &call);
    void RunAll();
    void DestroyTarget() const { m_transport.Destroy(); }

private:
    using ByParameter = std::unordered_map<TObject *, EntryList::iterator>;

    void RunFirst();
    void Remove(EntryList &from, EntryList::iterator entry);

    EntryList m_waiting;
    EntryList m_running;
    std::unordered_map<TDoLaterCall, ByParameter, CallHash> m_index;
    TDoLaterTransport m_transport;
};

/// Set once the queue has been finalised; objects released even later may still cancel their calls.
bool s_finalised = false;

Queue &TheQueue()
{
    static Queue queue;
    return queue;
}

Queue::~Queue()
{
    while (!m_waiting.empty()) {
        try {
            RunAll();
        } catch (...) {
            // Nobody is left to handle it, and running it for ever would never end the process.
            std::fputs("A deferred call failed at the end of the process\n", stderr);
            Remove(m_waiting, m_waiting.begin());
        }
    }
    DestroyTarget();
    s_finalised = true;
}

void Queue::SetTransport(TDoLaterTransport transport)
{
    m_transport = std::move(transport);
    if (!m_waiting.empty()) {
        m_transport.Post(); // for what was queued before there was a way to tell
    }
}

Entry *Queue::Find(const TDoLaterCall &call, TObject *parameter)
{
    const auto byCall = m_index.find(call);
    if (byCall == m_index.end()) {
        return nullptr;
    }
    const auto found = byCall->second.find(parameter);
    return found == byCall->second.end() ? nullptr : &*found->second;
}

void Queue::Add(const TDoLaterCall &call, TObject *parameter)
{
    const auto [found, added] = m_index[call].try_emplace(parameter);
    if (!added) {
        found->second->Withdrawn = false;
        return;
    }
    found->second = m_waiting.insert(m_waiting.end(), {call, parameter});
    m_transport.Post();
}

void Queue::Withdraw(const TDoLaterCall &call)
{
    const auto byCall = m_index.find(call);
    if (byCall == m_index.end()) {
        return;
    }
    EntryList withdrawn;
    ByParameter running;
    for (const auto &[parameter, entry] : byCall->second) {
        if (entry->Running) {
            entry->Withdrawn = true;
            running.emplace(parameter, entry);
        } else {
            withdrawn.splice(withdrawn.end(), m_waiting, entry);
        }
    }
    if (running.empty()) {
        const auto node = m_index.extract(byCall);
    } else {
        byCall->second = std::move(running);
    }
}

void Queue::RunAll()
{
    while (!m_waiting.empty()) {
        RunFirst();
    }
}

void Queue::RunFirst()
{
    const auto entry = m_waiting.begin();
    m_running.splice(m_running.end(), m_waiting, entry);
    entry->Running = true;
    try {
        entry->Call(entry->Parameter);
    } catch (...) {
        entry->Running = false;
        if (entry->Withdrawn) {
            Remove(m_running, entry);
        } else {
            m_waiting.splice(m_waiting.begin(), m_running, entry);
        }
        throw;
    }
    Remove(m_running, entry);
}

void Queue::Remove(EntryList &from, EntryList::iterator entry)
{
    EntryList removed;
    removed.splice(removed.end(), from, entry);
    const auto byCall = m_index.find(entry->Call);
    byCall->second.erase(entry->Parameter);
    if (byCall->second.empty()) {
        const auto node = m_index.extract(byCall);
    }
}

} // namespace

void TDoLater::DoLater(const TDoLaterCall &call, TObject *parameter)
{
    if (!s_finalised) {
        TheQueue().Add(call, parameter);
    }
}

void TDoLater::NeverMind(const TDoLaterCall &call)
{
    if (!s_finalised) {
        TheQueue().Withdraw(call);
    }
}

void TDoLater::DoAllNow()
{
    if (!s_finalised) {
        TheQueue().RunAll();
    }
}

bool TDoLater::AlreadyInList(const TDoLaterCall &call, TObject *parameter)
{
    return !s_finalised && TheQueue().Find(call, parameter) != nullptr;
}

void TDoLater::FreeDoLaterWindow()
{
    if (!s_finalised) {
        TheQueue().DestroyTarget();
    }
}

void SetDoLaterTransport(TDoLaterTransport transport)
{
    if (!s_finalised) {
        TheQueue().SetTransport(std::move(transport));
    }
}

} // namespace korvane
