// One table of the rules: name, what is expected, and how it is taken.

#include "forecast/rule_reading.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "checks/readable_text.h"
#include "forecast/model_plan.h"
#include "planning/plan_words.h"
#include "text/encoding.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

constexpr Wording a_size = {"a number of young from {1} to {2} was expected",
                            "een aantal jongen van {1} tot {2} werd verwacht"};
constexpr Wording a_count = {"a whole number from {1} to {2} was expected",
                             "een heel getal van {1} tot en met {2} werd verwacht"};
constexpr Wording an_age = {"a whole number of years from {1} to {2} was expected",
                            "een heel aantal jaren van {1} tot en met {2} werd verwacht"};
constexpr Wording an_amount = {
    "a number such as 40, a change such as +20 or -5, or a part such as 150% was expected",
    "een aantal zoals 40, een verandering zoals +20 of -5, of een deel zoals 150% werd verwacht"};
constexpr Wording some_years = {"a number of years from {1} to {2}, such as 2.5, was expected",
                                "een aantal jaren van {1} tot {2}, zoals 2.5, werd verwacht"};
constexpr Wording a_trend = {"a per cent a year from {1}% to {2}% was expected",
                             "een percentage per jaar van {1}% tot {2}% werd verwacht"};
constexpr Wording an_f = {"an F such as 0.0625 or 6.25% was expected", "een F zoals 0.0625 of 6.25% werd verwacht"};
constexpr Wording a_percent = {"a per cent from {1}% to {2}% was expected",
                               "een percentage van {1}% tot {2}% werd verwacht"};
constexpr Wording a_kinship = {"a kinship from {1} to {2} was expected",
                               "een verwantschap van {1} tot {2} werd verwacht"};
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
constexpr Wording no_figure_of_present = {
    "below [present] stand figures of the practice, litters, sires and litters-trend: rules stand below other names",
    "onder [present] staan cijfers van de praktijk, litters, sires en litters-trend: regels staan onder andere namen"};
constexpr Wording no_rule_but_figure = {
    "a figure of the practice goes for all scenarios: it stands below [present]",
    "een cijfer van de praktijk geldt voor alle scenario's: het staat onder [present]"};
constexpr Wording twice = {"this rule stands twice", "deze regel staat er twee keer"};
constexpr Wording too_many = {"more than {1} scenarios", "meer dan {1} scenario's"};
constexpr Wording no_scenario = {"no scenario: a name in square brackets, and rules below it, were expected",
                                 "geen scenario: een naam tussen vierkante haken, met regels eronder, werd verwacht"};
constexpr Wording no_rules = {"this scenario has no rule", "dit scenario heeft geen regel"};
constexpr Wording year_above_life = {"a sire may have more litters in a year than in life",
                                     "een vader mag in een jaar meer nesten hebben dan in zijn leven"};
constexpr Wording too_few_sires = {
    "with so many sires and so few litters for each, there are not enough for the litters of a year",
    "met zoveel vaders en zo weinig nesten voor elk zijn er niet genoeg voor de nesten van een jaar"};
constexpr Wording too_many_of_them = {
    "more than {1} times the present number, or than {2}: it cannot be forecast from that",
    "meer dan {1} keer het huidige aantal, of dan {2}: dat is daar niet uit te voorzien"};
constexpr Wording nothing_left = {"of the present number fewer than one would be left",
                                  "van het huidige aantal bleef er minder dan \xC3\xA9\xC3\xA9n over"};
constexpr Wording too_old = {"no parent was ever so old: nobody would be left to breed with",
                             "geen enkele ouder was ooit zo oud: er bleef niemand over om mee te fokken"};
constexpr Wording no_groups = {"the population has no subpopulations to exchange sires between",
                               "de populatie heeft geen subpopulaties om vaders tussen uit te wisselen"};
constexpr Wording no_imports = {
    "there are no imports in these rules to be related: add import-sires or import-dams",
    "er zijn in deze regels geen importdieren die verwant kunnen zijn: voeg import-sires of "
    "import-dams toe"};

constexpr Wording is_out_of_reach = {"this cannot be reached: with these sires and litters it comes to {1}%",
                                     "dit is niet te bereiken: met deze vaders en nesten wordt het {1}%"};
constexpr Wording used_too_long = {
    "no parent was ever so old as at the end of such a use: at most {1} years",
    "geen enkele ouder was ooit zo oud als aan het eind van zo'n gebruik: hoogstens {1} jaar"};
