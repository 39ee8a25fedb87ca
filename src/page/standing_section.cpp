// The first screen in eight parts: verdict, how sure, how large the breed counts, why, what to do, trend, limits, data.

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>

#include "control/steer_file.h"
#include "core/shares.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "page/standing_pictures.h"
#include "page/standing_words.h"

namespace pedigreewatch {
namespace {

constexpr Wording size_title = {"How large the breed counts", "Voor hoeveel dieren het ras telt"};
constexpr Wording size_reading = {
    "It breeds as {1} unrelated animals would (effective size). Dot: from animals born {2}\xE2\x80\x93{3} and their ancestors from {4} on, each pair as far back as both sides are known. Bar: all estimates, and the margin of the first. Open: the three generations before.",
    "Het fokt zoals {1} onverwante dieren zouden doen (effectieve grootte). Stip: uit dieren geboren {2}\xE2\x80\x93{3} en hun voorouders vanaf {4}, elk paar zo ver als beide kanten bekend zijn. Balk: alle schattingen, en de marge van de eerste. Open: de drie generaties daarvoor."};
constexpr Wording no_verdict = {"No verdict: this is what the known parents show.",
                                "Geen oordeel: dit is wat de bekende ouders laten zien."};
constexpr Wording no_size = {"Too little is known to say.", "Er is te weinig bekend om dat te zeggen."};

constexpr Wording why_title = {"Why", "Waardoor"};
constexpr Wording close_tile = {"Close matings", "Nauwe paringen"};
constexpr Wording close_text = {
    "young of {1}\xE2\x80\x93{2} with both parents known have an F of 12.5 % or more, as of half sibs. Mean F {3}; chance pairs of the same parents: {4}.",
    "jongen van {1}\xE2\x80\x93{2} met beide ouders bekend hebben een F van 12,5 % of meer, als van halfbroer en -zus. Gemiddelde F {3}; toevallige paren van dezelfde ouders: {4}."};
constexpr Wording no_pair_known = {"Of no young of {1}\xE2\x80\x93{2} are both parents known.",
                                   "Van geen jong van {1}\xE2\x80\x93{2} zijn beide ouders bekend."};
constexpr Wording all_shallow = {
    "All young of {1}\xE2\x80\x93{2} have fewer than two generations known: inbreeding cannot be seen.",
    "Alle jongen van {1}\xE2\x80\x93{2} hebben minder dan twee bekende generaties: inteelt is niet te zien."};
constexpr Wording sires_tile = {"Sires", "Vaders"};
constexpr Wording dams_tile = {"Dams", "Moeders"};
constexpr Wording worth = {"{1}, as good as {2}", "{1}, zo goed als {2}"};
constexpr Wording four_text = {
    "used alike. The four most used have {1} of the young of {2}\xE2\x80\x93{3}.",
    "gelijk gebruikte. De vier meest gebruikte hebben {1} van de jongen van {2}\xE2\x80\x93{3}."};
constexpr Wording part_text = {"They make {1} of the rise (rule of thumb).",
                               "Zij maken {1} van de stijging uit (vuistregel)."};
constexpr Wording no_sire_known = {"Of no young of {1}\xE2\x80\x93{2} is the sire known.",
                                   "Van geen jong van {1}\xE2\x80\x93{2} is de vader bekend."};
constexpr Wording no_dam_known = {"Of no young of {1}\xE2\x80\x93{2} is the dam known.",
                                  "Van geen jong van {1}\xE2\x80\x93{2} is de moeder bekend."};
constexpr Wording births_tile = {"Births", "Geboorten"};
constexpr Wording births_a_year = {"{1} a year", "{1} per jaar"};
constexpr Wording births_text = {"{1} a year in the five years before.", "{1} per jaar in de vijf jaren daarvoor."};
constexpr Wording births_since_text = {"{1} a year in {2}; nothing is recorded before.",
                                       "{1} per jaar in {2}; daarvoor is niets vastgelegd."};
constexpr Wording births_begin = {"Nothing is recorded before.", "Daarvoor is niets vastgelegd."};
constexpr Wording imports_text = {"Of the parents, counted for each young, {1} are imports.",
                                  "Van de ouders, per jong geteld, is {1} importdier."};

constexpr Wording do_title = {"What to do", "Wat te doen"};
constexpr Wording find_parents = {"Find the unknown parents first", "Zoek eerst de onbekende ouders"};
constexpr Wording find_ancestors = {"Find more ancestors first", "Zoek eerst meer voorouders"};
constexpr Wording find_parents_text = {
    "{1} young of {2}\xE2\x80\x93{3} have both parents known. What stands below is what the known ones show.",
    "Van {1} jongen van {2}\xE2\x80\x93{3} zijn beide ouders bekend. Wat hieronder staat is wat de bekende laten zien."};
constexpr Wording find_ancestors_text = {
    "Of the young of {1}\xE2\x80\x93{2} {3} generations of ancestors are known; a verdict needs 3. What stands below is what the known ones show.",
    "Van de jongen van {1}\xE2\x80\x93{2} zijn {3} generaties voorouders bekend; voor een oordeel zijn er 3 nodig. Wat hieronder staat is wat de bekende laten zien."};
constexpr Wording find_dates = {"Find the dates of birth of the parents first",
                                "Zoek eerst de geboortedatums van de ouders"};
constexpr Wording find_dates_text = {
    "Their ages make the generation interval, which every rate and the verdict need. What stands on this page without them needs no interval.",
    "Hun leeftijden maken het generatie-interval, dat elke stijging en het oordeel nodig hebben. Wat er zonder op deze pagina staat heeft geen interval nodig."};
constexpr Wording mend_parent_dates = {"Mend the dates of birth of parents and young first",
                                       "Herstel eerst de geboortedatums van ouders en jongen"};
constexpr Wording mend_dates = {"Mend these dates of birth first", "Herstel eerst deze geboortedatums"};
constexpr Wording mend_dates_text = {
    "They lie after today, or alone after years without births. The last year of birth, {1}, and all that this page says of the last years are worked out with them.",
    "Ze liggen na vandaag, of alleen na jaren zonder geboorten. Het laatste geboortejaar, {1}, en alles wat deze pagina over de laatste jaren zegt zijn mede daarmee berekend."};
constexpr Wording line_word = {"line {1}", "regel {1}"};
constexpr Wording more_dates = {"and {1} more, below under what the checks found",
                                "en nog {1}, hieronder bij wat de controles vonden"};
constexpr Wording rest_sires = {"Use these sires less", "Gebruik deze vaders minder"};
constexpr Wording more_sires = {"Use more sires, and these less", "Gebruik meer vaders, en deze minder"};
constexpr Wording rest_text = {"Each has more than {1} of the young of {2}\xE2\x80\x93{3}, {4}.",
                               "Elk heeft meer dan {1} van de jongen van {2}\xE2\x80\x93{3}, {4}."};
constexpr Wording let_no_sire = {"Let no sire have so many young again", "Geef geen vader weer zo veel jongen"};
constexpr Wording other_sires = {"Use more sires", "Gebruik meer vaders"};
constexpr Wording none_there = {
    "None of the sires with more than {1} of the young of {2}\xE2\x80\x93{3}, {4}, is still there.",
    "Geen van de vaders met meer dan {1} van de jongen van {2}\xE2\x80\x93{3}, {4}, is er nog."};
constexpr Wording gone_sires = {"Others above it that are no longer there: {1}.",
                                "Andere erboven die er niet meer zijn: {1}."};
constexpr Wording own_limit = {"your limit", "uw grens"};
constexpr Wording taken_limit = {"the limit taken when you give none", "de grens als u er geen geeft"};
constexpr Wording too_few_sires = {"With {1} sires the limit cannot be kept: {2} at least are needed.",
                                   "Met {1} vaders is de grens niet te halen: er zijn er minstens {2} nodig."};
constexpr Wording and_more = {"and {1} more, in the table {2}", "en nog {1}, in de tabel {2}"};
constexpr Wording held_gives = {
    "Held to the limit, the rise would be about {1} instead of {2} per generation (rule of thumb: 1/(8 sires) + 1/(8 dams)).",
    "Binnen de grens zou de stijging ongeveer {1} zijn in plaats van {2} per generatie (vuistregel: 1/(8 vaders) + 1/(8 moeders))."};
constexpr Wording mate_less = {"Mate less closely", "Paar minder nauw"};
constexpr Wording mate_text = {
    "Young have a mean F of {1}; chance pairs of the same parents would give {2}. Aim below {3} for each mating: Matings lists the males for each female. It lowers F once; it does not slow the rise.",
    "Jongen hebben een gemiddelde F van {1}; toevallige paren van dezelfde ouders zouden {2} geven. Blijf per paring onder {3}: Paringen noemt de mannetjes voor elk vrouwtje. Het verlaagt F \xC3\xA9\xC3\xA9n keer; de stijging wordt er niet langzamer van."};
constexpr Wording keep_lines = {"Breed on from lines that are nearly lost", "Fok door met lijnen die bijna weg zijn"};
constexpr Wording lines_text = {"Founders with less than 0.5 % of the genes of the young, and who still carries them:",
                                "Stamdieren met minder dan 0,5 % van de genen van de jongen, en wie ze nog draagt:"};
constexpr Wording others_left = {"{1} and {2} more", "{1} en nog {2}"};
constexpr Wording lines_title = {"Whose lines are left?", "Welke lijnen zijn er nog?"};
constexpr Wording import_title = {"If you import?", "Als u importeert?"};
constexpr Wording founders_of_young = {
    "The young of the last two generations descend from {1} ancestors without known parents (founders); {2} of these have less than 0.5 % of their genes each.",
    "De jongen van de laatste twee generaties stammen af van {1} voorouders zonder bekende ouders (stamdieren); {2} daarvan hebben elk minder dan 0,5 % van hun genen."};
constexpr Wording founders_none_rare = {
    "The young of the last two generations descend from {1} ancestors without known parents (founders), each with 0.5 % of their genes or more.",
    "De jongen van de laatste twee generaties stammen af van {1} voorouders zonder bekende ouders (stamdieren), elk met 0,5 % van hun genen of meer."};
constexpr Wording no_line_found = {
    "Among the animals least related to the others no line was found that is nearly lost.",
    "Onder de dieren die het minst verwant zijn is geen lijn gevonden die bijna weg is."};
constexpr Wording no_line_there = {
    "Among the animals that are still there and least related to the others no line was found that is nearly lost.",
    "Onder de dieren die er nog zijn en het minst verwant zijn is geen lijn gevonden die bijna weg is."};
constexpr Wording if_import = {
    "An unrelated sire with {1} of the young would bring the F of chance pairs from {2} to {3}.",
    "Een onverwante vader met {1} van de jongen zou de F van toevallige paren van {2} op {3} brengen."};
constexpr Wording import_gains = {
    "F rises by as much in {1} generations, and goes on rising as before unless more parents stay in use.",
    "Zoveel stijgt F in {1} generaties, en F blijft stijgen als voorheen tenzij er meer ouders in gebruik blijven."};
constexpr Wording import_lasts = {
    "F now rises so slowly that it takes more than 100 generations to rise by as much.",
    "F stijgt nu zo langzaam dat het meer dan 100 generaties duurt voordat F zoveel gestegen is."};
/// A rise that takes longer is hardly one: its number says nothing.
constexpr double most_generations_told = 100.0;
constexpr Wording use_more = {"Use more sires and dams, more evenly",
                              "Gebruik meer vaders en moeders, en gelijkmatiger"};
constexpr Wording use_more_text = {
    "No single animal stands out. Choose young males and females with a low mean kinship (table {1}).",
    "Geen dier springt eruit. Kies jonge mannetjes en vrouwtjes met een lage gemiddelde verwantschap (tabel {1})."};
constexpr Wording nothing_to_do = {"Nothing stands out. Go on using many sires and dams, evenly.",
                                   "Niets springt eruit. Blijf veel vaders en moeders gebruiken, gelijkmatig."};

constexpr Wording trend_title = {"Better or worse, since when?", "Beter of slechter, sinds wanneer?"};
constexpr Wording limits_title = {"Against the limits", "Tegen de grenzen"};
constexpr Wording limit_headings[] = {{"Figure", "Cijfer"}, {"You", "U"}, {"Limit", "Grens"}, {"So", "Dus"}};
constexpr Wording published = {"Published limits", "Gepubliceerde grenzen"};
constexpr Wording of_board = {"Limits of the board", "Grenzen van het bestuur"};
constexpr Wording rate_row = {"Rise of inbreeding per generation (FAO 1998)",
                              "Stijging van de inteelt per generatie (FAO 1998)"};
constexpr Wording size_row = {"Effective size (FAO 1998)", "Effectieve grootte (FAO 1998)"};
constexpr Wording safe_row = {"Effective size (Frankham and others 2014)", "Effectieve grootte (Frankham e.a. 2014)"};
constexpr Wording sire_row = {"Most used sire, share of five years", "Meest gebruikte vader, deel van vijf jaren"};
constexpr Wording most_f_row = {"Young with F above {1}", "Jongen met F boven {1}"};
constexpr Wording none_word = {"none", "geen"};
constexpr Wording marks[] = {{"\xE2\x96\xB2 beyond", "\xE2\x96\xB2 erover"},
                             {"\xE2\x97\x8F kept", "\xE2\x97\x8F erbinnen"},
                             {"\xE2\x96\xB2 below", "\xE2\x96\xB2 eronder"},
                             {"\xE2\x97\x8B not judged", "\xE2\x97\x8B geen oordeel"}};
constexpr Wording data_title = {"Can you trust the data?", "Zijn de gegevens te vertrouwen?"};
constexpr Wording all_faults = {"All findings", "Alle bevindingen"};

/// For an element: a number and its per cent sign stay in one line.
std::string in_element(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with(" %")) {
      result += "\xC2\xA0";
    } else {
      result += text[i];
    }
  }
  return escaped(result);
}

