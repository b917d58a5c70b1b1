#include "printing/qt/zuPrintJob.h"

#include "foundation/zuTranslate.h"

#include <algorithm>
#include <stdexcept>

namespace korvane {

TzuPrintJob::~TzuPrintJob()
{
    for (const TPart &part : m_parts) {
        part.Printing->SetNumbering(1, 0);
    }
}

void TzuPrintJob::LayOut()
{
    if (m_parts.empty()) {
        throw std::runtime_error(Translate("TzuPrinting", "There is nothing to print"));
    }
    int pages = 0;
    for (TPart &part : m_parts) {
        part.Printing->LayOut();
        part.First = pages;
        pages += part.Printing->PageCount();
    }
    for (const TPart &part : m_parts) {
        part.Printing->SetNumbering(part.First + 1, pages);
    }
}

int TzuPrintJob::PageCount() const
{
    return m_parts.empty() ? 0 : m_parts.back().First + m_parts.back().Printing->PageCount();
}

const TzuPrintJob::TPart &TzuPrintJob::PartOf(int page) const
{
    if (page < 0 || page >= PageCount()) {
        throw std::out_of_range("There is no such page");
    }
    const auto after = std::ranges::upper_bound(m_parts, page, {}, &TPart::First);
    return *(after - 1);
}

QPageLayout TzuPrintJob::PageLayout(int page) const
{
    const TPart &part = PartOf(page);
    return part.Printing->PageLayout(page - part.First);
}

std::vector<TPrintBookmark> TzuPrintJob::Bookmarks() const
{
    std::vector<TPrintBookmark> bookmarks;
    for (const TPart &part : m_parts) {
        const QString title = part.Printing->Title();
        const int below = title.isEmpty() ? 0 : 1;
        if (below > 0) {
            bookmarks.push_back({title, 0, part.First, 0});
        }
        for (TPrintBookmark bookmark : part.Printing->Bookmarks()) {
            bookmark.Level += below;
            bookmark.Page += part.First;
            bookmarks.push_back(bookmark);
        }
    }
    return bookmarks;
}

void TzuPrintJob::PaintPage(QPainter &painter, const QRectF &sheet, int page)
{
    const TPart &part = PartOf(page);
    part.Printing->PaintPage(painter, sheet, page - part.First);
}

} // namespace korvane
