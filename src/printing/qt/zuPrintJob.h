// Several prints in one document.
#pragma once

#include "foundation/zuExport.h"
#include "printing/qt/zuPrinting.h"

#include <vector>

namespace korvane {

/// A document of several prints, one after the other, each on its own paper; for example a chart,
/// then its table, then a schedule. Pages are numbered throughout, and each print is a bookmark.
class KORVANE_WIDGETS_API TzuPrintJob : public TzuPrintDocument
{
public:
    ~TzuPrintJob() override;

    /// The print is observed; its numbering is the job's until the job is gone.
    void Add(TzuPrinting &part) { m_parts.push_back({&part, 0}); }

    /// Parts with nothing to print are an error, as they are alone.
    void LayOut() override;

    int PageCount() const override;
    QPageLayout PageLayout(int page) const override;
    std::vector<TPrintBookmark> Bookmarks() const override;
    void PaintPage(QPainter &painter, const QRectF &sheet, int page) override;

private:
    struct TPart
    {
        TzuPrinting *Printing;
        int First; ///< page
    };

    const TPart &PartOf(int page) const;

    std::vector<TPart> m_parts;
};

} // namespace korvane
