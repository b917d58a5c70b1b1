// Format settings of the system's locale.
#pragma once

#include "foundation/zuFormat.h"

#include <QLocale>
#include <QString>

namespace korvane {

/// Names and forms of a locale. Names are those that stand alone (nominative).
TFormatSettings FormatSettingsOf(const QLocale &locale);

/// The pattern of FormatDateTime that means what a QLocale pattern means. Time zone tokens are left
/// out.
std::string PatternFromQt(const QString &qtPattern);

} // namespace korvane
