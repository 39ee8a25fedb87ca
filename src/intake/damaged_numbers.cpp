// A spreadsheet keeps 15 digits of a number, and shows large ones with an exponent.

#include "intake/damaged_numbers.h"

#include <algorithm>
#include <array>

#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t kept_digits = 15;
/// Of so many numbers one may be of another form, as on lines that were joined; beyond so many others none is counted.
constexpr std::int64_t tolerated_other_forms = 50, most_other_forms = 1000;
constexpr auto thousands_signs = std::to_array<std::string_view>({".", ",", "'", " ", "\xC2\xA0", "\xE2\x80\xAF"});

std::size_t count_digits(std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), is_digit);
  return static_cast<std::size_t>(end - text.begin());
}

/// The sign behind the first digits; empty when there is none.
std::string_view sign_at(std::string_view text) {
  for (const std::string_view sign : thousands_signs) {
    if (text.starts_with(sign)) return sign;
  }
  return {};
}

/// Whether `text` is a number with an exponent: digits, with a point or comma behind the first one, "E+" and digits.
bool has_exponent(std::string_view text) {
  const std::size_t sign = text.find("E+");
  if (sign == std::string_view::npos || sign == 0 || !is_digit(text.front())) return false;
  std::string_view digits = text.substr(1, sign - 1);
  if (digits.starts_with('.') || digits.starts_with(',')) digits.remove_prefix(1);
  const std::string_view exponent = text.substr(sign + 2);
  return count_digits(digits) == digits.size() && !exponent.empty() && count_digits(exponent) == exponent.size();
}

void note_long_number(NumberForms& forms, std::string_view digits, std::int64_t line) {
  const std::size_t last = digits.find_last_not_of('0');
  const std::size_t zeros = digits.size() - (last == std::string_view::npos ? 0 : last + 1);
  if (zeros >= rounded_digits) note_text(forms.ending_in_zeros, line, digits);
  if (digits.size() == kept_digits) return;
  ++forms.beyond_fifteen;
  if (digits.size() - zeros <= kept_digits) note_text(forms.cut_to_fifteen, line, digits);
}

void note_thousands(NumberForms& forms, std::string_view text) {
  constexpr std::size_t digits_below_thousand = 3;
  const std::size_t digits = count_digits(text);
  if (digits == text.size() && digits <= digits_below_thousand && text.front() != '0') {
    ++forms.below_thousand;
  } else {
    ++(is_of_thousands(text) ? forms.of_thousands : forms.other);
  }
}

}  // namespace

bool is_of_thousands(std::string_view text) {
  constexpr std::size_t group = 3;
  const std::size_t first = count_digits(text);
  if (first == 0 || first > group || text.front() == '0') return false;
  text.remove_prefix(first);
  const std::string_view sign = sign_at(text);
  if (sign.empty()) return false;
  while (!text.empty()) {
    if (!text.starts_with(sign) || count_digits(text.substr(sign.size())) != group) return false;
    text.remove_prefix(sign.size() + group);
  }
  return true;
}

std::string without_thousands_signs(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), is_digit);
  return digits;
}

void note_number(NumberForms& forms, std::string_view text, std::int64_t line) {
  if (forms.other <= most_other_forms) note_thousands(forms, text);
  if (!is_digit(text.front())) return;
  if (has_exponent(text)) note_text(forms.with_exponent, line, text);
  if (text.size() >= kept_digits && count_digits(text) == text.size()) note_long_number(forms, text, line);
}

bool has_thousands_signs(const NumberForms& forms) {
  return forms.of_thousands > 0 && may_have_thousands_signs(forms);
}

bool may_have_thousands_signs(const NumberForms& forms) {
  return forms.other <= most_other_forms &&
         forms.other * tolerated_other_forms <= forms.of_thousands + forms.below_thousand;
}

NotedTexts destroyed_numbers(const NumberForms& forms) {
  if (forms.with_exponent.count > 0) return forms.with_exponent;
  if (forms.ending_in_zeros.count >= fewest_rounded_ids) return forms.ending_in_zeros;
  const bool are_cut = forms.beyond_fifteen >= fewest_cut_ids && forms.cut_to_fifteen.count == forms.beyond_fifteen;
  return are_cut ? forms.cut_to_fifteen : NotedTexts{};
}

}  // namespace pedigreewatch