std::string years_of(std::int32_t year) {
  return std::to_string(year);
}

/// What `tables` calls a table of this population.
std::string table_name(const PageFrame& frame, std::string_view ending) {
  return data_text(name_beside_report(frame.population().settings, ending));
}

void write_sentences(std::string& page, const std::vector<std::string>& sentences, std::string_view style = {}) {
  page += style.empty() ? "<p>" : "<p class=\"" + std::string(style) + "\">";
  for (std::size_t i = 0; i < sentences.size(); ++i) page += (i == 0 ? "" : " ") + in_element(sentences[i]);
  page += "</p>\n";
}

void open_card(std::string& page, const std::string& title, std::string_view style = "card") {
  page += "<div class=\"" + std::string(style) + "\"><h3>" + in_element(title) + "</h3>\n";
}

void write_band(std::string& page, const PageFrame& frame, const Standing& standing) {
  page += "<div class=\"band v" + std::to_string(static_cast<int>(standing.pace)) + "\">";
  draw_sign(page, standing.pace);
  page += "<div><p class=\"verdict\">" + in_element(pace_words(standing.pace, frame.language)) + "</p>\n";
  write_sentences(page, verdict_sentences(frame, standing));
  page += "</div><div class=\"sure\"><p class=\"t\">" + in_element(sureness_heading(standing, frame.language)) +
          "</p><svg viewBox=\"0 0 120 12\" aria-hidden=\"true\">";
  for (int step = 0; step < 3; ++step) {
    page += "<rect x=\"" + std::to_string(40 * step + 1) + "\" y=\"1\" width=\"36\" height=\"9\" class=\"" +
            (step < standing.sureness ? "on" : "off") + "\"/>";
  }
  page += "</svg>\n";
  write_sentences(page, sureness_sentences(frame, standing), "s");
  page += "</div></div>\n";
}