constexpr Wording plan_chooses = {"a plan chooses that itself: leave out this rule, or the plan",
                                  "dat kiest een plan zelf: laat deze regel weg, of het plan"};
constexpr Wording plan_is_large = {
    "a plan for each year can choose from {1} animals at most, and here there would be some {2}",
    "een plan voor elk jaar kan uit hoogstens {1} dieren kiezen, en hier zouden het er ongeveer {2} zijn"};

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
    value = value * 10.0 + (digit - '0');
    if (is_behind_point) scale *= 10.0;
  }
  return (text.starts_with('-') ? -value : value) / scale;
}

std::optional<std::int32_t> read_whole(std::string_view text, double least, double most) {
  std::int32_t number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc() && stop == text.data() + text.size();
  return is_number && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

constexpr double most_count = 1'000'000.0;

/// A fraction, or per cent with the sign.
std::optional<double> read_fraction(std::string_view text, const RuleForm& form) {
  const bool is_percent = text.ends_with('%');
  if (is_percent) text.remove_suffix(1);
  std::optional<double> value = read_real(text);
  if (value && is_percent) *value /= 100.0;
  return value && *value >= form.least && *value <= form.most ? value : std::nullopt;
}

/// Per cent, with the sign behind it.
std::optional<double> read_percent(std::string_view text, const RuleForm& form) {
  if (!text.ends_with('%')) return std::nullopt;
  const std::optional<double> value = read_real(text.substr(0, text.size() - 1), form.least < 0.0);
  return value && *value >= form.least && *value <= form.most ? value : std::nullopt;
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

bool take_count(std::string_view text, const RuleForm& form, std::optional<std::int32_t>& count) {
  count = read_whole(text, form.least, form.most);
  return count.has_value();
}

bool take_whole(std::string_view text, const RuleForm& form, std::int32_t& number) {
  const auto read = read_whole(text, form.least, form.most);
  number = read.value_or(0);
  return read.has_value();
}

bool take_exchange(std::string_view text, Exchange& exchange) {
  constexpr std::array<std::string_view, 4> words = {"present", "open", "closed", "rotation"};
  const auto* const found = std::find(words.begin(), words.end(), text);
  if (found == words.end()) return false;
  exchange = static_cast<Exchange>(found - words.begin());
  return true;
}

struct Rule {
  RuleForm form;
  bool (*take)(std::string_view value, const RuleForm& form, BreedingRules& rules);
};

bool take_figure(std::string_view text, const RuleForm& form, std::optional<double>& figure) {
  constexpr double percent = 100.0;
  figure = read_percent(text, form);
  if (figure) *figure /= percent;
  return figure.has_value();
}

constexpr double most_age = 60.0, most_years_in_use = 30.0;

bool take_number(std::string_view text, const RuleForm& form, std::optional<double>& figure) {
  const std::optional<double> number = read_real(text);
  if (number && *number >= form.least && *number <= form.most) figure = number;
  return figure.has_value();
}

constexpr auto all_rules = std::to_array<Rule>({
    {{"most-litters-a-year",
      {"litters of a sire a year, at most", "nesten van een vader per jaar, hoogstens"},
      a_count,
      1.0,
      most_count},
     [](auto value, auto& form, auto& rules) { return take_count(value, form, rules.litters_a_year); }},
    {{"most-litters-in-life",
      {"litters of a sire in life, at most", "nesten van een vader in zijn leven, hoogstens"},
      a_count,
      1.0,
      most_count},
     [](auto value, auto& form, auto& rules) { return take_count(value, form, rules.litters_in_life); }},
    {{"sires", {"sires a year", "vaders per jaar"}, an_amount},
     [](auto value, auto&, auto& rules) { return take_amount(value, rules.sires); }},
    {{"litters", {"litters a year", "nesten per jaar"}, an_amount},
     [](auto value, auto&, auto& rules) { return take_amount(value, rules.litters); }},
    {{"litters-trend", {"litters more each year", "elk jaar meer nesten"}, a_trend, -50.0, 50.0},
     [](auto value, auto& form, auto& rules) {
       const auto trend = read_percent(value, form);
       rules.trend = trend.value_or(0.0) / 100.0;
       return trend.has_value();
     }},
    {{"most-offspring-matings",
      {"matings between two offspring of the same animal in a year, at most",
       "paringen tussen twee nakomelingen van hetzelfde dier in een jaar, hoogstens"},
      a_count,
      0.0,
      most_count},
     [](auto value, auto& form, auto& rules) { return take_count(value, form, rules.offspring_matings); }},
    {{"most-f", {"F of a litter at most", "F van een nest hoogstens"}, an_f, 0.0, 1.0},
     [](auto value, auto& form, auto& rules) {
       rules.most_f = read_fraction(value, form);
       return rules.most_f.has_value();
     }},
    {{"kinship-below",
      {"only parents of lower kinship than these of their age mates",
       "alleen ouders met lagere verwantschap dan dit deel van hun leeftijdgenoten"},
      a_percent,
      0.0,
      99.0},
     [](auto value, auto& form, auto& rules) {
       rules.above_percent = read_percent(value, form);
       return rules.above_percent.has_value();
     }},
    {{"least-age-sires", {"age of sires at least", "leeftijd van vaders minstens"}, an_age, 1.0, most_age},
     [](auto value, auto& form, auto& rules) { return take_whole(value, form, rules.least_age.of_males); }},
    {{"least-age-dams", {"age of dams at least", "leeftijd van moeders minstens"}, an_age, 1.0, most_age},
     [](auto value, auto& form, auto& rules) { return take_whole(value, form, rules.least_age.of_females); }},
    {{"import-sires", {"imported sires a year", "ingevoerde vaders per jaar"}, a_count, 0.0, most_count},
     [](auto value, auto& form, auto& rules) { return take_whole(value, form, rules.imports.of_males); }},
    {{"import-dams", {"imported dams a year", "ingevoerde moeders per jaar"}, a_count, 0.0, most_count},
     [](auto value, auto& form, auto& rules) { return take_whole(value, form, rules.imports.of_females); }},
    {{"import-kinship",
      {"kinship of these imports with each other", "verwantschap van deze importdieren onderling"},
      a_kinship,
      0.0,
      0.5},
     [](auto value, auto& form, auto& rules) {
       const auto kinship = read_fraction(value, form);
       rules.import_kinship = kinship.value_or(0.0);
       return kinship.has_value();
     }},
    {{"one-litter-a-dam", {"one litter a dam", "\xC3\xA9\xC3\xA9n nest per moeder"}, a_yes},
     [](auto value, auto&, auto& rules) {
       rules.has_one_litter = value == "yes";
       return value == "yes" || value == "no";
     }},
    {{"plan",
      {"matings of each year by a plan of least kinship",
       "paringen van elk jaar volgens een plan met de laagste verwantschap"},
      a_yes},
     [](auto value, auto&, auto& rules) {
       rules.has_plan = value == "yes";
       return value == "yes" || value == "no";
     }},
    {{"exchange",
      {"exchange of sires between subpopulations", "uitwisseling van vaders tussen subpopulaties"},
      an_exchange},
     [](auto value, auto&, auto& rules) { return take_exchange(value, rules.exchange); }},
    {{"young-a-litter", {"young a litter", "jongen per nest"}, a_size, 1.0, 30.0, true},
     [](auto value, auto& form, auto& rules) { return take_number(value, form, rules.said.litter_size); }},
    {{"males", {"males among the young", "mannen onder de jongen"}, a_percent, 1.0, 99.0, true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.males); }},
    {{"litters-without-sire",
      {"litters of an unknown sire", "nesten met een onbekende vader"},
      a_percent,
      0.0,
      90.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.litters_without_sire); }},
    {{"young-without-parents",
      {"young with no known parent", "jongen zonder bekende ouder"},
      a_percent,
      0.0,
      90.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.young_without_parents); }},
    {{"sires-from-outside",
      {"sires from outside, of those that come into use", "vaders van buiten, van wie er in gebruik komen"},
      a_percent,
      0.0,
      100.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.outside.of_males); }},
    {{"dams-from-outside",
      {"dams from outside, of those that come into use", "moeders van buiten, van wie er in gebruik komen"},
      a_percent,
      0.0,
      100.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.outside.of_females); }},
    {{"sires-of-others",
      {"sires from another subpopulation, of the litters", "vaders uit een andere subpopulatie, van de nesten"},
      a_percent,
      0.0,
      100.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.sires_of_others); }},
    {{"first-age-sires",
      {"age of sires at the first litter, in years", "leeftijd van vaders bij het eerste nest, in jaren"},
      some_years,
      1.0,
      most_age,
      true},
     [](auto value, auto& form, auto& rules) { return take_number(value, form, rules.said.first_age.of_males); }},
    {{"first-age-dams",
      {"age of dams at the first litter, in years", "leeftijd van moeders bij het eerste nest, in jaren"},
      some_years,
      1.0,
      most_age,
      true},
     [](auto value, auto& form, auto& rules) { return take_number(value, form, rules.said.first_age.of_females); }},
    {{"years-in-use-sires",
      {"years that sires stay in use", "jaren dat vaders in gebruik blijven"},
      some_years,
      1.0,
      most_years_in_use,
      true},
     [](auto value, auto& form, auto& rules) { return take_number(value, form, rules.said.years_in_use.of_males); }},
    {{"years-in-use-dams",
      {"years that dams stay in use", "jaren dat moeders in gebruik blijven"},
      some_years,
      1.0,
      most_years_in_use,
      true},
     [](auto value, auto& form, auto& rules) { return take_number(value, form, rules.said.years_in_use.of_females); }},
    {{"same-sire-in-year",
      {"of two litters of a year, with the same sire",
       "van twee nesten van \xC3\xA9\xC3\xA9n jaar, met dezelfde vader"},
      a_percent,
      0.1,
      90.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.same_sire_in_year); }},
    {{"same-sire-in-life",
      {"of two litters one to three years apart, with the same sire",
       "van twee nesten die \xC3\xA9\xC3\xA9n tot drie jaar uiteen liggen, met dezelfde vader"},
      a_percent,
      0.1,
      90.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.same_sire_in_life); }},
    {{"close-matings",
      {"matings of sibs, half sibs, or parent and offspring",
       "paringen van broer en zus, halfbroer en halfzus, of ouder en kind"},
      a_percent,
      0.0,
      90.0,
      true},
     [](auto value, auto& form, auto& rules) { return take_figure(value, form, rules.said.close_matings); }},
});

