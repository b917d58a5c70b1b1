// Named looks of cells.
#pragma once

#include "cellgrid/zuBabCell.h"
#include "cellgrid/zuLayoutProp.h"
#include "foundation/zuExport.h"
#include "grid/zuGridCollection.h"

#include <memory>
#include <string>
#include <string_view>

namespace korvane {

class TzuCellLayouts;

/// Whether two names are equal but for the case of ASCII letters.
KORVANE_CORE_API bool SameName(std::string_view a, std::string_view b);

/// One look. Its properties live in an object that every cell with this layout refers to, so that
/// all of them change together.
class KORVANE_CORE_API TzuCellLayout : public TObject
{
public:
    /// The collection outlives its layouts.
    explicit TzuCellLayout(TzuCellLayouts &layouts)
        : m_layouts(layouts)
    {
    }

    /// By which columns and cells refer to the layout, whatever the case of its letters; empty to
    /// begin with.
    const std::string &Name() const { return m_name; }
    void SetName(std::string name);
    /// As the members of TLayoutProp with these names, and with their defaults. A change is shown
    /// in every cell that has the layout.
    TColor BackColor() const { return m_prop->BackColor; }
    void SetBackColor(TColor value) { Set(m_prop->BackColor, value); }
    TColor FrontColor() const { return m_prop->FrontColor; }
    void SetFrontColor(TColor value) { Set(m_prop->FrontColor, value); }
    bool UseFontInfo() const { return m_prop->UseFontInfo; }
    void SetUseFontInfo(bool value) { Set(m_prop->UseFontInfo, value); }
    const TFont &Font() const { return m_prop->Font; }
    void SetFont(const TFont &value) { Set(m_prop->Font, value); }
    int MinWidth() const { return m_prop->MinWidth; }
    void SetMinWidth(int value) { Set(m_prop->MinWidth, value); }
    int MinHeight() const { return m_prop->MinHeight; }
    void SetMinHeight(int value) { Set(m_prop->MinHeight, value); }
    bool WrapTextAndFit() const { return m_prop->WrapTextAndFit; }
    void SetWrapTextAndFit(bool value) { Set(m_prop->WrapTextAndFit, value); }
    bool WindowsFlagDraw() const { return m_prop->WindowsFlagDraw; }
    void SetWindowsFlagDraw(bool value) { Set(m_prop->WindowsFlagDraw, value); }
    int WindowsFlags() const { return m_prop->WindowsFlags; }
    void SetWindowsFlags(int value) { Set(m_prop->WindowsFlags, value); }
    bool FrameOptionsUse() const { return m_prop->FrameOptionsUse; }
    void SetFrameOptionsUse(bool value) { Set(m_prop->FrameOptionsUse, value); }
    TFrameOptions FrameOptions() const { return m_prop->FrameOptions; }
    void SetFrameOptions(TFrameOptions value) { Set(m_prop->FrameOptions, value); }
    TFrameKind FrameKind() const { return m_prop->FrameKind; }
    void SetFrameKind(TFrameKind value) { Set(m_prop->FrameKind, value); }
    TColor FrameColor() const { return m_prop->FrameColor; }
    void SetFrameColor(TColor value) { Set(m_prop->FrameColor, value); }
    bool HorzAlignRight() const { return m_prop->HorzAlignRight; }
    void SetHorzAlignRight(bool value) { Set(m_prop->HorzAlignRight, value); }
    bool HorzAlignCenter() const { return m_prop->HorzAlignCenter; }
    void SetHorzAlignCenter(bool value) { Set(m_prop->HorzAlignCenter, value); }
    bool VertAlignCenter() const { return m_prop->VertAlignCenter; }
    void SetVertAlignCenter(bool value) { Set(m_prop->VertAlignCenter, value); }
    bool EndEllipsis() const { return m_prop->EndEllipsis; }
    void SetEndEllipsis(bool value) { Set(m_prop->EndEllipsis, value); }
    const TOnLineDraw &OnFrameLineDraw() const { return m_prop->OnFrameLineDraw; }
    void SetOnFrameLineDraw(const TOnLineDraw &value) { Set(m_prop->OnFrameLineDraw, value); }

    /// What cells refer to; it outlives the layout as long as they do.
    std::shared_ptr<const TLayoutProp> LayoutProp() const { return m_prop; }
    /// Gives a cell this layout; nothing when it is nil.
    void Apply(TBabCell *cell) const;

private:
    template <typename T>
    void Set(T &field, const T &value)
    {
        if (!(field == value)) {
            field = value;
            TellChanged();
        }
    }
    void TellChanged() const;

    TzuCellLayouts &m_layouts;
    std::string m_name;
    std::shared_ptr<TLayoutProp> m_prop = std::make_shared<TLayoutProp>();
};

/// The layouts of a grid.
class KORVANE_CORE_API TzuCellLayouts : public TGridCollection<TzuCellLayout>
{
public:
    /// The host outlives the collection.
    explicit TzuCellLayouts(IGridModelHost &host)
        : m_host(host)
    {
    }
    /// The first layout of that name, or nil.
    const TzuCellLayout *LayoutByName(std::string_view name) const;
    /// Gives the cell the first layout of that name; an unknown name leaves it as it is.
    void ApplyFromLayoutName(std::string_view name, TBabCell *cell) const;
    /// Counts the changes by which a name may have come to mean another layout.
    int NameChanges() const { return m_nameChanges; }

protected:
    std::unique_ptr<TzuCellLayout> CreateItem() override
    {
        return std::make_unique<TzuCellLayout>(*this);
    }
    void Changed() override;

private:
    friend class TzuCellLayout;

    IGridModelHost &m_host;
    int m_nameChanges = 0;
};

} // namespace korvane
