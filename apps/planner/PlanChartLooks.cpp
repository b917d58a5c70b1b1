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
    const int textHeight = QFontMetrics(ToQt(font)).height();
    Tree().SetRowHeight(std::max(kLeastRowHeight, textHeight + kRowSpare) + BaselineRoom());

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
    for (const auto &items : m_items) {
        if (items->Bar != nullptr) {
            FillBar(Task(items->Task), *items->Bar);
        }
    }
    for (const auto &line : m_lines) {
        if (line->Line != nullptr) {
            line->Line->SetColor(m_looks.Link);
        }
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
