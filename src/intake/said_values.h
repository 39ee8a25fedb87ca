// The values of remarks, questions and refusals as texts, in either language: what console and desk have in common.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_output.h"
#include "intake/remark.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Writes a wording with its values and ends the line.
void say(TextOutput& console, const Wording& wording, ToolLanguage language,
         std::initializer_list<std::string_view> values = {});

/// A value as people read it. Texts are shortened and shown without quotation marks; in a list each stands in them:
/// `"NA" (312), empty (4) and 12 more`, `line 12 "31-o2-1998", line 80 "x"`, `"Father" (column 7)`.
std::string text_of(const Value& value, ToolLanguage language);

/// The texts of all values.
std::vector<std::string> texts_of(const Values& values, ToolLanguage language);

/// What a choice of names makes of the report: "all 2000 of them: a report with lines of 20 MB; more than ...".
std::string description_of(const NameChoice& choice, ToolLanguage language);

/// What stands in a column, as a question names it.
std::string description_of(const ColumnEvidence& column, ToolLanguage language);

/// What stands in columns, with what it tells in front and, behind it, how many more there are.
std::string introduced(const ColumnEvidenceList& list, const std::string& columns, ToolLanguage language);

/// The wording with these texts in its places.
std::string phrase_of(const Wording& wording, ToolLanguage language, std::span<const std::string> texts);

/// A character as people call it: "; (semicolon)".
std::string name_of_delimiter(char delimiter, ToolLanguage language);

}  // namespace pedigreewatch
