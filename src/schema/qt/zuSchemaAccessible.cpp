#include "schema/qt/zuSchemaAccessible.h"

#include "foundation/qt/zuAccessibleArea.h"
#include "foundation/qt/zuConvert.h"
#include "schema/qt/zuSchemaComBasic.h"
#include "schema/zuSchemaDescribe.h"

#include <QAccessibleWidget>
#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace korvane {

namespace {

/// The interfaces of one schedule's columns and times.
class TSchemaAccessibles : public TAccessibleArea
{
public:
    explicit TSchemaAccessibles(TzuSchema_ComBasic &schema)
        : TAccessibleArea(schema.SchemaArea())
        , m_schema(schema)
    {
    }

    static TSchemaAccessibles &Of(TzuSchema_ComBasic &schema)
    {
        auto *found = Find<TSchemaAccessibles>(schema.SchemaArea());
        return found != nullptr ? *found : *new TSchemaAccessibles(schema);
    }

    TzuSchema_ComBasic &Schema() const { return m_schema; }
    /// False while the schedule goes away.
    bool IsAlive() const { return m_schema.HasData(); }
    QAccessibleInterface *OfColumn(int index);
    QAccessibleInterface *OfTime(TzuDataEntity_SchemaTime *time);

private:
    TzuSchema_ComBasic &m_schema;
};

class TTimeAccessible : public TAccessibleItem
{
public:
    TTimeAccessible(TSchemaAccessibles &parts, TzuDataEntity_SchemaTime *time)
        : TAccessibleItem(parts)
        , m_parts(parts)
        , m_time(time)
    {
    }

    void Invalidate() override { m_time = nullptr; }
    TzuDataEntity_SchemaTime *Time() const { return m_time; }

    bool isValid() const override { return m_time != nullptr && Schema().IsInColumn(*m_time); }
    QAccessibleInterface *parent() const override
    {
        return isValid() ? m_parts.OfColumn(m_time->Col()) : nullptr;
    }
    QRect rect() const override
    {
        const auto rect = isValid() ? Schema().RectFromDataEntity(*m_time) : std::nullopt;
        return rect ? ToScreen(ToQt(*rect)) : QRect();
    }

    QString text(QAccessible::Text text) const override
    {
        if (!isValid()) {
            return {};
        }
        const std::string column = Schema().Columns().HeaderFromColumn(m_time->Col());
        switch (text) {
        case QAccessible::Name: {
            const std::string caption = CaptionOf(*m_time);
            return ToQt(caption.empty() ? column : caption);
        }
        case QAccessible::Value:
            return ToQt(TimesOf(*m_time));
        case QAccessible::Description:
            return ToQt(column);
        default:
            return {};
        }
    }

protected:
    bool IsShown() const override { return m_time->GetVisible(); }
    bool IsSelected() const override { return m_time->GetSelected(); }
    void SetSelected(bool selected) override { m_time->SetSelected(selected); }
    bool IsActive() const override { return Schema().GetActiveDataEntity() == m_time; }
    void Activate() override
    {
        Schema().SetActiveDataEntity(m_time);
        Schema().MakeSureInView(*m_time);
    }
    bool CanEdit() const override { return m_time->GetCanEdit(); }
    void Edit() override { Schema().SchemaKeyDown(TSchemaKey::Enter, {}); }

private:
    TzuSchema_ComBasic &Schema() const { return m_parts.Schema(); }

    TSchemaAccessibles &m_parts;
    TzuDataEntity_SchemaTime *m_time;
};

class TColumnAccessible : public TAccessiblePart
{
public:
    TColumnAccessible(TSchemaAccessibles &parts, TzuDataEntity_SchemaColumn *column)
        : TAccessiblePart(parts)
        , m_parts(parts)
        , m_column(column)
    {
    }

    void Invalidate() override { m_column = nullptr; }