struct Tile {
  Wording title;
  bool is_bad = false;
  std::string figure, text;
};

void write_tile(std::string& page, const PageFrame& frame, const Tile& tile) {
  page += std::string("<div class=\"tile") + (tile.is_bad ? " bad" : "") + "\"><p class=\"t\">" +
          (tile.is_bad ? "\xE2\x96\xB2 " : "") + in_element(frame.text(tile.title)) + "</p><p class=\"fig\">" +
          in_element(tile.figure) + "</p><p class=\"s\">" + in_element(tile.text) + "</p></div>\n";
}

/// Of figures that nothing is known of: a dash, and why.
Tile tile_without_figures(const PageFrame& frame, const Wording& title, const Wording& reason) {
  const StandingYears& years = frame.input.standing->years;
  return {title, false, std::string(no_figure),
          phrase(reason, frame.language, {years_of(years.recent_first), years_of(years.last)})};
}

Tile tile_of_close_matings(const PageFrame& frame, const Standing& standing) {
  const YoungOfFiveYears& young = standing.young;
  if (!young.show_inbreeding()) {
    return tile_without_figures(frame, close_tile, young.judged > 0 ? all_shallow : no_pair_known);
  }
  const ToolLanguage language = frame.language;
  return {close_tile, standing.has_close_matings(), share_text(young.close, young.judged, language),
          phrase(close_text, language,
                 {years_of(standing.years.recent_first), years_of(standing.years.last),
                  percent_text(young.inbreeding, language), percent_text(young.chance_inbreeding, language)})};
}

