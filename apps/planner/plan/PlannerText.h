// Texts for the user of what is no QObject.
#pragma once

#include <QCoreApplication>

namespace korvane::planner {

struct PlannerText
{
    Q_DECLARE_TR_FUNCTIONS(Planner)
};

} // namespace korvane::planner
