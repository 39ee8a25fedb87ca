// What the tools say, in either language: a wording with places for values, filled in. The console of the tools is
// UTF-8, unlike the report's.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "core/wording.h"

namespace pedigreewatch {

enum class ToolLanguage { english, dutch };

constexpr std::string_view words_of(const Wording& wording, ToolLanguage language) {
  return language == ToolLanguage::english ? wording.english : wording.dutch;
}

/// The wording with {1}, {2}, ... replaced by the values. A place that has no value stays as it is.
std::string phrase(const Wording& wording, ToolLanguage language, std::initializer_list<std::string_view> values = {});
std::string phrase(const Wording& wording, ToolLanguage language, std::span<const std::string_view> values);

/// A text of the input for a message: UTF-8, at most 60 letters of it, with dots for what a terminal would act on.
std::string shown(std::string_view text);

/// The same in its full length.
std::string shown_whole(std::string_view text);

/// A text of the input as `shown`, in quotation marks.
std::string in_quotes(std::string_view text);

}  // namespace pedigreewatch
