#include "gantt/zuGantSelection.h"

namespace korvane {

TGantSelection::TGantSelection(IGantHost &host, IGantInputHost &inputHost,
                               TzuGant_ComBasic *component)
    : TGantCore(host, component)
    , m_inputHost(inputHost)
{
}

} // namespace korvane
