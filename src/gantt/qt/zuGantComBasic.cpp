#include "gantt/qt/zuGantComBasic.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuGraphStuff.h"
#include "foundation/qt/zuSplitter.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGantAccessible.h"
#include "gantt/qt/zuGantAreaInput.h"
#include "gantt/qt/zuGantAreaKeys.h"
#include "gantt/qt/zuGantLines.h"
#include "gantt/qt/zuGantPrintView.h"
#include "grid/qt/zuGrid.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTabBar>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace korvane {

namespace {

constexpr int kScalerHeight = 45;
constexpr int kTreeWidth = 100;
constexpr int kScrollWidth = 16;
constexpr int kDaysAround = 15;

template <typename Layout>
Layout *TightLayout(QWidget &widget)
{
    auto *layout = new Layout(&widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return layout;
}

/// A strip as high as the axis, beside it.
QWidget *AddSpacer(QWidget &holder, QBoxLayout &layout)
{
    auto *spacer = new QWidget(&holder);
    spacer->setFixedHeight(kScalerHeight);
    layout.addWidget(spacer);
    return spacer;
}

} // namespace

TzuGant_ComBasic::TzuGant_ComBasic(QWidget *parent, TConstruction construction)
    : QFrame(parent)
    , TGantKeys(static_cast<IGantHost &>(*this), static_cast<IGantInputHost &>(*this), this)
{
    InstallToolkitServices();
    InstallGantAccessibility();
    if (construction == TConstruction::Complete) {
        InitializeInConstructor();
    }
}

TzuGant_ComBasic::~TzuGant_ComBasic()
{
    m_pages->OnChanging = nullptr;
    m_pages->OnChange = nullptr;
    // Handlers that run while the data goes still see all parts.
    FinalizeData();
    PartFromGrid();
}

void TzuGant_ComBasic::InitializeInConstructor()
{
    resize(350, 250);
    setWindowTitle(QStringLiteral("OffscreenPaint"));
    InitializeData();
    CreateParts();
    HandleTreeAlign();
}

void TzuGant_ComBasic::CreateParts()
{
    m_treeHolder = new QWidget(this);
    m_areaHolder = new QWidget(this);
    m_areaHolder->setObjectName(QStringLiteral("PanelScaleAndGantHolder"));
    m_scrollHolder = new QWidget(this);
    m_pages = new TGantPageControl(this);
    m_pages->hide();
    auto *layout = TightLayout<QHBoxLayout>(*this);
    layout->addWidget(m_treeHolder);
    layout->addWidget(m_areaHolder, 1);
    layout->addWidget(m_scrollHolder);
    layout->addWidget(m_pages, 1);

    CreateAreaSide(*m_areaHolder);
    CreateScrollSide(*m_scrollHolder);
    CreateTreeSide(*m_treeHolder);
    // Behind all that Tab reaches before it: the first of them gets a window's first focus.
    m_splitter = new TzuSplitter(this);
    layout->insertWidget(1, m_splitter);
    m_hintWindow = new TGraphHintWindow(this);

    SetTreeWidth(kTreeWidth);
    setTabOrder(m_tree, m_area);
    setTabOrder(m_area, m_scaler);
    setTabOrder(m_scaler, &m_pages->Tabs());
    setTabOrder(&m_pages->Tabs(), m_splitter);
    m_splitter->OnMoved = TzuSplitter::TNotifyEvent::Bind<&TzuGant_ComBasic::SplitterMoved>(this);
    m_pages->OnChanging =
        TMethod<void(TGantPageControl *, bool &)>::Bind<&TzuGant_ComBasic::PageChanging>(this);
    m_pages->OnChange =
        TMethod<void(TGantPageControl *)>::Bind<&TzuGant_ComBasic::PageChange>(this);
    m_hintWindow->OnWantsNewText = [this](TGraphHintWindow *, QPoint, QString &text) {
        for (const std::string &line : HintWantsNewText()) {
            text +=
                (text.isEmpty() || line.empty() ? QString() : QStringLiteral("\n")) + ToQt(line);
        }
    };
    m_pages->Tabs().installEventFilter(this);
    m_treeHolder->installEventFilter(this);
    m_treeSpacer->installEventFilter(this);
}

void TzuGant_ComBasic::CreateAreaSide(QWidget &holder)
{
    auto *layout = TightLayout<QVBoxLayout>(holder);
    m_scaler = CreateDateScaler(&holder);
    m_scaler->SetHorizontal(true);
    m_scaler->setFixedHeight(kScalerHeight);
    m_scaler->SetStart(Today() - kDaysAround);
    m_scaler->SetStop(Today() + kDaysAround);
    m_scaler->SetTimeFormat("HH:MM:SS");
    m_scaler->SetDateFormat("YYMMDD");
    m_scaler->OnChange = TDateScalerCore::TNotify::Bind<&TzuGant_ComBasic::ScaleChanged>(this);
    m_scaler->OnPrintResizeFont =
        TzuOffscreenPaint::TOnPrintResizeFont::Bind<&TzuGant_ComBasic::_OnPrintResizeFont>(this);
    layout->addWidget(m_scaler);

    m_area = new TzuOffscreenPaint(&holder);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->SetTabStop(true);
    m_area->setMouseTracking(true);
    m_area->OnPaint = [this](TzuOffscreenPaint *) { GantAreaPaint(); };
    m_input = std::make_unique<TGantAreaInput>(*this, *m_area);
    m_keys = std::make_unique<TGantAreaKeys>(*this, *m_area);
    m_area->OnWheelMessage = [this](QWheelEvent &event) { GantAreaWheelScroll(event); };
    m_area->OnPrintResizeFont = m_scaler->OnPrintResizeFont;
    layout->addWidget(m_area, 1);
    m_areaFoot = new QWidget(&holder);
    m_areaFoot->hide();
    layout->addWidget(m_areaFoot);
}

void TzuGant_ComBasic::CreateScrollSide(QWidget &holder)
{
    auto *layout = TightLayout<QVBoxLayout>(holder);
    m_scrollSpacer = AddSpacer(holder, *layout);
    m_scrollBar = new QScrollBar(Qt::Vertical, &holder);
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    m_scrollBar->setEnabled(false);
    layout->addWidget(m_scrollBar, 1);
    holder.setFixedWidth(qMax(kScrollWidth, m_scrollBar->sizeHint().width()));
}

void TzuGant_ComBasic::CreateTreeSide(QWidget &holder)
{
    auto *layout = TightLayout<QVBoxLayout>(holder);
    m_treeSpacer = AddSpacer(holder, *layout);
    m_tree = CreateTree(&holder);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->SetVertScrollExternal(m_scrollBar);
    m_tree->OnStartDrag = [this](auto &&...args) { OnTreeStartDrag(args...); };
    m_tree->OnDragOver = [this](auto &&...args) { OnTreeDragOver(args...); };
    m_tree->OnDragDrop = [this](auto &&...args) { OnTreeDragDrop(args...); };
    m_treeLines = MakeTreeLines(*m_tree, *m_area, GantRows());
    layout->addWidget(m_tree, 1);
}

TzuDateScaler *TzuGant_ComBasic::CreateDateScaler(QWidget *parent)
{
    return new TzuDateScaler(parent);
}

TGantTree *TzuGant_ComBasic::CreateTree(QWidget *parent)
{
    return new TGantTree(*this, parent);
}

TzuDataEntity_Tree *TzuGant_ComBasic::AddRootDataEntityTree(std::string_view text)
{
    return AddDataEntityTree(nullptr, text);
}

TzuDataEntity_Tree *TzuGant_ComBasic::AddDataEntityTree(TzuDataEntity_Tree *parent,
                                                        std::string_view text)
{
    TzuDataEntity_Tree *node = m_tree->AddDataEntity(parent);
    if (node != nullptr && !text.empty()) {
        node->SetText(text);
    }
    return node;
}

void TzuGant_ComBasic::MakeSureAllVisibleInTree()
{
    if (UseGridNotTree()) {
        Grid().GetTree()->FullExpand();
        Grid().SetCurrentDataEntity(Grid().GetCurrentDataEntity());
        return;
    }
    m_tree->FullExpand();
    if (TzuDataEntity_Tree *current = m_tree->GetCurrentDataEntity()) {
        m_tree->MakeVisible(*current);
    }
}

int TzuGant_ComBasic::GetScalerHeight() const
{
    return m_scaler->height();
}

void TzuGant_ComBasic::SetScalerHeight(int pixels)
{
    m_scrollSpacer->setFixedHeight(pixels);
    m_scaler->setFixedHeight(pixels);
    LevelTreeSpacer();
    HandleTreeAlign();
}

int TzuGant_ComBasic::TreeWidth() const
{
    return m_splitter->Size();
}

void TzuGant_ComBasic::SetTreeWidth(int pixels)
{
    m_splitter->SetSize(pixels);
}

QString TzuGant_ComBasic::DateFormat() const
{
    return ToQt(m_scaler->TDateScalerCore::DateFormat());
}

void TzuGant_ComBasic::SetDateFormat(const QString &format)
{
    m_scaler->TDateScalerCore::SetDateFormat(FromQt(format));
}

QString TzuGant_ComBasic::TimeFormat() const
{
    return ToQt(m_scaler->TDateScalerCore::TimeFormat());
}

void TzuGant_ComBasic::SetTimeFormat(const QString &format)
{
    m_scaler->TDateScalerCore::SetTimeFormat(FromQt(format));
}

QFont TzuGant_ComBasic::FontScaler() const
{
    return ToQt(m_scaler->TDateScalerCore::TextFont1());
}

void TzuGant_ComBasic::SetFontScaler(const QFont &font)
{
    TDateScalerCore &scaler = *m_scaler;
    const TFont converted = FromQt(font, scaler.TextFont1());
    scaler.SetTextFont1(converted);
    scaler.SetTextFont2(converted);
    scaler.SetTextFont3(converted);
}

void TzuGant_ComBasic::SetScaleAndTree(TDateTime start, TDateTime stop, int treeWidth)
{
    const QScopedValueRollback setting(m_settingScaleAndTree, true);
    BeginUpdate();
    SetTreeWidth(treeWidth);
    SetStart(start);
    SetStop(stop);
    EndUpdate();
    m_restoredTimes.emplace(Start(), Stop());
}

void TzuGant_ComBasic::BeginUpdate()
{
    m_scaler->BeginUpdate();
    m_area->BeginUpdate();
    m_tree->BeginUpdate();
    if (m_grid != nullptr) {
        m_grid->BeginUpdate();
    }
}

void TzuGant_ComBasic::EndUpdate()
{
    m_scaler->EndUpdate();
    m_area->EndUpdate();
    m_tree->EndUpdate();
    if (m_grid != nullptr && m_grid->UpdateCount() > 0) { // not if it came within the update
        m_grid->EndUpdate();
    }
}

void TzuGant_ComBasic::RefreshOthers(const QWidget *sender)
{
    if (sender != m_scaler) {
        m_scaler->Invalidate();
    }
    if (sender != m_tree) {
        m_tree->viewport()->update();
    }
    if (m_grid != nullptr && sender != m_grid) {
        m_grid->Invalidate();
    }
    if (sender != m_area) {
        InvalidateArea();
    }
}

void TzuGant_ComBasic::RePaint()
{
    update();
    RefreshOthers(nullptr);
}

void TzuGant_ComBasic::HandleTreeAlign()
{
    if (m_tree == nullptr) {
        return;
    }
    const QPointer<TzuGant_ComBasic> self(this);
    AlignNeeded();
    if (!self.isNull()) {
        m_hintWindow->SetBoundsRect({1, 1, m_treeSpacer->width(), m_treeSpacer->height()});
        m_tree->ExternalScrollOutOfDate();
        InvalidateArea();
    }
}

void TzuGant_ComBasic::AlignNeeded()
{
    if (!m_settingScaleAndTree) {
        OnAlignNeed(this, Start(), Stop(), TreeWidth());
    }
}

void TzuGant_ComBasic::ScaleChanged(TObject * /*sender*/)
{
    const QPointer<TzuGant_ComBasic> self(this);
    // The scaler reports a restored view after the next paint; that is still no call for aligning.
    if (std::exchange(m_restoredTimes, std::nullopt) != std::pair(Start(), Stop())) {
        AlignNeeded();
    }
    if (self.isNull()) {
        return;
    }
    const TDateTime start = Start();
    OnScalerChange(this, Start(), Stop());
    if (self.isNull()) {
        return;
    }
    // Only a moved start stops the stepping; a handler may limit the stop alone and go on.
    if (Start() != start) {
        m_scaler->StopStep();
    }
    InvalidateArea();
}

void TzuGant_ComBasic::RealignScrollbar(const TScrollInfo &info)
{
    const bool shown = m_scrollBar->isEnabled() && !UseGridNotTree();
    m_scrollHolder->setVisible(shown);
    if (UseGridNotTree()) {
        return; // the grid has a bar of its own
    }
    OnRealignScrollbar(this, info.Position, info.Min, info.Max, info.Page, shown);
}

void TzuGant_ComBasic::_OnPrintResizeFont(TzuOffscreenPaint *caller, int &fontSize,
                                          bool &defaultResize)
{
    OnPrintResizeFont(caller, fontSize, defaultResize);
}

void TzuGant_ComBasic::GantAreaWheelScroll(QWheelEvent &event)
{
    if (!m_input->WheelOverAxis(event)) {
        if (UseGridNotTree()) {
            QCoreApplication::sendEvent(m_grid, &event);
        } else {
            m_tree->Scroll(-event.angleDelta().y());
        }
    }
    event.accept();
}

bool TzuGant_ComBasic::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        // The spacer is as wide as the holder: its width is told already.
        const auto &resize = static_cast<QResizeEvent &>(*event);
        if (watched == m_treeHolder
            || (watched == m_treeSpacer && resize.size().height() != resize.oldSize().height())) {
            HandleTreeAlign();
        } else if (watched == &m_pages->Tabs() && GetTabSheetsONOFF()) {
            LevelTreeSpacer();
        }
    }
    return QFrame::eventFilter(watched, event);
}