/// As it is written in a rule.
std::string number_text(double value) {
  const bool is_whole = value == std::floor(value);
  return fixed_decimals(value, is_whole ? 0 : 1);
}

const Rule* find_rule(std::string_view name) {
  const auto* const rule =
      std::find_if(all_rules.begin(), all_rules.end(), [&](const Rule& r) { return r.form.name == name; });
  return rule == all_rules.end() ? nullptr : rule;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

/// Begins a scenario; yields what is wrong with its line.
RuleProblem begin_scenario(std::string_view line, ReadScenarios& read) {
  const std::string name =
      with_controls_named(line.ends_with(']') ? trimmed(line.substr(1, line.size() - 2)) : std::string_view());
  if (name.empty()) return {0, std::string(line), no_name};
  const bool is_given = std::any_of(read.scenarios.begin(), read.scenarios.end(),
                                    [&](const BreedingRules& rules) { return rules.name == name; });
  const bool is_taken = is_given || name == present_practice || name == options_scenario;
  if (is_taken) return {0, name, taken_name};
  if (read.scenarios.size() == most_scenarios) return {0, name, too_many, {std::to_string(most_scenarios)}};
  read.scenarios.emplace_back().name = name;
  return {};
}

/// Where the lines at hand belong: to the scenario that was begun last, or to the present practice.
struct RulesReading {
  ReadScenarios read;
  bool is_present = false;
  bool is_nowhere = false;  ///< the name above is wrong: its rules are not those of the scenario before it
};

RuleProblem begin_rules(std::string_view line, RulesReading& reading) {
  const bool is_closed = line.ends_with(']');
  const bool is_present = is_closed && trimmed(line.substr(1, line.size() - 2)) == present_practice;
  reading.is_present = is_present && reading.read.present.name.empty();
  reading.is_nowhere = false;
  if (!reading.is_present) {
    RuleProblem problem = begin_scenario(line, reading.read);
    reading.is_nowhere = !problem.reason.english.empty();
    return problem;
  }
  reading.read.present.name = present_practice;
  return {};
}

bool is_of_present(std::string_view name) {
  return is_figure(name) || name == "litters" || name == "sires" || name == "litters-trend";
}

RuleProblem take_line(std::string_view line, std::int64_t number, RulesReading& reading) {
  if (line.empty() || line.front() == '#' || line.front() == ';') return {};
  if (line.front() == '[') return begin_rules(line, reading);
  if (reading.is_nowhere) return {};
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return {0, std::string(line), no_rule_line};
  if (reading.read.scenarios.empty() && !reading.is_present) return {0, std::string(line), no_scenario_yet};
  const std::string name = small_letters(std::string(trimmed(line.substr(0, sign))));
  if (find_rule(name) != nullptr && reading.is_present && !is_of_present(name)) return {0, name, no_figure_of_present};
  if (!reading.is_present && is_figure(name)) return {0, name, no_rule_but_figure};
  BreedingRules& rules = reading.is_present ? reading.read.present : reading.read.scenarios.back();
  return take_rule(name, trimmed(line.substr(sign + 1)), rules, number);
}

/// The one form that a value has: with a decimal point, and without a blank before the sign of per cent.
std::string as_written(std::string_view typed) {
  std::string value(typed);
  std::replace(value.begin(), value.end(), ',', '.');
  if (!value.ends_with('%')) return value;
  value.pop_back();
  while (value.ends_with(' ')) value.pop_back();
  return value + '%';
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
  const double years = base.length();
  for (const std::vector<GroupYear>& year : base.base_years()) {
    for (const GroupYear& group : year) {
      numbers.litters += group.with_both / years;
      numbers.sires += group.in_use.of_males / years;
    }
  }
  return numbers;
}

/// Ages that no parent has come to, at the first litter or after such a length of use.
void add_ages_never_seen(const BreedingRules& present, const BasePeriod& base, Sex sex,
                         std::vector<RuleProblem>& problems) {
  const double oldest = base.careers.of(sex).oldest;
  const std::optional<double> first = present.said.first_age.of(sex), years = present.said.years_in_use.of(sex);
  const WrittenRule* const age = find_written(present, sex == male ? "first-age-sires" : "first-age-dams");
  if (age != nullptr && first > oldest) problems.push_back({age->line, age->text(), too_old, {}, *age});
  const WrittenRule* const use = find_written(present, sex == male ? "years-in-use-sires" : "years-in-use-dams");
  const double longest = std::max(1.0, oldest - first.value_or(mean_first_age(base, sex)) + 1.0);
  if (use == nullptr || years <= longest) return;
  problems.push_back({use->line, use->text(), used_too_long, {fixed_decimals(longest, 1)}, *use});
}

bool has_imports(const BreedingRules& rules) {
  return rules.imports.of_males > 0 || rules.imports.of_females > 0;
}

}  // namespace

