// Random input on a whole chart, with what must always hold checked after every event.
#include "gantt/qt/zuGant.h"
#include "support/Monkey.h"
#include "support/RecordingCanvas.h"

#include <QScrollBar>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

using namespace korvane;

namespace {

constexpr int kItems = 1000;
constexpr int kRows = 60;

class GantMonkey : public test::TMonkey
{
public:
    explicit GantMonkey(unsigned seed)
        : TMonkey(seed)
        , m_chart(std::make_unique<TzuGant>())
    {
        m_chart->resize(1000, 500);
        WireHandlers();
        TzuDataEntity_Tree *group = nullptr;
        for (int i = 0; i < kRows; ++i) {
            if (i % 6 == 0) {
                group = m_chart->AddRootDataEntityTree("Group");
                group->SetExpanded(true);
                m_nodes.push_back(group);
            } else {
                m_nodes.push_back(m_chart->AddDataEntityTree(group, "Row"));
            }
            RowOf(m_nodes.back())->SetCollisionDetection(i % 4 == 0);
        }
        while (static_cast<int>(m_items.size()) < kItems) {
            AddItem();
        }
        for (int i = 0; i < kItems / 4; ++i) {
            AddLink();
        }
        m_chart->show();
        QCoreApplication::processEvents();
    }

    std::string Complaint() override
    {
        for (const TzuDataEntity_Spanbar *item : m_items) {
            if (!(item->GetStartDateTime() <= item->GetStopDateTime())) {
                return "an item is inverted";
            }
        }
        for (int i = 0; i < m_chart->GetLinks().Count(); ++i) {
            const auto *link = static_cast<TzuDataEntity_Link *>(m_chart->GetLinks().GetItems(i));
            if (!IsLive(link->First()) || !IsLive(link->Second())) {
                return "a link refers to a freed item";
            }
        }
        for (const TzuDataEntity_Spanbar *item : m_chart->SelectedItems()) {
            if (!IsLive(item) || !item->GetSelected()) {
                return "the selection holds an item that is gone or not selected";
            }
        }
        if (m_chart->ActiveDataEntity() != nullptr && !IsLive(m_chart->ActiveDataEntity())) {
            return "the active item is freed";
        }
        return m_chart->GestureRunning() ? std::string() : ComplaintAtRest();
    }

private:
    std::string ComplaintAtRest() const
    {
        if (m_chart->GetMouseMoveMode() != TGantMouseMoveMode::mmNone) {
            return "a mode is left over";
        }
        test::TRecordingCanvas canvas{m_chart->GantArea().ClientArea()};
        m_chart->GantAreaPaintOverlay(canvas);
        return canvas.Calls().empty() ? std::string() : "an outline is left over";
    }

    bool IsLive(const TzuDataEntity_Spanbar *item) const { return m_live.contains(item); }
    TGantRow *RowOf(TzuDataEntity_Tree *node) const
    {
        return m_chart->GantRows().FindRowFromTreeNode(node);
    }
    void WireHandlers()
    {
        m_chart->OnInsertItem_Spanbar = [this](TObject *, TzuDataEntity *item) {
            m_items.push_back(&TimeDataEntity(*item));
            m_live.insert(m_items.back());
        };
        m_chart->OnDeleteItem_Spanbar = [this](TObject *, TzuDataEntity *item) {
            std::erase(m_items, item);
            m_live.erase(&TimeDataEntity(*item));
        };
        m_chart->OnDependencyAction = [this](TzuDataEntity_Spanbar *first,
                                             TzuDataEntity_Spanbar *second) {
            TzuDataEntity_Link &link = m_chart->AddLink();
            link.SetFirst(first);
            link.SetSecond(second);
        };
        const auto copy = [this](TzuGant_ComBasic *, TzuDataEntity_Spanbar *, TGantRow *,
                                 TGantRow *row, TDateTime start, TDateTime stop) {
            if (m_items.size() > 2 * kItems) {
                return; // copies of all items would double them again and again
            }
            TzuDataEntity_Spanbar *item = m_chart->AddSpanbarToGantRow(row, 0);
            item->SetStartDateTime(start);
            item->SetStopDateTime(stop);
        };
        m_chart->OnTimeCopy = copy;
        m_chart->OnTimeChangeRow = [this, copy](TzuGant_ComBasic *chart,
                                                TzuDataEntity_Spanbar *item, TGantRow *from,
                                                TGantRow *row, TDateTime start, TDateTime stop) {
            copy(chart, item, from, row, start, stop);
            if (Pick(1) == 0) {
                m_chart->RemoveSpanbar(item);
            }
        };
        m_chart->OnEndUserChange = [this](TzuGant_ComBasic *, TGantUserChange, bool changed) {
            m_changes += changed ? 1 : 0;
        };
    }