void TzuGant_ComBasic::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    OnResize(this);
}

void TzuGant_ComBasic::focusInEvent(QFocusEvent *event)
{
    m_area->setFocus(event->reason());
}

void TzuGant_ComBasic::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_area != nullptr) {
        RePaint();
    }
}

void TzuGant_ComBasic::CollectVisibleNodes(std::vector<TVisibleNode> &nodes)
{
    if (m_printView != nullptr) {
        m_printView->CollectRows(nodes);
        return;
    }
    Lines().CollectVisible(nodes);
}

void TzuGant_ComBasic::InvalidateArea()
{
    if (m_area != nullptr) {
        m_area->Invalidate();
    }
}

TSize TzuGant_ComBasic::AreaSize() const
{
    return {PaintedArea().Width(), PaintedArea().Height()};
}

TCanvas &TzuGant_ComBasic::AreaCanvas()
{
    return PaintedArea().GetOffscreenCanvas();
}

TPrintScale TzuGant_ComBasic::AreaPrintScale() const
{
    return {PaintedArea().GetScalex(), PaintedArea().GetScaley()};
}

void TzuGant_ComBasic::PrintResizeAreaFont()
{
    PaintedArea().PrintResizeFont();
}

void TzuGant_ComBasic::SetPrintView(IGantPrintView *view)
{
    m_printView = view;
    UpdateRects();
    InvalidateArea();
}

TRect TzuGant_ComBasic::WholeArea() const
{
    return m_printView != nullptr ? m_printView->WholeArea() : m_area->ClientArea();
}

TzuOffscreenPaint &TzuGant_ComBasic::PaintedArea() const
{
    return m_printView != nullptr ? m_printView->Area() : *m_area;
}

TzuDateScaler &TzuGant_ComBasic::PaintedAxis() const
{
    return m_printView != nullptr ? m_printView->Axis() : *m_scaler;
}

void TzuGant_ComBasic::LinkDrawn(const TzuDataEntity_Link &link, std::span<const TPoint> line)
{
    if (m_printView != nullptr) {
        m_printView->LinkDrawn(link, line);
    }
}

} // namespace korvane