std::string reason_of(const RuleProblem& problem, ToolLanguage language) {
  const std::vector<std::string_view> values(problem.values.begin(), problem.values.end());
  return phrase(problem.reason, language, values);
}

std::string rule_in_words(const WrittenRule& rule, ToolLanguage language) {
  const Rule* const known = find_rule(rule.name);
  if (known == nullptr) return rule.text();
  std::string value = rule.value;
  if (language == ToolLanguage::dutch) {
    if (value == "yes") value = "ja";
    if (value == "no") value = "nee";
    std::replace(value.begin(), value.end(), '.', ',');
  }
  return std::string(words_of(known->form.label, language)) + ": " + value;
}

std::vector<RuleForm> rule_forms() {
  std::vector<RuleForm> forms;
  forms.reserve(all_rules.size());
  for (const Rule& rule : all_rules) forms.push_back(rule.form);
  return forms;
}

RuleProblem take_rule(std::string_view name, std::string_view typed, BreedingRules& rules, std::int64_t line) {
  const Rule* const rule = find_rule(name);
  if (rule == nullptr) return {0, std::string(name), no_such_rule};
  if (find_written(rules, name) != nullptr) return {0, std::string(name), twice};
  const RuleForm& form = rule->form;
  std::string value = as_written(typed);
  if (!rule->take(value, form, rules)) {
    return {0, std::string(typed), form.expected, {number_text(form.least), number_text(form.most)}};
  }
  rules.written.push_back({std::string(name), std::move(value), line});
  return {};
}

