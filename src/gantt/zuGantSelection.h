// Which items and links of a Gantt chart are selected, and which are neighbours.
#pragma once

#include "gantt/zuGant.h"
#include "gantt/zuGantInputHost.h"

namespace korvane {

/// Adds the rules of selecting to the chart.
class TGantSelection : public TGantCore
{
public:
    TGantSelection(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component);

protected:
    IGantInputHost &InputHost() { return m_inputHost; }
    const IGantInputHost &InputHost() const { return m_inputHost; }

private:
    IGantInputHost &m_inputHost;
};

} // namespace korvane
