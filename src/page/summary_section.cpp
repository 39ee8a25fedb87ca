// Which effective size is named: the first that is estimable of those from all years of F, all years of f, two years of
// F, two years of f. All years come first because two single years may have few animals. How far the figures can be
// trusted is judged by the generation equivalents of the last year with ten animals.

#include <algorithm>
#include <iterator>
#include <optional>

#include "page/inbreeding_charts.h"
#include "page/page_sections.h"
#include "page/page_text.h"

namespace pedigreewatch {
namespace {

constexpr Wording animals_and_years = {"{1} animals, born from {2} to {3}.",
                                       "{1} dieren, geboren van {2} tot en met {3}."};
constexpr Wording undated_animals = {"Animals whose year of birth is not known: {1}.",
                                     "Dieren waarvan het geboortejaar onbekend is: {1}."};
constexpr Wording animals_without_years = {"{1} animals, of none of which the year of birth is known.",
                                           "{1} dieren, waarvan van geen enkel het geboortejaar bekend is."};
constexpr Wording named_parents = {"Parents that are named but have no line of their own: {1}.",
                                   "Ouders die wel genoemd worden maar geen eigen regel hebben: {1}."};
constexpr Wording years_are_cut = {"The charts show the last {1} years.", "De grafieken tonen de laatste {1} jaren."};
constexpr Wording last_inbreeding = {"The animals born in {1} have a mean inbreeding F of {2}.",
                                     "De dieren die in {1} geboren zijn hebben een gemiddelde inteelt F van {2}."};

constexpr Wording size_is = {"The effective population size Ne is {1} ({2}).",
                             "De effectieve populatiegrootte Ne is {1} ({2})."};
constexpr Wording sizes_range = {"The ways of estimating it that succeed give {1} to {2}.",
                                 "De manieren van schatten die lukken geven {1} tot {2}."};
constexpr Wording sizes_differ = {"They differ: take the lowest one as a warning.",
                                  "Ze verschillen: neem de laagste als waarschuwing."};
constexpr Wording size_is_not = {
    "The effective population size Ne cannot be estimated: inbreeding and kinship do not rise, or too little is known.",
    "De effectieve populatiegrootte Ne is niet te schatten: inteelt en verwantschap stijgen niet, of er is te weinig bekend."};
constexpr Wording size_large = {
    "Above 100: inbreeding rises by less than half a per cent per generation. The population is not in danger as long as this lasts.",
    "Boven 100: de inteelt stijgt met minder dan een half procent per generatie. De populatie loopt geen gevaar zolang dat zo blijft."};
constexpr Wording size_middling = {
    "Between 50 and 100: inbreeding rises by half a per cent to one per cent per generation. The advised minimum of 50 is met, but there is little to spare: watch how many sires are used, and how evenly.",
    "Tussen 50 en 100: de inteelt stijgt met een half tot \xC3\xA9\xC3\xA9n procent per generatie. Het aanbevolen minimum van 50 wordt gehaald, maar er is weinig speling: let op hoeveel vaders er gebruikt worden, en hoe gelijkmatig."};
constexpr Wording size_small = {
    "Below 50: inbreeding rises by more than one per cent per generation, faster than is advised. More sires, used more evenly, and fewer matings of related animals are needed.",
    "Onder 50: de inteelt stijgt met meer dan \xC3\xA9\xC3\xA9n procent per generatie, sneller dan wordt aanbevolen. Er zijn meer vaders nodig, gelijkmatiger gebruikt, en minder paringen van verwante dieren."};

constexpr Wording equivalents_are = {
    "Of the animals born in {1}, {2} generation equivalents of ancestors are known.",
    "Van de dieren die in {1} geboren zijn, zijn {2} equivalente generaties voorouders bekend."};
constexpr Wording trust_good = {"That is enough to trust the figures of inbreeding and kinship.",
                                "Dat is genoeg om op de cijfers van inteelt en verwantschap te vertrouwen."};
constexpr Wording trust_some = {
    "That shows recent inbreeding, but not what lies further back: true inbreeding is higher than the figures, and an Ne may come out too high.",
    "Daarmee is recente inteelt te zien, maar niet wat verder terug ligt: de werkelijke inteelt is hoger dan de cijfers, en een Ne kan te hoog uitvallen."};
constexpr Wording trust_little = {
    "That is too little: inbreeding can hardly be seen in such pedigrees, and Ne says more about the pedigrees than about the population.",
    "Dat is te weinig: in zulke stambomen is inteelt nauwelijks te zien, en Ne zegt meer over de stambomen dan over de populatie."};

constexpr Wording ways[] = {{"from F of all years", "uit F van alle jaren"},
                            {"from f of all years", "uit f van alle jaren"},
                            {"from F of the third and the last year", "uit F van het derde en het laatste jaar"},
                            {"from f of the third and the last year", "uit f van het derde en het laatste jaar"}};

/// What an effective size of this much means.
const Wording& meaning_of(float size) {
  constexpr float safe = 100.0F, least = 50.0F;
  return size > safe ? size_large : (size >= least ? size_middling : size_small);
}

void write_paragraph(std::string& page, const std::string& text) {
  page += "<p>" + isolated(text) + "</p>\n";
}

std::string animals_text(const PageFrame& frame) {
  const PopulationStore& store = frame.store();
  const std::string animals = std::to_string(store.size());
  if (frame.years.count() <= 0) return phrase(animals_without_years, frame.language, {animals});
  std::string text = phrase(animals_and_years, frame.language,
                            {animals, std::to_string(store.birth_years.first), std::to_string(store.birth_years.last)});
  const auto add_count = [&](const Wording& wording, std::int64_t count) {
    if (count > 0) text += " " + phrase(wording, frame.language, {std::to_string(count)});
  };
  add_count(undated_animals, std::int64_t{store.animal_count} - std::ssize(frame.population().analysis.years.animals));
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

std::string size_text(const PageFrame& frame) {
  const GenerationRates& rates = frame.whole().rates;
  const GenerationRate* const all[] = {&rates.F_smoothed, &rates.f_smoothed, &rates.F_absolute, &rates.f_absolute};
  std::vector<float> sizes;
  std::string text;
  for (std::size_t way = 0; way < std::size(all); ++way) {
    if (!is_estimable(frame, *all[way])) continue;
    sizes.push_back(all[way]->effective_size);
    if (sizes.size() > 1) continue;
    const std::string size = report_figure(static_cast<double>(sizes.front()), 2);
    text = phrase(size_is, frame.language, {size, words_of(ways[way], frame.language)});
  }
  if (sizes.empty()) return frame.text(size_is_not);
  text += " " + frame.text(meaning_of(sizes.front()));
  if (sizes.size() == 1) return text;
  const auto [low, high] = std::minmax_element(sizes.begin(), sizes.end());
  const auto figure = [](float size) { return report_figure(static_cast<double>(size), 2); };
  text += " " + phrase(sizes_range, frame.language, {figure(*low), figure(*high)});
  if (&meaning_of(*low) != &meaning_of(sizes.front())) text += " " + frame.text(sizes_differ);
  return text;
}

std::string trust_text(const PageFrame& frame, Row row) {
  constexpr float little = 3.0F, much = 5.0F;
  const float equivalents = frame.whole().tables.completeness.of(row).equivalent_generations;
  const Wording& trust = equivalents < little ? trust_little : (equivalents < much ? trust_some : trust_good);
  return phrase(equivalents_are, frame.language,
                {frame.year(row), report_figure(static_cast<double>(equivalents), 2)}) +
         " " + frame.text(trust);
}

}  // namespace

void write_summary(std::string& page, const PageFrame& frame) {
  write_paragraph(page, animals_text(frame));
  const std::optional<Row> row = telling_row(frame);
  if (row) {
    const double F = static_cast<double>(frame.whole().inbreeding.of(*row).F);
    write_paragraph(page, phrase(last_inbreeding, frame.language, {frame.year(*row), report_figure(F, 4)}) + " " +
                              size_text(frame));
    write_paragraph(page, trust_text(frame, *row));
  }
  if (frame.input.check != nullptr) write_paragraph(page, findings_sentence(frame));
}

}  // namespace pedigreewatch
