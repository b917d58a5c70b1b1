// The sub-rows of a row whose items are kept from overlapping.
#include "data/zuTimeDistinctThread.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"
#include "gantt/zuGant.h"
#include "gantt/zuGantRow.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace korvane {

namespace {

/// What separates the items of one layer from those of another.
std::string KeyOf(const TzuDataList &layer)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(&layer));
}

} // namespace

void TGantRow::SetCollisionDetection(bool on)
{
    if (on == m_collisionDetection) {
        return;
    }
    m_collisionDetection = on;
    UpdateSubColumns();
    if (!on) {
        StopSeparation();
        m_useSubCols = 0;
    }
    m_gant.Host().InvalidateArea();
}

void TGantRow::SetOneGroup(bool on)
{
    if (std::exchange(m_oneGroup, on) != on) {
        UpdateSubColumns();
    }
}

void TGantRow::UpdateSubColumns()
{
    if (m_collisionDetection) {
        TDoLater::DoLater(TDoLaterCall::Bind<&TGantRow::UpdateSubColumnsAsync>(this));
    }
}

void TGantRow::StopSeparation()
{
    TDoLater::NeverMind(TDoLaterCall::Bind<&TGantRow::UpdateSubColumnsAsync>(this));
    if (m_separation != nullptr) {
        m_separation->Terminate();
        m_separation->OnDone = {};
        m_separation.reset();
    }
}

void TGantRow::UpdateSubColumnsAsync(TObject * /*sender*/)
{
    try {
        StopSeparation();
        auto separation = TTimeDistinctGenericThread::Create();
        separation->OnDone =
            TTimeDistinctGenericThread::TDone::Bind<&TGantRow::TimeDistinctThreadDone>(this);
        for (int layer = 0; layer < m_layers->Count(); ++layer) {
            FillHolders(*m_layers->GetDataList(layer), separation->Holders());
        }
        m_separation = std::move(separation);
        m_separation->Resume();
    } catch (const std::exception &error) {
        Report("UpdateSubColumns exception:" + std::string(error.what()));
    }
}

void TGantRow::FillHolders(TzuDataList &layer, TDistinctTimeHolderList &holders) const
{
    const std::string key = m_oneGroup ? std::string() : KeyOf(layer);
    for (int i = 0; i < layer.Count(); ++i) {
        if (auto *item = static_cast<TzuDataEntity_Spanbar *>(layer.GetItems(i))) {
            holders.Add(NearestSecond(item->GetStartDateTime()),
                        NearestSecond(item->GetStopDateTime()), key, item);
        }
    }
}

void TGantRow::TimeDistinctThreadDone(TTimeDistinctGenericThread *sender)
{
    // Kept alive: a handler may ask for the next separation, or free the row.
    const std::shared_ptr<TTimeDistinctGenericThread> separation = sender->shared_from_this();
    const TzuLifeWatch alive(*this);
    try {
        TellCollisions(separation->Holders());
        if (alive && m_separation == separation) {
            ApplySubCols(separation->Holders());
        }
    } catch (const std::exception &error) {
        Report("TimeDistinctThreadDone:" + std::string(error.what()));
    }
    if (alive && m_separation == separation) {
        m_separation->OnDone = {};
        m_separation.reset();
    }
}

/// Calls visit(item, sub-row) for every item of the row that was placed, layer by layer. The calls
/// may change the row or free it.
template <typename Visitor>
void TGantRow::VisitPlaced(TDistinctTimeHolderList &holders, const Visitor &visit)
{
    const TzuLifeWatch alive(*this);
    for (int layer = 0; alive && layer < m_layers->Count(); ++layer) {
        for (int i = 0; alive && layer < m_layers->Count(); ++i) {
            TzuDataList &items = *m_layers->GetDataList(layer);
            if (i >= items.Count()) {
                break;
            }
            auto *item = static_cast<TzuDataEntity_Spanbar *>(items.GetItems(i));
            if (const TDistinctTimeHolder *holder = holders.FindFromReference(item)) {
                visit(*item, holder->SubCol);
            }
        }
    }
}

void TGantRow::TellCollisions(TDistinctTimeHolderList &holders)
{
    if (!m_gant.OnCollisionDetected) {
        return;
    }
    VisitPlaced(holders, [this](TzuDataEntity_Spanbar &item, int subCol) {
        if (subCol != item.SubCol()) {
            m_gant.OnCollisionDetected(m_gant.Component(), &item, subCol);
        }
    });
}

void TGantRow::ApplySubCols(TDistinctTimeHolderList &holders)
{
    int most = 0;
    VisitPlaced(holders, [&most](TzuDataEntity_Spanbar &item, int subCol) {
        item.SetSubCol(subCol);
        most = std::max(most, subCol);
    });
    m_useSubCols = most;
    m_gant.Host().InvalidateArea();
}

} // namespace korvane
