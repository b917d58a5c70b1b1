// Texts for the user, in the user's language.
#pragma once

#include "foundation/zuExport.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace korvane {

/// What gives texts in the user's language: the arguments of Translate, the text itself when it
/// knows none. Called from any thread.
using TTranslator = std::string (*)(const char *context, const char *text, const char *comment,
                                    int n);

/// The text in the user's language. `text` is English and UTF-8; `context` names the component,
/// `comment` tells equal texts of a context apart or helps who translates. Both literals, so that
/// lupdate finds them. A text for a number `n` >= 0 holds `%n` for it and its plural as "(s)":
/// "%n cell(s)".
KORVANE_CORE_API std::string Translate(const char *context, const char *text,
                                       const char *comment = nullptr, int n = -1);
/// The English text for a number: without "(s)" for 1, else with "s"; `%n` and `%Ln` are the
/// number, which a translator may write as the locale does for `%Ln`.
KORVANE_CORE_API std::string Untranslated(std::string_view text, int n);
/// Replaces the translator and returns the former one; null means Untranslated. The Qt controls set
/// one that asks QCoreApplication::translate, unless there is one already.
KORVANE_CORE_API TTranslator SetTranslator(TTranslator translator);

/// Marks a literal that is translated where it is used.
#define KORVANE_TRANSLATE_NOOP(context, text) text // NOLINT: what lupdate looks for

/// The text with `%1`, `%2`, ... replaced by the arguments, in any order, all at once.
KORVANE_CORE_API std::string WithArguments(std::string_view text,
                                           std::initializer_list<std::string_view> arguments);

} // namespace korvane
