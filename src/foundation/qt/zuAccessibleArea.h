// What assistive tools see of the things drawn in an area, which are no widgets.
#pragma once

#include "foundation/zuExport.h"

#include <QAccessible>
#include <QObject>
#include <QRect>
#include <QWidget>

#include <unordered_map>
#include <utility>
#include <vector>

namespace korvane {

class TAccessibleArea;

/// One of the things drawn in an area.
class KORVANE_WIDGETS_API TAccessiblePart : public QAccessibleInterface
{
public:
    /// The area outlives its parts.
    explicit TAccessiblePart(TAccessibleArea &area)
        : m_area(area)
    {
    }

    /// What is shown is gone: the interface is not valid from now on.
    virtual void Invalidate() = 0;

    /// A part is no object, lies in the area's window, and its texts cannot be set.
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}
    /// That of a part which only holds others.
    QAccessible::State state() const override;

protected:
    /// As given to the constructor, and the widget that it is about.
    TAccessibleArea &AreaParts() const { return m_area; }
    QWidget &Area() const;
    /// A rectangle of the area in screen coordinates.
    QRect ToScreen(const QRect &rect) const;
    /// A point of the screen in pixels of the area.
    QPoint FromScreen(int x, int y) const { return Area().mapFromGlobal(QPoint(x, y)); }
    /// Whether nothing of the part lies within the area.
    bool IsOffscreen() const;
    /// Whether the part has a place in the area at all; asked while it is valid.
    virtual bool IsShown() const = 0;

private:
    TAccessibleArea &m_area;
};

/// A part that holds no others and can be focused, selected and edited.
class KORVANE_WIDGETS_API TAccessibleItem : public TAccessiblePart,
                                            public QAccessibleActionInterface
{
public:
    /// As that of TAccessiblePart.
    using TAccessiblePart::TAccessiblePart;

    /// A leaf among list items, that can be selected and focused.
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessible::State state() const override;

    /// Actions of what it can do: set the focus, toggle the selection, edit; by Qt's names where it
    /// has some.
    void *interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
    void doAction(const QString &name) override;

protected:
    /// Asked while the interface is valid.
    virtual bool IsSelected() const = 0;
    virtual void SetSelected(bool selected) = 0;
    virtual bool IsActive() const = 0;
    /// Makes it the active one, in view.
    virtual void Activate() = 0;
    /// Whether the user may edit it now.
    virtual bool CanEdit() const = 0;
    /// Lets the user edit what is active.
    virtual void Edit() = 0;
};

/// The interfaces of an area's parts, as far as they were asked for. Lives as the area's child.
class KORVANE_WIDGETS_API TAccessibleArea : public QObject
{
public:
    /// Becomes a child of the area, which frees it.
    explicit TAccessibleArea(QWidget &area)
        : QObject(&area)
        , m_area(area)
    {
    }
    ~TAccessibleArea() override;

    /// That of an area, or null as long as it has none.
    template <class Parts>
    static Parts *Find(const QWidget &area)
    {
        for (QObject *child : area.children()) {
            if (auto *parts = dynamic_cast<Parts *>(child)) {
                return parts;
            }
        }
        return nullptr;
    }

    /// As given to the constructor, and its own interface.
    QWidget &Area() const { return m_area; }
    QAccessibleInterface *AreaInterface() const
    {
        return QAccessible::queryAccessibleInterface(&m_area);
    }
    /// What is shown is gone; its address alone is used. The interface turns invalid at once and
    /// goes when whoever may be asking it now has come back.
    void Forget(const void *shown);

protected:
    /// The interface of what is shown, made with `create` where there is none yet; null for null.
    template <typename Create>
    QAccessibleInterface *InterfaceOf(const void *shown, const Create &create)
    {
        if (shown == nullptr) {
            return nullptr;
        }
        const auto [place, isNew] = m_parts.try_emplace(shown, 0);
        if (isNew) {
            place->second = QAccessible::registerAccessibleInterface(create());
        }
        return QAccessible::accessibleInterface(place->second);
    }

private:
    void DeleteDoomed();

    QWidget &m_area;
    std::unordered_map<const void *, QAccessible::Id> m_parts;
    std::vector<QAccessible::Id> m_doomed;
};

/// Tells assistive tools that a part has the focus.
KORVANE_WIDGETS_API void TellFocus(QAccessibleInterface *part);
/// Tells them that other parts of an area are selected.
KORVANE_WIDGETS_API void TellSelectionWithin(QWidget &area);

} // namespace korvane
