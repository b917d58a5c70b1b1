// Painting of the Gantt area.
#include "foundation/zuGraphStuffDraw.h"
#include "foundation/zuRound.h"
#include "gantt/zuGant.h"
#include "gantt/zuGantTimeIndex.h"
#include "gantt/zuTimeDraw.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvane {

void TGantCore::GantAreaPaint()
{
    UpdateRects();
    DoBackground();
    for (TGantRow *row : m_rows->RowsOnScreen()) {
        row->DrawContent();
    }
    RenderLinks();
    OnUserDrawForeground(m_component, AreaRect(), m_host.AreaCanvas());
}

void TGantCore::UpdateRects()
{
    m_visibleNodes.clear();
    m_host.CollectVisibleNodes(m_visibleNodes);
    for (const TVisibleNode &node : m_visibleNodes) {
        if (node.Node != nullptr && node.Rect.Height() > 0) {
            m_currentRowHeight = node.Rect.Height();
            break;
        }
    }
    m_rowsFromTree = m_visibleNodes.empty() || m_visibleNodes.front().Node != nullptr;
    m_rows->PlaceRows(m_visibleNodes);
}

TRect TGantCore::AreaRect() const
{
    const TSize size = m_host.AreaSize();
    return {0, 0, size.Width, size.Height};
}

void TGantCore::ReInitBitmap()
{
    if (m_backColor == m_pyjamasColor) {
        m_backgroundBrush = {m_backColor, TBrushStyle::bsSolid, {}};
    } else {
        m_backgroundBrush = {m_backColor,
                             TBrushStyle::bsPattern,
                             {m_backColor, m_pyjamasColor, m_pyjamasColor, m_backColor}};
    }
}

void TGantCore::DoBackground()
{
    TCanvas &canvas = m_host.AreaCanvas();
    if (OnUserDrawBackground) {
        OnUserDrawBackground(m_component, AreaRect(), canvas);
    } else {
        DefaultBackGround(AreaRect(), canvas);
    }
}

void TGantCore::DefaultBackGround(const TRect &rect, TCanvas &canvas) const
{
    if (m_verticalPyjamas) {
        DoVerticalPyjamas(rect, canvas);
    } else {
        canvas.SetBrush(BackgroundBrush());
        canvas.FillRect(rect);
    }
    DrawRowBackgound(rect, canvas);
}

void TGantCore::DoVerticalPyjamas(const TRect &rect, TCanvas &canvas) const
{
    const TDateScalerCore &scaler = m_host.Scaler();
    const double scale = m_host.AreaPrintScale().X;
    // Even periods are plain, odd ones carry the checkerboard. What lies before the first mark
    // belongs to the period before it.
    bool odd = scaler.GetOddOrEventStartForVerticalBack() % 2 == 0;
    auto fillTo = [&, left = rect.Left](int right) mutable {
        const TRect band{std::max(left, rect.Left), rect.Top, std::min(right, rect.Right),
                         rect.Bottom};
        if (!band.IsEmpty()) {
            canvas.SetBrush(odd ? BackgroundBrush()
                                : TBrush{m_backColor, TBrushStyle::bsSolid, {}});
            canvas.FillRect(band);
        }
        left = right;
        odd = !odd;
    };
    for (const TScaleMark &mark : scaler.SecondaryMarks()) {
        fillTo(RoundToPixel(scaler.DateToPixel(mark.Date) * scale));
    }
    fillTo(rect.Right);
}

void TGantCore::DrawRowBackgound(const TRect &rect, TCanvas &canvas) const
{
    const TDateScalerCore &scaler = m_host.Scaler();
    const TPrintScale scale = m_host.AreaPrintScale();
    canvas.SetBrushColor(m_pyjamasColor);
    const auto drawAt = [&](int pixel) {
        const int x = RoundToPixel(pixel * scale.X);
        if (x >= rect.Left && x < rect.Right) {
            canvas.FillRect({x, rect.Top, x + 1, rect.Bottom});
        }
    };
    for (const TScaleMark &mark : scaler.SecondaryMarks()) {
        drawAt(scaler.DateToPixel(mark.Date));
    }
    if (m_drawShortLines) {
        for (const TScaleMark &mark : scaler.PrimaryMarks()) {
            drawAt(scaler.GetPixelFromScaleMark(mark));
        }
    }
    for (const TGantRow *row : m_rows->RowsOnScreen()) {
        const int bottom = RoundToPixel(row->GetRect().Bottom * RowPrintScale());
        canvas.FillRect({rect.Left, bottom - 1, rect.Right, bottom});
    }
}

