// A view of pages before they are printed.
#pragma once

#include "foundation/zuExport.h"

#include <QPixmap>
#include <QString>
#include <QWidget>

class QAbstractListModel;
class QLabel;
class QListView;
class QScrollArea;

namespace korvane {

class TPreviewSheet;
class TPreviewThumbnails;
class TzuPrintDocument;

/// Shows a document's pages: small pictures of all of them beside a large one. Small pictures are
/// drawn when they come into view, so that a document of a thousand pages opens at once.
///
/// Ctrl and the wheel zoom; Page Up and Page Down turn the pages.
class KORVANE_WIDGETS_API TzuPrintPreview : public QWidget
{
    Q_OBJECT

public:
    /// How large the page is shown: as a whole, as wide as the view, or by a factor.
    enum class TZoom : unsigned char { FitPage, FitWidth, Factor };

    /// The document is observed.
    explicit TzuPrintPreview(TzuPrintDocument &document, QWidget *parent = nullptr);

    ~TzuPrintPreview() override;

    /// Lays the document out and shows it anew, on the same page as far as there is one. What is
    /// wrong stands in place of the pages. Also for every change of the options.
    void Refresh();
    /// What is wrong; empty when there are pages.
    const QString &Error() const { return m_error; }
    /// Number of pages; 0 while something is wrong.
    int PageCount() const;
    /// From 0. A page that does not exist means the nearest one; another page fires changed.
    int CurrentPage() const { return m_page; }
    void SetCurrentPage(int page);

    /// FitPage by default.
    TZoom Zoom() const { return m_zoom; }
    /// On screen, in relation to the size on paper.
    double ZoomFactor() const;
    /// Fires changed.
    void SetZoom(TZoom zoom);
    /// A factor is brought into 0.1 to 8, and fires changed.
    void SetZoomFactor(double factor);

Q_SIGNALS:
    /// There are other pages, or the current one is another.
    void changed();

protected:
    /// Zooming, and turning pages; see above.
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class TPreviewSheet;

    void SizeSheet();

    TzuPrintDocument &m_document;
    TPreviewThumbnails *m_thumbnails;
    QListView *m_list;
    QScrollArea *m_scroll;
    TPreviewSheet *m_sheet;
    QString m_error;
    int m_page = 0;
    TZoom m_zoom = TZoom::FitPage;
    double m_factor = 1;
};

} // namespace korvane
