// A column or a row of a cell grid.
#pragma once

#include "data/zuSequencePlace.h"
#include "foundation/zuExport.h"
#include "foundation/zuLifeWatch.h"
#include "foundation/zuTypes.h"

#include <cstdint>
#include <memory>
#include <unordered_set>

namespace korvane {

class TAxisContentItem;
class TAxisContentList;

/// A size that several columns or rows share, such as that of one column in many sub-grids. A
/// change reaches every item that uses it. Not owned by the items; they part with it when it goes.
class KORVANE_CORE_API TUserSizeItem : public TObject
{
public:
    ~TUserSizeItem() override;

    /// Whether the size counts, and the size in pixels; false and 0 to begin with.
    bool GetUserSizeActive() const { return m_userSizeActive; }
    void SetUserSizeActive(bool active);
    int GetUserSize() const { return m_userSize; }
    void SetUserSize(int size);

private:
    friend class TAxisContentItem;

    void TellUsers() const;

    bool m_userSizeActive = false;
    int m_userSize = 0;
    std::unordered_set<TAxisContentItem *> m_users;
};

/// One column or row. Its list creates and frees it.
class KORVANE_CORE_API TAxisContentItem : public TObject, public TzuLifeWatched
{
public:
    ~TAxisContentItem() override;

    /// The application's objects of this column or row; observed, never interpreted here.
    TObject *Value() const { return m_value; }
    void SetValue(TObject *value) { m_value = value; }
    TObject *Value2() const { return m_value2; }
    void SetValue2(TObject *value) { m_value2 = value; }
    /// The axis that holds the item.
    TAxisContentList *List() const { return m_list; }

    /// The size that the user or the application set, in pixels, and whether it overrides the
    /// computed one. A shared size takes precedence.
    int GetUserSize() const;
    /// Also fires the viewer's user-size event, whatever the size was.
    void SetUserSize(int size);
    /// Whether that size counts; false to begin with.
    bool GetUserSizeActive() const;
    void SetUserSizeActive(bool active);
    /// The shared size, or nil; observed.
    TUserSizeItem *UserSizeItem() const { return m_userSizeItem; }
    void SetUserSizeItem(TUserSizeItem *shared);
    /// The size that the content asks for; kNotMeasured until a layout pass found it out.
    int AutoSize() const { return m_autoSize; }
    void SetAutoSize(int size);
    /// See AutoSize.
    static constexpr int kNotMeasured = -1;
    /// Pixels that the item takes; 0 while it is hidden.
    int Size() const;

    /// Whether it takes no room; false to begin with.
    bool GetHide() const { return m_hide; }
    /// A change fires the viewer's hide event.
    void SetHide(bool hide);

    /// Index in the whole axis; brings stale indexes up to date.
    int ListIndex();
    /// Position among the loaded items.
    int LoadedListIndex();
    /// Whether the item is among those that are shown now.
    bool InVisibleList() const { return m_visibleChunk != kNoChunk; }

private:
    friend class TAxisContentList;
    friend class TCellMatris;
    friend class TUserSizeItem;
    struct LoadedPlace
    {
        static std::uint32_t &Of(TAxisContentItem &item) { return item.m_loadedChunk; }
    };
    struct VisiblePlace
    {
        static std::uint32_t &Of(TAxisContentItem &item) { return item.m_visibleChunk; }
    };

    TAxisContentItem(TAxisContentList *list, TObject *value, std::uint32_t id)
        : m_value(value)
        , m_list(list)
        , m_id(id)
    {
    }
    void SizeChanged();
    /// What the item's settings say it takes; TRunSequence::kDefault when they say nothing.
    int WantedSize() const;

    TObject *m_value = nullptr;
    TObject *m_value2 = nullptr;
    TAxisContentList *m_list = nullptr;
    TUserSizeItem *m_userSizeItem = nullptr;
    std::unique_ptr<TObject> m_cells; ///< the matrix keeps a row's cells here
    int m_userSize = 0;
    int m_autoSize = kNotMeasured;
    std::uint32_t m_id; ///< of no other item of the list
    std::uint32_t m_loadedChunk = kNoChunk;
    std::uint32_t m_visibleChunk = kNoChunk;
    bool m_userSizeActive = false;
    bool m_hide = false;
    bool m_countedAsHidden = false;
};

} // namespace korvane
