// Each group of figures adds its rows; figures are keys of the same name in both languages, and their meanings stand
// beside them.

#include "diversity/diversity_table.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <utility>

#include "checks/readable_text.h"
#include "core/wording.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Wording youngest_text = {"born in the last ten years, both parents known",
                                   "geboren in de laatste tien jaren, beide ouders bekend"};
constexpr Wording years_text = {"born in these years", "geboren in deze jaren"};
constexpr Wording listed_text = {"listed animals", "dieren van de lijst"};
constexpr Wording not_estimable = {"not estimable", "niet te schatten"};
constexpr Wording no_complete_years = {
    "not said, because no birth year has had all its young, or no ages of parents are known",
    "niet gezegd, omdat geen geboortejaar al zijn jongen gehad heeft, of geen leeftijd van ouders bekend is"};
constexpr Wording few_family_parents = {
    "not said, because fewer than {1} sires or {1} dams born in {2} have bred",
    "niet gezegd, omdat met minder dan {1} vaders of {1} moeders, geboren in {2}, gefokt is"};
constexpr Wording unknown_family_parents = {
    "not said, because of more than {1} % of the animals that bred the sire or the dam, or its birth year, is unknown",
    "niet gezegd, omdat van meer dan {1} % van de dieren waarmee gefokt is de vader of de moeder, of het geboortejaar daarvan, onbekend is"};
constexpr Wording pairs_of_sample = {"all pairs, in part from a random sample: error below 0.2 %",
                                     "alle paren, deels uit een aselecte steekproef: fout onder 0,2 %"};
constexpr Wording every_ancestor = {"every ancestor chosen", "alle voorouders gekozen"};
constexpr Wording not_every_ancestor = {"the rest cannot change the fifth digit",
                                        "de rest kan het vijfde cijfer niet veranderen"};
constexpr Wording unknown_parent_of = {"unknown parent of {1}", "onbekende ouder van {1}"};

/// A figure's name with its meaning.
struct FigureName {
  std::string_view name;
  Wording meaning;
};

struct RowList {
  ToolLanguage language = ToolLanguage::english;
  std::vector<DiversityRow> rows;

  DiversityRow& add(const FigureName& figure) {
    DiversityRow& row = rows.emplace_back();
    row.figure = figure.name;
    row.meaning = words_of(figure.meaning, language);
    return row;
  }
  void put_text(DiversityRow& row, const Wording& wording) const { row.text = words_of(wording, language); }
};

/// Ten digits, the same on every platform.
std::string number(double value) {
  if (!std::isfinite(value)) return {};
  std::array<char, 32> digits{};
  const int length = std::snprintf(digits.data(), digits.size(), "%.10g", value);
  std::string text(digits.data(), static_cast<std::size_t>(length));
  for (char& byte : text) byte = byte == ',' ? '.' : byte;  // whatever the decimal sign of the place is
  return text;
}

std::string number(const std::optional<double>& value) {
  return value ? number(*value) : std::string();
}

void add_value(RowList& list, const FigureName& figure, const std::optional<double>& value) {
  list.add(figure).value = number(value);
}

void add_count(RowList& list, const FigureName& figure, std::int64_t count) {
  list.add(figure).value = std::to_string(count);
}

void add_reference(RowList& list, const ReferencePopulation& reference) {
  constexpr std::array<Wording, 3> choices = {youngest_text, years_text, listed_text};
  DiversityRow& choice = list.add({"reference_population", {"which animals it is about", "om welke dieren het gaat"}});
  list.put_text(choice, choices[static_cast<std::size_t>(reference.choice)]);
  choice.n = std::to_string(reference.positions.size());
  const auto add_year = [&](const FigureName& figure, std::int32_t year) {
    list.add(figure).value = year == 0 ? std::string() : std::to_string(year);
  };
  add_year({"reference_first_year",
            {"first of the birth years that it is chosen from", "eerste van de geboortejaren waaruit gekozen is"}},
           reference.first_year);
  add_year({"reference_last_year",
            {"last of the birth years that it is chosen from", "laatste van de geboortejaren waaruit gekozen is"}},
           reference.last_year);
  add_count(list, {"reference_animals", {"number of its animals", "aantal dieren ervan"}},
            std::ssize(reference.positions));
  DiversityRow& born = list.add({"reference_born",
                                 {"animals born in these years, those left out for an unknown parent too",
                                  "dieren geboren in deze jaren, ook die om een onbekende ouder weggelaten zijn"}});
  if (reference.choice != ReferenceChoice::listed) born.value = std::to_string(reference.born);
}

