// The figures of studies of a breed, each with a few words on what it says.

#include <array>
#include <iterator>

#include "diversity/diversity_table.h"
#include "page/chart_figure.h"
#include "page/chart_making.h"
#include "page/diversity_charts.h"
#include "page/inbreeding_charts.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "page/standing_words.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Wording nobody = {
    "The reference population has no animals: there is nothing to compute. By default it is the animals of the last ten birth years whose parents are both known.",
    "De referentiepopulatie heeft geen dieren: er valt niets te berekenen. Als niets anders gevraagd is zijn het de dieren van de laatste tien geboortejaren waarvan beide ouders bekend zijn."};
constexpr Wording about_youngest = {
    "The figures are about {1} of the {3} animals born in {2}: those whose parents are both known. Animals with an unknown parent are left out ({4}), because they would look unrelated to all others.",
    "De cijfers gaan over {1} van de {3} dieren die in {2} geboren zijn: die waarvan beide ouders bekend zijn. Dieren met een onbekende ouder zijn weggelaten ({4}), want die zouden met geen enkel dier verwant lijken."};
constexpr Wording about_years = {"The figures are about the {1} animals born in {2}.",
                                 "De cijfers gaan over de {1} dieren die in {2} geboren zijn."};
constexpr Wording about_list = {"The figures are about the {1} animals of the list that was given.",
                                "De cijfers gaan over de {1} dieren van de opgegeven lijst."};

constexpr Wording figures_caption = {"Diversity of the reference population", "Diversiteit van de referentiepopulatie"};
constexpr Wording figure_headings[] = {{"Figure", "Cijfer"}, {"Value", "Waarde"}, {"What it says", "Wat het zegt"}};
constexpr Wording founders = {"Founders / half-founders", "Stamdieren / halve stamdieren"};
constexpr Wording founders_note = {"ancestors without known parents / with one known parent",
                                   "voorouders zonder bekende ouders / met \xC3\xA9\xC3\xA9n bekende ouder"};

/// An animal at an end of mean kinship.
struct MeanKinshipOfAnimal {
  std::optional<double> kinship;
  std::int32_t animal = 0;
};

/// A figure that is one number of the record.
struct SingleFigure {
  std::optional<double> Diversity::*value;
  int decimals;
  Wording name, note;
};
constexpr SingleFigure single_figures[] = {
    {&Diversity::effective_founders,
     2,
     {"Effective founders fe", "Effectieve stamdieren fe"},
     {"equally used founders that would give the same diversity",
      "gelijk gebruikte stamdieren die dezelfde diversiteit zouden geven"}},
    {&Diversity::effective_ancestors,
     2,
     {"Effective ancestors fa", "Effectieve voorouders fa"},
     {"the same for ancestors of any generation: far below fe after a bottleneck",
      "hetzelfde voor voorouders van elke generatie: ver onder fe na een flessenhals"}},
    {&Diversity::founder_genomes,
     2,
     {"Founder genome equivalents fg", "Stamdier-genoomequivalenten fg"},
     {"founders whose genes, without any loss, would give the same diversity",
      "stamdieren waarvan de genen, zonder enig verlies, dezelfde diversiteit zouden geven"}},
    {&Diversity::mean_kinship,
     4,
     {"Mean kinship, self included", "Gemiddelde verwantschap, inclusief zelf"},
     {"of all animals with all, each with itself too: the part of the founders' diversity that is lost",
      "van alle dieren met alle, elk ook met zichzelf: het deel van de diversiteit van de stamdieren dat weg is"}},
    {&Diversity::mean_kinship_without_self,
     4,
     {"Mean kinship, without self", "Gemiddelde verwantschap, zonder zelf"},
     {"of different animals: the inbreeding of their young, were they mated at random",
      "van verschillende dieren: de inteelt van hun jongen, als ze willekeurig gepaard werden"}},
    {&Diversity::equivalent_generations,
     2,
     {"Generation equivalents", "Equivalente generaties"},
     {"full generations that what is known of the ancestors amounts to",
      "volle generaties waarop neerkomt wat van de voorouders bekend is"}},
    {&Diversity::complete_generations,
     2,
     {"Complete generations", "Volledige generaties"},
     {"generations of ancestors known without a gap", "generaties voorouders die zonder gat bekend zijn"}},
    {&Diversity::maximum_generations,
     2,
     {"Generations at most", "Generaties hoogstens"},
     {"generations to the furthest known ancestor", "generaties tot de verst bekende voorouder"}},
    {&Diversity::completeness_index,
     3,
     {"Completeness index PCI over 5 generations", "Compleetheidsindex PCI over 5 generaties"},
     {"1: all ancestors of five generations known on both sides",
      "1: alle voorouders van vijf generaties aan beide kanten bekend"}}};