bool is_figure(std::string_view name) {
  const Rule* const rule = find_rule(name);
  return rule != nullptr && rule->form.is_figure;
}

ReadScenarios read_scenarios(std::string_view bytes) {
  RulesReading reading;
  ReadScenarios& read = reading.read;
  const Encoding encoding = recognise_encoding(bytes).encoding.value_or(Encoding::windows_1252);
  const DecodedText decoded = decode(std::string(bytes), encoding);
  std::string_view text = decoded.text;
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    RuleProblem problem = take_line(trimmed(text.substr(0, end)), number, reading);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (problem.reason.english.empty()) continue;
    problem.line = number;
    read.problems.push_back(std::move(problem));
  }
  if (!read.problems.empty()) return read;
  for (const BreedingRules& rules : read.scenarios) {
    if (rules.written.empty()) read.problems.push_back({0, rules.name, no_rules});
  }
  if (read.scenarios.empty() && read.present.written.empty()) read.problems.push_back({0, {}, no_scenario});
  return read;
}

std::vector<RuleProblem> find_wrong_figures(const BreedingRules& present, const BasePeriod& base) {
  std::vector<RuleProblem> problems;
  const WrittenRule* const rule = find_written(present, "sires-of-others");
  if (rule != nullptr && base.years.front().size() < 2)
    problems.push_back({rule->line, rule->text(), no_groups, {}, *rule});
  for (const Sex sex : {male, female}) add_ages_never_seen(present, base, sex, problems);
  return problems;
}

