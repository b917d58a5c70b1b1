#include "printing/qt/zuPrintPreview.h"

#include "foundation/qt/zuConvert.h"
#include "printing/qt/zuPrintDocument.h"

#include <QAbstractListModel>
#include <QCache>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>

namespace korvane {

namespace {

constexpr int kThumbnail = 120;
constexpr int kKeptThumbnails = 200;
constexpr int kMargin = 16;
constexpr double kLeastZoom = 0.1;
constexpr double kMostZoom = 8;

/// A sheet as large as fits into a square of device pixels; with what is wrong written on it when
/// it cannot be drawn.
QPixmap SheetPicture(TzuPrintDocument &document, int page, QSize size, double ratio)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    try {
        document.PaintPage(painter, QRectF(QPointF(0, 0), QSizeF(size)), page);
    } catch (const std::exception &error) {
        painter.resetTransform();
        painter.setClipping(false);
        painter.setPen(Qt::darkRed);
        painter.drawText(QRectF(QPointF(0, 0), QSizeF(size)), Qt::AlignCenter | Qt::TextWordWrap,
                         ToQt(error.what()));
    }
    return picture;
}

} // namespace

/// A row for each page, with its picture.
class TPreviewThumbnails : public QAbstractListModel
{
public:
    TPreviewThumbnails(TzuPrintDocument &document, QWidget &view)
        : QAbstractListModel(&view)
        , m_document(document)
        , m_view(view)
        , m_pictures(kKeptThumbnails)
    {
    }

    void Reset(int pages)
    {
        beginResetModel();
        m_pictures.clear();
        m_pages = pages;
        endResetModel();
    }
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : m_pages;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
            return QString::number(index.row() + 1);
        }
        if (role != Qt::DecorationRole) {
            return role == Qt::TextAlignmentRole ? QVariant(Qt::AlignHCenter) : QVariant();
        }
        QPixmap *kept = m_pictures.object(index.row());
        if (kept == nullptr) {
            const QSizeF sheet = SheetSizeOf(m_document.PageLayout(index.row()));
            const QSize size =
                sheet.scaled(QSizeF(kThumbnail, kThumbnail), Qt::KeepAspectRatio).toSize();
            kept = new QPixmap(SheetPicture(m_document, index.row(), size.expandedTo({1, 1}),
                                            m_view.devicePixelRatioF()));
            m_pictures.insert(index.row(), kept);
        }
        return *kept;
    }

private:
    TzuPrintDocument &m_document;
    QWidget &m_view;
    mutable QCache<int, QPixmap> m_pictures;
    int m_pages = 0;
};

/// The current page.
class TPreviewSheet : public QWidget
{
public:
    explicit TPreviewSheet(TzuPrintPreview &preview)
        : m_preview(preview)
    {
    }

    void Show(QSizeF sheet, double factor)
    {
        m_sheet = (sheet * factor).toSize().expandedTo({1, 1});
        m_picture.reset();
        setMinimumSize(m_sheet + QSize(2 * kMargin, 2 * kMargin));
        update();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), palette().color(QPalette::Mid));
        if (!m_preview.m_error.isEmpty() || m_preview.PageCount() == 0) {
            painter.setPen(palette().color(QPalette::WindowText));
            painter.drawText(rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                             Qt::AlignCenter | Qt::TextWordWrap, m_preview.m_error);
            return;
        }
        QRect place(QPoint(0, 0), m_sheet);
        place.moveCenter(rect().center());
        painter.fillRect(place.translated(3, 3), QColor(0, 0, 0, 60));
        // Pictures of moderate size are kept; of large ones what is seen is drawn each time.
        constexpr qint64 kMostPixels = 20'000'000;
        const double ratio = devicePixelRatioF();
        const double pixels = ratio * ratio * m_sheet.width() * m_sheet.height();
        if (pixels <= static_cast<double>(kMostPixels)) {
            if (!m_picture) {
                m_picture = SheetPicture(m_preview.m_document, m_preview.m_page, m_sheet, ratio);
            }
            painter.drawPixmap(place.topLeft(), *m_picture);
            return;
        }
        painter.setClipRect(event->rect());
        painter.fillRect(place, Qt::white);
        try {
            m_preview.m_document.PaintPage(painter, place, m_preview.m_page);
        } catch (const std::exception &error) {
            painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, ToQt(error.what()));
        }
    }

private:
    TzuPrintPreview &m_preview;
    QSize m_sheet;
    std::optional<QPixmap> m_picture;
};

