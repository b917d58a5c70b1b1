// What the controls share in telling assistive tools about themselves.
#pragma once

#include "foundation/zuExport.h"

#include <QAccessible>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <vector>

namespace korvane {

/// Lets assistive tools see controls of the given class, and of those derived from it, through
/// `Interface`, which is constructed with the control. Once is enough and more do nothing; the
/// control's constructor calls it.
template <class Control, class Interface>
void InstallAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(
            [](const QString & /*className*/, QObject *object) -> QAccessibleInterface * {
                auto *control = qobject_cast<Control *>(object);
                return control == nullptr ? nullptr : new Interface(*control);
            });
        return true;
    }();
    (void)installed;
}

/// A part of a control that is no widget, has no parts itself and on which something can be done.
class KORVANE_WIDGETS_API TAccessibleLeaf : public QAccessibleInterface,
                                            public QAccessibleActionInterface
{
public:
    /// Has neither object nor children; subclasses with parts override those.
    QObject *object() const override { return nullptr; }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    /// Texts are not changed through it.
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}
    /// Knows actions alone; a subclass asks this one for what it does not know itself.
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }
    /// Actions have no keys.
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
};

/// Interfaces of the parts of a control that are no widgets, by index. They are created when
/// somebody asks for them and live as long as this object, however many parts there are meanwhile:
/// one whose part is gone has to say that it is not valid.
class KORVANE_WIDGETS_API TAccessibleParts
{
public:
    TAccessibleParts() = default;
    TAccessibleParts(const TAccessibleParts &) = delete;
    TAccessibleParts &operator=(const TAccessibleParts &) = delete;
    ~TAccessibleParts()
    {
        for (const QAccessible::Id id : m_ids) {
            if (id != 0) {
                QAccessible::deleteAccessibleInterface(id);
            }
        }
    }

    /// `create` makes the interface of the part on the heap.
    template <typename Create>
    QAccessibleInterface *At(int index, Create create)
    {
        const auto slot = static_cast<std::size_t>(index);
        if (slot >= m_ids.size()) {
            m_ids.resize(slot + 1);
        }
        if (m_ids[slot] == 0) {
            m_ids[slot] = QAccessible::registerAccessibleInterface(create(index));
        }
        return QAccessible::accessibleInterface(m_ids[slot]);
    }

private:
    std::vector<QAccessible::Id> m_ids; ///< 0 where there is none yet
};

} // namespace korvane
