#include "gantt/qt/zuGantAccessible.h"

#include "foundation/qt/zuAccessibleArea.h"
#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGantComBasic.h"
#include "gantt/zuGantDataKeeper.h"
#include "gantt/zuGantDescribe.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace korvane {

namespace {

/// The interfaces of one chart's rows and items.
class TGantAccessibles : public TAccessibleArea, private TGantDataKeeper
{
public:
    explicit TGantAccessibles(TzuGant_ComBasic &gant)
        : TAccessibleArea(gant.GantArea())
        , m_gant(gant)
    {
    }

    /// That of a chart's area, made when need be.
    static TGantAccessibles &Of(TzuGant_ComBasic &gant)
    {
        auto *found = Find<TGantAccessibles>(gant.GantArea());
        return found != nullptr ? *found : *new TGantAccessibles(gant);
    }

    TzuGant_ComBasic &Gant() const { return m_gant; }
    /// False while the chart goes away.
    bool IsAlive() const { return m_gant.HasData(); }
    QAccessibleInterface *OfRow(TGantRow *row);
    QAccessibleInterface *OfItem(TzuDataEntity_Spanbar *item);

private:
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override { Forget(item); }
    void _OnRowFreed(const TGantRow *row) override { Forget(row); }

    TzuGant_ComBasic &m_gant;
};

class TItemAccessible : public TAccessibleItem
{
public:
    TItemAccessible(TGantAccessibles &parts, TzuDataEntity_Spanbar *item)
        : TAccessibleItem(parts)
        , m_parts(parts)
        , m_item(item)
    {
    }

    void Invalidate() override { m_item = nullptr; }
    TzuDataEntity_Spanbar *Item() const { return m_item; }

    bool isValid() const override { return m_item != nullptr && m_item->GetRow() != nullptr; }
    QAccessibleInterface *parent() const override
    {
        return isValid() ? m_parts.OfRow(m_item->GetRow()) : nullptr;
    }
    QRect rect() const override
    {
        const auto rect = isValid() ? m_item->GetRow()->RectFromDataEntity(*m_item) : std::nullopt;
        return rect ? ToScreen(ToQt(*rect)) : QRect();
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

protected:
    bool IsShown() const override { return m_item->GetVisible() && m_item->GetRow()->GetVisible(); }
    bool IsSelected() const override { return m_item->GetSelected(); }
    void SetSelected(bool selected) override { m_item->SetSelected(selected); }
    bool IsActive() const override { return m_parts.Gant().ActiveDataEntity() == m_item; }
    void Activate() override
    {
        m_parts.Gant().SetActiveDataEntity(m_item);
        m_parts.Gant().MakeSureActiveInView();
    }
    bool CanEdit() const override { return m_item->GetCanEdit(); }
    void Edit() override { m_parts.Gant().PerformGantAreaKeyfunction(TGantKeyFunction::kfEdit); }

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
            parts += QCoreApplication::translate("TzuGant", "After %1")
                         .arg(before.join(QStringLiteral(", ")));
        }
        if (!behind.isEmpty()) {
            parts += QCoreApplication::translate("TzuGant", "Before %1")
                         .arg(behind.join(QStringLiteral(", ")));
        }
        return parts.join(QStringLiteral("; "));
    }

    TGantAccessibles &m_parts;
    TzuDataEntity_Spanbar *m_item;
};

class TRowAccessible : public TAccessiblePart
{
public:
    TRowAccessible(TGantAccessibles &parts, TGantRow *row)
        : TAccessiblePart(parts)
        , m_parts(parts)
        , m_row(row)
    {
    }

    void Invalidate() override { m_row = nullptr; }
    TGantRow *Row() const { return m_row; }

    bool isValid() const override { return m_row != nullptr && m_row->Node() != nullptr; }
    QAccessible::Role role() const override { return QAccessible::Row; }
    QAccessibleInterface *parent() const override { return m_parts.AreaInterface(); }

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
                return m_parts.OfItem(
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
        const QPoint at = FromScreen(x, y);
        return isValid() ? m_parts.OfItem(m_row->FindDataEntityFromXY(at.x(), at.y())) : nullptr;
    }

    QRect rect() const override
    {
        return isValid() && m_row->IsOnScreen() ? ToScreen(ToQt(m_row->GetRect())) : QRect();
    }
    QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name ? ToQt(CaptionOf(*m_row)) : QString();
    }

protected:
    bool IsShown() const override { return m_row->GetVisible(); }

private:
    int FirstLayer() const { return isValid() ? std::max(m_row->GetDrawLayerStart(), 0) : 0; }
    int LayerCount() const { return isValid() ? m_row->Layers().Count() : 0; }

    TGantAccessibles &m_parts;
    TGantRow *m_row;
};

/// The area itself.
class TGantAreaAccessible : public QAccessibleWidget
{
public:
    explicit TGantAreaAccessible(TzuGant_ComBasic &gant)
        : QAccessibleWidget(&gant.GantArea(), QAccessible::Chart,
                            QCoreApplication::translate("TzuGant", "Gantt chart"))
        , m_parts(TGantAccessibles::Of(gant))
    {
    }

    int childCount() const override
    {
        return m_parts.IsAlive() ? m_parts.Gant().Lines().Count() : 0;
    }
    QAccessibleInterface *child(int index) const override
    {
        if (!m_parts.IsAlive() || index < 0) {
            return nullptr;
        }
        return m_parts.OfRow(m_parts.Gant().Lines().RowOfLine(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *part = dynamic_cast<const TRowAccessible *>(child);
        return part != nullptr && part->isValid() && m_parts.IsAlive()
                   ? m_parts.Gant().Lines().LineOf(*part->Row())
                   : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = m_parts.Area().mapFromGlobal(QPoint(x, y));
        return m_parts.IsAlive() ? m_parts.OfRow(m_parts.Gant().GantRows().FindRowFromY(at.y()))
                                 : nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_parts.IsAlive() && m_parts.Area().hasFocus()
                   ? m_parts.OfItem(m_parts.Gant().ActiveDataEntity())
                   : nullptr;
    }

private:
    TGantAccessibles &m_parts;
};

QAccessibleInterface *TGantAccessibles::OfRow(TGantRow *row)
{
    return InterfaceOf(row, [&] {
        Keep(row);
        return new TRowAccessible(*this, row);
    });
}

QAccessibleInterface *TGantAccessibles::OfItem(TzuDataEntity_Spanbar *item)
{
    return InterfaceOf(item, [&] {
        Keep(item);
        return new TItemAccessible(*this, item);
    });
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
    if (QAccessible::isActive() && item != nullptr && gant.GantArea().hasFocus()) {
        TellFocus(TGantAccessibles::Of(gant).OfItem(item));
    }
}

void TellSelection(TzuGant_ComBasic &gant)
{
    TellSelectionWithin(gant.GantArea());
}

} // namespace korvane