/// `part` is what they have of the rise.
Tile tile_of_parents(const PageFrame& frame, const ParentsInUse& use, std::optional<double> part,
                     const Wording& title) {
  const StandingYears& years = frame.input.standing->years;
  const ToolLanguage language = frame.language;
  std::string text =
      phrase(four_text, language,
             {percent_text(use.share_of_four, language), years_of(years.recent_first), years_of(years.last)});
  if (part) text += " " + phrase(part_text, language, {percent_text(*part, language)});
  return {title, false,
          phrase(worth, language, {std::to_string(use.parents.size()), report_figure(use.effective, 0, language)}),
          text};
}

/// A mean below 1 has a decimal, so that one birth in five years is not none.
std::string a_year(std::int64_t births, std::int32_t years, ToolLanguage language) {
  const double mean = share_of(births, years);
  return report_figure(mean, births > 0 && births < years ? 1 : 0, language);
}

/// Of `all_years` before `year`, of which `years` are not before the first birth year.
std::string words_of_births_before(std::int64_t births, std::int32_t years, std::int32_t all_years, std::int32_t year,
                                   ToolLanguage language) {
  if (years == all_years) return phrase(births_text, language, {a_year(births, years, language)});
  if (years == 0) return std::string(words_of(births_begin, language));
  return phrase(births_since_text, language, {a_year(births, years, language), years_text(year - years, year - 1)});
}

