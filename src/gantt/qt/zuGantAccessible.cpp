#include "gantt/qt/zuGantAccessible.h"

#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGantComBasic.h"
#include "gantt/zuGantDataKeeper.h"
#include "gantt/zuGantDescribe.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace korvane {

namespace {

class TRowAccessible;
class TItemAccessible;

QString Tr(const char *text)
{
    return QCoreApplication::translate("TzuGant", text);
}

/// The interfaces of one area's rows and items, as far as they were asked for. Lives as the area's
/// child.
class TGantAccessibles : public QObject, private TGantDataKeeper
{
public:
    explicit TGantAccessibles(TzuGant_ComBasic &gant)
        : QObject(&gant.GantArea())
        , m_gant(gant)
    {
    }
    ~TGantAccessibles() override;

    /// That of a chart's area, made when need be.
    static TGantAccessibles &Of(TzuGant_ComBasic &gant);

    TzuGant_ComBasic &Gant() const { return m_gant; }
    QWidget &Area() const { return m_gant.GantArea(); }
    /// False while the chart goes away.
    bool IsAlive() const { return m_gant.HasData(); }
    QAccessibleInterface *AreaInterface() const
    {
        return QAccessible::queryAccessibleInterface(&m_gant.GantArea());
    }
    QAccessibleInterface *InterfaceOf(TGantRow *row);
    QAccessibleInterface *InterfaceOf(TzuDataEntity_Spanbar *item);
    /// An area rectangle in screen coordinates.
    QRect ToScreen(const TRect &rect) const
    {
        const QRect area = ToQt(rect);
        return {Area().mapToGlobal(area.topLeft()), area.size()};
    }

private:
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;
    void _OnRowFreed(const TGantRow *row) override;
    void Doom(QAccessible::Id id);
    void DeleteDoomed();

    TzuGant_ComBasic &m_gant;
    std::unordered_map<const TGantRow *, QAccessible::Id> m_rows;
    std::unordered_map<const TzuDataEntity_Spanbar *, QAccessible::Id> m_items;
    std::vector<QAccessible::Id> m_doomed;
};

/// What rows and items have in common.
class TPartAccessible : public QAccessibleInterface
{
public:
    explicit TPartAccessible(TGantAccessibles &parts)
        : m_parts(parts)
    {
    }

    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_parts.Area().window()->windowHandle(); }
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}

protected:
    TGantAccessibles &Parts() const { return m_parts; }
    bool IsOffscreen(const QRect &rect) const
    {
        const QWidget &area = m_parts.Area();
        return !rect.intersects(QRect(area.mapToGlobal(QPoint()), area.size()));
    }

private:
    TGantAccessibles &m_parts;
};

class TItemAccessible : public TPartAccessible, public QAccessibleActionInterface
{
public:
    TItemAccessible(TGantAccessibles &parts, TzuDataEntity_Spanbar *item)
        : TPartAccessible(parts)
        , m_item(item)
    {
    }

    void Invalidate() { m_item = nullptr; }
    TzuDataEntity_Spanbar *Item() const { return m_item; }

    bool isValid() const override { return m_item != nullptr && m_item->GetRow() != nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessibleInterface *parent() const override
    {
        return isValid() ? Parts().InterfaceOf(m_item->GetRow()) : nullptr;
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }

    QRect rect() const override
    {
        const auto rect = isValid() ? m_item->GetRow()->RectFromDataEntity(*m_item) : std::nullopt;
        return rect ? Parts().ToScreen(*rect) : QRect();
    }

    QString text(QAccessible::Text text) const override
    {
        if (!isValid()) {
            return {};
        }
        switch (text) {
        case QAccessible::Name:
            return ToQt(CaptionOf(*m_item));
        case QAccessible::Value:
            return ToQt(TimesOf(*m_item));
        case QAccessible::Description:
            return LinksText();
        default:
            return {};
        }
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        if (!isValid()) {
            return state;
        }
        state.selectable = true;
        state.multiSelectable = true;
        state.focusable = true;
        state.selected = m_item->GetSelected();
        state.active = Parts().Gant().ActiveDataEntity() == m_item;
        state.focused = state.active && Parts().Area().hasFocus();
        state.readOnly = !m_item->GetCanEdit();
        state.invisible = !m_item->GetVisible() || !m_item->GetRow()->GetVisible();
        state.offscreen = IsOffscreen(rect());
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }
    QStringList actionNames() const override
    {
        return {pressAction(), toggleAction(), setFocusAction()};
    }
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (!isValid()) {
            return;
        }
        TzuGant_ComBasic &gant = Parts().Gant();
        if (name == toggleAction()) {
            m_item->SetSelected(!m_item->GetSelected());
            return;
        }
        Parts().Area().setFocus(Qt::OtherFocusReason);
        gant.SetActiveDataEntity(m_item);
        gant.MakeSureActiveInView();
        if (name == pressAction()) {
            gant.PerformGantAreaKeyfunction(TGantKeyFunction::kfEdit);
        }
    }

private:
    /// A few of the items before and behind in the plan.
    QString LinksText() const
    {
        constexpr qsizetype kMost = 10;
        QStringList before;
        QStringList behind;
        for (const TzuDataEntity_Link *link : m_item->Links()) {
            if (link->First() == nullptr || link->Second() == nullptr) {
                continue;
            }
            const bool leaves = link->First() == m_item;
            QStringList &names = leaves ? behind : before;
            if (names.size() < kMost) {
                names += ToQt(CaptionOf(leaves ? *link->Second() : *link->First()));
            }
        }
        QStringList parts;
        if (!before.isEmpty()) {
            parts += Tr("After %1").arg(before.join(QStringLiteral(", ")));
        }
        if (!behind.isEmpty()) {
            parts += Tr("Before %1").arg(behind.join(QStringLiteral(", ")));
        }
        return parts.join(QStringLiteral("; "));
    }