RuleProblem out_of_reach(const BreedingRules& present, std::string_view name, double reached) {
  const WrittenRule* const rule = find_written(present, name);
  constexpr double percent = 100.0;
  const WrittenRule written = rule != nullptr ? *rule : WrittenRule{std::string(name), {}};
  return {written.line, written.text(), is_out_of_reach, {fixed_decimals(percent * reached, 2)}, written};
}

std::vector<RuleProblem> find_contradictions(const BreedingRules& rules, const BasePeriod& base) {
  std::vector<RuleProblem> problems;
  const auto add = [&](std::string_view name, const Wording& reason, std::vector<std::string> values = {}) {
    const WrittenRule* const rule = find_written(rules, name);
    problems.push_back(rule == nullptr ? RuleProblem{0, rules.name, reason, std::move(values), {rules.name, {}}}
                                       : RuleProblem{rule->line, rule->text(), reason, std::move(values), *rule});
  };
  if (rules.litters_a_year && rules.litters_in_life && *rules.litters_a_year > *rules.litters_in_life) {
    add("most-litters-a-year", year_above_life);
  }
  const BaseNumbers present = count_base(base);
  const bool is_limited = rules.litters_a_year && rules.sires.is_changed();
  const double litters = rules.litters.of(present.litters);
  if (is_limited && rules.sires.of(present.sires) * *rules.litters_a_year < litters) add("sires", too_few_sires);
  const auto refuse_beyond = [&](std::string_view name, double wanted, double now) {
    constexpr double most_growth = 100.0, most_wanted = 100'000.0;
    if (wanted <= most_growth * std::max(now, 1.0) && wanted <= std::max(now, most_wanted)) return;
    add(name, too_many_of_them, {number_text(most_growth), number_text(most_wanted)});
  };
  refuse_beyond("sires", rules.sires.of(present.sires), present.sires);
  refuse_beyond("litters", litters, present.litters);
  refuse_beyond("import-sires", rules.imports.of_males, present.sires);
  refuse_beyond("import-dams", rules.imports.of_females, present.litters);
  if (rules.sires.of(present.sires) < 1.0) add("sires", nothing_left);
  if (litters < 1.0) add("litters", nothing_left);
  if (rules.least_age.of_males > base.careers.of_males.oldest) add("least-age-sires", too_old);
  if (rules.least_age.of_females > base.careers.of_females.oldest) add("least-age-dams", too_old);
  if (rules.exchange != Exchange::present && base.years.front().size() < 2) add("exchange", no_groups);
  if (rules.has_plan) {
    for (const std::string_view name :
         {"sires", "litters-trend", "most-offspring-matings", "most-f", "kinship-below", "exchange"}) {
      if (find_written(rules, name) != nullptr) add(name, plan_chooses);
    }
    const double animals = planned_candidates(base, present.litters > 0.0 ? litters / present.litters : 1.0);
    const std::vector<std::string> numbers = {number_text(most_planned_candidates), number_text(std::round(animals))};
    if (animals > most_planned_candidates) add("plan", plan_is_large, numbers);
  }
  if (rules.import_kinship > 0.0 && !has_imports(rules)) add("import-kinship", no_imports);
  return problems;
}

}  // namespace pedigreewatch
