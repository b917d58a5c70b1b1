// The calendar library's objects, owned and converted. Its lock is held by who uses them.
#pragma once

#include "agenda/AgendaZone.h"

#include <libical/ical.h>
#include <memory>

namespace korvane::planner {

struct IcalFree
{
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
    void operator()(icalproperty *property) const { icalproperty_free(property); }
    void operator()(icalrecur_iterator *iterator) const { icalrecur_iterator_free(iterator); }
};

using IcalComponentPtr = std::unique_ptr<icalcomponent, IcalFree>;
using IcalPropertyPtr = std::unique_ptr<icalproperty, IcalFree>;
using IcalIteratorPtr = std::unique_ptr<icalrecur_iterator, IcalFree>;

struct AgendaZone::Rules
{
    icaltimezone *Zone = nullptr;
    bool IsOwned = false;

    Rules(icaltimezone *zone, bool isOwned)
        : Zone(zone)
        , IsOwned(isOwned)
    {
    }
    Rules(const Rules &) = delete;
    Rules &operator=(const Rules &) = delete;
    ~Rules()
    {
        if (IsOwned) {
            const auto lock = LockIcal();
            icaltimezone_free(Zone, 1);
        }
    }
};

AgendaSeconds SecondsOf(const icaltimetype &time);
/// As the library writes it; empty where it could not be read.
QByteArray ValueTextOf(icalproperty *property);
/// Without a zone.
icaltimetype IcalTimeOf(AgendaSeconds seconds, bool isDate);

} // namespace korvane::planner
