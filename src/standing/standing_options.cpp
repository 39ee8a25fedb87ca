#include "standing/standing_options.h"

#include <charconv>
#include <cstdlib>

#include "text/phrases.h"

namespace pedigreewatch {
namespace {

std::string_view without_blanks_behind(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// A smaller one without its sign may be meant as a part of 1: 0.0625 as 6.25 %.
constexpr double least_without_sign = 0.01;

std::string take_percentage(std::string_view name, std::string_view value, std::string_view example, double& share,
                            bool& is_given) {
  const std::optional<double> read = read_percentage(value);
  std::string fault = std::string(name) + " " + in_quotes(value) + ": ";
  if (!read) return fault + "a percentage above 0 and up to 100 was expected, such as " + std::string(example);
  if (*read < least_without_sign && value.find('%') == std::string_view::npos) {
    return fault + "this may be a percentage or a part of 1; write it with its sign, such as " + std::string(example);
  }
  share = *read;
  is_given = true;
  return {};
}

}  // namespace

std::optional<std::int32_t> read_rule_year(std::string_view text) {
  std::int32_t year = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), year);
  constexpr std::int32_t first = 1000, last = 9999;  // four digits: any other is a slip of the hand
  if (error != std::errc() || stop != text.data() + text.size() || year < first || year > last) return std::nullopt;
  return year;
}

std::optional<double> read_percentage(std::string_view text) {
  text = without_blanks_behind(text);
  if (text.ends_with('%')) text = without_blanks_behind(text.substr(0, text.size() - 1));
  std::string digits(text);
  for (char& byte : digits) byte = byte == ',' ? '.' : byte;
  if (digits.empty() || digits.find_first_not_of("0123456789.") != std::string::npos) return std::nullopt;
  // Not every library has std::from_chars for reals; of digits and points alone strtod reads the same.
  char* stop = nullptr;
  const double percentage = std::strtod(digits.c_str(), &stop);
  const bool is_read = stop == digits.c_str() + digits.size();
  constexpr double hundred = 100.0;
  if (!is_read || !(percentage > 0.0) || percentage > hundred) return std::nullopt;
  return percentage / hundred;
}

std::string take_standing_option(std::string_view name, std::string_view value, StandingSettings& settings) {
  if (name == "--rule-year") {
    settings.rule_year = read_rule_year(value);
    if (!settings.rule_year) return "--rule-year " + in_quotes(value) + ": a year was expected, such as 2015";
  }
  if (name == "--sire-share") {
    return take_percentage(name, value, "5%", settings.most_sire_share, settings.is_sire_share_given);
  }
  if (name == "--most-f") {
    return take_percentage(name, value, "6.25%", settings.most_inbreeding, settings.is_most_inbreeding_given);
  }
  return {};
}

}  // namespace pedigreewatch
