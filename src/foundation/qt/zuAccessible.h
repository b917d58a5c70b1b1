// What the controls share in telling assistive tools about themselves.
#pragma once

#include "foundation/zuExport.h"

#include <QAccessible>
#include <QString>

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
