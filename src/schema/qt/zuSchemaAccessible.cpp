#include "schema/qt/zuSchemaAccessible.h"

#include "foundation/qt/zuConvert.h"
#include "schema/qt/zuSchemaComBasic.h"
#include "schema/zuSchemaDescribe.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvane {

namespace {

QString Tr(const char *text)
{
    return QCoreApplication::translate("TzuSchema", text);
}

/// The interfaces of one area's columns and times, as far as they were asked for. Lives as the
/// area's child.
class TSchemaAccessibles : public QObject
{
public:
    explicit TSchemaAccessibles(TzuSchema_ComBasic &schema)
        : QObject(&schema.SchemaArea())
        , m_schema(schema)
    {
    }
    ~TSchemaAccessibles() override;

    /// That of a schedule's area, or null as long as nobody has asked.
    static TSchemaAccessibles *Find(TzuSchema_ComBasic &schema)
    {
        for (QObject *child : schema.SchemaArea().children()) {
            if (auto *parts = dynamic_cast<TSchemaAccessibles *>(child)) {
                return parts;
            }
        }
        return nullptr;
    }
    static TSchemaAccessibles &Of(TzuSchema_ComBasic &schema)
    {
        TSchemaAccessibles *found = Find(schema);
        return found != nullptr ? *found : *new TSchemaAccessibles(schema);
    }

    TzuSchema_ComBasic &Schema() const { return m_schema; }
    QWidget &Area() const { return m_schema.SchemaArea(); }
    /// False while the schedule goes away.
    bool IsAlive() const { return m_schema.HasData(); }
    QAccessibleInterface *AreaInterface() const
    {
        return QAccessible::queryAccessibleInterface(&m_schema.SchemaArea());
    }
    QAccessibleInterface *OfColumn(int index);
    QAccessibleInterface *OfTime(TzuDataEntity_SchemaTime *time);
    void Forget(const TzuDataEntity *entity);
    QRect ToScreen(const QRect &rect) const
    {
        return {Area().mapToGlobal(rect.topLeft()), rect.size()};
    }

private:
    template <typename Interface, typename Entity>
    QAccessibleInterface *InterfaceOf(Entity *entity);
    void DeleteDoomed();

    TzuSchema_ComBasic &m_schema;
    std::unordered_map<const TzuDataEntity *, QAccessible::Id> m_parts;
    std::vector<QAccessible::Id> m_doomed;
};

/// What columns and times have in common.
class TEntityAccessible : public QAccessibleInterface
{
public:
    explicit TEntityAccessible(TSchemaAccessibles &parts)
        : m_parts(parts)
    {
    }

    /// The entity is gone.
    virtual void Invalidate() = 0;

    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_parts.Area().window()->windowHandle(); }
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}

protected:
    TSchemaAccessibles &Parts() const { return m_parts; }
    TzuSchema_ComBasic &Schema() const { return m_parts.Schema(); }
    bool IsOffscreen(const QRect &rect) const
    {
        const QWidget &area = m_parts.Area();
        return !rect.intersects(QRect(area.mapToGlobal(QPoint()), area.size()));
    }

private:
    TSchemaAccessibles &m_parts;
};

class TTimeAccessible : public TEntityAccessible, public QAccessibleActionInterface
{
public:
    TTimeAccessible(TSchemaAccessibles &parts, TzuDataEntity_SchemaTime *time)
        : TEntityAccessible(parts)
        , m_time(time)
    {
    }

    void Invalidate() override { m_time = nullptr; }
    TzuDataEntity_SchemaTime *Time() const { return m_time; }

    bool isValid() const override { return m_time != nullptr && Schema().IsInColumn(*m_time); }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessibleInterface *parent() const override
    {
        return isValid() ? Parts().OfColumn(m_time->Col()) : nullptr;
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QRect rect() const override
    {
        const auto rect = isValid() ? Schema().RectFromDataEntity(*m_time) : std::nullopt;
        return rect ? Parts().ToScreen(ToQt(*rect)) : QRect();
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
        state.selected = m_time->GetSelected();
        state.active = Schema().GetActiveDataEntity() == m_time;
        state.focused = state.active && Parts().Area().hasFocus();
        state.readOnly = !m_time->GetCanEdit();
        state.invisible = !m_time->GetVisible();
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
        if (name == toggleAction()) {
            m_time->SetSelected(!m_time->GetSelected());
            return;
        }
        Parts().Area().setFocus(Qt::OtherFocusReason);
        Schema().SetActiveDataEntity(m_time);
        Schema().MakeSureInView(*m_time);
        if (name == pressAction()) {
            Schema().SchemaKeyDown(TSchemaKey::Enter, {});
        }
    }

private:
    TzuDataEntity_SchemaTime *m_time;
};

class TColumnAccessible : public TEntityAccessible
{
public:
    TColumnAccessible(TSchemaAccessibles &parts, TzuDataEntity_SchemaColumn *column)
        : TEntityAccessible(parts)
        , m_column(column)
    {
    }

