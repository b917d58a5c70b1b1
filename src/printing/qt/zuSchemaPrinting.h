// Printing of the schedule view.
#pragma once

#include "foundation/zuExport.h"
#include "printing/qt/zuPrintChoice.h"
#include "printing/qt/zuPrinting.h"

#include <memory>
#include <vector>

namespace korvane {

class TCanvas;
class TPageAxisLabels;
class TSchemaPage;
class TzuDateScaler;
class TzuSchema_ComBasic;

/// Prints a schedule in its present view: all columns, also those scrolled away, over any time, or
/// else over what the axis shows. Times are those of the axis: less the columns' base dates.
///
/// Axis and captions of columns are repeated on every page. Pages end between columns and at
/// calendar boundaries. Selection and focus are not printed. Times that overlap anywhere in the
/// printed time stand side by side.
class KORVANE_WIDGETS_API TzuSchemaPrinting : public TzuPrinting,
                                              public TPrintTimeChoice,
                                              private TPrintRowChoice
{
public:
    /// The schedule is observed.
    explicit TzuSchemaPrinting(TzuSchema_ComBasic &schema);

    ~TzuSchemaPrinting() override;

    /// The columns to print, from 0, both included.
    void SetColumns(int first, int last) { SetRows(first, last); }
    void SetAllColumns() { SetAllRows(); }
    /// Only columns with a selected time.
    using TPrintRowChoice::SetSelectionOnly;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;

    /// Of every column, whether anything in it is selected.
    virtual std::vector<bool> SelectedColumns() const;
    /// A band between the captions and the times, on every page: its extent across the columns in
    /// pixels of content, asked for by each layout; 0, as by default, for none.
    virtual int BandThickness() const { return 0; }
    /// What stands beside the band, at the axis.
    virtual QString BandCaption() const { return {}; }
    /// Draws the band of columns that follow each other. The first one begins at 0, and meanwhile
    /// it is the schedule's first shown one.
    virtual void PaintBand(TCanvas & /*canvas*/, TSize /*size*/) {}

private:
    friend class TSchemaPage;

    bool IsFlipped() const;
    const TPageSpan &ColumnSpan(const TPrintPage &page) const;
    const TPageSpan &TimeSpan(const TPrintPage &page) const;
    void CollectColumns();
    int LabelWidth() const;
    int HeadHeight() const;
    int AxisThickness() const;
    void PaintCaptions(QPainter &painter, const TPrintPage &page) const;

    TzuSchema_ComBasic &m_schema;

    // As last laid out.
    std::vector<int> m_columns; ///< numbers of the printed ones
    std::unique_ptr<TPrintRows> m_columnAxis;
    std::unique_ptr<TzuDateScaler> m_axis; ///< all of the printed time
    std::unique_ptr<TPageAxisLabels> m_axisLabels;
    int m_captionRoom = 0;   ///< height of the captions, or width in the flipped view
    int m_bandThickness = 0; ///< likewise
};

} // namespace korvane
