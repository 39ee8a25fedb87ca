#include "intake/id_rules.h"

#include <algorithm>

#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

struct RuleWords {
  IdRule rule;
  std::string_view name;
  Wording leaves_out;
};

constexpr auto rule_words = std::to_array<RuleWords>({
    {separators_rule,
     "separators",
     {"without blanks, hyphens, dots and slashes", "zonder spaties, streepjes, punten en schuine strepen"}},
    {capitals_rule, "capitals", {"without regard to capitals", "zonder op hoofdletters te letten"}},
    {zeros_rule, "zeros", {"without zeros in front", "zonder nullen ervoor"}},
    {look_alikes_rule, "look-alikes", {"with O taken for 0 and l for 1", "met O als 0 en l als 1"}},
    {marks_rule,
     "marks",
     {"without marks such as ? and * before and behind", "zonder tekens als ? en * ervoor en erachter"}},
    {prefix_rule, "prefix", {"without the letters in front", "zonder de letters ervoor"}},
    {country_rule, "country", {"without the number of the country in front", "zonder het landnummer ervoor"}},
    {check_digit_rule, "check-digit", {"without the last digit", "zonder het laatste cijfer"}},
});

constexpr std::string_view separators = " -./_";
constexpr std::string_view no_rule_name = "keep";

/// What people put before or behind an identification: doubt, death, a remark.
std::string_view without_marks(std::string_view id) {
  constexpr std::string_view marks = " ?*!+#^~()[]<>", dagger = "\xE2\x80\xA0";
  while (id.starts_with(dagger)) id.remove_prefix(dagger.size());
  while (id.ends_with(dagger)) id.remove_suffix(dagger.size());
  const std::size_t first = id.find_first_not_of(marks), last = id.find_last_not_of(marks);
  return first == std::string_view::npos ? id : id.substr(first, last + 1 - first);
}

char without_capital(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

char digit_meant(char byte) {
  if (byte == 'O' || byte == 'o') return '0';
  return byte == 'l' || byte == 'I' || byte == 'i' || byte == 'L' ? '1' : byte;
}

}  // namespace

std::optional<IdRules> id_rules_named(std::string_view text) {
  IdRules rules;
  if (text == no_rule_name) return rules;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('+', begin), text.size());
    const std::string_view name = text.substr(begin, end - begin);
    const auto* const found =
        std::find_if(rule_words.begin(), rule_words.end(), [&](const RuleWords& words) { return words.name == name; });
    if (found == rule_words.end()) return std::nullopt;
    rules.bits |= found->rule;
    begin = end + 1;
  }
  return rules;
}

std::string name_of_rules(IdRules rules) {
  std::string name;
  for (const RuleWords& words : rule_words) {
    if ((rules.bits & words.rule) == 0) continue;
    if (!name.empty()) name += '+';
    name += words.name;
  }
  return name.empty() ? std::string(no_rule_name) : name;
}

std::string description_of_rules(IdRules rules, ToolLanguage language) {
  constexpr Wording exactly = {"as they are written", "zoals ze geschreven zijn"}, between = {" and ", " en "};
  std::string text;
  for (const RuleWords& words : rule_words) {
    if ((rules.bits & words.rule) == 0) continue;
    if (!text.empty()) text += words_of(between, language);
    text += words_of(words.leaves_out, language);
  }
  return text.empty() ? std::string(words_of(exactly, language)) : text;
}

void append_id_key(std::string& key, std::string_view id, IdRules rules) {
  if ((rules.bits & marks_rule) != 0) id = without_marks(id);
  const std::size_t first_digit = id.find_first_of("0123456789");
  if ((rules.bits & prefix_rule) != 0 && first_digit != std::string_view::npos) id.remove_prefix(first_digit);
  if ((rules.bits & country_rule) != 0) {
    if (const std::string_view number = without_country(id); !number.empty()) id = number;
  }
  bool is_behind_digit = false;
  for (std::size_t i = 0; i < id.size(); ++i) {
    char byte = id[i];
    if ((rules.bits & separators_rule) != 0 && separators.find(byte) != std::string_view::npos) continue;
    if ((rules.bits & look_alikes_rule) != 0) byte = digit_meant(byte);
    if ((rules.bits & capitals_rule) != 0) byte = without_capital(byte);
    const bool has_digit_behind = i + 1 < id.size() && is_digit(id[i + 1]);
    if ((rules.bits & zeros_rule) != 0 && byte == '0' && !is_behind_digit && has_digit_behind) continue;
    is_behind_digit = is_digit(byte);
    key.push_back(byte);
  }
}

std::string_view without_country(std::string_view id) {
  constexpr std::size_t country_digits = 3, digits_in_all = 15;
  std::size_t count = 0, end_of_country = 0;
  for (std::size_t i = 0; i < id.size(); ++i) {
    if (separators.find(id[i]) != std::string_view::npos) continue;
    if (!is_digit(id[i])) return {};
    if (++count == country_digits) end_of_country = i + 1;
  }
  if (count != digits_in_all) return {};
  id.remove_prefix(end_of_country);
  id.remove_prefix(id.find_first_not_of(separators));
  return id;
}

std::string_view without_check_digit(std::string_view id) {
  if (id.size() < 2 || !is_digit(id.back())) return {};
  id.remove_suffix(1);
  if (separators.find(id.back()) != std::string_view::npos) id.remove_suffix(1);
  return id;
}

}  // namespace pedigreewatch
