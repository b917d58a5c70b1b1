// Random input on a whole schedule, with what must always hold checked after every event.
#include "foundation/qt/zuXYSizer.h"
#include "schema/qt/zuSchema.h"
#include "support/Monkey.h"
#include "support/RecordingCanvas.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <vector>

using namespace korvane;

namespace {

constexpr int kTimes = 300;
constexpr int kColumns = 12;
constexpr TDateTime kFirstDay = 40000;

class SchemaMonkey : public test::TMonkey
{
public:
    explicit SchemaMonkey(unsigned seed)
        : TMonkey(seed)
        , m_schema(std::make_unique<TzuSchema>())
    {
        m_schema->resize(700, 500);
        m_schema->DateScaler().SetRange(kFirstDay, kFirstDay + 1);
        WireHandlers();
        for (int i = 0; i < kColumns; ++i) {
            AddColumn();
        }
        while (static_cast<int>(m_times.size()) < kTimes) {
            AddTime();
        }
        m_schema->show();
        QCoreApplication::processEvents();
    }

    std::string Complaint() override
    {
        for (const TzuDataEntity_SchemaTime *time : m_times) {
            if (!(time->GetStartDateTime() <= time->GetStopDateTime())) {
                return "a time is inverted";
            }
        }
        for (const TzuDataEntity_SchemaTime *time : m_schema->SelectedTimes()) {
            if (!m_live.contains(time) || !time->GetSelected()) {
                return "the selection holds a time that is gone or not selected";
            }
        }
        const auto *active = m_schema->GetActiveDataEntity();
        if (active != nullptr && !m_live.contains(active)) {
            return "the active time is gone";
        }
        for (int i = 0; i < m_schema->Columns().Count(); ++i) {
            const auto &column = m_schema->Columns().GetCol(i);
            if ((column.GetWidth() == 0) != (i < m_schema->Columns().TopLeftCol())) {
                return "a column is shown and scrolled away at once";
            }
        }
        if (m_schema->GestureRunning()) {
            return {};
        }
        test::TRecordingCanvas canvas{m_schema->SchemaArea().ClientArea()};
        m_schema->SchemaPaintOverlay(canvas);
        return canvas.Calls().empty() ? std::string() : "an outline is left over";
    }

private:
    void WireHandlers()
    {
        m_schema->OnInsertItem_SchemaTime = [this](TObject *, TzuDataEntity *item) {
            m_times.push_back(&DataEntity_Schema(*item));
            m_live.insert(m_times.back());
        };
        m_schema->OnDeleteItem_SchemaTime = [this](TObject *, TzuDataEntity *item) {
            std::erase(m_times, item);
            m_live.erase(&DataEntity_Schema(*item));
        };
        m_schema->OnTimeCopy = [this](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *, int col,
                                      TDateTime start, TDateTime stop) {
            if (m_times.size() < 2 * kTimes) {
                Fill(*m_schema->AddSchemaTime(0), col, start, stop);
            }
        };
        m_schema->OnSwitchCol = [this](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *time, int,
                                       int) {
            if (Pick(9) == 0) {
                m_schema->RemoveSchemaTime(time);
            }
        };
        m_schema->OnAskDelete = [this](auto *, const auto &, bool &allow) {
            allow = m_times.size() > kTimes / 2;
        };
        m_schema->OnEndUserChange = [this](TzuSchema_ComBasic *, TSchemaUserChange, bool changed) {
            m_changes += changed ? 1 : 0;
        };
    }

    static void Fill(TzuDataEntity_SchemaTime &time, int col, TDateTime start, TDateTime stop)
    {
        time.SetCol(col);
        time.SetStartDateTime(start);
        time.SetStopDateTime(stop);
    }
    void AddColumn()
    {
        TzuDataEntity_SchemaColumn *column = m_schema->AddColumn();
        column->SetText("Column");
        column->BaseDate = m_schema->Columns().Count() % 3 == 0 ? 1 : 0;
    }
    void AddTime()
    {
        const TDateTime start = kFirstDay + Pick(100) * 0.01;
        Fill(*m_schema->AddSchemaTime(Pick(2)), Pick(kColumns) - 1, start, start + Pick(20) * 0.01);
    }

