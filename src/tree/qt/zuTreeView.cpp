// Properties and events of the tree component.
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "tree/qt/zuTreeComBasic.h"
#include "tree/qt/zuTreeDelegate.h"
#include "tree/qt/zuTreeModel.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// Least room above and below a caption, both together, in pixels.
constexpr int kCaptionPadding = 4;

} // namespace

// --- properties ----------------------------------------------------------------------------------

void TzuTree_ComBasic::SetColor(TColor color)
{
    if (m_color == color) {
        return;
    }
    m_color = color;
    QPalette own = palette();
    const QPalette inherited = QApplication::palette(this);
    own.setBrush(QPalette::Base,
                 color == clWindow ? inherited.brush(QPalette::Base) : ToQt(color, inherited));
    setPalette(own);
}

TFont TzuTree_ComBasic::Font() const
{
    TFont result = FromQt(font());
    result.Color = m_fontColor;
    return result;
}

void TzuTree_ComBasic::SetFont(const TFont &font)
{
    if (font == Font()) {
        return;
    }
    m_fontColor = font.Color;
    setFont(ToQt(font));
    QPalette own = palette();
    const QPalette inherited = QApplication::palette(this);
    own.setBrush(QPalette::Text, font.Color == clWindowText ? inherited.brush(QPalette::Text)
                                                            : ToQt(font.Color, inherited));
    setPalette(own);
}

TBorderStyle TzuTree_ComBasic::BorderStyle() const
{
    return frameShape() == NoFrame ? TBorderStyle::bsNone : TBorderStyle::bsSingle;
}

void TzuTree_ComBasic::SetBorderStyle(TBorderStyle style)
{
    setFrameShape(style == TBorderStyle::bsNone ? NoFrame : StyledPanel);
}

void TzuTree_ComBasic::SetHideSelection(bool hide)
{
    if (m_hideSelection != hide) {
        m_hideSelection = hide;
        viewport()->update();
    }
}

void TzuTree_ComBasic::SetHotTrack(bool track)
{
    if (m_hotTrack != track) {
        m_hotTrack = track;
        viewport()->update();
    }
}

void TzuTree_ComBasic::SetMultiSelect(bool multi)
{
    if (MultiSelect() != multi) {
        setSelectionMode(multi ? ExtendedSelection : SingleSelection); // for assistive programs
        TTreeUserCore::SetMultiSelect(multi);
    }
}

void TzuTree_ComBasic::SetRowSelect(bool select)
{
    if (m_rowSelect != select) {
        m_rowSelect = select;
        setSelectionBehavior(select ? SelectRows : SelectItems);
        viewport()->update();
    }
}

void TzuTree_ComBasic::SetShowButtons(bool show)
{
    if (m_showButtons != show) {
        m_showButtons = show;
        setRootIsDecorated(m_showButtons || m_showLines);
        viewport()->update();
    }
}

void TzuTree_ComBasic::SetShowLines(bool show)
{
    if (m_showLines != show) {
        m_showLines = show;
        setRootIsDecorated(m_showButtons || m_showLines);
        viewport()->update();
    }
}

void TzuTree_ComBasic::SetImages(const TzuImageList *images)
{
    if (m_images == images) {
        return;
    }
    m_images = images;
    ForgetRowHeight();
    RowsChanged();
}

int TzuTree_ComBasic::DefaultRowHeight() const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.features |= QStyleOptionViewItem::HasDisplay;
    option.text = QStringLiteral("Ag");
    option.fontMetrics = QFontMetrics(option.font);
    if (m_images != nullptr) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.decorationSize = {m_images->Size().Width, m_images->Size().Height};
    }
    const int height =
        style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, QSize(), this).height();
    return std::max(height, option.fontMetrics.height() + kCaptionPadding);
}

// --- events --------------------------------------------------------------------------------------

bool TzuTree_ComBasic::event(QEvent *event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::Show) {
        BringViewUpToDate();
    }
    return TCustomTreeView::event(event);
}

bool TzuTree_ComBasic::viewportEvent(QEvent *event)
{
    if (event->isInputEvent()) {
        BringViewUpToDate();
    }
    FollowPointer(*event);
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        BringViewUpToDate();
        if (m_toolTips && ShowElidedCaption(help->pos(), help->globalPos())) {
            return true;
        }
    }
    return TCustomTreeView::viewportEvent(event);
}

bool TzuTree_ComBasic::ShowElidedCaption(const QPoint &at, const QPoint &globalAt)
{
    const QModelIndex index = indexAt(at);
    if (!index.isValid()) {
        return false;
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QRect rect = visualRect(index);
    if (m_delegate->CaptionWidth(option, index) <= rect.width()) {
        return false;
    }
    QToolTip::showText(globalAt, index.data().toString().toHtmlEscaped(), viewport(), rect);
    return true;
}

void TzuTree_ComBasic::paintEvent(QPaintEvent *event)
{
    BringViewUpToDate();
    TCustomTreeView::paintEvent(event);
    QPainter painter(viewport());
    m_dragging->Draw(painter);
}

void TzuTree_ComBasic::resizeEvent(QResizeEvent *event)
{
    TCustomTreeView::resizeEvent(event);
    HandleScrollInfo();
}

void TzuTree_ComBasic::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        ForgetRowHeight();
        Nodes().SetFont(font());
    }
    TCustomTreeView::changeEvent(event);
}

} // namespace korvane