Tile tile_of_births(const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const YoungOfFiveYears& young = standing.young;
  const std::int32_t first = standing.years.recent_first, last = standing.years.last, recent_years = last - first + 1;
  const std::int32_t begin = frame.store().birth_years.first;
  const std::int32_t recent = std::clamp(last - begin + 1, 1, recent_years);
  const std::int32_t years_before = std::clamp(first - begin, 0, recent_years);
  std::string text = words_of_births_before(young.births_before, years_before, recent_years, first, language);
  if (frame.store().has_import && young.known_parents > 0) {
    const double share = share_of(young.imported_parents, young.known_parents);
    text += " " + phrase(imports_text, language, {percent_text(share, language)});
  }
  return {births_tile, false, phrase(births_a_year, language, {a_year(young.births, recent, language)}), text};
}

void write_why(std::string& page, const PageFrame& frame, const Standing& standing) {
  page += "<h3>" + in_element(frame.text(why_title)) + "</h3><div class=\"tiles\">\n";
  write_tile(page, frame, tile_of_close_matings(frame, standing));
  // Without an interval no rise is known.
  const std::optional<double> part =
      standing.years.has_interval() ? standing.sires_part_of_rise() : std::optional<double>();
  Tile sires = standing.sires.parents.empty() ? tile_without_figures(frame, sires_tile, no_sire_known)
                                              : tile_of_parents(frame, standing.sires, part, sires_tile);
  sires.is_bad = standing.overused_sires > 0;
  write_tile(page, frame, sires);
  const std::optional<double> of_dams = part ? std::optional(1.0 - *part) : part;
  write_tile(page, frame,
             standing.dams.parents.empty() ? tile_without_figures(frame, dams_tile, no_dam_known)
                                           : tile_of_parents(frame, standing.dams, of_dams, dams_tile));
  write_tile(page, frame, tile_of_births(frame, standing));
  page += "</div>\n";
}

void write_size(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_card(page, frame.text(size_title));
  if (standing.rate().rate) {
    draw_gauge(page, frame, standing);
    const StandingYears& years = standing.years;
    page += "<p class=\"s\">" + (standing.is_judged() ? "" : in_element(frame.text(no_verdict)) + " ") +
            in_element(phrase(size_reading, frame.language,
                              {size_text(effective_size_of(*standing.rate().rate), frame.language),
                               years_of(years.cohort_first), years_of(years.last), years_of(years.now_first)})) +
            "</p>\n";
  } else {
    page += "<p>" + in_element(frame.text(no_size)) + "</p>\n";
  }
  write_why(page, frame, standing);
  page += "</div>\n";
}

void open_action(std::string& page, const std::string& title, const std::string& text) {
  page += "<li><strong>" + in_element(title) + "</strong> " + in_element(text);
}

void write_named_sires(std::string& page, const PageFrame& frame, const Standing& standing) {
  constexpr std::size_t most_named = 5;
  const ToolLanguage language = frame.language;
  const std::size_t count = standing.sires_to_rest.size();
  if (count == 0) return;
  page += "<table><tbody>";
  for (std::size_t i = 0; i < std::min(most_named, count); ++i) {
    const ParentShare& sire = standing.sires_to_rest[i];
    const AnimalWords words = words_of_animal(frame, sire.parent);
    page += "<tr><th scope=\"row\">" + isolated(words.name) + "</th><td>" + isolated(words.id) + "</td><td>" +
            percent_text(sire.share, language) + "</td></tr>";
  }
  page += "</tbody></table>";
  if (count > most_named) {
    page +=
        "<p class=\"s\">" +
        in_element(phrase(and_more, language, {std::to_string(count - most_named), table_name(frame, "_standing")})) +
        "</p>";
  }
  if (const std::int64_t gone = standing.overused_sires_gone(); gone > 0) {
    page += "<p class=\"s\">" + in_element(phrase(gone_sires, language, {std::to_string(gone)})) + "</p>";
  }
}