TRect TGantCore::InsetRect(const TzuDataEntity_Spanbar &item, const TRect &rect) const
{
    int top = item.InsetTop();
    int bottom = item.InsetBottom();
    const TGantRow *row = item.GetRow();
    // Where sub-rows stand above or below, the item lies flush with them.
    if (row != nullptr && row->UseSubCols() > 1 && item.SubCol() > 0) {
        top = item.SubCol() > 1 ? 0 : top;
        bottom = item.SubCol() < row->UseSubCols() ? 0 : bottom;
    }
    const double scale = m_host.AreaPrintScale().Y;
    return {rect.Left, rect.Top + RoundToPixel(top * scale), rect.Right,
            rect.Bottom - RoundToPixel(bottom * scale)};
}

void TGantCore::DrawContent(TzuDataEntity_Spanbar &item, const TRect &rect)
{
    TCanvas &canvas = m_host.AreaCanvas();
    const TRect inner = InsetRect(item, rect);
    DrawShape(item, inner, canvas);
    if (item.HasTexts()) {
        item.Texts().DrawToCanvasInsideRect(inner, canvas, m_onStyleSet);
    }
    if (!m_host.ShowsMarks()) {
        return;
    }
    if (item.GetSelected()) {
        if (item.GetStyle() == TSpanbarStyle::sbsRomb) {
            TzuTimeDraw::SelectRomb(inner, canvas);
        } else {
            TzuTimeDraw::DoSelectContent(inner, canvas);
        }
    }
    if (&item == m_active) {
        canvas.DrawFocusRect(GStuff::W95Safe(inner, canvas));
    }
}

void TGantCore::DrawShape(TzuDataEntity_Spanbar &item, const TRect &rect, TCanvas &canvas)
{
    const TColor color = item.GetColor();
    switch (item.GetStyle()) {
    case TSpanbarStyle::sbsSquare:
        return TzuTimeDraw::DrawTime(color, rect, canvas);
    case TSpanbarStyle::sbsSpan:
        return TzuTimeDraw::CoolOutline(color, rect, canvas);
    case TSpanbarStyle::sbsUser:
        return UserDrawTime(item, rect, canvas);
    case TSpanbarStyle::sbsLine:
        return TzuTimeDraw::LineOutline(color, rect, canvas, TLineEnds::leNone);
    case TSpanbarStyle::sbsLineWEnd:
        return TzuTimeDraw::LineOutline(color, rect, canvas, TLineEnds::leMarks);
    case TSpanbarStyle::sbsWave:
        return TzuTimeDraw::WaveOutline(color, rect, canvas);
    case TSpanbarStyle::sbsRomb:
        return TzuTimeDraw::RombOutline(color, rect, canvas);
    case TSpanbarStyle::sbsImage:
        return TzuTimeDraw::DrawImage(m_imageList, item.ImageIndex(), rect, canvas);
    case TSpanbarStyle::sbsPipe:
        return TzuTimeDraw::DrawPipe(color, rect, canvas);
    }
}

void TGantCore::UserDrawTime(TzuDataEntity_Spanbar &item, const TRect &rect, TCanvas &canvas)
{
    OnUserDrawTime(m_component, &item, canvas, rect);
}

void TGantCore::RenderLinks()
{
    CollectLinksOnScreen();
    // A print runs along other pixels than the mouse.
    const TPrintScale scale = m_host.AreaPrintScale();
    const bool printing = scale.X != 1 || scale.Y != 1;
    std::vector<TShownLink> onScreen = std::move(m_shownLinks);
    m_shownLinks.clear();
    for (const auto &[index, link] : m_drawnLinks) {
        RenderLink(*link);
    }
    m_drawnLinks.clear();
    if (printing) {
        m_shownLinks = std::move(onScreen);
    }
}