    QWidget *Target() const override
    {
        const std::array<QWidget *, 4> parts{
            &m_schema->DateScaler(),
            m_schema->FlipView() ? static_cast<QWidget *>(&m_schema->FlippedHeader())
                                 : &m_schema->Header(),
            &m_schema->Sizer(), &m_schema->SchemaArea()};
        return parts[static_cast<std::size_t>(std::min(m_part, 3))];
    }
    QWidget *KeyTarget() override { return Pick(4) == 0 ? Target() : &m_schema->SchemaArea(); }
    void ChooseTarget() override { m_part = Pick(12); }

    void ChoosePlace() override
    {
        m_at = AnyPlaceOn(*Target());
        TzuDataEntity_SchemaTime *time = AnyOf(m_times);
        if (time == nullptr || m_part < 3 || Pick(1) == 0) {
            return;
        }
        if (const auto rect = m_schema->RectFromDataEntity(*time); rect && !rect->IsEmpty()) {
            m_at = AnyPlaceIn(*rect);
        }
    }

    void ChangeContent() override
    {
        TzuDataEntity_SchemaTime *time = AnyOf(m_times);
        TDataListColumns &columns = m_schema->Columns();
        const int dice = Pick(9);
        if (dice < 3 || time == nullptr) {
            AddTime();
        } else if (dice < 6 && m_times.size() > kTimes / 2) {
            m_schema->RemoveSchemaTime(time);
        } else if (dice == 6) {
            time->SetSelected(!time->GetSelected());
        } else if (dice == 7) {
            time->SetVisible(Pick(3) > 0);
        } else if (Pick(1) == 0 && columns.Count() > 2) {
            m_schema->RemoveColumn(&columns.GetCol(Pick(columns.Count() - 1)));
        } else if (columns.Count() < 2 * kColumns) {
            AddColumn();
        }
    }

    void ChangeView() override
    {
        switch (Pick(9)) {
        case 0:
            m_schema->resize(100 + Pick(900), 100 + Pick(500));
            break;
        case 1:
            m_schema->SetFlipView(Pick(1) == 0);
            break;
        case 2:
            m_schema->Columns().SetTopLeftCol(Pick(kColumns));
            break;
        case 3:
            SendEvent(m_schema->SchemaArea(), QEvent::Leave);
            break;
        case 4:
            SendEvent(m_schema->SchemaArea(), QEvent::WindowDeactivate);
            break;
        case 5:
            m_schema->GestureTick();
            m_schema->DateScaler().ScrollButtonPressed(nullptr);
            break;
        case 6:
            m_schema->DateScaler().SetRange(kFirstDay, kFirstDay + 0.1 * (1 + Pick(30)));
            break;
        case 7:
            m_schema->SetMoveInTimeWhenColSwitch(Pick(1) == 0);
            m_schema->SetCollisionDetectBetweenDataList(Pick(3) == 0);
            break;
        case 8:
            m_schema->SetLeastSubColWidth(Pick(1) * 30);
            m_schema->SetLeastTimeLength(Pick(1) * 20);
            m_schema->SetSnapMovedEndsOnly(Pick(1) == 0);
            m_schema->SetCollisionDetect(Pick(3) > 0);
            break;
        default:
            m_schema->SchemaArea().Repaint();
            break;
        }
    }

    std::vector<TzuDataEntity_SchemaTime *> m_times;
    std::set<const TzuDataEntity_SchemaTime *> m_live;
    int m_part = 9; ///< 0: the axis, 1: the header, 2: the sizer, else the area
    std::unique_ptr<TzuSchema> m_schema; ///< goes first: its end still calls the handlers
};

TEST(SchemaMonkey, RandomInputNeverBreaksTheSchedule)
{
    test::LetPlay<SchemaMonkey>();
}

} // namespace
