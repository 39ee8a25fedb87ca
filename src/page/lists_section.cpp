// The lists that people act on: whom to breed from, who is most inbred, which sires have been used most.

#include <algorithm>
#include <iterator>
#include <span>

#include "page/chart_figure.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "standing/rare_lines.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t shown_by_kinship = 20;

constexpr Wording about_kinship = {
    "Mean kinship is that with the reference population: animals with a low one carry rare genes, and are the ones to breed from. One with few known ancestors always has a low one: those with fewer than three generation equivalents (EqG) or an unknown parent stand behind the others. Shown are {1} of the {2} females and {3} of the {4} males born in the last ten birth years; the tables of pedigreewatch-tools have all.",
    "De gemiddelde verwantschap is die met de referentiepopulatie: dieren met een lage dragen zeldzame genen, en daarmee is het goed fokken. Een dier met weinig bekende voorouders heeft altijd een lage: dieren met minder dan drie equivalente generaties (EqG) of een onbekende ouder staan achter de andere. Getoond zijn {1} van de {2} vrouwelijke en {3} van de {4} mannelijke dieren van de laatste tien geboortejaren; de tabellen van pedigreewatch-tools hebben ze alle."};
constexpr Wording about_available = {
    "Only animals that are still there are listed: the export said which are dead, sold, exported or castrated.",
    "Alleen dieren die er nog zijn, staan in deze lijsten: de export zei welke dood, verkocht, weg of gecastreerd zijn."};
constexpr Wording females_caption = {"Females with the lowest mean kinship",
                                     "Vrouwelijke dieren met de laagste gemiddelde verwantschap"};
constexpr Wording males_caption = {"Males with the lowest mean kinship",
                                   "Mannelijke dieren met de laagste gemiddelde verwantschap"};
constexpr Wording inbred_caption = {"The most inbred animals of all years",
                                    "De meest ingeteelde dieren van alle jaren"};
constexpr Wording sires_caption = {"The most used sires, and the breed without them",
                                   "De meest gebruikte vaders, en het ras zonder hen"};
constexpr Wording about_sires = {
    "Share: of the animals of the reference population with a known sire. The last column is the mean kinship of those that do not descend from him; that of all is {1}.",
    "Aandeel: van de dieren van de referentiepopulatie met een bekende vader. De laatste kolom is de gemiddelde verwantschap van de dieren die niet van hem afstammen; die van alle is {1}."};

constexpr Wording animal_heading = {"Animal", "Dier"}, name_heading = {"Name", "Naam"},
                  born_heading = {"Born", "Geboren"};
constexpr Wording kinship_heading = {"Mean kinship", "Gemiddelde verwantschap"};
constexpr Wording equivalents_heading = {"EqG", "EqG"}, index_heading = {"PCI", "PCI"};
constexpr Wording offspring_heading = {"Offspring", "Jongen"}, inbreeding_heading = {"F", "F"};
constexpr Wording young_heading = {"Offspring in the reference", "Jongen in de referentie"};
constexpr Wording share_heading = {"Share (%)", "Aandeel (%)"};
constexpr Wording descendants_heading = {"Descendants in the reference", "Nakomelingen in de referentie"};
constexpr Wording rest_heading = {"Mean kinship of the rest", "Gemiddelde verwantschap van de rest"};

/// A table of animals while its rows are added.
struct AnimalList {
  const PageFrame& frame;
  FigureTable table;

  explicit AnimalList(const PageFrame& page) : frame(page) {
    table.headings.push_back(page.text(animal_heading));
    if (page.store().has_name) table.headings.push_back(page.text(name_heading));
    table.headings.push_back(page.text(born_heading));
  }
  void add_heading(const Wording& heading) { table.headings.push_back(frame.text(heading)); }
};

FigureTable::FigureRow& add_animal(AnimalList& list, std::int32_t position) {
  const PopulationStore& store = list.frame.store();
  FigureTable::FigureRow& row = list.table.rows.emplace_back();
  row.heading = data_text(store.id(position));
  if (store.has_name) row.cells.push_back(data_text(store.name(position)));
  const std::int32_t year = store.birth_year[position];
  row.cells.push_back(year == 0 ? std::string(no_figure) : std::to_string(year));
  return row;
}

void add_completeness(const PageFrame& frame, std::int32_t position, FigureTable::FigureRow& row) {
  row.cells.push_back(report_figure(double{frame.store().generation_equivalents[position]}, 2, frame.language));
  row.cells.push_back(
      report_figure(completeness_index(frame.store(), frame.input.figures->animals, position), 3, frame.language));
}

/// Offspring of some animals, by their places in the list.
std::vector<std::int32_t> offspring_of(const PageFrame& frame, std::span<const std::int32_t> positions) {
  const PopulationStore& store = frame.store();
  ByNumber<std::int32_t> counts(store.size());
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    ++counts[store.sire_no[i]];
    ++counts[store.dam_no[i]];
  }
  std::vector<std::int32_t> offspring;
  for (const std::int32_t position : positions) offspring.push_back(counts[position]);
  return offspring;
}