    bool isValid() const override
    {
        return m_column != nullptr && m_parts.IsAlive() && Index() >= 0;
    }
    QAccessible::Role role() const override { return QAccessible::Column; }
    QAccessibleInterface *parent() const override { return m_parts.AreaInterface(); }
    int childCount() const override { return static_cast<int>(Times().size()); }
    QAccessibleInterface *child(int index) const override
    {
        const auto times = Times();
        return index >= 0 && static_cast<std::size_t>(index) < times.size()
                   ? m_parts.OfTime(times[static_cast<std::size_t>(index)])
                   : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const auto *part = dynamic_cast<const TTimeAccessible *>(child);
        const auto times = Times();
        const auto found = part != nullptr ? std::ranges::find(times, part->Time()) : times.end();
        return found != times.end() ? static_cast<int>(found - times.begin()) : -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        const QPoint at = FromScreen(x, y);
        return isValid() ? m_parts.OfTime(Schema().GetDataEntityFromXY(at.x(), at.y())) : nullptr;
    }
    QRect rect() const override
    {
        if (!isValid()) {
            return {};
        }
        const TPixelSpan pixels = Schema().ColumnToPixels(Index());
        const QSize area = Area().size();
        return ToScreen(Schema().FlipView()
                            ? QRect(0, pixels.From, area.width(), pixels.Length())
                            : QRect(pixels.From, 0, pixels.Length(), area.height()));
    }
    QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name
                   ? ToQt(Schema().Columns().HeaderFromColumn(Index()))
                   : QString();
    }

protected:
    bool IsShown() const override { return m_column->GetVisible(); }

private:
    TzuSchema_ComBasic &Schema() const { return m_parts.Schema(); }
    int Index() const { return Schema().Columns().IndexOf(m_column); }
    std::vector<TzuDataEntity_SchemaTime *> Times() const
    {
        return isValid() ? Schema().VisibleTimesOf(Index())
                         : std::vector<TzuDataEntity_SchemaTime *>();
    }

    TSchemaAccessibles &m_parts;
    TzuDataEntity_SchemaColumn *m_column;
};

/// The area itself.
class TSchemaAreaAccessible : public QAccessibleWidget
{
public:
    explicit TSchemaAreaAccessible(TzuSchema_ComBasic &schema)
        : QAccessibleWidget(&schema.SchemaArea(), QAccessible::Chart,
                            QCoreApplication::translate("TzuSchema", "Schedule"))
        , m_parts(TSchemaAccessibles::Of(schema))
    {
    }

    int childCount() const override
    {
        return m_parts.IsAlive() ? m_parts.Schema().Columns().Count() : 0;
    }
    QAccessibleInterface *child(int index) const override
    {
        return m_parts.IsAlive() ? m_parts.OfColumn(index) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (int i = 0; i < childCount(); ++i) {
            if (this->child(i) == child) {
                return i;
            }
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        if (!m_parts.IsAlive()) {
            return nullptr;
        }
        const QPoint at = m_parts.Area().mapFromGlobal(QPoint(x, y));
        TzuSchema_ComBasic &schema = m_parts.Schema();
        return m_parts.OfColumn(schema.PixelToColumn(schema.AlongColumns(FromQt(at))));
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_parts.IsAlive() && m_parts.Area().hasFocus()
                   ? m_parts.OfTime(m_parts.Schema().GetActiveDataEntity())
                   : nullptr;
    }

private:
    TSchemaAccessibles &m_parts;
};

QAccessibleInterface *TSchemaAccessibles::OfColumn(int index)
{
    if (!m_schema.Columns().IsCol(index)) {
        return nullptr;
    }
    TzuDataEntity_SchemaColumn *column = &m_schema.Columns().GetCol(index);
    return InterfaceOf(column, [&] { return new TColumnAccessible(*this, column); });
}

QAccessibleInterface *TSchemaAccessibles::OfTime(TzuDataEntity_SchemaTime *time)
{
    return InterfaceOf(time, [&] { return new TTimeAccessible(*this, time); });
}

QAccessibleInterface *MakeInterface(const QString & /*className*/, QObject *object)
{
    const auto *area = qobject_cast<TzuOffscreenPaint *>(object);
    auto *schema = area != nullptr ? qobject_cast<TzuSchema_ComBasic *>(object->parent()) : nullptr;
    return schema != nullptr && &schema->SchemaArea() == area ? new TSchemaAreaAccessible(*schema)
                                                              : nullptr;
}

} // namespace

void InstallSchemaAccessibility()
{
    QAccessible::installFactory(MakeInterface); // of factories installed twice one remains
}

void TellActiveTime(TzuSchema_ComBasic &schema)
{
    TzuDataEntity_SchemaTime *time = schema.GetActiveDataEntity();
    if (QAccessible::isActive() && time != nullptr && schema.SchemaArea().hasFocus()) {
        TellFocus(TSchemaAccessibles::Of(schema).OfTime(time));
    }
}

void TellTimeSelection(TzuSchema_ComBasic &schema)
{
    TellSelectionWithin(schema.SchemaArea());
}

void TellEntityLeft(TzuSchema_ComBasic &schema, const TzuDataEntity *entity)
{
    if (auto *parts = TAccessibleArea::Find<TSchemaAccessibles>(schema.SchemaArea())) {
        parts->Forget(entity);
    }
}

} // namespace korvane