void add_founders(RowList& list, const Diversity& diversity) {
  DiversityRow& both =
      list.add({"founders_and_half_founders",
                {"founders / animals with one known parent", "stamdieren / dieren met een bekende ouder"}});
  both.text = std::to_string(diversity.founders) + " / " + std::to_string(diversity.half_founders);
  add_count(list, {"founders", {"ancestors without known parents", "voorouders zonder bekende ouders"}},
            diversity.founders);
  add_count(list,
            {"half_founders",
             {"animals with one known parent; the other one counts as a founder",
              "dieren met een bekende ouder; de andere telt als stamdier"}},
            diversity.half_founders);
  add_value(list,
            {"effective_founders",
             {"fe: founders that would give the same diversity if all contributed alike",
              "fe: stamdieren die dezelfde diversiteit zouden geven als alle evenveel bijdroegen"}},
            diversity.effective_founders);
}

/// Texts of the data file in UTF-8 on one line.
std::string one_line(std::string_view bytes) {
  const std::string named = with_invisible_named(bytes);
  return named.empty() ? readable(bytes) : named;
}

std::string name_of_ancestor(const PopulationStore& store, const MainAncestor& ancestor, ToolLanguage language) {
  const std::string id = one_line(without_trailing_blanks(store.id(ancestor.position)));
  return ancestor.is_unknown_parent ? phrase(unknown_parent_of, language, {id}) : id;
}

void add_ancestor_numbers(RowList& list, const Diversity& diversity) {
  DiversityRow& effective = list.add(
      {"effective_ancestors",
       {"fa: the same, with bottlenecks behind the founders", "fa: hetzelfde, met de flessenhalzen na de stamdieren"}});
  effective.value = number(diversity.effective_ancestors);
  effective.n = std::to_string(diversity.chosen_ancestors);
  if (diversity.effective_ancestors) {
    list.put_text(effective, diversity.is_every_ancestor_chosen ? every_ancestor : not_every_ancestor);
  }
  DiversityRow& half =
      list.add({"ancestors_for_half",
                {"ancestors that explain 50 % of the genes", "voorouders die 50 % van de genen verklaren"}});
  if (diversity.ancestors_for_half) half.value = std::to_string(*diversity.ancestors_for_half);
}

void add_main_ancestors(RowList& list, const PopulationStore& store, const Diversity& diversity) {
  constexpr std::size_t shown_ancestors = 10;
  double sum = 0.0;
  for (std::size_t i = 0; i < shown_ancestors; ++i) {
    const std::string name = "main_ancestor_" + std::to_string(i + 1);
    DiversityRow& row =
        list.add({name, {"share of the genes that it explains", "aandeel van de genen dat hij verklaart"}});
    if (i >= diversity.main_ancestors.size()) continue;
    const MainAncestor& ancestor = diversity.main_ancestors[i];
    row.value = number(ancestor.contribution);
    row.text = name_of_ancestor(store, ancestor, list.language);
    sum += ancestor.contribution;
  }
  DiversityRow& total = list.add({"main_ancestors", {"share of these together", "aandeel van deze samen"}});
  total.n = std::to_string(diversity.main_ancestors.size());
  if (!diversity.main_ancestors.empty()) total.value = number(sum);
}

/// A mean kinship of one animal: which one, its name, and how much is known of its ancestors.
void add_extreme(RowList& list, const PopulationStore& store, std::string_view name,
                 const std::optional<double>& kinship, std::int32_t animal) {
  const std::string figure(name), name_figure = figure + "_name", equivalents_figure = figure + "_equivalents";
  DiversityRow& row = list.add({figure,
                                {"of one animal with all; few known ancestors make it low",
                                 "van een dier met alle; weinig bekende voorouders maken het laag"}});
  row.value = number(kinship);
  if (animal != 0) row.text = one_line(without_trailing_blanks(store.id(animal)));
  DiversityRow& of_name = list.add({name_figure, {"name of that animal", "naam van dat dier"}});
  if (animal != 0 && store.has_name) of_name.text = one_line(without_trailing_blanks(store.name(animal)));
  DiversityRow& equivalents =
      list.add({equivalents_figure, {"EqG of that animal: known generations", "EqG van dat dier: bekende generaties"}});
  if (animal != 0) equivalents.value = number(double{store.generation_equivalents[animal]});
}

