// Fonts and colours of the chart.
#include "PlanChart.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>

namespace korvane::planner {

void PlanChart::ApplyLooks()
{
    m_looks = ChartLooks(palette());
    BeginUpdate();
    SetGantBackColor(m_looks.Back);
    SetGantPyjamasColor(m_looks.Back); // plain: PaintGrid draws the lines
    SetDefaultLinkColor(m_looks.Link);
    DateScaler().SetColor(m_looks.Header);
    ApplyFonts();
    ColorItems();
    EndUpdate();
}

void PlanChart::ApplyFonts()
{
    constexpr int kLeastRowHeight = 24;
    constexpr int kRowSpare = 8;
    TFont font = FromQt(this->font());
    font.Size = std::max(7, QFontInfo(this->font()).pointSize());
    font.Color = m_looks.Text;
    Tree().SetFont(font);
    Tree().SetColor(m_looks.Back);
    m_tree->SetRowLineColor(m_looks.Grid);
    Tree().SetRowHeight(std::max(kLeastRowHeight, QFontMetrics(ToQt(font)).height() + kRowSpare));

    font.Size = std::max(7, font.Size - 1);
    TDateScalerCore &scaler = DateScaler();
    scaler.SetTextFont1(font);
    scaler.SetTextFont2(font);
    scaler.SetTextFont3(font);
    font.Color = Rgb(0x18, 0x1C, 0x22);
    SetFontTimeItemStyle(kDarkLabel, font);
    font.Color = Rgb(0xF6, 0xF7, 0xF9);
    SetFontTimeItemStyle(kLightLabel, font);
    font.Color = m_looks.MutedText;
    SetFontTimeItemStyle(kMutedLabel, font);
}

TColor PlanChart::ColorOf(const PlanTask &task) const
{
    if (task.Color) {
        return *task.Color;
    }
    if (task.IsSummary()) {
        return m_looks.Summary;
    }
    return task.Milestone ? m_looks.Milestone : m_looks.Task;
}

void PlanChart::ColorItems()
{
    for (std::size_t index = 0; index < m_items.size(); ++index) {
        const PlanTask &task = GetPlan().Tasks.at(index);
        const TaskItems &items = m_items.at(index);
        if (items.Bar == nullptr) {
            continue;
        }
        const TColor open = ColorOf(task);
        const TColor done = m_looks.Done(open);
        TzuDataList2lev &layers = items.Bar->GetRow()->Layers();
        for (int layer = 0; layer < layers.Count(); ++layer) {
            const TzuDataList &list = *layers.GetDataList(layer);
            for (int i = 0; i < list.LoadedCount(); ++i) {
                const bool isDone = layer == kDoneLayer || task.PercentComplete >= 100;
                TimeDataEntity(*list.GetLoaded(i)).SetColor(isDone ? done : open);
            }
        }
    }
    for (int i = 0; i < GetLinks().LoadedCount(); ++i) {
        static_cast<TzuDataEntity_Link *>(GetLinks().GetLoaded(i))->SetColor(m_looks.Link);
    }
    GantArea().Invalidate();
}

void PlanChart::changeEvent(QEvent *event)
{
    TzuGant::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ApplyLooks();
    }
}

} // namespace korvane::planner
