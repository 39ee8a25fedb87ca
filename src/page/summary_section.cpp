// All six estimates of the effective size from the whole pedigree stand side by side, those of diversity first; none of
// them is a verdict. How far the figures reach is told by the generation equivalents of the last year with ten animals.

#include <algorithm>
#include <optional>
#include <vector>

#include "page/chart_figure.h"
#include "page/inbreeding_charts.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "page/standing_words.h"
#include "text/counted.h"

namespace pedigreewatch {
namespace {

constexpr Counted animals_and_years = {{"1 animal, born in {2}.", "1 dier, geboren in {2}."},
                                       {"{1} animals, born in {2}.", "{1} dieren, geboren in {2}."}};
constexpr Wording some_with_years = {"{1} animals; {2} of them were born in {3}.",
                                     "{1} dieren; {2} daarvan zijn geboren in {3}."};
constexpr Wording undated_animals = {"Animals whose year of birth is not known: {1}.",
                                     "Dieren waarvan het geboortejaar onbekend is: {1}."};
constexpr Counted animals_without_years = {
    {"1 animal, of which the year of birth is not known.", "1 dier, waarvan het geboortejaar niet bekend is."},
    {"{1} animals, of none of which the year of birth is known.",
     "{1} dieren, waarvan van geen enkel het geboortejaar bekend is."}};
constexpr Wording named_parents = {"Parents that are named but have no line of their own: {1}.",
                                   "Ouders die wel genoemd worden maar geen eigen regel hebben: {1}."};
constexpr Wording years_are_cut = {"The charts show the last {1} years.", "De grafieken tonen de laatste {1} jaren."};
constexpr Wording last_inbreeding = {"The animals born in {1} have a mean inbreeding F of {2}.",
                                     "De dieren die in {1} geboren zijn hebben een gemiddelde inteelt F van {2}."};

constexpr Wording sizes_lead = {
    "Six ways of estimating the effective population size Ne from the whole pedigree give {1} to {2}.",
    "Zes manieren om de effectieve populatiegrootte Ne uit de hele stamboom te schatten geven {1} tot {2}."};
constexpr Wording one_size_leads = {
    "Of six ways of estimating the effective population size Ne from the whole pedigree, those that can tell one give {1}.",
    "Van zes manieren om de effectieve populatiegrootte Ne uit de hele stamboom te schatten geven die welke er een noemen {1}."};
constexpr Wording sizes_are_not = {
    "The effective population size Ne cannot be estimated from the whole pedigree: inbreeding and kinship do not rise, or too little is known.",
    "De effectieve populatiegrootte Ne is uit de hele stamboom niet te schatten: inteelt en verwantschap stijgen niet, of er is te weinig bekend."};
constexpr Wording sizes_caution = {
    "In all six each unknown parent counts as unrelated: a few per cent of them can make Ne twice too high, most of all in the four ways by year, and with few generations known nine times. Of the parents of animals that are no founders {1} are unknown.",
    "In alle zes telt elke onbekende ouder als onverwant: een paar procent daarvan kan Ne twee keer te hoog maken, het meest in de vier manieren per jaar, en met weinig bekende generaties negen keer. Van de ouders van dieren die geen stamdier zijn is {1} onbekend."};
constexpr Wording sizes_caption = {"Effective population size in six ways, from the whole pedigree",
                                   "Effectieve populatiegrootte op zes manieren, uit de hele stamboom"};
constexpr Wording way_heading = {"Way", "Manier"};
constexpr Wording size_heading = {"Ne", "Ne"};

constexpr Wording equivalents_are = {
    "Of the animals born in {1}, {2} generation equivalents of ancestors are known.",
    "Van de dieren die in {1} geboren zijn, zijn {2} equivalente generaties voorouders bekend."};
constexpr Wording ways[] = {
    {"increase of inbreeding of each animal (diversity)", "toename van de inteelt van elk dier (diversiteit)"},
    {"increase of coancestry of each pair (diversity)", "toename van de verwantschap van elk paar (diversiteit)"},
    {"F of all years (report)", "F van alle jaren (uitvoer)"},
    {"f of all years (report)", "f van alle jaren (uitvoer)"},
    {"F of the third and the last year (report)", "F van het derde en het laatste jaar (uitvoer)"},
    {"f of the third and the last year (report)", "f van het derde en het laatste jaar (uitvoer)"}};

void write_paragraph(std::string& page, const std::string& text) {
  page += "<p>" + isolated(text) + "</p>\n";
}

std::string animals_text(const PageFrame& frame) {
  const PopulationStore& store = frame.store();
  const std::string animals = std::to_string(store.size());
  if (frame.years.count() <= 0) return counted(animals_without_years, store.animal_count, frame.language);
  const std::string years = range_text(store.birth_years.first, store.birth_years.last, frame.language);
  const std::int64_t dated = std::ssize(frame.population().analysis.years.animals);
  std::string text = dated < store.animal_count
                         ? phrase(some_with_years, frame.language, {animals, std::to_string(dated), years})
                         : counted(animals_and_years, dated, frame.language, {years});
  const auto add_count = [&](const Wording& wording, std::int64_t count) {
    if (count > 0) text += " " + phrase(wording, frame.language, {std::to_string(count)});
  };
  add_count(undated_animals, std::int64_t{store.animal_count} - dated);
  add_count(named_parents, std::int64_t{store.animal_count} - store.kept.file_records);
  if (frame.years.is_cut) add_count(years_are_cut, frame.years.count());
  return text;
}

/// The last year with enough animals to speak of; else the last one with any.
std::optional<Row> telling_row(const PageFrame& frame) {
  constexpr std::size_t enough = 10;
  for (const std::size_t least : {enough, std::size_t{1}}) {
    for (Row row = frame.years.last; row >= frame.years.first; --row) {
      if (frame.animals(row).size() >= least) return row;
    }
  }
  return std::nullopt;
}

/// The effective size by each of `ways`; none where it is not estimable.
std::vector<std::optional<double>> sizes_by_way(const PageFrame& frame) {
  std::vector<std::optional<double>> sizes(2);
  if (frame.input.diversity != nullptr) {
    sizes = {frame.input.diversity->by_inbreeding.effective_size, frame.input.diversity->by_coancestry.effective_size};
  }
  const GenerationRates& rates = frame.whole().rates;
  for (const GenerationRate* const rate :
       {&rates.F_smoothed, &rates.f_smoothed, &rates.F_absolute, &rates.f_absolute}) {
    const bool is_known = is_estimable(frame, *rate);
    sizes.push_back(is_known ? std::optional<double>(rate->effective_size) : std::nullopt);
  }
  return sizes;
}

void write_sizes(std::string& page, const PageFrame& frame) {
  const std::vector<std::optional<double>> sizes = sizes_by_way(frame);
  std::vector<double> known;
  FigureTable table;
  table.headings = {frame.text(way_heading), frame.text(size_heading)};
  for (std::size_t way = 0; way < sizes.size(); ++way) {
    if (sizes[way]) known.push_back(*sizes[way]);
    table.rows.push_back(
        {frame.text(ways[way]), {sizes[way] ? size_text(*sizes[way], frame.language) : not_estimable(frame)}});
  }
  std::string text = frame.text(sizes_are_not);
  if (!known.empty()) {
    const auto [least, most] = std::minmax_element(known.begin(), known.end());
    const std::string low = size_text(*least, frame.language), high = size_text(*most, frame.language);
    text = phrase(low == high ? one_size_leads : sizes_lead, frame.language, {low, high});
  }
  if (frame.input.standing != nullptr && frame.input.standing->data.unknown_parents) {
    const double unknown = *frame.input.standing->data.unknown_parents;
    text += " " + phrase(sizes_caution, frame.language, {percent_text(unknown, frame.language)});
  }
  write_paragraph(page, text);
  write_figure_table(page, table, frame.text(sizes_caption));
}

std::string trust_text(const PageFrame& frame, Row row) {
  const double equivalents = frame.whole().tables.completeness.of(row).equivalent_generations;
  return phrase(equivalents_are, frame.language, {frame.year(row), report_figure(equivalents, 1, frame.language)}) +
         " " + frame.text(words_of_depth(equivalents));
}

}  // namespace

void write_summary(std::string& page, const PageFrame& frame) {
  write_paragraph(page, animals_text(frame));
  const std::optional<Row> row = telling_row(frame);
  if (row) {
    const double F = std::max(0.0, double{frame.whole().inbreeding.of(*row).F});
    write_paragraph(page, phrase(last_inbreeding, frame.language, {frame.year(*row), percent_text(F, frame.language)}));
    write_sizes(page, frame);
    write_paragraph(page, trust_text(frame, *row));
  }
  if (frame.input.check != nullptr) write_paragraph(page, findings_sentence(frame));
}

}  // namespace pedigreewatch