constexpr Wording half_of_genes = {"Ancestors that explain half of the genes",
                                   "Voorouders die de helft van de genen verklaren"};
constexpr Wording half_note = {"the fewer, the narrower the base", "hoe minder, hoe smaller de basis"};
constexpr Wording by_inbreeding = {"Ne by individual increase of inbreeding", "Ne uit individuele inteelttoename"};
constexpr Wording by_coancestry = {"Ne by increase of coancestry", "Ne uit toename van verwantschap"};
constexpr Wording by_families = {"Ne by family sizes", "Ne uit familiegroottes"};
constexpr Wording from_families = {
    "from the {1} sires and {2} dams born in {3} and how unevenly they were used; needs no deep pedigree",
    "uit de {1} vaders en {2} moeders die in {3} geboren zijn en hoe ongelijk ze gebruikt zijn; vraagt geen "
    "diepe stamboom"};
constexpr Wording with_error = {"{1} (sampling error {2})", "{1} (steekproeffout {2})"};
constexpr Wording what_error_is = {
    "; the sampling error is that of these animals only, not the uncertainty of Ne, which is several times larger",
    "; de steekproeffout is die van alleen deze dieren, niet de onzekerheid van Ne, die een paar keer groter is"};
constexpr Wording lowest_name = {"Lowest mean kinship of an animal", "Laagste gemiddelde verwantschap van een dier"};
constexpr Wording lowest_note = {
    "{1}; {2} generation equivalents known. The fewer ancestors are known, the lower it looks",
    "{1}; {2} equivalente generaties bekend. Hoe minder voorouders bekend zijn, hoe lager het lijkt"};
constexpr Wording highest_name = {"Highest mean kinship of an animal", "Hoogste gemiddelde verwantschap van een dier"};
constexpr Wording highest_note = {"{1}; {2} generation equivalents known: its genes are the most common ones",
                                  "{1}; {2} equivalente generaties bekend: de genen van dit dier zijn het gewoonst"};
constexpr Wording from_animals = {"from {1} animals", "uit {1} dieren"};
constexpr Wording from_pairs = {"from {1} pairs of animals", "uit {1} paren dieren"};
constexpr Wording from_sample = {"from {1} pairs of animals, error below 0.2 %",
                                 "uit {1} paren dieren, fout onder 0,2 %"};

constexpr Wording ancestors_title = {"The ancestors that contribute most", "De voorouders die het meest bijdragen"};
constexpr Wording ancestors_reading = {
    "A share is the part of the genes of the reference population that an ancestor explains beyond those before it, the largest first.",
    "Een aandeel is het deel van de genen van de referentiepopulatie dat een voorouder verklaart buiten wat de vorige al verklaren, de grootste eerst."};
constexpr Wording ancestor_headings[] = {{"Ancestor", "Voorouder"},    {"Animal", "Dier"},
                                         {"Sex", "Geslacht"},          {"Born", "Geboren"},
                                         {"Share (%)", "Aandeel (%)"}, {"Together (%)", "Samen (%)"},
                                         {"Drawn", "Getekend"}};
constexpr Wording male_word = {"male", "mannelijk"}, female_word = {"female", "vrouwelijk"};
constexpr Wording unknown_parent_of = {"unknown parent of {1}", "onbekende ouder van {1}"};

constexpr Wording imports_name = {"Share of imports in the genes (%)", "Aandeel van importdieren in de genen (%)"};
constexpr Wording imports_note = {"what the animals have from imported ancestors",
                                  "wat de dieren van ge\xC3\xAFmporteerde voorouders hebben"};