void TGantCore::CollectLinksOnScreen()
{
    m_drawnLinks.clear();
    ++m_linkPass;
    for (TGantRow *row : m_rows->RowsOnScreen()) {
        for (int layer = 0; layer < row->Layers().Count(); ++layer) {
            for (const auto *item : LinkedItems(*row->Layers().GetDataList(layer))) {
                for (TzuDataEntity_Link *link : item->Links()) {
                    if (link->EnterPass(m_linkPass)) {
                        m_drawnLinks.emplace_back(link->ListIndex(), link);
                    }
                }
            }
        }
    }
    std::ranges::sort(m_drawnLinks);
}

/// Those whose links may be drawn.
std::vector<TzuDataEntity_Spanbar *> TGantCore::LinkedItems(TzuDataList &layer) const
{
    std::vector<TzuDataEntity_Spanbar *> linked;
    auto *items = dynamic_cast<TzuDataList_GantRow *>(&layer);
    if (items != nullptr && items->PicksByTime()) {
        constexpr TDateTime kEver = std::numeric_limits<TDateTime>::infinity();
        const bool inView = m_linkShow != TLinkShow::lsAlways;
        const TDateScalerCore &scaler = m_host.Scaler();
        items->TimeIndex().FindLinked(inView ? scaler.GetStart() : -kEver,
                                      inView ? scaler.GetStop() : kEver, linked);
        return linked;
    }
    for (int i = 0; i < layer.LoadedCount(); ++i) {
        auto *item = static_cast<TzuDataEntity_Spanbar *>(layer.GetLoaded(i));
        if (!item->Links().empty()) {
            linked.push_back(item);
        }
    }
    return linked;
}

TLinkEnd TGantCore::LinkEndOf(const TzuDataEntity_Spanbar &item) const
{
    TLinkEnd end;
    const auto rect = item.GetRow()->RectFromDataEntity(item);
    if (rect) {
        const TDateScalerCore &scaler = m_host.Scaler();
        end.Rect = *rect;
        end.OnScreen = true;
        end.InView = item.GetStartDateTime() <= scaler.GetStop()
                     && item.GetStopDateTime() >= scaler.GetStart();
    }
    return end;
}

void TGantCore::RenderLink(TzuDataEntity_Link &link)
{
    const TzuDataEntity_Spanbar *first = link.First();
    const TzuDataEntity_Spanbar *second = link.Second();
    if (first == nullptr || second == nullptr) {
        return;
    }
    const TGantRow *firstRow = first->GetRow();
    const TGantRow *secondRow = second->GetRow();
    if (firstRow == nullptr || secondRow == nullptr || !firstRow->GetVisible()
        || !secondRow->GetVisible()) {
        return;
    }
    const TLinkEnd firstEnd = LinkEndOf(*first);
    const TLinkEnd secondEnd = LinkEndOf(*second);
    // On paper every row has its place or is not printed; no link leads to one that is not.
    const bool wholly = firstEnd.OnScreen && secondEnd.OnScreen;
    if (m_host.ShowsMarks() ? !IsLinkShown(firstEnd, secondEnd, m_linkShow) : !wholly) {
        return;
    }
    const TLinkStyle style = firstRow == secondRow ? TLinkStyle::tlsDefault : link.GetStyle();
    const TLinkPoints points = LinkPoints(firstEnd, secondEnd, style);
    TLinkMark mark = &link == m_hoverLink ? TLinkMark::Hovered : TLinkMark::None;
    if (link.GetSelected()) {
        mark = TLinkMark::Selected;
    }
    if (!m_host.ShowsMarks()) {
        mark = TLinkMark::None;
    }
    Keep(&link);
    if (link.GetStyle() == TLinkStyle::tlsUserDraw) {
        RenderUserLink(link, points, mark);
    } else {
        const TLinkRoute route(points, style);
        DrawLink(m_host.AreaCanvas(), route, style, link.GetColor(), mark);
        m_shownLinks.push_back({&link, route, {}});
    }
    m_host.LinkDrawn(link, m_shownLinks.back().Line());
}

void TGantCore::RenderUserLink(TzuDataEntity_Link &link, TLinkPoints points, TLinkMark mark)
{
    TCanvas &canvas = m_host.AreaCanvas();
    std::vector<TPoint> route;
    OnLinkRoute(m_component, &link, points.Start, points.End, route);
    if (route.size() > 1) {
        DrawLinkMark(canvas, route, mark, link.GetColor());
    }
    OnUserDrawLinks(m_component, &link, canvas, points.Start, points.End);
    m_shownLinks.push_back({&link, std::nullopt, std::move(route)});
}

} // namespace korvane
