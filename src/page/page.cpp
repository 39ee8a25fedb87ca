// The order of the page: how the breed stands, why, what can be done, then the details. A section whose subject the
// data do not have is left out, and so is its place in the contents.

#include "page/page.h"

#include <initializer_list>
#include <vector>

#include "page/animal_charts.h"
#include "page/chart_drawing.h"
#include "page/chart_figure.h"
#include "page/corrections_note.h"
#include "page/diversity_charts.h"
#include "page/group_charts.h"
#include "page/inbreeding_charts.h"
#include "page/page_frame.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "page/whole_page.h"

namespace pedigreewatch {
namespace {

constexpr Wording contents_word = {"Contents", "Inhoud"};
constexpr Wording no_years = {"No animal has a year of birth: there is nothing to show by year.",
                              "Van geen enkel dier is het geboortejaar bekend: er is niets per jaar te tonen."};
constexpr Wording sizes_caption = {"Effective population size in four ways",
                                   "Effectieve populatiegrootte op vier manieren"};
constexpr Wording periods_caption = {"Rate of inbreeding per generation, by period",
                                     "Inteelttoename per generatie, per periode"};
constexpr Wording breeders_caption = {"The breeders with the most animals", "De fokkers met de meeste dieren"};
constexpr Wording subpopulations_caption = {"Effective size of the subpopulations",
                                            "Effectieve grootte van de subpopulaties"};
constexpr Wording made_by = {
    "Made by pedigreewatch-tools page. Figures are those of the report; docs/page.md explains every chart.",
    "Gemaakt door pedigreewatch-tools page. De cijfers zijn die van de uitvoer; docs/page.md legt elke grafiek uit."};

void write_charts(std::string& page, const PageFrame& frame,
                  std::initializer_list<Chart (*)(const PageFrame&)> makers) {
  for (Chart (*const make)(const PageFrame&) : makers) write_chart(page, make(frame), frame.language);
}

/// Why, by what the young are, then by who their parents are.
void write_inbreeding_section(std::string& page, const PageFrame& frame) {
  write_charts(page, frame, {inbreeding_chart});
  if (frame.input.figures != nullptr) write_charts(page, frame, {close_young_chart, close_matings_chart});
}

void write_use_section(std::string& page, const PageFrame& frame) {
  write_charts(page, frame, {top_sires_chart});
  const Standing* const standing = frame.input.standing;
  if (standing != nullptr && !standing->sires.parents.empty()) write_named_bars(page, recent_sires(frame));
  write_charts(page, frame, {parents_used_chart});
  write_main_ancestors(page, frame);
}

void write_rates_section(std::string& page, const PageFrame& frame) {
  write_figure_table(page, effective_size_table(frame, frame.whole().rates), frame.text(sizes_caption));
  const FigureTable periods = period_rates_table(frame);
  if (!periods.rows.empty()) write_folded_table(page, periods, frame.text(periods_caption));
}

void write_animals_section(std::string& page, const PageFrame& frame) {
  write_charts(page, frame, {births_chart, litters_chart});
  if (frame.store().has_import) write_charts(page, frame, {imports_chart});
  write_charts(page, frame, {interval_chart, parent_ages_chart});
}

void write_completeness_section(std::string& page, const PageFrame& frame) {
  write_charts(page, frame, {completeness_chart});
}

void write_names_section(std::string& page, const PageFrame& frame) {
  if (frame.store().has_colour) write_chart(page, colours_chart(frame), frame.language);
  if (!frame.store().has_breeder) return;
  write_chart(page, breeders_chart(frame), frame.language);
  write_folded_table(page, breeders_table(frame), frame.text(breeders_caption));
}

void write_subpopulations_section(std::string& page, const PageFrame& frame) {
  write_charts(page, frame, {subpopulations_chart, within_chart, kinship_between_chart});
  if (frame.input.subpopulations.empty()) return;
  write_figure_table(page, subpopulation_sizes_table(frame), frame.text(subpopulations_caption));
}

struct Section {
  std::string_view id;
  Wording title;
  void (*write)(std::string& page, const PageFrame& frame);
  bool (*is_wanted)(const PageFrame& frame);
};

bool has_years(const PageFrame& frame) {
  return frame.years.count() > 0;
}
constexpr Section sections[] = {
    {"standing",
     {"How the breed stands", "Hoe het ras ervoor staat"},
     write_standing,
     [](const PageFrame& frame) { return frame.input.standing != nullptr && has_years(frame); }},
    {"why", {"Why: inbreeding and kinship", "Waardoor: inteelt en verwantschap"}, write_inbreeding_section, has_years},
    {"use", {"Why: sires and dams", "Waardoor: vaders en moeders"}, write_use_section, has_years},
    {"lists", {"What can be done: animals to look at", "Wat kan: dieren om naar te kijken"}, write_lists, has_lists},
    {"summary",
     {"Details: summary", "Bijzonderheden: samenvatting"},
     write_summary,
     [](const PageFrame&) { return true; }},
    {"rates", {"Rates and effective size", "Stijging en effectieve grootte"}, write_rates_section, has_years},
    {"animals", {"Animals, litters and ages", "Dieren, nesten en leeftijden"}, write_animals_section, has_years},
    {"completeness",
     {"How complete the pedigrees are", "Hoe compleet de stambomen zijn"},
     write_completeness_section,
     has_years},
    {"groups",
     {"Subpopulations", "Subpopulaties"},
     write_subpopulations_section,
     [](const PageFrame& frame) {
       return has_years(frame) && frame.population().settings.layout.subpopulations.count() > 1;
     }},
    {"diversity",
     {"Diversity", "Diversiteit"},
     write_diversity,
     [](const PageFrame& frame) { return frame.input.diversity != nullptr; }},
    {"names",
     {"Colours and breeders", "Kleurslagen en fokkers"},
     write_names_section,
     [](const PageFrame& frame) {
       return has_years(frame) && (frame.store().has_colour || frame.store().has_breeder);
     }},
    {"check", {"What the checks found", "Wat de controles vonden"}, write_findings, [](const PageFrame& frame) {
       return frame.input.check != nullptr;
     }}};

void write_contents(std::string& page, const PageFrame& frame) {
  page += "<nav aria-label=\"" + frame.text(contents_word) + "\"><ul>";
  for (const Section& section : sections) {
    if (!section.is_wanted(frame)) continue;
    page += "<li><a href=\"#pw-" + std::string(section.id) + "\">" + escaped(frame.text(section.title)) + "</a></li>";
  }
  page += "</ul></nav>\n";
}

std::string population_name(const PageInput& input) {
  const std::string name = data_text(input.population.settings.population_name.trimmed());
  return name.empty() ? "Pedigree Watch" : name;
}

}  // namespace

PageFrame make_frame(const PageInput& input) {
  constexpr Row most_years = 300;
  PageYears years;
  years.last = input.population.store.birth_years.dated_row_count();
  years.is_cut = years.last > most_years;
  if (years.is_cut) years.first = years.last - most_years + 1;
  const bool is_english = input.population.settings.english;
  return {input, is_english ? ToolLanguage::english : ToolLanguage::dutch, years};
}

std::string page_body(const PageInput& input) {
  const PageFrame frame = make_frame(input);
  std::string page;
  define_fillings(page);
  write_contents(page, frame);
  for (const Section& section : sections) {
    if (!section.is_wanted(frame)) continue;
    const std::string id = "pw-" + std::string(section.id);
    page.append("<section aria-labelledby=\"").append(id).append("\"><h2 id=\"").append(id).append("\">");
    page.append(escaped(frame.text(section.title))).append("</h2>\n");
    section.write(page, frame);
    page += "</section>\n";
  }
  if (!has_years(frame)) page += "<p>" + escaped(frame.text(no_years)) + "</p>\n";
  return page;
}

std::string make_page(const PageInput& input) {
  const PageFrame frame = make_frame(input);
  const std::string name = population_name(input);
  const std::string note = corrections_note(input.population.corrections, frame.language);
  return whole_page(frame.language, name, note + page_body(input), frame.text(made_by));
}

}  // namespace pedigreewatch