void add_kinship(RowList& list, const PopulationStore& store, const Diversity& diversity) {
  add_value(list,
            {"mean_kinship",
             {"of all animals with all, each with itself included", "van alle dieren met alle, elk ook met zichzelf"}},
            diversity.mean_kinship);
  add_value(list,
            {"mean_kinship_without_self",
             {"of different animals: F of their young, were they mated at random",
              "van verschillende dieren: F van hun jongen, als ze willekeurig gepaard werden"}},
            diversity.mean_kinship_without_self);
  add_value(list,
            {"founder_genomes",
             {"fg: founders whose genes, none lost, would give the same diversity",
              "fg: stamdieren waarvan de genen, zonder verlies, dezelfde diversiteit zouden geven"}},
            diversity.founder_genomes);
  add_extreme(list, store, "lowest_mean_kinship", diversity.lowest_mean_kinship, diversity.lowest_animal);
  add_extreme(list, store, "highest_mean_kinship", diversity.highest_mean_kinship, diversity.highest_animal);
}

void add_completeness(RowList& list, const Diversity& diversity) {
  add_value(
      list,
      {"maximum_generations",
       {"generations to the farthest known ancestor, mean", "generaties tot de verste bekende voorouder, gemiddeld"}},
      diversity.maximum_generations);
  add_value(list,
            {"complete_generations",
             {"generations in which all ancestors are known, mean",
              "generaties waarin alle voorouders bekend zijn, gemiddeld"}},
            diversity.complete_generations);
  add_value(list, {"equivalent_generations", {"EqG: known generations, mean", "EqG: bekende generaties, gemiddeld"}},
            diversity.equivalent_generations);
  add_value(list,
            {"completeness_index",
             {"PCI: completeness of five generations, 0 to 1, mean",
              "PCI: volledigheid van vijf generaties, 0 tot 1, gemiddeld"}},
            diversity.completeness_index);
}

/// Names of the two rows of an effective size.
struct EstimateNames {
  FigureName increase, size;
};

void add_estimate(RowList& list, const EstimateNames& names, const EffectiveSizeEstimate& estimate) {
  DiversityRow& increase = list.add(names.increase);
  increase.value = number(estimate.mean_increase);
  increase.n = std::to_string(estimate.count);
  if (estimate.is_sample) list.put_text(increase, pairs_of_sample);
  DiversityRow& size = list.add(names.size);
  size.value = number(estimate.effective_size);
  size.standard_error = number(estimate.standard_error);
  size.n = std::to_string(estimate.count);
  if (estimate.is_sample) list.put_text(size, pairs_of_sample);
  if (!estimate.effective_size) list.put_text(size, not_estimable);
}

void add_effective_sizes(RowList& list, const Diversity& diversity) {
  add_estimate(list,
               {{"increase_of_inbreeding", {"in each generation, mean", "in elke generatie, gemiddeld"}},
                {"effective_size_by_inbreeding",
                 {"Ne from the increases of inbreeding of the animals", "Ne uit de inteelttoename van de dieren"}}},
               diversity.by_inbreeding);
  add_estimate(
      list,
      {{"increase_of_coancestry", {"in each generation, mean", "in elke generatie, gemiddeld"}},
       {"effective_size_by_coancestry",
        {"Ne from the increases of kinship of pairs of animals", "Ne uit de verwantschapstoename van paren dieren"}}},
      diversity.by_coancestry);
}

void add_path(RowList& list, std::string_view path, const Wording& meaning, const PathInterval& interval) {
  const std::string name = "interval_" + std::string(path), odd_name = "not_positive_" + std::string(path);
  DiversityRow& mean = list.add({name, meaning});
  mean.value = number(interval.mean_years);
  mean.n = std::to_string(interval.count);
  DiversityRow& odd =
      list.add({odd_name, {"of these: parent not older than its young", "hiervan: ouder niet ouder dan het jong"}});
  odd.value = std::to_string(interval.not_positive);
  odd.n = std::to_string(interval.count);
}

void add_paths(RowList& list, const Diversity& diversity) {
  constexpr std::array<std::pair<std::string_view, Wording>, 4> paths = {{
      {"sire_son", {"age of sires of sires, years", "leeftijd van vaders van vaders, jaren"}},
      {"sire_daughter", {"age of sires of dams, years", "leeftijd van vaders van moeders, jaren"}},
      {"dam_son", {"age of dams of sires, years", "leeftijd van moeders van vaders, jaren"}},
      {"dam_daughter", {"age of dams of dams, years", "leeftijd van moeders van moeders, jaren"}},
  }};
  for (std::size_t i = 0; i < paths.size(); ++i) {
    add_path(list, paths[i].first, paths[i].second, diversity.paths[i]);
  }
  add_path(list, "all_paths",
           {"age of parents of parents, all pairs together, of all years",
            "leeftijd van ouders van ouders, alle paren samen, van alle jaren"},
           diversity.all_paths);
  add_value(list,
            {"interval_mean_of_paths",
             {"mean of the four paths, the usual generation interval, years",
              "gemiddelde van de vier paden, het gebruikelijke generatie-interval, jaren"}},
            mean_of_paths({diversity.paths, diversity.all_paths}));
}