void write_sires_to_rest(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const StandingSettings& settings = standing.settings;
  const std::size_t sires_needed = static_cast<std::size_t>(std::ceil(1.0 / settings.most_sire_share));
  const bool can_be_kept = standing.sires.parents.size() >= sires_needed;
  const bool are_there = !standing.sires_to_rest.empty();
  const Wording& title =
      are_there ? (can_be_kept ? rest_sires : more_sires) : (can_be_kept ? let_no_sire : other_sires);
  open_action(page, frame.text(title),
              phrase(are_there ? rest_text : none_there, language,
                     {limit_text(settings.most_sire_share, language), years_of(standing.years.recent_first),
                      years_of(standing.years.last),
                      words_of(settings.is_sire_share_given ? own_limit : taken_limit, language)}));
  write_named_sires(page, frame, standing);
  if (!can_be_kept) {
    page += "<p class=\"s\">" +
            in_element(phrase(too_few_sires, language,
                              {std::to_string(standing.sires.parents.size()), std::to_string(sires_needed)})) +
            "</p>";
  } else if (standing.rate_with_sires_held) {
    page += "<p class=\"s\">" +
            in_element(phrase(held_gives, language,
                              {percent_text(*standing.rate_with_sires_held, language),
                               percent_text(*standing.rate().rate, language)})) +
            "</p>";
  }
  page += "</li>\n";
}

void write_close_matings(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  open_action(page, frame.text(mate_less),
              phrase(mate_text, language,
                     {percent_text(standing.young.inbreeding, language),
                      percent_text(standing.young.chance_inbreeding, language),
                      limit_text(standing.settings.most_inbreeding, language)}));
  page += "</li>\n";
}

/// "Jip vd Wei (00978)": many animals may have one name.
std::string name_with_id(const PageFrame& frame, std::int32_t animal) {
  const AnimalWords words = words_of_animal(frame, animal);
  return words.id.empty() ? words.name : words.name + " (" + words.id + ")";
}

void write_lines_to_keep(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_action(page, frame.text(keep_lines), frame.text(lines_text));
  page += "<table><tbody>";
  for (const RareLine& line : standing.rare_lines.lines) {
    constexpr std::size_t most_named = 2;
    std::string names;
    for (std::size_t i = 0; i < std::min(most_named, line.carriers.size()); ++i) {
      const std::int32_t animal = line.carriers[i].animal;
      names += (i == 0 ? "" : ", ") + name_with_id(frame, animal) +
               (frame.store().sex[animal] == male ? "\xC2\xA0\xE2\x99\x82" : "\xC2\xA0\xE2\x99\x80");
    }
    if (line.carriers.size() > most_named) {
      names = phrase(others_left, frame.language, {names, std::to_string(line.carriers.size() - most_named)});
    }
    page += "<tr><th scope=\"row\">" + isolated(name_with_id(frame, line.founder)) + "</th><td class=\"w\">" +
            isolated(names) + "</td></tr>";
  }
  page += "</tbody></table></li>\n";
}

void write_dates_to_mend(std::string& page, const PageFrame& frame, const Standing& standing) {
  const LateBirths& births = standing.data.faults.late_births;
  open_action(page, frame.text(mend_dates), phrase(mend_dates_text, frame.language, {years_of(standing.years.last)}));
  page += "<table><tbody>";
  for (const LateBirth& birth : births.first) {
    page += "<tr><th scope=\"row\">" + isolated(data_text(birth.id)) + "</th><td>" +
            in_element(phrase(line_word, frame.language, {std::to_string(birth.line)})) + "</td><td>" +
            in_element(birth.date) + "</td></tr>";
  }
  page += "</tbody></table>";
  if (const std::int64_t more = births.count - std::ssize(births.first); more > 0) {
    page += "<p class=\"s\">" + in_element(phrase(more_dates, frame.language, {std::to_string(more)})) + "</p>";
  }
  page += "</li>\n";
}

/// Where no generation interval is known, and dates would give one.
bool has_ages_to_find(const Standing& standing) {
  if (standing.data.faults.late_births.count > 0 || standing.years.has_interval()) return false;
  return standing.ages.lack_dates() || standing.ages.impossible_interval.has_value();
}