    void Invalidate() override { m_column = nullptr; }

    bool isValid() const override
    {
        return m_column != nullptr && Parts().IsAlive() && Index() >= 0;
    }
    QAccessible::Role role() const override { return QAccessible::Column; }
    QAccessibleInterface *parent() const override { return Parts().AreaInterface(); }
    int childCount() const override { return static_cast<int>(Times().size()); }
    QAccessibleInterface *child(int index) const override
    {
        const auto times = Times();
        return index >= 0 && static_cast<std::size_t>(index) < times.size()
                   ? Parts().OfTime(times[static_cast<std::size_t>(index)])
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
        const QPoint at = Parts().Area().mapFromGlobal(QPoint(x, y));
        return isValid() ? Parts().OfTime(Schema().GetDataEntityFromXY(at.x(), at.y())) : nullptr;
    }
    QRect rect() const override
    {
        if (!isValid()) {
            return {};
        }
        const TPixelSpan pixels = Schema().ColumnToPixels(Index());
        const QSize area = Parts().Area().size();
        return Parts().ToScreen(Schema().FlipView()
                                    ? QRect(0, pixels.From, area.width(), pixels.Length())
                                    : QRect(pixels.From, 0, pixels.Length(), area.height()));
    }
    QString text(QAccessible::Text text) const override
    {
        return isValid() && text == QAccessible::Name
                   ? ToQt(Schema().Columns().HeaderFromColumn(Index()))
                   : QString();
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.invisible = isValid() && !m_column->GetVisible();
        state.offscreen = isValid() && IsOffscreen(rect());
        state.readOnly = true;
        return state;
    }

private:
    int Index() const { return Schema().Columns().IndexOf(m_column); }
    std::vector<TzuDataEntity_SchemaTime *> Times() const
    {
        return isValid() ? Schema().VisibleTimesOf(Index())
                         : std::vector<TzuDataEntity_SchemaTime *>();
    }

    TzuDataEntity_SchemaColumn *m_column;
};

/// The area itself.
class TSchemaAreaAccessible : public QAccessibleWidget
{
public:
    explicit TSchemaAreaAccessible(TzuSchema_ComBasic &schema)
        : QAccessibleWidget(&schema.SchemaArea(), QAccessible::Chart, Tr("Schedule"))
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

TSchemaAccessibles::~TSchemaAccessibles()
{
    for (const auto &[entity, id] : m_parts) {
        QAccessible::deleteAccessibleInterface(id);
    }
    DeleteDoomed();
}

template <typename Interface, typename Entity>
QAccessibleInterface *TSchemaAccessibles::InterfaceOf(Entity *entity)
{
    if (entity == nullptr) {
        return nullptr;
    }
    const auto [place, isNew] = m_parts.try_emplace(entity, 0);
    if (isNew) {
        place->second = QAccessible::registerAccessibleInterface(new Interface(*this, entity));
    }
    return QAccessible::accessibleInterface(place->second);
}

QAccessibleInterface *TSchemaAccessibles::OfColumn(int index)
{
    return m_schema.Columns().IsCol(index)
               ? InterfaceOf<TColumnAccessible>(&m_schema.Columns().GetCol(index))
               : nullptr;
}

QAccessibleInterface *TSchemaAccessibles::OfTime(TzuDataEntity_SchemaTime *time)
{
    return InterfaceOf<TTimeAccessible>(time);
}

/// The interface goes when whoever is asking it now has come back.
void TSchemaAccessibles::Forget(const TzuDataEntity *entity)
{
    const auto place = m_parts.find(entity);
    if (place == m_parts.end()) {
        return;
    }
    dynamic_cast<TEntityAccessible &>(*QAccessible::accessibleInterface(place->second))
        .Invalidate();
    if (m_doomed.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { DeleteDoomed(); }, Qt::QueuedConnection);
    }
    m_doomed.push_back(place->second);
    m_parts.erase(place);
}

void TSchemaAccessibles::DeleteDoomed()
{
    for (const QAccessible::Id id : std::exchange(m_doomed, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
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
    if (!QAccessible::isActive() || time == nullptr || !schema.SchemaArea().hasFocus()) {
        return;
    }
    QAccessibleEvent event(TSchemaAccessibles::Of(schema).OfTime(time), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void TellTimeSelection(TzuSchema_ComBasic &schema)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&schema.SchemaArea(), QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

void TellEntityLeft(TzuSchema_ComBasic &schema, const TzuDataEntity *entity)
{
    if (TSchemaAccessibles *parts = TSchemaAccessibles::Find(schema)) {
        parts->Forget(entity);
    }
}

} // namespace korvane