/// The first animals of the list: those of whom enough is known before the others.
std::vector<std::int32_t> first_by_kinship(const PageFrame& frame, std::span<const std::int32_t> animals) {
  std::vector<std::int32_t> deep, shallow;
  for (const std::int32_t position : animals) {
    const PopulationStore& store = frame.store();
    const bool has_parents = store.sire_no[position] > 0 && store.dam_no[position] > 0;
    const bool is_deep = has_parents && store.generation_equivalents[position] >= least_equivalents_of_rare;
    std::vector<std::int32_t>& part = is_deep ? deep : shallow;
    if (part.size() < shown_by_kinship) part.push_back(position);
  }
  const std::size_t left = std::min(shallow.size(), shown_by_kinship - deep.size());
  deep.insert(deep.end(), shallow.begin(), shallow.begin() + static_cast<std::ptrdiff_t>(left));
  return deep;
}

FigureTable kinship_list(const PageFrame& frame, std::span<const std::int32_t> animals) {
  const std::vector<std::int32_t> shown_animals = first_by_kinship(frame, animals);
  const std::vector<std::int32_t> offspring = offspring_of(frame, shown_animals);
  AnimalList list(frame);
  for (const Wording& heading : {kinship_heading, equivalents_heading, index_heading, offspring_heading}) {
    list.add_heading(heading);
  }
  std::size_t place = 0;
  for (const std::int32_t position : shown_animals) {
    FigureTable::FigureRow& row = add_animal(list, position);
    const double kinship = double{frame.input.figures->animals.mean_kinship[position]};
    row.cells.push_back(report_figure(std::max(0.0, kinship), 4, frame.language));
    add_completeness(frame, position, row);
    row.cells.push_back(std::to_string(offspring[place++]));
  }
  return std::move(list.table);
}

FigureTable inbred_list(const PageFrame& frame) {
  AnimalList list(frame);
  for (const Wording& heading : {inbreeding_heading, equivalents_heading, index_heading}) list.add_heading(heading);
  for (const std::int32_t position : frame.input.figures->lists.most_inbred) {
    FigureTable::FigureRow& row = add_animal(list, position);
    row.cells.push_back(report_figure(std::max(0.0, double{frame.store().inbreeding[position]}), 4, frame.language));
    add_completeness(frame, position, row);
  }
  return std::move(list.table);
}

FigureTable sires_list(const PageFrame& frame) {
  constexpr double percent = 100.0;
  AnimalList list(frame);
  for (const Wording& heading : {young_heading, share_heading, descendants_heading, rest_heading}) {
    list.add_heading(heading);
  }
  for (const UsedSire& sire : frame.input.figures->lists.sires) {
    FigureTable::FigureRow& row = add_animal(list, sire.position);
    row.cells.push_back(std::to_string(sire.offspring));
    row.cells.push_back(report_figure(percent * sire.share, 1, frame.language));
    row.cells.push_back(std::to_string(sire.descendants));
    row.cells.push_back(sire.rest > 0 ? report_figure(sire.kinship_of_rest, 4, frame.language)
                                      : std::string(no_figure));
  }
  return std::move(list.table);
}

std::string shown_of(std::span<const std::int32_t> animals) {
  return std::to_string(std::min(shown_by_kinship, animals.size()));
}

void write_paragraph(std::string& page, const std::string& text) {
  page += "<p>" + escaped(text) + "</p>\n";
}

}  // namespace

bool has_lists(const PageFrame& frame) {
  if (frame.input.figures == nullptr || frame.input.diversity == nullptr) return false;
  const ActionLists& lists = frame.input.figures->lists;
  return !frame.input.figures->animals.mean_kinship.values.empty() || !lists.most_inbred.empty();
}

void write_lists(std::string& page, const PageFrame& frame) {
  const PopulationFigures& figures = *frame.input.figures;
  const ActionLists& lists = figures.lists;
  if (!figures.animals.mean_kinship.values.empty()) {
    write_paragraph(page, phrase(about_kinship, frame.language,
                                 {shown_of(lists.females), std::to_string(lists.females.size()), shown_of(lists.males),
                                  std::to_string(lists.males.size())}));
    if (lists.are_available) write_paragraph(page, frame.text(about_available));
    if (!lists.females.empty()) {
      write_figure_table(page, kinship_list(frame, lists.females), frame.text(females_caption));
    }
    if (!lists.males.empty()) write_figure_table(page, kinship_list(frame, lists.males), frame.text(males_caption));
  }
  if (!lists.sires.empty()) {
    const double all = frame.input.diversity->mean_kinship.value_or(0.0);
    write_paragraph(page, phrase(about_sires, frame.language, {report_figure(all, 4, frame.language)}));
    write_figure_table(page, sires_list(frame), frame.text(sires_caption));
  }
  if (!lists.most_inbred.empty()) write_figure_table(page, inbred_list(frame), frame.text(inbred_caption));
}

}  // namespace pedigreewatch
