#include "foundation/zuExposable.h"

#include <typeinfo>

namespace korvane {

void TzuExposable::FreeWheneverPossible()
{
    const TzuLifeWatch alive(*this); // a handler that it calls may release the object, too
    CleanForFree();
    if (alive) {
        FreeCall(this);
    }
}

void TzuExposable::FreeCall(TObject *object)
{
    if (object == nullptr) {
        throw std::bad_cast();
    }
    auto &exposable = dynamic_cast<TzuExposable &>(*object);
    if (exposable.CanDelete()) {
        delete &exposable;
    } else {
        exposable.m_freeRequested = true;
    }
}

} // namespace korvane