constexpr Wording fis_note = {"above 0 kin are mated within subpopulations, below 0 avoided",
                              "boven 0 worden verwanten gepaard binnen subpopulaties, onder 0 vermeden"};
constexpr Wording fst_note = {"how far the subpopulations have grown apart, 0 to 1",
                              "hoe ver de subpopulaties uit elkaar gegroeid zijn, 0 tot 1"};
constexpr Wording fit_note = {
    "both together: above 0 the animals are more inbred than if the whole was mated at random",
    "beide samen: boven 0 zijn de dieren meer ingeteeld dan bij willekeurige paring van het geheel"};
constexpr Wording division_caption = {"Kinship and distance of the subpopulations",
                                      "Verwantschap en afstand van de subpopulaties"};
constexpr Wording division_headings[] = {{"Subpopulations", "Subpopulaties"},
                                         {"Mean kinship", "Gemiddelde verwantschap"},
                                         {"Nei's minimum distance", "Minimale afstand van Nei"},
                                         {"Nei's standard distance", "Standaardafstand van Nei"}};
constexpr Wording within_one = {"within {1}", "binnen {1}"};
constexpr Wording between_two = {"{1} and {2}", "{1} en {2}"};

constexpr Wording paths_caption = {"Generation intervals on the four paths, all years",
                                   "Generatie-intervallen over de vier paden, alle jaren"};
constexpr Wording path_headings[] = {
    {"Path", "Pad"}, {"Pairs", "Paren"}, {"Years", "Jaren"}, {"0 or below", "0 of lager"}};
constexpr Wording path_names[] = {{"sire to son", "vader op zoon"},
                                  {"sire to daughter", "vader op dochter"},
                                  {"dam to son", "moeder op zoon"},
                                  {"dam to daughter", "moeder op dochter"},
                                  {"all pairs together", "alle paren samen"}};
constexpr Wording mean_of_paths_name = {"mean of the four paths (the usual interval)",
                                        "gemiddelde van de vier paden (het gebruikelijke interval)"};

std::string about(const PageFrame& frame, const ReferencePopulation& reference) {
  const std::string count = std::to_string(reference.positions.size());
  const std::string years = range_text(reference.first_year, reference.last_year, frame.language);
  switch (reference.choice) {
    case ReferenceChoice::youngest:
      return phrase(about_youngest, frame.language,
                    {count, years, std::to_string(reference.born),
                     std::to_string(reference.born - std::ssize(reference.positions))});
    case ReferenceChoice::years: return phrase(about_years, frame.language, {count, years});
    case ReferenceChoice::listed: break;
  }
  return phrase(about_list, frame.language, {count});
}

std::string figure_or_none(const PageFrame& frame, const std::optional<double>& value, int decimals) {
  return value ? report_figure(*value, decimals, frame.language) : std::string(no_figure);
}

std::string estimate_text(const PageFrame& frame, const EffectiveSizeEstimate& estimate) {
  if (!estimate.effective_size) return not_estimable(frame);
  std::string size = report_figure(*estimate.effective_size, 2, frame.language);
  if (!estimate.standard_error) return size;
  return phrase(with_error, frame.language, {size, report_figure(*estimate.standard_error, 2, frame.language)});
}

FigureTable::FigureRow estimate_row(const PageFrame& frame, const Wording& name, const Wording& from,
                                    const EffectiveSizeEstimate& estimate) {
  std::string note = phrase(from, frame.language, {std::to_string(estimate.count)});
  if (estimate.effective_size && estimate.standard_error) note += frame.text(what_error_is);
  return {frame.text(name), {estimate_text(frame, estimate), note}};
}

