// One table of the rules: name, what is expected, and how it is taken.

#include "forecast/rule_reading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <optional>

namespace pedigreewatch {
namespace {

constexpr Wording a_count = {"a whole number from 1 to 1000000 was expected",
                             "een heel getal van 1 tot en met 1000000 werd verwacht"};
constexpr Wording a_count_or_none = {"a whole number from 0 to 1000000 was expected",
                                     "een heel getal van 0 tot en met 1000000 werd verwacht"};
constexpr Wording an_age = {"a whole number of years from 1 to 60 was expected",
                            "een heel aantal jaren van 1 tot en met 60 werd verwacht"};
constexpr Wording an_amount = {
    "a number such as 40, a change such as +20 or -5, or a part such as 150% was expected",
    "een aantal zoals 40, een verandering zoals +20 of -5, of een deel zoals 150% werd verwacht"};
constexpr Wording a_trend = {"a per cent a year from -50% to 50% was expected",
                             "een percentage per jaar van -50% tot 50% werd verwacht"};
constexpr Wording an_f = {"an F such as 0.0625 or 6.25% was expected", "een F zoals 0.0625 of 6.25% werd verwacht"};
constexpr Wording a_percent = {"a per cent from 0% to 99% was expected", "een percentage van 0% tot 99% werd verwacht"};
constexpr Wording a_kinship = {"a kinship from 0 to 0.5 was expected", "een verwantschap van 0 tot 0.5 werd verwacht"};
constexpr Wording a_yes = {"yes or no was expected", "yes of no werd verwacht"};
constexpr Wording an_exchange = {"present, open, closed or rotation was expected",
                                 "present, open, closed of rotation werd verwacht"};
constexpr Wording no_such_rule = {"there is no such rule", "deze regel bestaat niet"};
constexpr Wording no_rule_line = {"a rule such as most-litters-a-year = 5, or a name in square brackets, was expected",
                                  "een regel zoals most-litters-a-year = 5, of een naam tussen vierkante haken, werd "
                                  "verwacht"};
constexpr Wording no_scenario_yet = {"a rule stands behind the name of its scenario: [name]",
                                     "een regel staat achter de naam van zijn scenario: [naam]"};
constexpr Wording no_name = {"a name between the brackets was expected", "een naam tussen de haken werd verwacht"};
constexpr Wording taken_name = {
    "there is a scenario of this name already; present is the present practice, options are the rules of options",
    "er is al een scenario met deze naam; present is de huidige praktijk, options zijn de regels uit opties"};
constexpr Wording twice = {"this rule stands twice", "deze regel staat er twee keer"};
constexpr Wording too_many = {"more than 12 scenarios", "meer dan 12 scenario's"};
constexpr Wording no_scenario = {"no scenario: a name in square brackets, and rules below it, were expected",
                                 "geen scenario: een naam tussen vierkante haken, met regels eronder, werd verwacht"};
constexpr Wording no_rules = {"this scenario has no rule", "dit scenario heeft geen regel"};
constexpr Wording year_above_life = {"a sire may have more litters in a year than in life",
                                     "een vader mag in een jaar meer nesten hebben dan in zijn leven"};
constexpr Wording too_few_sires = {
    "with so many sires and so few litters for each, there are not enough for the litters of a year",
    "met zoveel vaders en zo weinig nesten voor elk zijn er niet genoeg voor de nesten van een jaar"};
constexpr Wording too_many_of_them = {
    "more than 100 times the present number, or than 100000: it cannot be forecast from that",
    "meer dan 100 keer het huidige aantal, of dan 100000: dat is daar niet uit te "
    "voorzien"};
constexpr Wording nothing_left = {"of the present number fewer than one would be left",
                                  "van het huidige aantal bleef er minder dan een over"};
constexpr Wording too_old = {"no parent was ever so old: nobody would be left to breed with",
                             "geen enkele ouder was ooit zo oud: er bleef niemand over om mee te fokken"};
constexpr Wording no_groups = {"the population has no subpopulations to exchange sires between",
                               "de populatie heeft geen subpopulaties om vaders tussen uit te wisselen"};
constexpr Wording no_imports = {
    "there are no imports in these rules to be related: add import-sires or import-dams",
    "er zijn in deze regels geen importdieren die verwant kunnen zijn: voeg import-sires of "
    "import-dams toe"};

/// Digits with at most one decimal point, and a sign where it may have one.
std::optional<double> read_real(std::string_view text, bool may_have_sign = false) {
  std::string_view digits = text;
  if (may_have_sign && (digits.starts_with('+') || digits.starts_with('-'))) digits.remove_prefix(1);
  const bool has_digit = digits.find_first_of("0123456789") != std::string_view::npos;
  const bool has_others = digits.find_first_not_of("0123456789.") != std::string_view::npos;
  constexpr std::size_t most_digits = 15;
  if (!has_digit || has_others || digits.size() > most_digits) return std::nullopt;
  if (std::count(digits.begin(), digits.end(), '.') > 1) return std::nullopt;
  double value = 0.0, scale = 1.0;
  bool is_behind_point = false;
  for (const char digit : digits) {
    if (digit == '.') {
      is_behind_point = true;
      continue;
    }
    value = value * 10.0 + static_cast<double>(digit - '0');
    if (is_behind_point) scale *= 10.0;
  }
  return (text.starts_with('-') ? -value : value) / scale;
}

std::optional<std::int32_t> read_whole(std::string_view text, std::int32_t least, std::int32_t most) {
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && stop == text.data() + text.size();
  return is_number && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

constexpr std::int32_t most_count = 1'000'000, most_age = 60;

/// A fraction, or per cent with the sign.
std::optional<double> read_fraction(std::string_view text, double least, double most) {
  const bool is_percent = text.ends_with('%');
  if (is_percent) text.remove_suffix(1);
  std::optional<double> value = read_real(text, least < 0.0);
  if (value && is_percent) *value /= 100.0;
  return value && *value >= least && *value <= most ? value : std::nullopt;
}

bool take_amount(std::string_view text, Amount& amount) {
  if (text.ends_with('%')) {
    const std::optional<double> part = read_real(text.substr(0, text.size() - 1), true);
    if (!part) return false;
    const bool is_change = text.starts_with('+') || text.starts_with('-');
    amount = {(is_change ? 100.0 + *part : *part) / 100.0, 0.0};
    return amount.factor > 0.0 && amount.factor <= most_count;
  }
  const bool is_change = text.starts_with('+') || text.starts_with('-');
  const auto number =
      read_whole(text.starts_with('+') ? text.substr(1) : text, is_change ? -most_count : 1, most_count);
  if (!number) return false;
  amount = {is_change ? 1.0 : 0.0, static_cast<double>(*number)};
  return true;
}

bool take_count(std::string_view text, std::optional<std::int32_t>& count) {
  count = read_whole(text, 1, most_count);
  return count.has_value();
}

bool take_whole(std::string_view text, std::int32_t least, std::int32_t most, std::int32_t& number) {
  const auto read = read_whole(text, least, most);
  number = read.value_or(0);
  return read.has_value();
}

bool take_exchange(std::string_view text, Exchange& exchange) {
  constexpr std::array<std::string_view, 4> words = {"present", "open", "closed", "rotation"};
  const auto found = std::find(words.begin(), words.end(), text);
  if (found == words.end()) return false;
  exchange = static_cast<Exchange>(found - words.begin());
  return true;
}

struct Rule {
  RuleForm form;
  bool (*take)(std::string_view value, BreedingRules& rules);
};

constexpr auto all_rules = std::to_array<Rule>({
    {{"most-litters-a-year", a_count}, [](auto value, auto& rules) { return take_count(value, rules.litters_a_year); }},
    {{"most-litters-in-life", a_count},
     [](auto value, auto& rules) { return take_count(value, rules.litters_in_life); }},
    {{"sires", an_amount}, [](auto value, auto& rules) { return take_amount(value, rules.sires); }},
    {{"litters", an_amount}, [](auto value, auto& rules) { return take_amount(value, rules.litters); }},
    {{"litters-trend", a_trend},
     [](auto value, auto& rules) {
       const auto trend = value.ends_with('%') ? read_fraction(value, -0.5, 0.5) : std::nullopt;
       rules.trend = trend.value_or(0.0);
       return trend.has_value();
     }},
    {{"most-offspring-matings", a_count_or_none},
     [](auto value, auto& rules) {
       rules.offspring_matings = read_whole(value, 0, most_count);
       return rules.offspring_matings.has_value();
     }},
    {{"most-f", an_f},
     [](auto value, auto& rules) {
       rules.most_f = read_fraction(value, 0.0, 1.0);
       return rules.most_f.has_value();
     }},
    {{"kinship-below", a_percent},
     [](auto value, auto& rules) {
       const auto part = value.ends_with('%') ? read_fraction(value, 0.0, 0.99) : std::nullopt;
       rules.above_percent = part ? std::optional(100.0 * *part) : std::nullopt;
       return part.has_value();
     }},
    {{"least-age-sires", an_age},
     [](auto value, auto& rules) { return take_whole(value, 1, most_age, rules.least_age.of_males); }},
    {{"least-age-dams", an_age},
     [](auto value, auto& rules) { return take_whole(value, 1, most_age, rules.least_age.of_females); }},
    {{"import-sires", a_count_or_none},
     [](auto value, auto& rules) { return take_whole(value, 0, most_count, rules.imports.of_males); }},
    {{"import-dams", a_count_or_none},
     [](auto value, auto& rules) { return take_whole(value, 0, most_count, rules.imports.of_females); }},
    {{"import-kinship", a_kinship},
     [](auto value, auto& rules) {
       const auto kinship = read_fraction(value, 0.0, 0.5);
       rules.import_kinship = kinship.value_or(0.0);
       return kinship.has_value();
     }},
    {{"one-litter-a-dam", a_yes},
     [](auto value, auto& rules) {
       rules.has_one_litter = value == "yes";
       return value == "yes" || value == "no";
     }},
    {{"exchange", an_exchange}, [](auto value, auto& rules) { return take_exchange(value, rules.exchange); }},
});

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Begins a scenario; yields what is wrong with its line.
RuleProblem begin_scenario(std::string_view line, ReadScenarios& read) {
  const std::string name(line.ends_with(']') ? trimmed(line.substr(1, line.size() - 2)) : std::string_view());
  if (name.empty()) return {0, std::string(line), no_name};
  const bool is_given = std::any_of(read.scenarios.begin(), read.scenarios.end(),
                                    [&](const BreedingRules& rules) { return rules.name == name; });
  const bool is_taken = is_given || name == present_practice || name == options_scenario;
  if (is_taken) return {0, name, taken_name};
  if (read.scenarios.size() == most_scenarios) return {0, name, too_many};
  read.scenarios.emplace_back().name = name;
  return {};
}

RuleProblem take_line(std::string_view line, std::int64_t number, ReadScenarios& read) {
  if (line.empty() || line.front() == '#' || line.front() == ';') return {};
  if (line.front() == '[') return begin_scenario(line, read);
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return {0, std::string(line), no_rule_line};
  if (read.scenarios.empty()) return {0, std::string(line), no_scenario_yet};
  return take_rule(trimmed(line.substr(0, sign)), trimmed(line.substr(sign + 1)), read.scenarios.back(), number);
}

const WrittenRule* find_written(const BreedingRules& rules, std::string_view name) {
  const auto found = std::find_if(rules.written.begin(), rules.written.end(),
                                  [&](const WrittenRule& rule) { return rule.name == name; });
  return found == rules.written.end() ? nullptr : &*found;
}

/// Litters with two known parents, and sires, of a base year.
struct BaseNumbers {
  double litters = 0.0, sires = 0.0;
};

BaseNumbers count_base(const BasePeriod& base) {
  BaseNumbers numbers;
  for (const std::vector<GroupYear>& year : base.base_years()) {
    for (const GroupYear& group : year) {
      numbers.litters += static_cast<double>(group.with_both) / base.length();
      numbers.sires += static_cast<double>(group.in_use.of_males) / base.length();
    }
  }
  return numbers;
}

}  // namespace

std::vector<RuleForm> rule_forms() {
  std::vector<RuleForm> forms;
  for (const Rule& rule : all_rules) forms.push_back(rule.form);
  return forms;
}

RuleProblem take_rule(std::string_view name, std::string_view value, BreedingRules& rules, std::int64_t line) {
  const auto rule =
      std::find_if(all_rules.begin(), all_rules.end(), [&](const Rule& r) { return r.form.name == name; });
  if (rule == all_rules.end()) return {0, std::string(name), no_such_rule};
  if (find_written(rules, name) != nullptr) return {0, std::string(name), twice};
  if (!rule->take(value, rules)) return {0, std::string(value), rule->form.expected};
  rules.written.push_back({std::string(name), std::string(value), line});
  return {};
}

ReadScenarios read_scenarios(std::string_view text) {
  ReadScenarios read;
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    RuleProblem problem = take_line(trimmed(text.substr(0, end)), number, read);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (problem.reason.english.empty()) continue;
    problem.line = number;
    read.problems.push_back(std::move(problem));
  }
  for (const BreedingRules& rules : read.scenarios) {
    if (rules.written.empty() && read.problems.empty()) read.problems.push_back({0, rules.name, no_rules});
  }
  if (read.scenarios.empty() && read.problems.empty()) read.problems.push_back({0, {}, no_scenario});
  return read;
}

std::vector<RuleProblem> find_contradictions(const BreedingRules& rules, const BasePeriod& base) {
  std::vector<RuleProblem> problems;
  const auto add = [&](std::string_view name, const Wording& reason) {
    const WrittenRule* const rule = find_written(rules, name);
    problems.push_back(rule == nullptr ? RuleProblem{0, rules.name, reason}
                                       : RuleProblem{rule->line, rule->text(), reason});
  };
  if (rules.litters_a_year && rules.litters_in_life && *rules.litters_a_year > *rules.litters_in_life) {
    add("most-litters-a-year", year_above_life);
  }
  const BaseNumbers present = count_base(base);
  const bool is_limited = rules.litters_a_year && rules.sires.is_changed();
  const double litters = rules.litters.of(present.litters);
  if (is_limited && rules.sires.of(present.sires) * *rules.litters_a_year < litters) add("sires", too_few_sires);
  const auto is_beyond = [](double wanted, double now) {
    constexpr double most_growth = 100.0, most_wanted = 100'000.0;
    return wanted > most_growth * std::max(now, 1.0) || wanted > std::max(now, most_wanted);
  };
  if (is_beyond(rules.sires.of(present.sires), present.sires)) add("sires", too_many_of_them);
  if (is_beyond(litters, present.litters)) add("litters", too_many_of_them);
  if (is_beyond(rules.imports.of_males, present.sires)) add("import-sires", too_many_of_them);
  if (is_beyond(rules.imports.of_females, present.litters)) add("import-dams", too_many_of_them);
  if (rules.sires.of(present.sires) < 1.0) add("sires", nothing_left);
  if (litters < 1.0) add("litters", nothing_left);
  if (rules.least_age.of_males > base.careers.of_males.oldest) add("least-age-sires", too_old);
  if (rules.least_age.of_females > base.careers.of_females.oldest) add("least-age-dams", too_old);
  if (rules.exchange != Exchange::present && base.years.front().size() < 2) add("exchange", no_groups);
  const bool has_imports = rules.imports.of_males > 0 || rules.imports.of_females > 0;
  if (rules.import_kinship > 0.0 && !has_imports) add("import-kinship", no_imports);
  return problems;
}

}  // namespace pedigreewatch
