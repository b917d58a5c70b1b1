// Format settings of the system's locale.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuFormat.h"

#include <QLocale>
#include <QString>

namespace korvane {

/// Names and forms of a locale. Names are those that stand alone (nominative).
KORVANE_WIDGETS_API TFormatSettings FormatSettingsOf(const QLocale &locale);

/// The pattern of FormatDateTime that means what a QLocale pattern means. Time zone tokens are left
/// out.
KORVANE_WIDGETS_API std::string PatternFromQt(const QString &qtPattern);

} // namespace korvane
