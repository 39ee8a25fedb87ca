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

namespace pedigreewatch {
namespace {

constexpr Wording youngest_text = {"born in the last ten years, both parents known",
                                   "geboren in de laatste tien jaren, beide ouders bekend"};
constexpr Wording years_text = {"born in these years", "geboren in deze jaren"};
constexpr Wording listed_text = {"listed animals", "dieren van de lijst"};
constexpr Wording not_estimable = {"not estimable", "niet te schatten"};
constexpr Wording pairs_of_sample = {"pairs of a random sample of animals",
                                     "paren van een aselecte steekproef van dieren"};
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
  add_year({"reference_first_year", {"their first year of birth", "hun eerste geboortejaar"}}, reference.first_year);
  add_year({"reference_last_year", {"their last year of birth", "hun laatste geboortejaar"}}, reference.last_year);
  add_count(list, {"reference_animals", {"their number", "hun aantal"}}, std::ssize(reference.positions));
}

void add_founders(RowList& list, const Diversity& diversity) {
  DiversityRow& both =
      list.add({"founders_and_half_founders",
                {"founders / animals with one known parent", "stichters / dieren met een bekende ouder"}});
  both.text = std::to_string(diversity.founders) + " / " + std::to_string(diversity.half_founders);
  add_count(list, {"founders", {"ancestors without known parents", "voorouders zonder bekende ouders"}},
            diversity.founders);
  add_count(list,
            {"half_founders",
             {"animals with one known parent; the other one counts as a founder",
              "dieren met een bekende ouder; de andere telt als stichter"}},
            diversity.half_founders);
  add_value(list,
            {"effective_founders",
             {"fe: founders that would give the same diversity if all contributed alike",
              "fe: stichters die dezelfde diversiteit zouden geven als alle evenveel bijdroegen"}},
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
       {"fa: the same, with bottlenecks behind the founders", "fa: hetzelfde, met de flessenhalzen na de stichters"}});
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

void add_kinship(RowList& list, const Diversity& diversity) {
  add_value(list,
            {"mean_kinship",
             {"of all animals with all, each with itself included", "van alle dieren met alle, elk ook met zichzelf"}},
            diversity.mean_kinship);
  add_value(list,
            {"founder_genomes",
             {"fg: founders whose genes, none lost, would give the same diversity",
              "fg: stichters waarvan de genen, zonder verlies, dezelfde diversiteit zouden geven"}},
            diversity.founder_genomes);
  add_value(list, {"lowest_mean_kinship", {"of one animal with all", "van een dier met alle"}},
            diversity.lowest_mean_kinship);
  add_value(list, {"highest_mean_kinship", {"of one animal with all", "van een dier met alle"}},
            diversity.highest_mean_kinship);
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
  add_path(list, "all_paths", {"age of parents of parents, years", "leeftijd van ouders van ouders, jaren"},
           diversity.all_paths);
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
  add_kinship(list, diversity);
  add_completeness(list, diversity);
  add_effective_sizes(list, diversity);
  add_paths(list, diversity);
  return std::move(list.rows);
}

std::string write_diversity(const PopulationStore& store, const Diversity& diversity, ToolLanguage language) {
  std::string table;
  append_line(table, diversity_header());
  for (const DiversityRow& row : diversity_rows(store, diversity, language)) append_line(table, row);
  return table;
}

}  // namespace pedigreewatch
