// The schedule view without its widgets: data, geometry and painting.
#pragma once

#include "data/zuDataEntityPack.h"
#include "data/zuDataTraveser.h"
#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "schema/zuSchemaColumns.h"
#include "schema/zuSchemaData.h"
#include "schema/zuSchemaParts.h"
#include "schema/zuSchemaSubColsDue.h"
#include "schema/zuSchemaTimeIndex.h"
#include "schema/zuSchemaTypes.h"

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace korvane {

class TDateScalerGestures;
class TDistinctTimeHolderList;
class TTimeDistinctGenericThread;

/// What the schedule asks of the controls around it.
class KORVANE_CORE_API ISchemaHost
{
public:
    virtual ~ISchemaHost() = default;

    /// The time axis, the only owner of the visible time.
    virtual TDateScalerGestures &Scaler() = 0;
    virtual const TDateScalerGestures &Scaler() const = 0;

    /// Requests a repaint of the area; several requests before a paint cause one.
    virtual void InvalidateArea() = 0;
    /// Size of the area, or of the page that is printed, in pixels.
    virtual TSize AreaSize() const = 0;
    /// Where the area is drawn now: the offscreen image or the printer.
    virtual TCanvas &AreaCanvas() = 0;
    /// How much larger than on screen a print is drawn; 1 each on screen.
    virtual TPrintScale AreaPrintScale() const = 0;
    /// Whether the canvas is that of a print; the paper stays white then.
    virtual bool AreaIsPrinting() const = 0;
    /// Whether the focus is to be marked; not in prints.
    virtual bool AreaHasFocus() const = 0;
    /// Enlarges the canvas font while printing; called after every change of the font.
    virtual void PrintResizeAreaFont() = 0;
    /// The component's own font.
    virtual TFont ComponentFont() const = 0;

    /// Extent of the whole component.
    virtual TSize ComponentSize() const = 0;
    /// Applies Parts(): the view or a part's size has changed.
    virtual void PlaceParts() = 0;
    /// Number, order, sizes or captions of the columns have changed: the header is out of date.
    virtual void HeaderOutOfDate() = 0;
    /// Width of a text in the font of a header.
    virtual int HeaderTextWidth(std::string_view text, bool flip) const = 0;
    /// Shows the column scroller, or not.
    virtual void ShowColumnScroller(bool show) = 0;

    /// Whether the schedule is drawn for the screen. A print leaves out the marks of selection and
    /// focus, and widens no columns.
    virtual bool DrawsForScreen() const { return true; }

    /// Another time is the active one, or none.
    virtual void ActiveTimeChanged() {}
    /// A time or a column is gone; its address alone may be used.
    virtual void EntityLeft(const TzuDataEntity * /*entity*/) {}
};

/// The state and the rules of a schedule: times in columns along a date scaler.
///
/// The normal view has the columns side by side and time running down; the flipped view has them
/// one below the other and time running to the right. Both ask the same geometry, turned.
///
/// A schedule is created in two steps: construct, then InitializeData, which calls the factories.
class KORVANE_CORE_API TSchemaCore : public TObject
{
public:
    /// Times, observed.
    using TTimes = TSchemaTimeIndex::TTimes;
    /// No time is drawn shorter along the axis, in pixels.
    static constexpr int kLeastTimeLength = 5;

    /// `component` is what event handlers receive as the schedule; it may be null.
    TSchemaCore(ISchemaHost &host, TzuSchema_ComBasic *component);
    /// Calls FinalizeData.
    ~TSchemaCore() override;

    /// As given to the constructor; the host outlives the schedule.
    ISchemaHost &Host() { return m_host; }
    const ISchemaHost &Host() const { return m_host; }
    /// The schedule as event handlers receive it; may be null.
    TzuSchema_ComBasic *Component() const { return m_component; }
    /// False before the lists are created and once they are released.
    bool HasData() const { return m_columns != nullptr && !m_destroying; }

    // --- data, zuSchema.cpp ---

    /// Owned by the schedule. Not to be asked for without data.
    TDataListColumns &Columns() { return *m_columns; }
    const TDataListColumns &Columns() const { return *m_columns; }
    /// The data lists that hold the times; owned by the schedule.
    TzuDataList2lev &DataLists() { return *m_times; }

    /// Appends a column. Null when a handler has removed it.
    TzuDataEntity_SchemaColumn *AddColumn();
    /// Removes and frees a column; null and columns of others are ignored. Times keep their
    /// numbers, and so come to lie in other columns.
    void RemoveColumn(TzuDataEntity_SchemaColumn *column);
    /// Removes all columns. The times stay.
    void ClearColumns();
    /// Appends a time to a data list, which is created when missing. Null when a handler has
    /// removed it. Throws std::out_of_range for a negative index.
    TzuDataEntity_SchemaTime *AddSchemaTime(int index);
    /// Appends a data list, which the schedule owns.
    TzuDataList *AddDataList();
    /// Removes and frees a time. Null and times in no list are ignored.
    void RemoveSchemaTime(TzuDataEntity_SchemaTime *time);
    /// The first time, list by list, with the user reference. Walks all times.
    TzuDataEntity_SchemaTime *FindSchemaTimeObjectFromUserReference(const void *reference);

    /// The time that has the focus; null for none. A time of another schedule counts as none.
    TzuDataEntity_SchemaTime *GetActiveDataEntity() const { return m_active; }
    void SetActiveDataEntity(TzuDataEntity_SchemaTime *time);

    /// Factories of lists and entities, for applications that add to what times and columns hold.
    virtual std::unique_ptr<TzuDataList_Schema> CreateDataList();
    virtual std::unique_ptr<TDataListColumns> CreateColumnsCollection();
    virtual std::unique_ptr<TzuDataList2lev> Create2LevList();
    virtual EntityClass ClassOfDataEntity_SchemaTime() const;
    virtual EntityClass ClassOfDataEntity_SchemaColumn() const;
    /// Answers whether a time can be edited: yes, unless the handler says otherwise.
    virtual void _OnBeforeCanEditItem(TzuDataEntity *item);

    /// The number of the time's column, and start and stop relative to that column's base date; 0
    /// where there is no such column.
    struct TPlace
    {
        TDateTime Start = 0; ///< in days, relative to the base date
        TDateTime Stop = 0;  ///< as Start
        int Col = 0;         ///< also a number without a column
    };
    /// See TPlace.
    TPlace GetStartStopDateAndCol(const TzuDataEntity_SchemaTime &time) const;
    /// Whether there is a column of the time's number.
    bool IsInColumn(const TzuDataEntity_SchemaTime &time) const
    {
        return m_columns->IsCol(time.Col());
    }

    // --- properties, zuSchemaProperties.cpp ---

    /// Whether columns lie one below the other and time runs to the right; false by default. Each
    /// view has sizes of its own for parts and columns.
    bool FlipView() const { return m_flipView; }
    void SetFlipView(bool on);
    /// Background; clGreen by default. A print leaves it out.
    TColor SchemaColor() const { return m_color; }
    void SetSchemaColor(TColor color);
    /// Every other column is a checkerboard of this and SchemaColor; clOlive by default.
    TColor SchemaPyjamasColor() const { return m_pyjamasColor; }
    void SetSchemaPyjamasColor(TColor color);
    /// Whether the axis' minor marks are continued as lines through the area, not the major ones
    /// alone; false by default.
    bool DrawShortLines() const { return m_drawShortLines; }
    void SetDrawShortLines(bool on);
    /// Of the lines at major marks and between columns, and of those at minor marks; clBackground
    /// and clSilver by default.
    TColor LineColor() const { return m_lineColor; }
    void SetLineColor(TColor color);
    TColor ShortLineColor() const { return m_shortLineColor; }
    void SetShortLineColor(TColor color);
    /// Font of text style 1, 2 or 3; throws std::out_of_range for others.
    const TFont &TextFont(int style) const { return m_textFonts.at(FontSlot(style)); }
    void SetTextFont(int style, const TFont &font);
    /// Whether resizing one column in the header resizes all; true by default.
    bool ResizeAllCol() const { return m_resizeAllCol; }
    void SetResizeAllCol(bool on) { m_resizeAllCol = on; }
    /// Data lists as they lie above each other, the topmost first; -1 is skipped. Times of lists
    /// that are not named are neither drawn nor found. Initially 0 to 10.
    const TDrawLayerArray &DrawLayers() const { return m_drawLayers; }
    void SetDrawLayers(TDrawLayerArray layers);
    /// When the buttons that scroll the columns are seen; svWhenNeeded by default.
    TScrollVisibility GetScrollVisibility() const { return m_scrollVisibility; }
    void SetScrollVisibility(TScrollVisibility visibility);
    /// Whether times that overlap get sub-columns; true by default. Switching it off puts every
    /// time across its whole column again.
    bool CollisionDetect() const { return m_collisionDetect; }
    void SetCollisionDetect(bool on);
    /// Whether times of different data lists share sub-columns; false by default. All times are one
    /// group then, whatever column they are in.
    bool CollisionDetectBetweenDataList() const { return m_collisionBetweenLists; }
    void SetCollisionDetectBetweenDataList(bool on);
    /// Whether times that overlap get their sub-columns in the order of the lists, the first time
    /// the first one. False by default: the last time gets the first one.
    bool SubColsInListOrder() const { return m_subColsInListOrder; }
    void SetSubColsInListOrder(bool on);
    /// Least width of a sub-column, in pixels: a column with more of them is widened as far as that
    /// needs and as it can be seen whole, once they have been worked out. 0, the default, leaves
    /// columns alone.
    int LeastSubColWidth() const { return m_leastSubColWidth; }
    void SetLeastSubColWidth(int pixels);
    /// Least extent of a time along the axis, in pixels, wherever it is drawn, looked for or
    /// dragged; kLeastTimeLength, the default, or more. What is more, so that a caption has room,
    /// counts for the sub-columns: times that touch each other there do not share one, and the stop
    /// of a time that is stretched is where it is drawn.
    int LeastTimeLength() const { return m_leastTimeLength; }
    void SetLeastTimeLength(int pixels);

    /// What the user and the application have chosen; setting lays the parts out at once.
    const TSchemaPartSizes &PartSizes() const { return m_partSizes; }
    void SetPartSizes(const TSchemaPartSizes &sizes);
    /// Where the parts lie now, within the component.
    TSchemaPartRects Parts() const;
    /// In pixels, those of the scaler's own rectangle in either view. Setting takes effect when the
    /// event loop next comes round.
    int GetScalerWidth() const;
    void SetScalerWidth(int value);
    int GetScalerHeight() const;
    void SetScalerHeight(int value);
    /// The corner between the parts was dragged by so much; no size goes below 0.
    void PartResize(TPoint delta);
    /// Lays out the parts at once.
    void UpdatePartSize();
    /// A header needs another size, because of its font for example.
    void HeaderChanged() { UpdatePartSize(); }
    /// Asks for UpdatePartSize when the event loop next comes round.
    void LayoutLater();
    /// Brings the column scroller up to date.
    void UpdateColumnScroller();
    /// Asks for that when the event loop next comes round.
    void UpdateColumnScrollerLater();
    /// Scrolls by so many columns, forward when positive, as far as there are columns to come.
    void ScrollColumns(int columns);
    /// Extent of the area along the columns, in pixels.
    int ColumnRoom() const;

    // --- geometry, zuSchemaGeometry.cpp ---

    /// Pixels of a column; -1 and -1 for no column.
    TPixelSpan ColumnToPixels(int col) const { return ColumnToPixels_fw(m_flipView, col); }
    TPixelSpan ColumnToPixels_fw(bool flip, int col) const;
    /// The column at a pixel of the column axis: -1 before the first shown one, their count behind
    /// the last.
    int PixelToColumn(int pixel) const { return m_columns->ColumnAt(m_flipView, pixel); }
    /// Sum of the sizes of all columns in this view, also of those scrolled away.
    int GetColumnSpace() const { return m_columns->GetColumnSpace(m_flipView); }

    /// Along the axis, relative to base dates, in area pixels: the scaler's own, unless a subclass
    /// gives its times other places. Later times never lie before earlier ones.
    virtual int DateToPixel(TDateTime date) const;
    virtual TDateTime PixelToDate(int pixel) const;
    /// Pixels of a time across its column, or its sub-column. The column is there.
    TPixelSpan HeaderPixelsFromStartStopFromDataEntity(bool flip,
                                                       const TzuDataEntity_SchemaTime &time) const;
    /// Pixels of a time along the axis; long enough to be drawn as long as LeastTimeLength.
    TPixelSpan ScalerPixelsFromStartStopFromDataEntity(bool flip,
                                                       const TzuDataEntity_SchemaTime &time) const;
    /// The same for any times, relative to a base date.
    TPixelSpan TimePixels(bool flip, TDateTime start, TDateTime stop) const;
    /// Where a time is drawn. Nothing for one in no column or in one without extent, and when
    /// OnGetDrawingRect hides it.
    std::optional<TRect> RectFromDataEntity(bool flip, TzuDataEntity_SchemaTime &time) const;
    std::optional<TRect> RectFromDataEntity(TzuDataEntity_SchemaTime &time) const
    {
        return RectFromDataEntity(m_flipView, time);
    }
    /// The rectangle that spans these pixels of the two axes, printing included.
    TRect RectOf(bool flip, TPixelSpan column, TPixelSpan time) const;
    /// The times, absolute, and the column that a rectangle drawn by the user stands for.
    struct TStartAndLength
    {
        /// Absolute.
        TDateTime Start = 0;
        /// In days; negative for an inverted rectangle.
        TDateTime Length = 0;
        int Col = 0; ///< as PixelToColumn says
    };
    /// By the middle of the rectangle across the columns.
    TStartAndLength StartAndLengthFromRect(const TRect &rect) const;
    /// The topmost time at a point of the area, or null.
    TzuDataEntity_SchemaTime *GetDataEntityFromXY(int x, int y);
    /// The visible times of shown columns that a rectangle of the area touches, topmost first.
    TTimes TimesIn(const TRect &rect);
    /// The visible times of a column, scrolled away or not, topmost first.
    TTimes VisibleTimesOf(int col) { return VisibleTimesOf(col, col + 1); }

    /// A point or a rectangle along the two axes, in area pixels.
    int AlongColumns(TPoint at) const { return m_flipView ? at.Y : at.X; }
    int AlongTime(TPoint at) const { return m_flipView ? at.X : at.Y; }
    TPixelSpan AlongColumns(const TRect &rect) const;
    TPixelSpan AlongTime(const TRect &rect) const;

    /// Whether the time belongs to what the view shows, wherever its column is scrolled.
    virtual bool IsVisible(TzuDataEntity_SchemaTime &time) const;

    // --- painting, zuSchemaPaint.cpp ---

    /// Draws the whole area on the host's canvas.
    virtual void SchemaPaint();
    /// Colours, stripes and lines; the rectangle is that of the colour, in pixels.
    void DoBackground(TCanvas &canvas, int x, int y, int w, int h) const;
    /// All times in view, those on top last.
    void DoForeGround();
    /// Draws one time into its rectangle, selection and focus marks included.
    void DrawContent(TzuDataEntity_SchemaTime &time, const TRect &rect, TCanvas &canvas);
    /// What OnDrawTimeContent replaces; handlers may call it and draw on top.
    void DefaultDrawContent(const TzuDataEntity_SchemaTime &time, const TRect &rect,
                            TCanvas &canvas) const;
    /// Sets the font of a text style; every other number than 1 to 3 means the component's own
    /// font.
    void EnterTextStyle(TCanvas &canvas, int style) const;

    // --- sub-columns, zuSchemaSubCols.cpp ---

    // Sub-columns of the columns in view are worked out in the background, those of another column
    // when it is first drawn, looked at or asked for. Changes of times and columns see to that;
    // what OnIsVisible and overrides of IsVisible go by is to be announced by UpdateSubColumns.
    // A time without length, and with a LeastTimeLength of its own every short one, takes its
    // sub-column for as long as it is drawn, OnGetDrawingRect included.

    /// Has the sub-columns of all columns worked out soon.
    void UpdateSubColumns();
    /// Works them out at once.
    void UpdateSubColumnsNow();
    /// Has them worked out anew when they are next used: for prints, whose axis is another one.
    void ForgetSubColumns();
    /// Called before a sub-column of the column is used.
    void SubColumnsNeeded(int col);
    /// The scaler shows another time.
    void ScaleChanged();

    /// Called by the lists: a time has come to one, or left it. It may be half destroyed.
    virtual void TimeJoined(TzuDataEntity_SchemaTime &time);
    virtual void TimeLeft(TzuDataEntity_SchemaTime &time);
    /// Before column, start or stop of a time change.
    void TimeWillChange(TzuDataEntity_SchemaTime &time);
    /// Called by the columns: header and area are out of date.
    void ColumnsChanged();

    /// Of the times in all data lists. Times have come to a list, gone from it or been sorted in
    /// it.
    TPublished<TOnContentChanged> OnContentChanged_SchemaTime;
    /// For each time whose mark has changed, and for one that comes selected.
    TPublished<TOnSelectionChanged> OnSelectionChanged_SchemaTime;
    /// The time is about to be freed; it has left its list, but still knows it.
    TPublished<TOnDeleteItem> OnDeleteItem_SchemaTime;
    /// The time is in its list; OnContentChanged_SchemaTime follows.
    TPublished<TOnInsertItem> OnInsertItem_SchemaTime;
    /// Values of the time have changed, or it was hidden or shown; after
    /// OnChangeDataEntity_SchemaTime.
    TPublished<TOnInfoPush> OnValueChanged_SchemaTime;
    /// Times can be edited unless the handler says otherwise, by SetCanEdit.
    TPublished<TOnBeforeCanEditItem> OnBeforeCanEditItem_SchemaTime;
    /// Likewise of the columns.
    TPublished<TOnContentChanged> OnContentChanged_Column;
    TPublished<TOnSelectionChanged> OnSelectionChanged_Column;
    TPublished<TOnDeleteItem> OnDeleteItem_Column;
    TPublished<TOnInsertItem> OnInsertItem_Column;
    /// Values of the column have changed; not when it is only hidden or shown.
    TPublished<TOnInfoPush> OnValueChanged_Column;
    /// Columns keep what was set, false at first, unless the handler calls SetCanEdit.
    TPublished<TOnBeforeCanEditItem> OnBeforeCanEditItem_Column;
    /// After a change of start, stop or column of a time.
    TPublished<TOnChangeDataEntity_SchemaTime> OnChangeDataEntity_SchemaTime;
    /// Called for each new column, before OnInsertItem_Column.
    TOnInitColumnDataObject OnInitColumnDataObject;
    /// Asked for each caption that is shown or measured.
    THeaderFromColumn OnHeaderFromColumn;
    /// Asked for each column that is about to be resized by the user.
    TUserDecideColSize OnUserDecideColSize;
    /// With a handler, all times of the shown columns are passed for each paint.
    TOnIsVisible OnIsVisible;
    /// Asked for each time that is drawn or looked for; a rectangle that is changed counts for
    /// hits, too.
    TOnGetDrawingRect OnGetDrawingRect;
    /// Set, it draws each time; marks of selection and focus come on top.
    TOnDrawTimeContent OnDrawTimeContent;
    /// Draws over the background, and over everything.
    TDrawBackAndForeEvent OnDrawBackground;
    TDrawBackAndForeEvent OnDrawForeground;
    /// The axis shows another time: once per paint, never within a zoom drag.
    TPublished<TSchemaNotify> OnScalerChange;

protected:
    /// Creates lists and controllers through their factories. Called once, from the most derived
    /// constructor that lets its class' factories take part.
    void InitializeData();
    /// Releases times and columns. Called from the destructor of the class whose parts the handlers
    /// use.
    void FinalizeData();

    /// What the lists tell: each asks for a repaint and fires its event.
    virtual void _OnInsertItem(TzuDataEntity *item);
    virtual void _OnDeleteItem(TzuDataEntity *item);
    virtual void _OnContentChanged(TzuDataList *list);
    virtual void _OnInfoPush(TzuDataEntity *item);
    virtual void _OnSelectionChanged(TzuDataList *list, TzuDataEntity *item);
    virtual void _OnBeforeCanEditItem_Column(TzuDataEntity *item);

    /// Whether the time is in a list of a schedule; false for null.
    bool Knows(const TzuDataEntity_SchemaTime *time) const
    {
        return time != nullptr && TSchemaTimeIndex::Knows(*time);
    }
    /// The data lists as DrawLayers has them, the topmost first.
    std::vector<TzuDataList *> Layers();
    /// Puts times in the order in which a walk over the lists meets them; times of other lists are
    /// dropped.
    static void SortByPlace(const std::vector<TzuDataList *> &lists, TTimes &times);
    /// The data lists in their own order.
    std::vector<TzuDataList *> AllLists();

    /// Times of drawn data lists, topmost first, wherever columns and time are scrolled.
    TTimes VisibleTimesOfAllColumns() { return VisibleTimesOf(0, m_columns->Count()); }
    /// Of columns from..to-1.
    TTimes VisibleTimesOf(int from, int to);
    /// Of columns first..last that touch the time from..to, relative to the base dates.
    TTimes TimesOfColumns(int first, int last, TDateTime from, TDateTime to);
    /// Those that a rectangle touches, which may reach beyond the area.
    TTimes TimesReached(const TRect &rect);
    /// Whether a LeastTimeLength beyond the usual one makes the time longer than it is.
    bool IsDrawnLonger(const TzuDataEntity_SchemaTime &time) const;
    /// Where a time lies, also in a column that is scrolled away. It is in a column.
    TRect VirtualRect(const TzuDataEntity_SchemaTime &time) const
    {
        return RectOf(m_flipView, HeaderPixelsFromStartStopFromDataEntity(m_flipView, time),
                      ScalerPixelsFromStartStopFromDataEntity(m_flipView, time));
    }

private:
    static std::size_t FontSlot(int style) { return static_cast<std::size_t>(style) - 1; }
    template <typename T>
    void AssignPainted(T &field, const T &value);
    void WireControllers();
    TRect AreaRect() const;
    /// The shown columns that these pixels touch.
    struct TColumnRange
    {
        int From = 0;
        int To = 0; ///< behind the last
    };
    TColumnRange ColumnsAt(TPixelSpan pixels) const;
    TColumnRange ShownColumns() const;
    void Find(TColumnRange columns, TDateTime from, TDateTime to, TTimes &times);
    void Collect(TColumnRange columns, TDateTime from, TDateTime to, TTimes &times);
    /// A time and where it is drawn.
    struct TShownTime
    {
        TzuDataEntity_SchemaTime *Time;
        TRect Rect;
    };
    std::vector<TShownTime> ShownIn(const TRect &rect);
    static void LoadAll(const std::vector<TzuDataList *> &lists);
    struct TVisibleTime
    {
        TDateTime From = 0;
        TDateTime To = 0;
    };
    TVisibleTime VisibleTime() const;
    TVisibleTime NarrowedTo(TPixelSpan pixels, const TVisibleTime &visible) const;
    TTimes VisibleTimes(TColumnRange columns);
    void ReInitBitmap();
    void DrawStripes(TCanvas &canvas, const TRect &area) const;
    void DrawMarks(TCanvas &canvas, const TRect &area) const;
    void DrawColumnLines(TCanvas &canvas, const TRect &area) const;
    int Scaled(bool alongColumns, int pixel) const;
    void LineAcross(TCanvas &canvas, const TRect &area, int pixel, bool alongColumns) const;
    using TColumnNumbers = std::vector<int>;
    void UpdateSubColumnsOf(const TzuDataEntity &time);
    TColumnNumbers DueColumns(TColumnRange columns) const;
    void WorkOutSubCols(TColumnRange columns);
    void StopSeparation();
    TTimes VisibleTimesOf(const TColumnNumbers &columns);
    void FillHolders(const TColumnNumbers &columns, TDistinctTimeHolderList &holders);
    TDateTime LaneStop(TzuDataEntity_SchemaTime &time) const;
    void UpdateSubColumns_DoLater(TObject *sender);
    void UpdateSubColumns_Perform();
    void SubColThreadDone(TTimeDistinctGenericThread *sender);
    void ApplySubCols(const TColumnNumbers &columns, TDistinctTimeHolderList &holders);
    void WidenColumns(const TColumnNumbers &columns);
    void WidenColumns();
    void DropSubCols();
    void SetScalerWidth_Perform(TObject *sender);
    void SetScalerHeight_Perform(TObject *sender);
    void UpdatePartSizePerform(TObject *sender);
    void UpdateColumnScroller_Perform(TObject *sender);

    ISchemaHost &m_host;
    TzuSchema_ComBasic *m_component;
    TzuListController m_timeController;
    TzuListController m_columnController;
    TSchemaTimeIndex m_index;
    std::vector<std::unique_ptr<TzuDataList_Schema>> m_dataLists;
    std::unique_ptr<TzuDataList2lev> m_times;
    std::unique_ptr<TDataListColumns> m_columns;
    std::shared_ptr<TTimeDistinctGenericThread> m_separation;
    TColumnNumbers m_separated; ///< the columns that it is about
    TSubColsDue m_subColsDue;
    std::array<TFont, 3> m_textFonts;
    TDrawLayerArray m_drawLayers{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    TzuDataEntity_SchemaTime *m_active = nullptr;
    TSchemaPartSizes m_partSizes;
    int m_newScalerWidth = 0;
    int m_newScalerHeight = 0;
    int m_leastSubColWidth = 0;
    int m_leastTimeLength = kLeastTimeLength;
    TColor m_color = clGreen;
    TColor m_pyjamasColor = clOlive;
    TBrush m_pyjamas; ///< of every other column on screen
    TColor m_lineColor = clBackground;
    TColor m_shortLineColor = clSilver;
    TScrollVisibility m_scrollVisibility = TScrollVisibility::svWhenNeeded;
    bool m_flipView = false;
    bool m_drawShortLines = false;
    bool m_resizeAllCol = true;
    bool m_collisionDetect = true;
    bool m_collisionBetweenLists = false;
    bool m_subColsInListOrder = false;
    bool m_destroying = false;
};

} // namespace korvane
