// Lists of texts with their counts or lines, as the findings of an export show them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/text_output.h"
#include "intake/date_layout_recognition.h"
#include "intake/prepare_plan.h"
#include "intake/text_counts.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Writes a wording with its values and ends the line.
void say(TextOutput& console, const Wording& wording, ToolLanguage language,
         std::initializer_list<std::string_view> values = {});

std::string text_of(std::int64_t number);

/// ", and 12 more".
std::string more_text(std::int64_t count, ToolLanguage language);

/// `"NA" (312), empty (4)`: those texts for which `is_meant` is true, the most frequent first, at most 12; "none" where
/// there are none.
std::string list_counted(const TextCounts& counts, ToolLanguage language,
                         const std::function<bool(const CountedText&)>& is_meant);

/// `line 12 "31-o2-1998", line 80 "x"`.
std::string list_noted(const NotedTexts& noted, ToolLanguage language);

/// Says the wording with the number of the texts and their list, if there are any.
void show_noted(const Wording& wording, const NotedTexts& noted, ToolLanguage language, TextOutput& console);

/// Says the wording with the count, if it is not 0.
void show_count(const Wording& wording, std::int64_t count, ToolLanguage language, TextOutput& console);

/// Whether the field has a column.
bool is_in_use(const PreparePlan& plan, FieldCode code);

}  // namespace pedigreewatch