TzuPrintPreview::TzuPrintPreview(TzuPrintDocument &document, QWidget *parent)
    : QWidget(parent)
    , m_document(document)
    , m_thumbnails(new TPreviewThumbnails(document, *this))
    , m_list(new QListView)
    , m_scroll(new QScrollArea)
    , m_sheet(new TPreviewSheet(*this))
{
    m_list->setModel(m_thumbnails);
    m_list->setViewMode(QListView::IconMode);
    m_list->setFlow(QListView::TopToBottom);
    m_list->setWrapping(false);
    m_list->setMovement(QListView::Static);
    m_list->setUniformItemSizes(true);
    m_list->setIconSize({kThumbnail, kThumbnail});
    m_list->setGridSize({kThumbnail + 24, kThumbnail + 32});
    m_list->setAccessibleName(tr("Pages"));
    m_list->setMinimumWidth(kThumbnail + 48);
    m_list->viewport()->setBackgroundRole(QPalette::Mid); // the sheets are white
    m_scroll->setWidget(m_sheet);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::StrongFocus);
    m_scroll->viewport()->installEventFilter(this);
    auto *split = new QSplitter;
    split->addWidget(m_list);
    split->addWidget(m_scroll);
    split->setStretchFactor(1, 1);
    split->setSizes({m_list->minimumWidth(), 10 * kThumbnail});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(split);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) {
                if (current.isValid()) {
                    SetCurrentPage(current.row());
                }
            });
}

TzuPrintPreview::~TzuPrintPreview() = default;

int TzuPrintPreview::PageCount() const
{
    return m_error.isEmpty() ? m_document.PageCount() : 0;
}

void TzuPrintPreview::Refresh()
{
    m_error.clear();
    try {
        m_document.LayOut();
    } catch (const std::exception &error) {
        m_error = ToQt(error.what());
    }
    const int page = std::clamp(m_page, 0, std::max(PageCount() - 1, 0));
    m_thumbnails->Reset(PageCount());
    m_page = page;
    m_list->setCurrentIndex(m_thumbnails->index(page));
    SizeSheet();
    Q_EMIT changed();
}

void TzuPrintPreview::SetCurrentPage(int page)
{
    page = std::clamp(page, 0, std::max(PageCount() - 1, 0));
    if (page != m_page) {
        m_page = page;
        m_list->setCurrentIndex(m_thumbnails->index(page));
        SizeSheet();
        Q_EMIT changed();
    }
}

double TzuPrintPreview::ZoomFactor() const
{
    if (m_zoom == TZoom::Factor || PageCount() == 0) {
        return m_factor;
    }
    const QSizeF sheet = SheetSizeOf(m_document.PageLayout(m_page));
    const QSizeF room = m_scroll->maximumViewportSize() - QSize(2 * kMargin, 2 * kMargin);
    const double across = room.width() / sheet.width();
    const double down = room.height() / sheet.height();
    if (m_zoom == TZoom::FitPage) {
        return std::clamp(std::min(across, down), kLeastZoom, kMostZoom);
    }
    const double bar = across > down ? m_scroll->verticalScrollBar()->sizeHint().width() : 0;
    return std::clamp((room.width() - bar) / sheet.width(), kLeastZoom, kMostZoom);
}

void TzuPrintPreview::SetZoom(TZoom zoom)
{
    m_factor = ZoomFactor();
    m_zoom = zoom;
    SizeSheet();
    Q_EMIT changed();
}

void TzuPrintPreview::SetZoomFactor(double factor)
{
    m_factor = std::clamp(factor, kLeastZoom, kMostZoom);
    m_zoom = TZoom::Factor;
    SizeSheet();
    Q_EMIT changed();
}

void TzuPrintPreview::SizeSheet()
{
    if (PageCount() == 0) {
        m_sheet->Show({}, 1);
        return;
    }
    m_sheet->Show(SheetSizeOf(m_document.PageLayout(m_page)), ZoomFactor());
}

void TzuPrintPreview::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_zoom != TZoom::Factor) {
        SizeSheet();
    }
}

void TzuPrintPreview::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        SetCurrentPage(m_page + 1);
        break;
    case Qt::Key_PageUp:
        SetCurrentPage(m_page - 1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

bool TzuPrintPreview::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) {
        const auto *wheel = static_cast<QWheelEvent *>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier) && wheel->angleDelta().y() != 0) {
            constexpr double kPerNotch = 1.2;
            constexpr double kNotch = 120;
            SetZoomFactor(ZoomFactor() * std::pow(kPerNotch, wheel->angleDelta().y() / kNotch));
            return true;
        }
    }
    if (event->type() == QEvent::Resize && m_zoom != TZoom::Factor) {
        SizeSheet();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace korvane
