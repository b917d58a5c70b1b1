// The bracket around what one action of the user changes.
#pragma once

#include "cellgrid/zuBabGridEdit.h"

namespace korvane {

/// Runs `body`, which tells whether it has changed anything, between OnBeginUserChange and
/// OnEndUserChange. Within another one it only runs. When `body` throws, the end is told that
/// something was changed.
template <typename Body>
void TBabGridEdit::AsUserChange(TGridUserChange kind, const Body &body)
{
    const std::weak_ptr<char> life(m_life);
    const bool outermost = m_userChanges++ == 0;
    bool changed = true;
    const auto end = [&] {
        if (!life.expired()) {
            --m_userChanges;
            if (outermost) {
                OnEndUserChange(this, kind, changed);
            }
        }
    };
    try {
        if (outermost) {
            OnBeginUserChange(this, kind);
        }
        changed = !life.expired() && body();
    } catch (...) {
        end();
        throw;
    }
    end();
}

} // namespace korvane
