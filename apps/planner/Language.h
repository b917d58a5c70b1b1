// The language of the planner's texts.
#pragma once

#include <QString>

namespace korvane::planner {

/// Loads the texts of the planner, of its components and of Qt into the application: in that
/// language, or in the user's own when it is empty, English where there are none in it. A language
/// that is named is that of dates and numbers, too, unless they are in it already.
void UseLanguage(const QString &language);

} // namespace korvane::planner