void write_ages_to_find(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_action(page, frame.text(standing.ages.impossible_interval ? mend_parent_dates : find_dates),
              frame.text(find_dates_text));
  page += "</li>\n";
}

void write_parents_to_find(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const StandingYears& years = standing.years;
  const bool has_unknown = standing.data.both_known < 1.0;
  // Where the unknown parents are those of founders alone, nobody may ever have known them.
  const bool has_gaps = has_unknown && standing.data.unknown_parents.value_or(0.0) > 0.0;
  open_action(page, frame.text(has_gaps ? find_parents : find_ancestors),
              has_unknown
                  ? phrase(find_parents_text, language,
                           {known_text(standing, language), years_of(years.known_first), years_of(years.last)})
                  : phrase(find_ancestors_text, language,
                           {years_of(years.recent_first), years_of(years.last), equivalents_text(standing, language)}));
  page += "</li>\n";
}

/// Where parents are unknown and stand in the way of a verdict. Years that nobody believes say nothing of them.
bool has_parents_to_find(const Standing& standing) {
  if (standing.data.faults.late_births.count > 0) return false;
  if ((standing.obstacles & (obstacle_unknown_parents | obstacle_shallow)) == 0) return false;
  return standing.data.both_known < 1.0 || standing.data.equivalents < least_equivalents;
}

/// Told of all breeds: how many lines there are, and what an import would do.
void write_lines_and_imports(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const RareLines& found = standing.rare_lines;
  if (found.founders > 0) {
    std::vector<std::string> sentences = {
        phrase(found.rare_founders > 0 ? founders_of_young : founders_none_rare, language,
               {std::to_string(found.founders), std::to_string(found.rare_founders)})};
    if (found.lines.empty()) {
      sentences.push_back(frame.text(standing.is_availability_told ? no_line_there : no_line_found));
    }
    page += "<h3>" + in_element(frame.text(lines_title)) + "</h3>";
    write_sentences(page, sentences, "s");
  }
  if (standing.young.chance_inbreeding <= 0.0) return;
  page += "<h3>" + in_element(frame.text(import_title)) + "</h3>";
  std::vector<std::string> sentences = {phrase(if_import, language,
                                               {limit_text(standing.settings.most_sire_share, language),
                                                percent_text(standing.young.chance_inbreeding, language),
                                                percent_text(standing.inbreeding_with_import(), language)})};
  if (const std::optional<double> generations = standing.generations_gained_by_import()) {
    sentences.push_back(*generations > most_generations_told
                            ? frame.text(import_lasts)
                            : phrase(import_gains, language, {report_figure(*generations, 1, language)}));
  }
  write_sentences(page, sentences, "s");
}

void write_actions(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_card(page, frame.text(do_title), "card do");
  // At most three: what the verdict waits for goes before what changes F once only.
  const bool has_dates = standing.data.faults.late_births.count > 0, lacks_parents = has_parents_to_find(standing);
  const bool has_lines = !standing.rare_lines.lines.empty(), has_overuse = standing.overused_sires > 0;
  const bool lacks_ages = has_ages_to_find(standing);
  constexpr int most_others = 2;
  const int others = has_dates + lacks_ages + lacks_parents + has_overuse + has_lines;
  const bool has_close = standing.has_close_matings() && others <= most_others;
  const bool has_cause = others > 0 || has_close;
  const bool is_good = standing.pace == Pace::within_limit;
  if (!has_cause && is_good) {
    page += "<p>" + in_element(frame.text(nothing_to_do)) + "</p>\n";
  } else {
    page += "<ol>";
    if (has_dates) write_dates_to_mend(page, frame, standing);
    if (lacks_ages) write_ages_to_find(page, frame, standing);
    if (lacks_parents) write_parents_to_find(page, frame, standing);
    if (has_overuse) write_sires_to_rest(page, frame, standing);
    if (has_close) write_close_matings(page, frame, standing);
    if (has_lines) write_lines_to_keep(page, frame, standing);
    if (!has_cause) {
      open_action(page, frame.text(use_more), phrase(use_more_text, frame.language, {table_name(frame, "_animals")}));
      page += "</li>\n";
    }
    page += "</ol>\n";
  }
  page += "</div>\n";
}

enum class LimitMark : std::uint8_t { beyond, kept, below, not_judged };

struct LimitRow {
  std::string figure, value, limit;
  LimitMark mark = LimitMark::kept;
};