/// One of the two animals at the ends of mean kinship: who it is, and what is known of it.
FigureTable::FigureRow extreme_row(const PageFrame& frame, const Wording& name, const Wording& note,
                                   const MeanKinshipOfAnimal& extreme) {
  if (!extreme.kinship || extreme.animal == 0) return {frame.text(name), {std::string(no_figure), {}}};
  const AnimalWords words = words_of_animal(frame, extreme.animal);
  const std::string who = words.id.empty() ? words.name : words.name + " (" + words.id + ")";
  const double equivalents = double{frame.store().generation_equivalents[extreme.animal]};
  return {frame.text(name),
          {report_figure(*extreme.kinship, 4, frame.language),
           phrase(note, frame.language, {who, report_figure(equivalents, 2, frame.language)})}};
}

FigureTable::FigureRow families_row(const PageFrame& frame, const FamilySizeEstimate& families) {
  const auto& size = families.effective_size;
  const std::string from =
      phrase(from_families, frame.language,
             {std::to_string(families.of.of_males.parents), std::to_string(families.of.of_females.parents),
              range_text(families.first_year, families.last_year, frame.language)});
  return {frame.text(by_families),
          {size ? report_figure(*size, 2, frame.language) : not_estimable(frame),
           size ? from : words_of_obstacle(families, frame.language)}};
}

/// What is told of imports and of subpopulations, where there are any.
void add_division_rows(const PageFrame& frame, const Diversity& diversity, FigureTable& table) {
  constexpr double percent = 100.0;
  if (diversity.import_contribution) {
    table.rows.push_back(
        {frame.text(imports_name),
         {report_figure(percent * *diversity.import_contribution, 1, frame.language), frame.text(imports_note)}});
  }
  const SubpopulationDiversity& division = diversity.division;
  const auto add = [&](const char* name, const std::optional<double>& value, const Wording& note) {
    if (value) table.rows.push_back({name, {report_figure(*value, 4, frame.language), frame.text(note)}});
  };
  add("Fis", division.f_is, fis_note);
  add("Fst", division.f_st, fst_note);
  add("Fit", division.f_it, fit_note);
}

/// Each two subpopulations of the reference population, and each with itself.
FigureTable division_table(const PageFrame& frame, const SubpopulationDiversity& division) {
  FigureTable table;
  for (const Wording& heading : division_headings) table.headings.push_back(frame.text(heading));
  const auto name_of_group = [&](std::size_t g) {
    return data_text(frame.store().subpopulation_name(division.groups[g].number));
  };
  for (std::size_t g = 0; g < division.groups.size(); ++g) {
    for (std::size_t h = g; h < division.groups.size(); ++h) {
      const bool is_one = g == h;
      const std::string name = is_one ? phrase(within_one, frame.language, {name_of_group(g)})
                                      : phrase(between_two, frame.language, {name_of_group(g), name_of_group(h)});
      const std::string kinship = report_figure(division.kinship(g, h), 4, frame.language);
      const auto distance = [&](const std::optional<double>& value) {
        return is_one ? std::string(no_figure) : figure_or_none(frame, value, 4);
      };
      table.rows.push_back({name,
                            {kinship, distance(is_one ? 0.0 : division.minimum_distance(g, h)),
                             distance(is_one ? std::optional(0.0) : division.standard_distance(g, h))}});
    }
  }
  return table;
}

FigureTable figures_table(const PageFrame& frame, const Diversity& diversity) {
  FigureTable table;
  table.is_of_words = true;
  for (const Wording& heading : figure_headings) table.headings.push_back(frame.text(heading));
  table.rows.push_back({frame.text(founders),
                        {std::to_string(diversity.founders) + " / " + std::to_string(diversity.half_founders),
                         frame.text(founders_note)}});
  for (const SingleFigure& figure : single_figures) {
    table.rows.push_back({frame.text(figure.name),
                          {figure_or_none(frame, diversity.*figure.value, figure.decimals), frame.text(figure.note)}});
  }
  const auto half = diversity.ancestors_for_half;
  table.rows.push_back(
      {frame.text(half_of_genes), {half ? std::to_string(*half) : std::string(no_figure), frame.text(half_note)}});
  table.rows.push_back(
      extreme_row(frame, lowest_name, lowest_note, {diversity.lowest_mean_kinship, diversity.lowest_animal}));
  table.rows.push_back(
      extreme_row(frame, highest_name, highest_note, {diversity.highest_mean_kinship, diversity.highest_animal}));
  const EffectiveSizeEstimate& coancestry = diversity.by_coancestry;
  table.rows.push_back(estimate_row(frame, by_inbreeding, from_animals, diversity.by_inbreeding));
  table.rows.push_back(estimate_row(frame, by_coancestry, coancestry.is_sample ? from_sample : from_pairs, coancestry));
  table.rows.push_back(families_row(frame, diversity.families));
  add_division_rows(frame, diversity, table);
  return table;
}

