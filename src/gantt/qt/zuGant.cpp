#include "gantt/qt/zuGant.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuLifeWatch.h"

namespace korvane {

TzuGant::TzuGant(QWidget *parent, TConstruction construction)
    : TzuGant_ComBasic(parent, construction)
{
}

QColor TzuGant::ColorTree() const
{
    return ToQt(Tree().Color(), palette());
}

void TzuGant::SetColorTree(const QColor &value)
{
    Tree().SetColor(FromQt(value));
}

QFont TzuGant::FontTree() const
{
    return ToQt(Tree().Font());
}

void TzuGant::SetFontTree(const QFont &value)
{
    Tree().SetFont(FromQt(value, Tree().Font()));
}

QDateTime TzuGant::StartDateTime() const
{
    return ToQDateTime(Start());
}

void TzuGant::SetStartDateTime(const QDateTime &start)
{
    SetStart(FromQt(start));
}

QDateTime TzuGant::StopDateTime() const
{
    return ToQDateTime(Stop());
}

void TzuGant::SetStopDateTime(const QDateTime &stop)
{
    SetStop(FromQt(stop));
}

QColor TzuGant::BackColor() const
{
    return ToQt(GantBackColor(), palette());
}

void TzuGant::SetBackColor(const QColor &color)
{
    SetGantBackColor(FromQt(color));
}

QColor TzuGant::PyjamasColor() const
{
    return ToQt(GantPyjamasColor(), palette());
}

void TzuGant::SetPyjamasColor(const QColor &color)
{
    SetGantPyjamasColor(FromQt(color));
}

QColor TzuGant::LinkColor() const
{
    return ToQt(DefaultLinkColor(), palette());
}

void TzuGant::SetLinkColor(const QColor &color)
{
    SetDefaultLinkColor(FromQt(color));
}

QFont TzuGant::ItemFont(int style) const
{
    return ToQt(FontTimeItemStyle(style));
}

void TzuGant::SetItemFont(int style, const QFont &font)
{
    SetFontTimeItemStyle(style, FromQt(font, FontTimeItemStyle(style)));
}

QWidget &TzuGant::WidgetOf(TPart part)
{
    switch (part) {
    case AreaPart:
        return GantArea();
    case AxisPart:
        return DateScaler();
    default:
        return *this;
    }
}

void TzuGant::SetMenu(TPart part, QMenu *menu)
{
    QPointer<QMenu> &slot = m_menus.at(part);
    if (menu == slot) {
        return;
    }
    QWidget &widget = WidgetOf(part);
    if (slot.isNull()) {
        connect(&widget, &QWidget::customContextMenuRequested, this,
                [this, part](QPoint at) { PopUp(part, at); });
    }
    if (menu == nullptr) {
        disconnect(&widget, &QWidget::customContextMenuRequested, this, nullptr);
    }
    slot = menu;
    widget.setContextMenuPolicy(menu != nullptr ? Qt::CustomContextMenu : Qt::DefaultContextMenu);
}

void TzuGant::PopUp(TPart part, QPoint at)
{
    if (QMenu *menu = m_menus.at(part)) {
        menu->popup(WidgetOf(part).mapToGlobal(at));
    }
}

// --- signals -------------------------------------------------------------------------------------
// Handlers come first. They may free the item and destroy the chart, and nobody is told then.

template <typename Entity>
void TzuGant::TellOf(TzuDataEntity *entity, const auto &handlers, void (TzuGant::*signal)(Entity *))
{
    const QPointer<TzuGant> self(this);
    const TzuLifeWatch lives(*entity);
    handlers();
    if (!self.isNull() && lives) {
        Q_EMIT(this->*signal)(static_cast<Entity *>(entity));
    }
}

TzuGrid *TzuGant::CreateGrid(QWidget *parent)
{
    TzuGrid *grid = TzuGant_ComBasic::CreateGrid(parent);
    connect(grid, &TzuGrid::topLeftChanged, this, &TzuGant::gridTopLeftChanged);
    return grid;
}

void TzuGant::_OnInsertItem(TzuDataEntity *item)
{
    TellOf<TzuDataEntity_Spanbar>(
        item, [&] { TzuGant_ComBasic::_OnInsertItem(item); }, &TzuGant::timeItemInserted);
}

void TzuGant::_OnDeleteItem(TzuDataEntity *item)
{
    // The other way round: afterwards there is nothing to tell of.
    const QPointer<TzuGant> self(this);
    const TzuLifeWatch lives(*item);
    Q_EMIT timeItemDeleted(static_cast<TzuDataEntity_Spanbar *>(item));
    if (!self.isNull() && lives) {
        TzuGant_ComBasic::_OnDeleteItem(item);
    }
}

void TzuGant::_OnContentChanged(TzuDataList *list)
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::_OnContentChanged(list);
    if (!self.isNull()) {
        Q_EMIT timeItemsChanged();
    }
}

void TzuGant::_OnInfoPush(TzuDataEntity *item)
{
    TellOf<TzuDataEntity_Spanbar>(
        item, [&] { TzuGant_ComBasic::_OnInfoPush(item); }, &TzuGant::timeItemChanged);
}

void TzuGant::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    TellOf<TzuDataEntity_Spanbar>(
        item, [&] { TzuGant_ComBasic::_OnSelectionChanged(list, item); },
        &TzuGant::timeItemSelectionChanged);
}

void TzuGant::_OnVirtualLoadTimeItem(TzuDataEntity *item)
{
    TellOf<TzuDataEntity_Spanbar>(
        item, [&] { TzuGant_ComBasic::_OnVirtualLoadTimeItem(item); }, &TzuGant::timeItemWanted);
}

void TzuGant::_OnSelectionChanged_Link(TzuDataList *list, TzuDataEntity *link)
{
    TellOf<TzuDataEntity_Link>(
        link, [&] { TzuGant_ComBasic::_OnSelectionChanged_Link(list, link); },
        &TzuGant::linkSelectionChanged);
}

void TzuGant::ChangeInTree()
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::ChangeInTree();
    if (!self.isNull()) {
        Q_EMIT activeRowChanged(GetActiveGantRow());
    }
}

void TzuGant::DoScalerChange()
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::DoScalerChange();
    if (!self.isNull()) {
        Q_EMIT scalerChanged(StartDateTime(), StopDateTime());
    }
}

void TzuGant::DoClickGantArea(TMouseButton button)
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::DoClickGantArea(button);
    if (!self.isNull()) {
        Q_EMIT areaClicked(ItemUnderMouse());
    }
    if (!self.isNull() && button == TMouseButton::mbRight) {
        Q_EMIT areaRightClicked(ItemUnderMouse());
    }
}

void TzuGant::DoDblClickGantArea(TzuDataEntity_Spanbar *item)
{
    if (item == nullptr) {
        const QPointer<TzuGant> self(this);
        TzuGant_ComBasic::DoDblClickGantArea(item);
        if (!self.isNull()) {
            Q_EMIT areaDoubleClicked(nullptr);
        }
        return;
    }
    TellOf<TzuDataEntity_Spanbar>(
        item, [&] { TzuGant_ComBasic::DoDblClickGantArea(item); }, &TzuGant::areaDoubleClicked);
}

void TzuGant::resizeEvent(QResizeEvent *event)
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::resizeEvent(event);
    if (!self.isNull()) {
        Q_EMIT resized();
    }
}

void TzuGant::SplitterMoved(TzuSplitter *sender)
{
    TzuGant_ComBasic::SplitterMoved(sender);
    Q_EMIT splitterMoved(TreeWidth());
}

} // namespace korvane