    TzuDataEntity_Spanbar *m_item;
};

class TRowAccessible : public TPartAccessible
{
public:
    TRowAccessible(TGantAccessibles &parts, TGantRow *row)
        : TPartAccessible(parts)
        , m_row(row)
    {
    }

    void Invalidate() { m_row = nullptr; }
    TGantRow *Row() const { return m_row; }

    bool isValid() const override { return m_row != nullptr && m_row->TreeNode() != nullptr; }
    QAccessible::Role role() const override { return QAccessible::Row; }
    QAccessibleInterface *parent() const override { return Parts().AreaInterface(); }

    int childCount() const override
    {
        int count = 0;
        for (int layer = FirstLayer(); layer < LayerCount(); ++layer) {
            count += m_row->Layers().GetDataList(layer)->LoadedCount();
        }
        return count;
    }
    QAccessibleInterface *child(int index) const override
    {
        for (int layer = FirstLayer(); index >= 0 && layer < LayerCount(); ++layer) {
            const TzuDataList *items = m_row->Layers().GetDataList(layer);
            if (index < items->LoadedCount()) {
                return Parts().InterfaceOf(
                    static_cast<TzuDataEntity_Spanbar *>(items->GetLoaded(index)));
            }
            index -= items->LoadedCount();
        }
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *part = dynamic_cast<const TItemAccessible *>(child);
        const TzuDataEntity_Spanbar *item = part != nullptr ? part->Item() : nullptr;
        int before = 0;
        for (int layer = FirstLayer(); item != nullptr && layer < LayerCount(); ++layer) {
            const TzuDataList *items = m_row->Layers().GetDataList(layer);
            if (items == item->GetDataList()) {
                return before + items->IndexOf(item);
            }
            before += items->LoadedCount();
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = Parts().Area().mapFromGlobal(QPoint(x, y));
        return isValid() ? Parts().InterfaceOf(m_row->FindDataEntityFromXY(at.x(), at.y()))
                         : nullptr;
    }

    QRect rect() const override
    {
        return isValid() && m_row->IsOnScreen() ? Parts().ToScreen(m_row->GetRect()) : QRect();
    }
    QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name ? ToQt(CaptionOf(*m_row)) : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.invisible = isValid() && !m_row->GetVisible();
        state.offscreen = isValid() && IsOffscreen(rect());
        state.readOnly = true;
        return state;
    }

private:
    int FirstLayer() const { return isValid() ? std::max(m_row->GetDrawLayerStart(), 0) : 0; }
    int LayerCount() const { return isValid() ? m_row->Layers().Count() : 0; }

    TGantRow *m_row;
};

/// The area itself.
class TGantAreaAccessible : public QAccessibleWidget
{
public:
    explicit TGantAreaAccessible(TzuGant_ComBasic &gant)
        : QAccessibleWidget(&gant.GantArea(), QAccessible::Chart, Tr("Gantt chart"))
        , m_parts(TGantAccessibles::Of(gant))
    {
    }