/// Who an ancestor is: name, identification, sex, year of birth.
FigureTable::FigureRow ancestor_row(const PageFrame& frame, const MainAncestor& ancestor) {
  const PopulationStore& store = frame.store();
  const AnimalWords words = words_of_animal(frame, ancestor.position);
  const std::string none(no_figure);
  if (ancestor.is_unknown_parent) {
    return {phrase(unknown_parent_of, frame.language, {words.name}), {words.id, none, none}};
  }
  const std::int32_t year = store.birth_year[ancestor.position];
  return {words.name,
          {words.id, frame.text(store.sex[ancestor.position] == male ? male_word : female_word),
           year == 0 ? none : std::to_string(year)}};
}

NamedBars ancestor_bars(const PageFrame& frame, const Diversity& diversity) {
  constexpr double percent = 100.0;
  NamedBars bars{"ancestors", frame.text(ancestors_title), frame.text(ancestors_reading), {}, {}, std::nullopt};
  for (const Wording& heading : ancestor_headings) bars.figures.headings.push_back(frame.text(heading));
  double sum = 0.0;
  for (const MainAncestor& ancestor : diversity.main_ancestors) {
    sum += ancestor.contribution;
    bars.shares.push_back(ancestor.contribution);
    FigureTable::FigureRow& row = bars.figures.rows.emplace_back(ancestor_row(frame, ancestor));
    for (const double share : {ancestor.contribution, sum}) {
      row.cells.push_back(report_figure(percent * share, 2, frame.language));
    }
  }
  return bars;
}

FigureTable paths_table(const PageFrame& frame, const Diversity& diversity) {
  FigureTable table;
  for (const Wording& heading : path_headings) table.headings.push_back(frame.text(heading));
  for (std::size_t path = 0; path < std::size(path_names); ++path) {
    const PathInterval& interval = path < diversity.paths.size() ? diversity.paths[path] : diversity.all_paths;
    table.rows.push_back({frame.text(path_names[path]),
                          {std::to_string(interval.count), figure_or_none(frame, interval.mean_years, 2),
                           std::to_string(interval.not_positive)}});
  }
  const std::optional<double> mean = mean_of_paths({diversity.paths, diversity.all_paths});
  table.rows.push_back({frame.text(mean_of_paths_name),
                        {std::string(no_figure), figure_or_none(frame, mean, 2), std::string(no_figure)}});
  return table;
}

}  // namespace

void write_diversity(std::string& page, const PageFrame& frame) {
  const Diversity& diversity = *frame.input.diversity;
  if (diversity.reference.positions.empty()) {
    page += "<p>" + escaped(frame.text(nobody)) + "</p>\n";
  } else {
    page += "<p>" + escaped(about(frame, diversity.reference)) + "</p>\n";
    write_figure_table(page, figures_table(frame, diversity), frame.text(figures_caption));
    if (diversity.division.groups.size() > 1) {
      write_figure_table(page, division_table(frame, diversity.division), frame.text(division_caption));
    }
  }
  write_figure_table(page, paths_table(frame, diversity), frame.text(paths_caption));  // of the whole population
  if (frame.input.figures == nullptr || frame.years.count() == 0) return;
  for (Chart (*const make)(const PageFrame&) : {gene_diversity_chart, inbreeding_classes_chart}) {
    write_chart(page, make(frame), frame.language);
  }
}

void write_main_ancestors(std::string& page, const PageFrame& frame) {
  const Diversity* const diversity = frame.input.diversity;
  if (diversity == nullptr || diversity->main_ancestors.empty()) return;
  write_named_bars(page, ancestor_bars(frame, *diversity));
}

}  // namespace pedigreewatch
