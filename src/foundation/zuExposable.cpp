#include "foundation/zuExposable.h"

#include <typeinfo>

namespace korvane {

void TzuExposable::FreeWheneverPossible()
{
    CleanForFree();
    FreeCall(this);
}

void TzuExposable::FreeCall(TObject *object)
{
    auto &exposable = dynamic_cast<TzuExposable &>(*object);
    if (exposable.CanDelete()) {
        delete &exposable;
    } else {
        exposable.m_freeRequested = true;
    }
}

} // namespace korvane
