// The Gantt chart: nine item styles, links in both routes, texts in three styles, insets, rows
// divided by hand, and vertical stripes.
#include "Pages.h"
#include "foundation/qt/zuImageList.h"
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QStyle>

#include <string_view>

using namespace korvane;

namespace {

constexpr TColor kSlate = Rgb(0x5b, 0x7f, 0xa6);
constexpr TColor kLeaf = Rgb(0x7f, 0xb0, 0x69);
constexpr TColor kSand = Rgb(0xe0, 0xb0, 0x5c);
constexpr TColor kBrick = Rgb(0xc2, 0x5b, 0x4e);
constexpr TColor kSky = Rgb(0x3f, 0x8c, 0xd8);
constexpr int kIconSize = 16;
constexpr int kRowHeight = 28;

// A chart that owns the images of its items.
class TGalleryGant : public TzuGant
{
public:
    TGalleryGant()
    {
        m_images.SetSize({kIconSize, kIconSize});
        m_images.Add(style()->standardIcon(QStyle::SP_DialogApplyButton));
        SetImageList(&m_images);
    }
    ~TGalleryGant() override { SetImageList(nullptr); }

    /// Days count from the chart's first one.
    TzuDataEntity_Spanbar &AddBar(TzuDataEntity_Tree *node, double fromDay, double toDay,
                                  TColor color, TSpanbarStyle style = TSpanbarStyle::sbsSquare)
    {
        TzuDataEntity_Spanbar *bar = AddSpanbar(node, 0);
        bar->SetStartDateTime(kFirstDay + fromDay);
        bar->SetStopDateTime(kFirstDay + toDay);
        bar->SetColor(color);
        bar->SetStyle(style);
        return *bar;
    }

    static const TDateTime kFirstDay;

private:
    TzuImageList m_images;
};

const TDateTime TGalleryGant::kFirstDay = EncodeDate(2026, 3, 2);

void AddStyles(TGalleryGant &gant)
{
    struct TNamedStyle
    {
        const char *Name;
        TSpanbarStyle Style;
        TColor Color;
        int FixedSize = 0;
    };
    static constexpr TNamedStyle kStyles[] = {
        {"Square", TSpanbarStyle::sbsSquare, kSand},
        {"Span", TSpanbarStyle::sbsSpan, kLeaf},
        {"User", TSpanbarStyle::sbsUser, kSlate},
        {"Line", TSpanbarStyle::sbsLine, kBrick},
        {"Line with ends", TSpanbarStyle::sbsLineWEnd, kBrick},
        {"Wave", TSpanbarStyle::sbsWave, kSlate},
        {"Romb", TSpanbarStyle::sbsRomb, kSand, kIconSize},
        {"Image", TSpanbarStyle::sbsImage, kSlate, kIconSize},
        {"Pipe", TSpanbarStyle::sbsPipe, kLeaf},
    };
    gant.OnUserDrawTime = [](TzuGant_ComBasic * /*gant*/, TzuDataEntity_Spanbar *item,
                             TCanvas &canvas, const TRect &rect) {
        canvas.FillGradient(rect, clWhite, item->GetColor());
    };
    TzuDataEntity_Tree *styles = gant.AddRootDataEntityTree("Item styles");
    for (const TNamedStyle &style : kStyles) {
        TzuDataEntity_Tree *row = gant.AddDataEntityTree(styles, style.Name);
        auto &bar = gant.AddBar(row, 2, 8, style.Color, style.Style);
        bar.SetFixedSize(style.FixedSize);
        auto &selected = gant.AddBar(row, 10, 14, style.Color, style.Style);
        selected.SetFixedSize(style.FixedSize);
        selected.SetSelected(true);
        for (auto *item : {&bar, &selected}) {
            item->SetInsetTop(4);
            item->SetInsetBottom(4);
        }
    }
    styles->SetExpanded(true);
}

void AddLinks(TGalleryGant &gant)
{
    TzuDataEntity_Tree *links = gant.AddRootDataEntityTree("Links");
    const auto addPair = [&](const char *name, TLinkStyle style, TColor color) {
        TzuDataEntity_Tree *first = gant.AddDataEntityTree(links, name);
        TzuDataEntity_Tree *second = gant.AddDataEntityTree(links, "");
        TzuDataEntity_Link &forward = gant.AddLink();
        forward.SetFirst(&gant.AddBar(first, 2, 6, kSlate));
        forward.SetSecond(&gant.AddBar(second, 8, 12, kSlate));
        TzuDataEntity_Link &backward = gant.AddLink();
        backward.SetFirst(&gant.AddBar(second, 19, 22, kSand));
        backward.SetSecond(&gant.AddBar(first, 14, 17, kSand));
        for (auto *link : {&forward, &backward}) {
            link->SetStyle(style);
            link->SetColor(color);
        }
    };
    addPair("In three segments", TLinkStyle::tlsDefault, kSky);
    addPair("In two segments", TLinkStyle::tlsMSProject, clWindowText);
    links->SetExpanded(true);
}

void AddTexts(TGalleryGant &gant)
{
    TFont font = gant.FontTimeItemStyle(1);
    font.Color = clBlack; // the item is light in dark palettes, too
    gant.SetFontTimeItemStyle(1, font);
    font.Size = font.Size * 3 / 4;
    gant.SetFontTimeItemStyle(3, font);
    font = gant.FontTimeItemStyle(1);
    font.Bold = true;
    gant.SetFontTimeItemStyle(2, font);
    auto &bar = gant.AddBar(gant.AddRootDataEntityTree("Texts"), 2, 9, kLeaf);
    bar.Texts().AddText("Style 1", 4, 6, 1);
    bar.Texts().AddText("Style 2", 70, 6, 2);
    bar.Texts().AddText("Style 3, clipped by the end of the item", 140, 8, 3);
}

void AddInsets(TGalleryGant &gant)
{
    TzuDataEntity_Tree *row = gant.AddRootDataEntityTree("Insets");
    int day = 2;
    for (const int inset : {0, 4, 8, 12}) {
        auto &bar = gant.AddBar(row, day, day + 3, kSlate);
        bar.SetInsetTop(inset);
        bar.SetInsetBottom(day == 2 ? 0 : 2);
        day += 4;
    }
}

void AddSubRows(TGalleryGant &gant)
{
    TzuDataEntity_Tree *node = gant.AddRootDataEntityTree("Three sub-rows");
    TGantRow *row = gant.AddBar(node, 2, 9, kSand).GetRow();
    row->SetCollisionDetection(true);
    row->SetUseSubCols(3);
    for (int subRow = 1; subRow <= 3; ++subRow) {
        gant.AddBar(node, 9 + subRow, 14 + subRow, kBrick).SetSubCol(subRow);
    }
}

} // namespace

QWidget *CreateGanttPage()
{
    auto *gant = new TGalleryGant;
    gant->BeginUpdate();
    gant->SetScaleAndTree(TGalleryGant::kFirstDay, TGalleryGant::kFirstDay + 25, 180);
    gant->Tree().SetRowHeight(kRowHeight);
    gant->SetDateFormat("d MMM");
    gant->SetGantBackColor(clWindow);
    gant->SetGantPyjamasColor(clBtnFace);
    gant->SetVerticalPyjamas(true);
    AddStyles(*gant);
    AddLinks(*gant);
    AddTexts(*gant);
    AddInsets(*gant);
    AddSubRows(*gant);
    gant->EndUpdate();
    return gant;
}
