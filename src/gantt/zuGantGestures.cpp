#include "gantt/zuGantGestures.h"

namespace korvane {

void TGantGestures::BeginUserChange(TGantUserChange kind)
{
    if (m_userChanges == 0) {
        OnBeginUserChange(Component(), kind);
    }
    ++m_userChanges;
}

void TGantGestures::EndUserChange(TGantUserChange kind, bool changed)
{
    if (--m_userChanges == 0) {
        OnEndUserChange(Component(), kind, changed);
    }
}

} // namespace korvane