// ---- diversity left, imports, subpopulations, family sizes -------------------------------------------------------

void add_diversity_left(RowList& list, const Diversity& diversity) {
  const std::optional<double>& kinship = diversity.mean_kinship;
  std::optional<double> left, by_founders, since;
  if (kinship) left = 1.0 - *kinship;
  if (diversity.effective_founders) by_founders = 0.5 / *diversity.effective_founders;
  if (kinship && by_founders) since = *kinship - *by_founders;
  add_value(list,
            {"gene_diversity",
             {"1 - mean kinship: what is left of the diversity of the founders",
              "1 - gemiddelde verwantschap: wat over is van de diversiteit van de stamdieren"}},
            left);
  add_value(list,
            {"lost_by_unequal_founders",
             {"lost because founders have contributed unequally, 1 / (2 fe)",
              "verloren doordat stamdieren ongelijk bijdroegen, 1 / (2 fe)"}},
            by_founders);
  add_value(list,
            {"lost_since_founders",
             {"lost since then, by bottlenecks and chance, 1 / (2 fg) - 1 / (2 fe)",
              "sindsdien verloren, door flessenhalzen en toeval, 1 / (2 fg) - 1 / (2 fe)"}},
            since);
}

void add_division(RowList& list, const Diversity& diversity) {
  const SubpopulationDiversity& division = diversity.division;
  add_value(list,
            {"import_contribution",
             {"share of the genes that come from imports", "aandeel van de genen dat van importdieren komt"}},
            diversity.import_contribution);
  add_value(list,
            {"subpopulations_inbreeding",
             {"mean F of the animals of subpopulations", "gemiddelde F van de dieren van subpopulaties"}},
            division.mean_inbreeding);
  add_value(list,
            {"kinship_within_subpopulations",
             {"mean kinship within, with themselves, weighed by numbers",
              "gemiddelde verwantschap binnen, ook met zichzelf, gewogen naar aantal"}},
            division.kinship_within);
  add_value(
      list,
      {"kinship_over_subpopulations",
       {"mean kinship of all animals of subpopulations", "gemiddelde verwantschap van alle dieren van subpopulaties"}},
      division.kinship_over_all);
  add_value(list,
            {"fis",
             {"Fis: above 0 kin are mated within subpopulations, below 0 avoided",
              "Fis: boven 0 worden binnen subpopulaties verwanten gepaard, onder 0 vermeden"}},
            division.f_is);
  add_value(list,
            {"fst",
             {"Fst: how far the subpopulations have grown apart, 0 to 1",
              "Fst: hoever de subpopulaties uit elkaar gegroeid zijn, 0 tot 1"}},
            division.f_st);
  add_value(list, {"fit", {"Fit: both together, 1 - (1 - Fis)(1 - Fst)", "Fit: beide samen, 1 - (1 - Fis)(1 - Fst)"}},
            division.f_it);
}

void add_family_numbers(RowList& list, std::string_view parents, std::string_view one, const FamilySizes& sizes) {
  const bool is_known = sizes.parents >= 2;
  const auto add_of = [&](std::string_view name, const Wording& meaning, double value) {
    const std::string figure(name);
    DiversityRow& row = list.add({figure, meaning});
    if (is_known) row.value = number(value);
    row.n = std::to_string(sizes.parents);
  };
  const std::string of(one);
  add_of(std::string(parents) + "_per_year",
         {"entering breeding in a birth year, mean", "per geboortejaar in de fok gekomen, gemiddeld"}, sizes.per_year);
  add_of("variance_sons_of_" + of, {"of the number of sons that bred", "van het aantal zonen waarmee gefokt is"},
         sizes.variance_of_sons);
  add_of("variance_daughters_of_" + of,
         {"of the number of daughters that bred", "van het aantal dochters waarmee gefokt is"},
         sizes.variance_of_daughters);
  add_of("covariance_of_" + of, {"of both numbers", "van beide aantallen"}, sizes.covariance);
}

