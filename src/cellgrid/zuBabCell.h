// The cells of a cell grid and what is in them.
#pragma once

#include "cellgrid/zuLayoutProp.h"
#include "foundation/zuExport.h"
#include "foundation/zuLifeWatch.h"
#include "foundation/zuTypes.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

class TAxisContentItem;
class TBabGridCell;

/// The content of a simple cell.
class KORVANE_CORE_API TBabCellData : public TObject
{
public:
    /// As shown, sorted by and copied.
    virtual std::string Text() const = 0;
    /// Takes what the user typed; false when it cannot be understood, and the content stays.
    virtual bool SetText(std::string_view text) = 0;
    /// Brings a text into the form in which it would be shown; false when SetText would not take
    /// it.
    virtual bool Understand(std::string & /*text*/) const { return true; }
};

/// Any text.
class KORVANE_CORE_API TBabCellData_Text : public TBabCellData
{
public:
    std::string Text() const override { return m_text; }
    bool SetText(std::string_view text) override
    {
        m_text = text;
        return true;
    }

private:
    std::string m_text;
};

/// Shown as "1" or "0"; any other text but the empty one counts as true.
class KORVANE_CORE_API TBabCellData_Bool : public TBabCellData
{
public:
    /// False to begin with.
    bool Value() const { return m_value; }
    void SetValue(bool value) { m_value = value; }
    std::string Text() const override { return m_value ? "1" : "0"; }
    bool SetText(std::string_view text) override
    {
        m_value = !text.empty() && text != "0";
        return true;
    }
    bool Understand(std::string &text) const override
    {
        text = text.empty() || text == "0" ? "0" : "1";
        return true;
    }

private:
    bool m_value = false;
};

/// One of several texts, or any text when none are given. What the user enters is checked against
/// them.
class TBabCellData_Combo : public TBabCellData_Text
{
public:
    /// The texts to choose from, in this order.
    std::vector<std::string> Items;
    bool FreeText = false; ///< the user may enter other texts than the items
};

/// Which half of an instant a cell is about.
enum class TDateTimePart : std::uint8_t { Date, Time };

/// A date or a time of day in the locale's short form; may be empty.
class KORVANE_CORE_API TBabCellData_DateTime : public TBabCellData
{
public:
    /// Empty to begin with.
    explicit TBabCellData_DateTime(TDateTimePart part)
        : m_part(part)
    {
    }
    /// Whether there is no date or time.
    bool IsEmpty() const { return m_empty; }
    /// The instant, of which only one half shows; meaningless while empty.
    TDateTime Value() const { return m_value; }
    void SetValue(TDateTime value)
    {
        m_value = value;
        m_empty = false;
    }
    /// The text is empty then, too.
    void SetEmpty() { m_empty = true; }
    std::string Text() const override;
    /// Understands year, month and day as numbers in the order of the locale's short date, the
    /// month by its name, too; hours, minutes and seconds, with the locale's text for the
    /// afternoon; the empty text.
    bool SetText(std::string_view text) override;

    bool Understand(std::string &text) const override;

private:
    TDateTimePart m_part;
    TDateTime m_value = 0;
    bool m_empty = true;
};

/// One cell. It belongs to its row and goes with its column; the matrix of its grid owns it.
class KORVANE_CORE_API TBabCell : public TObject, public TzuLifeWatched
{
public:
    /// Where the cell stands; nil for a cell in no grid.
    TBabGridCell *GridCell() const { return m_gridCell; }
    TAxisContentItem *Column() const { return m_column; }
    TAxisContentItem *Row() const { return m_row; }

    /// Nil: that of the column, else the grid's. Shared with the layout that it comes from.
    const TLayoutProp *LayoutProp() const { return m_layoutProp.get(); }
    void SetLayoutProp(std::shared_ptr<const TLayoutProp> layout);
    /// Whether the user cannot change it; false to begin with.
    bool ReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool readOnly) { m_readOnly = readOnly; }

    /// As shown; empty unless a class says otherwise.
    virtual std::string Text() const { return {}; }
    /// False when the cell takes no such text.
    virtual bool SetText(std::string_view /*text*/) { return false; }

    /// By the selection of the grid; a change fires SelectionEvent.
    virtual bool GetSelected() const;
    virtual void SetSelected(bool selected);

    /// Called once the cell stands in its grid.
    virtual void AfterPlaced() {}

protected:
    TBabCell() = default;
    /// Tells the viewer that the cell is to be shown anew.
    void Changed();

private:
    friend class TCellMatris;

    TBabGridCell *m_gridCell = nullptr;
    TAxisContentItem *m_column = nullptr;
    TAxisContentItem *m_row = nullptr;
    std::shared_ptr<const TLayoutProp> m_layoutProp;
    bool m_readOnly = false;
};

/// A cell with text, a mark, a date and so on.
class KORVANE_CORE_API TBabSimpleCell : public TBabCell
{
public:
    TBabSimpleCell()
        : TBabSimpleCell(std::make_unique<TBabCellData_Text>())
    {
    }
    /// The cell owns the data, which is not nil.
    explicit TBabSimpleCell(std::unique_ptr<TBabCellData> data)
        : m_data(std::move(data))
    {
    }
    /// Never nil. A change shows with the next paint.
    TBabCellData &Data() const { return *m_data; }
    void SetData(std::unique_ptr<TBabCellData> data);
    std::string Text() const override { return m_data->Text(); }
    bool SetText(std::string_view text) override;

    /// Image of the grid's image list; -1 for none.
    int ImageIndex() const { return m_imageIndex; }
    void SetImageIndex(int index);

private:
    std::unique_ptr<TBabCellData> m_data;
    int m_imageIndex = -1;
};

} // namespace korvane