    int childCount() const override
    {
        return m_parts.IsAlive() ? m_parts.Gant().CountVisibleTreeViewItems() : 0;
    }
    QAccessibleInterface *child(int index) const override
    {
        if (!m_parts.IsAlive() || index < 0) {
            return nullptr;
        }
        TzuGant_ComBasic &gant = m_parts.Gant();
        return m_parts.InterfaceOf(
            gant.GantRows().FindRowFromTreeNode(gant.Tree().GetDataEntityFromRow(index)));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *part = dynamic_cast<const TRowAccessible *>(child);
        return part != nullptr && part->isValid() && m_parts.IsAlive()
                   ? m_parts.Gant().Tree().GetRow(*part->Row()->TreeNode())
                   : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = m_parts.Area().mapFromGlobal(QPoint(x, y));
        return m_parts.IsAlive()
                   ? m_parts.InterfaceOf(m_parts.Gant().GantRows().FindRowFromY(at.y()))
                   : nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_parts.IsAlive() && m_parts.Area().hasFocus()
                   ? m_parts.InterfaceOf(m_parts.Gant().ActiveDataEntity())
                   : nullptr;
    }

private:
    TGantAccessibles &m_parts;
};

TGantAccessibles &TGantAccessibles::Of(TzuGant_ComBasic &gant)
{
    for (QObject *child : gant.GantArea().children()) {
        if (auto *parts = dynamic_cast<TGantAccessibles *>(child)) {
            return *parts;
        }
    }
    return *new TGantAccessibles(gant);
}

TGantAccessibles::~TGantAccessibles()
{
    for (const auto &[row, id] : m_rows) {
        QAccessible::deleteAccessibleInterface(id);
    }
    for (const auto &[item, id] : m_items) {
        QAccessible::deleteAccessibleInterface(id);
    }
    DeleteDoomed();
}

QAccessibleInterface *TGantAccessibles::InterfaceOf(TGantRow *row)
{
    if (row == nullptr) {
        return nullptr;
    }
    const auto [place, isNew] = m_rows.try_emplace(row, 0);
    if (isNew) {
        Keep(row);
        place->second = QAccessible::registerAccessibleInterface(new TRowAccessible(*this, row));
    }
    return QAccessible::accessibleInterface(place->second);
}

QAccessibleInterface *TGantAccessibles::InterfaceOf(TzuDataEntity_Spanbar *item)
{
    if (item == nullptr) {
        return nullptr;
    }
    const auto [place, isNew] = m_items.try_emplace(item, 0);
    if (isNew) {
        Keep(item);
        place->second = QAccessible::registerAccessibleInterface(new TItemAccessible(*this, item));
    }
    return QAccessible::accessibleInterface(place->second);
}

void TGantAccessibles::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    const auto place = m_items.find(item);
    if (place != m_items.end()) {
        static_cast<TItemAccessible *>(QAccessible::accessibleInterface(place->second))
            ->Invalidate();
        Doom(place->second);
        m_items.erase(place);
    }
}

void TGantAccessibles::_OnRowFreed(const TGantRow *row)
{
    const auto place = m_rows.find(row);
    if (place != m_rows.end()) {
        static_cast<TRowAccessible *>(QAccessible::accessibleInterface(place->second))
            ->Invalidate();
        Doom(place->second);
        m_rows.erase(place);
    }
}

/// The interface goes when whoever is asking it now has come back.
void TGantAccessibles::Doom(QAccessible::Id id)
{
    if (m_doomed.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { DeleteDoomed(); }, Qt::QueuedConnection);
    }
    m_doomed.push_back(id);
}

void TGantAccessibles::DeleteDoomed()
{
    for (const QAccessible::Id id : std::exchange(m_doomed, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

QAccessibleInterface *MakeInterface(const QString & /*className*/, QObject *object)
{
    const auto *area = qobject_cast<TzuOffscreenPaint *>(object);
    for (QObject *above = area != nullptr ? object->parent() : nullptr; above != nullptr;
         above = above->parent()) {
        auto *gant = qobject_cast<TzuGant_ComBasic *>(above);
        if (gant != nullptr && &gant->GantArea() == area) {
            return new TGantAreaAccessible(*gant);
        }
    }
    return nullptr;
}

} // namespace

void InstallGantAccessibility()
{
    QAccessible::installFactory(MakeInterface); // of factories installed twice one remains
}

void TellActiveItem(TzuGant_ComBasic &gant)
{
    TzuDataEntity_Spanbar *item = gant.ActiveDataEntity();
    if (!QAccessible::isActive() || item == nullptr || !gant.GantArea().hasFocus()) {
        return;
    }
    QAccessibleEvent event(TGantAccessibles::Of(gant).InterfaceOf(item), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void TellSelection(TzuGant_ComBasic &gant)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&gant.GantArea(), QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace korvane