void add_known_family_parents(RowList& list, const FamilySizeEstimate& families) {
  const auto add_of = [&](const FigureName& figure, const std::optional<double>& share) {
    DiversityRow& row = list.add(figure);
    row.value = number(share);
    row.n = std::to_string(families.bred_offspring);
  };
  add_of(
      {"known_sires_of_bred",
       {"share of the animals that bred, of these years on, whose sire and its birth year are known",
        "aandeel van de dieren waarmee gefokt is, vanaf deze jaren, waarvan de vader en zijn geboortejaar bekend zijn"}},
      families.known_parents.of_males);
  add_of({"known_dams_of_bred", {"likewise of the dam", "evenzo van de moeder"}}, families.known_parents.of_females);
}

void add_family_sizes(RowList& list, const FamilySizeEstimate& families) {
  const auto add_year = [&](const FigureName& figure, std::int32_t year) {
    list.add(figure).value = families.last_year == 0 ? std::string() : std::to_string(year);
  };
  add_year({"families_first_year",
            {"first birth year whose animals have had all their young",
             "eerste geboortejaar waarvan de dieren al hun jongen gehad hebben"}},
           families.first_year);
  add_year({"families_last_year", {"last one", "laatste daarvan"}}, families.last_year);
  add_value(list,
            {"generation_interval", {"L: mean of the four paths, years", "L: gemiddelde van de vier paden, jaren"}},
            families.generation_interval);
  add_family_numbers(list, "sires", "sires", families.of.of_males);
  add_family_numbers(list, "dams", "dams", families.of.of_females);
  add_known_family_parents(list, families);
  DiversityRow& size = list.add({"effective_size_by_family_sizes",
                                 {"Ne from the numbers of sires and dams and how unevenly they are used",
                                  "Ne uit de aantallen vaders en moeders en hoe ongelijk ze gebruikt zijn"}});
  size.value = number(families.effective_size);
  size.n = std::to_string(families.of.of_males.parents + families.of.of_females.parents);
  if (!families.effective_size) size.text = words_of_obstacle(families, list.language);
}

/// A text with a quotation mark would open a quotation in R and in spreadsheets; in one, the mark is doubled.
void append_field(std::string& table, std::string_view field) {
  if (field.find('"') == std::string_view::npos) {
    table += field;
    return;
  }
  table += '"';
  for (const char byte : field) table.append(byte == '"' ? 2 : 1, byte);
  table += '"';
}

void append_line(std::string& table, const DiversityRow& row) {
  for (const std::string* const field : {&row.figure, &row.value, &row.standard_error, &row.n, &row.text}) {
    append_field(table, *field);
    table += '\t';
  }
  append_field(table, row.meaning);
  table += '\n';
}

}  // namespace

std::string words_of_obstacle(const FamilySizeEstimate& families, ToolLanguage language) {
  constexpr double per_cent = 100.0;
  switch (families.obstacle) {
    case FamilySizeObstacle::none: return {};
    case FamilySizeObstacle::no_years: return std::string(words_of(no_complete_years, language));
    case FamilySizeObstacle::few_parents:
      return phrase(
          few_family_parents, language,
          {std::to_string(fewest_family_parents), range_text(families.first_year, families.last_year, language)});
    case FamilySizeObstacle::unknown_parents: break;
  }
  const auto most_unknown = std::lround(per_cent * (1.0 - least_known_parents));
  return phrase(unknown_family_parents, language, {std::to_string(most_unknown)});
}

DiversityRow diversity_header() {
  return {"figure", "value", "standard_error", "n", "text", "meaning"};
}

std::vector<DiversityRow> diversity_rows(const PopulationStore& store, const Diversity& diversity,
                                         ToolLanguage language) {
  RowList list{language, {}};
  add_reference(list, diversity.reference);
  add_founders(list, diversity);
  add_ancestor_numbers(list, diversity);
  add_main_ancestors(list, store, diversity);
  add_kinship(list, store, diversity);
  add_completeness(list, diversity);
  add_effective_sizes(list, diversity);
  add_paths(list, diversity);
  add_diversity_left(list, diversity);
  add_division(list, diversity);
  add_family_sizes(list, diversity.families);
  return std::move(list.rows);
}

std::string write_diversity(const PopulationStore& store, const Diversity& diversity, ToolLanguage language) {
  std::string table;
  append_line(table, diversity_header());
  for (const DiversityRow& row : diversity_rows(store, diversity, language)) append_line(table, row);
  return table;
}

}  // namespace pedigreewatch