    QWidget *Target() const override
    {
        switch (m_part) {
        case 0:
            return &m_chart->DateScaler();
        case 1:
            return m_chart->Tree().viewport();
        default:
            return &m_chart->GantArea();
        }
    }

    QWidget *KeyTarget() override
    {
        return Pick(4) == 0   ? static_cast<QWidget *>(&m_chart->Tree())
               : Pick(4) == 0 ? static_cast<QWidget *>(&m_chart->DateScaler())
                              : &m_chart->GantArea();
    }

    void ChooseTarget() override
    {
        m_part = Pick(9);
        if (Pick(9) == 0) {
            m_chart->SetStickyMode(TGantStickyMode::smDependency);
        }
    }

    void ChoosePlace() override
    {
        m_at = AnyPlaceOn(m_chart->GantArea());
        const TzuDataEntity_Spanbar *item = AnyOf(m_items);
        if (item == nullptr || m_part < 2 || Pick(1) == 0) {
            return;
        }
        if (const auto rect = item->GetRow()->RectFromDataEntity(*item)) {
            m_at = AnyPlaceIn(*rect);
        }
    }

    void AddItem()
    {
        if (TzuDataEntity_Tree *node = AnyOf(m_nodes)) {
            TzuDataEntity_Spanbar *item = m_chart->AddSpanbar(node, Pick(2));
            item->SetStartDateTime(m_chart->Start() + Pick(300) * 0.1);
            item->SetStopDateTime(item->GetStartDateTime() + Pick(40) * 0.1);
            item->SetFixedSize(Pick(9) == 0 ? 9 : 0);
            item->DoInfoPush();
        }
    }

    void AddLink()
    {
        TzuDataEntity_Spanbar *first = AnyOf(m_items);
        TzuDataEntity_Spanbar *second = AnyOf(m_items);
        if (first != nullptr && second != nullptr) {
            TzuDataEntity_Link &link = m_chart->AddLink();
            link.SetFirst(first);
            link.SetSecond(second);
        }
    }

    void ChangeContent() override
    {
        TzuDataEntity_Spanbar *item = AnyOf(m_items);
        const int dice = Pick(9);
        if (dice < 3 || item == nullptr) {
            AddItem();
        } else if (dice < 6 && m_items.size() > kItems / 2) {
            m_chart->RemoveSpanbar(item);
        } else if (dice == 6) {
            AddLink();
        } else if (dice == 7 && m_chart->GetLinks().Count() > 0) {
            m_chart->GetLinks().Delete(Pick(m_chart->GetLinks().Count() - 1));
        } else if (dice == 8) {
            item->SetSelected(!item->GetSelected());
        } else if (Pick(200) == 0 && m_nodes.size() > kRows / 2) {
            RemoveLeaf();
        } else {
            item->SetVisible(Pick(3) > 0);
        }
    }

    void RemoveLeaf()
    {
        TzuDataEntity_Tree *node = AnyOf(m_nodes);
        if (node->ChildList()->Count() == 0) {
            std::erase(m_nodes, node);
            m_chart->Tree().RemoveDataEntity(node);
        }
    }

    void ChangeView() override
    {
        TzuDataEntity_Tree *node = AnyOf(m_nodes);
        switch (Pick(8)) {
        case 0:
            m_chart->resize(300 + Pick(900), 150 + Pick(500));
            break;
        case 1:
            node->SetExpanded(Pick(1) == 0);
            break;
        case 2:
            m_chart->VertScrollBar().setValue(Pick(kRows));
            break;
        case 3:
            SendEvent(m_chart->GantArea(), QEvent::Leave);
            break;
        case 4:
            SendEvent(m_chart->GantArea(), QEvent::WindowDeactivate);
            break;
        case 5:
            m_chart->GestureTick();
            m_chart->DateScaler().ScrollButtonPressed(nullptr);
            break;
        case 6:
            m_chart->SetScale(0.005 * (1 + Pick(60)));
            break;
        case 7:
            RowOf(node)->SetTimeItems_CanMove(Pick(3) > 0);
            RowOf(node)->SetTimeItems_CanChangeRow(Pick(3) > 0);
            RowOf(node)->SetTimeItems_CanResize(Pick(3) > 0);
            break;
        default:
            m_chart->GantArea().Repaint();
            break;
        }
    }

    std::vector<TzuDataEntity_Spanbar *> m_items;
    std::set<const TzuDataEntity_Spanbar *> m_live;
    std::vector<TzuDataEntity_Tree *> m_nodes;
    int m_part = 9;                   ///< 0: the axis, 1: the tree, else the area
    std::unique_ptr<TzuGant> m_chart; ///< goes first: its end still calls the handlers
};

TEST(GantMonkey, RandomInputNeverBreaksTheChart)
{
    test::LetPlay<GantMonkey>();
}

} // namespace
