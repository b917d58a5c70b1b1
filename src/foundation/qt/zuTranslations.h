// The texts of the components in the user's language.
#pragma once

#include "foundation/zuExport.h"

#include <QLocale>
#include <QString>

namespace korvane {

/// Loads the components' own texts (menus, hints, messages, names for screen readers) into the
/// application, in the first of the locale's languages that there are texts in: English, German and
/// Swedish. What was loaded before is replaced. Called after the application object exists and
/// before the first component; with no call texts are English.
///
/// Returns the language, such as "de", by which an application loads its own texts and those of Qt
/// ("qtbase_de"); empty for English.
///
/// An application with texts of its own for a component, in another language for example, installs
/// a QTranslator instead: the sources are in `translations/`, their contexts are those of
/// QCoreApplication::translate.
KORVANE_WIDGETS_API QString LoadComponentTexts(const QLocale &locale = QLocale());

} // namespace korvane