void write_limit_rows(std::string& page, const PageFrame& frame, const Wording& heading,
                      std::initializer_list<LimitRow> rows) {
  page += "<tr><th scope=\"colgroup\" colspan=\"4\">" + in_element(frame.text(heading)) + "</th></tr>\n";
  for (const LimitRow& row : rows) {
    const bool is_bad = row.mark == LimitMark::beyond || row.mark == LimitMark::below;
    page += "<tr><th scope=\"row\">" + in_element(row.figure) + "</th><td>" + in_element(row.value) + "</td><td>" +
            in_element(row.limit) + "</td><td class=\"" + (is_bad ? "over" : "kept") + "\">" +
            in_element(frame.text(marks[static_cast<std::size_t>(row.mark)])) + "</td></tr>\n";
  }
}

void write_published_limits(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const double rate = *standing.rate().rate, size = effective_size_of(rate);
  const double most_rate = 1.0 / (2.0 * least_size);
  const std::string size_words = size_text(size, language);
  const auto mark = [&](double least, LimitMark missed) {
    if (!standing.is_judged()) return LimitMark::not_judged;
    return size < least ? missed : LimitMark::kept;
  };
  write_limit_rows(
      page, frame, published,
      {{frame.text(rate_row), percent_text(rate, language), limit_text(most_rate, language),
        mark(least_size, LimitMark::beyond)},
       {frame.text(size_row), size_words, report_figure(least_size, 0, language), mark(least_size, LimitMark::below)},
       {frame.text(safe_row), size_words, report_figure(safe_size, 0, language), mark(safe_size, LimitMark::below)}});
}

void write_limits(std::string& page, const PageFrame& frame, const Standing& standing) {
  const ToolLanguage language = frame.language;
  const StandingSettings& settings = standing.settings;
  page += "<table class=\"limits\"><thead><tr>";
  for (const Wording& heading : limit_headings)
    page += "<th scope=\"col\">" + in_element(frame.text(heading)) + "</th>";
  page += "</tr></thead><tbody>\n";
  if (standing.rate().rate) write_published_limits(page, frame, standing);
  const bool has_sires = !standing.sires.parents.empty(), show_inbreeding = standing.young.show_inbreeding();
  // Without an interval nothing is judged.
  const auto mark = [&](bool is_known, bool is_beyond) {
    if (!is_known || !standing.years.has_interval()) return LimitMark::not_judged;
    return is_beyond ? LimitMark::beyond : LimitMark::kept;
  };
  const double share = has_sires ? standing.sires.parents.front().share : 0.0;
  const std::string above = share_text(standing.young.above_most, standing.young.judged, language);
  write_limit_rows(page, frame, of_board,
                   {{frame.text(sire_row), has_sires ? percent_text(share, language) : std::string(no_figure),
                     limit_text(settings.most_sire_share, language), mark(has_sires, share > settings.most_sire_share)},
                    {phrase(most_f_row, language, {limit_text(settings.most_inbreeding, language)}),
                     show_inbreeding ? above : std::string(no_figure), frame.text(none_word),
                     mark(show_inbreeding, standing.young.above_most > 0)}});
  page += "</tbody></table>\n";
}

void write_trend(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_card(page, frame.text(trend_title));
  draw_trend(page, frame, standing);
  write_sentences(page, trend_sentences(frame, standing), "s");
  write_lines_and_imports(page, frame, standing);
  page += "</div>\n";
}

void write_limits_and_data(std::string& page, const PageFrame& frame, const Standing& standing) {
  open_card(page, frame.text(limits_title));
  write_limits(page, frame, standing);
  page += "<h3>" + in_element(frame.text(data_title)) + "</h3><p><strong>" +
          in_element(data_heading(standing, frame.language)) + "</strong></p>";
  write_sentences(page, data_sentences(frame, standing), "s");
  if (frame.input.check != nullptr) {
    page += "<p class=\"s\"><a href=\"#pw-check\">" + in_element(frame.text(all_faults)) + "</a></p>\n";
  }
  page += "</div>\n";
}

}  // namespace

void write_standing(std::string& page, const PageFrame& frame) {
  const Standing& standing = *frame.input.standing;
  page += "<div class=\"stand\">\n";
  write_band(page, frame, standing);
  page += "<div class=\"cards\">\n";
  write_size(page, frame, standing);
  write_actions(page, frame, standing);
  write_trend(page, frame, standing);
  write_limits_and_data(page, frame, standing);
  page += "</div></div>\n";
}

}  // namespace pedigreewatch
