// Every different text is looked at once, with the number of its animals and the line of the first of them.

#include "checks/value_checks.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "checks/grouped_findings.h"
#include "checks/readable_text.h"
#include "checks/spelling_checks.h"
#include "core/fixed_text.h"
#include "corrections/contained_corrections.h"
#include "intake/value_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::size_t letter_count = 256;
using LetterCounts256 = std::array<std::int64_t, letter_count>;

std::size_t place_of(char letter) {
  return static_cast<unsigned char>(letter);
}

char other_case_of(char letter) {
  const bool is_letter = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
  return is_letter ? static_cast<char>(letter ^ 0x20) : letter;
}

/// How often each first letter of a sex occurs, with both cases of a letter counted under the small one.
struct SexLetters {
  LetterCounts256 animals = {}, sires = {}, dams = {};
};

std::size_t small_place(char letter) {
  return place_of(letter >= 'A' && letter <= 'Z' ? other_case_of(letter) : letter);
}

SexLetters count_letters(const PedigreeColumns& animals) {
  SexLetters letters;
  ByNumber<std::uint8_t> roles(animals.count());
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t sire = animals.linked(animals.sire.at(animal)), dam = animals.linked(animals.dam.at(animal));
    if (sire != 0) roles[sire] = static_cast<std::uint8_t>(roles[sire] | 1U);
    if (dam != 0) roles[dam] = static_cast<std::uint8_t>(roles[dam] | 2U);
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    if (animals.has_mark(animal, mark_no_animal)) continue;
    const std::size_t place = small_place(animals.sex.at(animal));
    ++letters.animals[place];
    if ((roles[animal] & 1U) != 0) ++letters.sires[place];
    if ((roles[animal] & 2U) != 0) ++letters.dams[place];
  }
  return letters;
}

/// The letter that most of these animals have, leaving out blanks and `except`; a blank when there is none.
char most_frequent(const LetterCounts256& counts, char except) {
  std::size_t best = place_of(' ');
  std::int64_t most = 0;
  for (std::size_t place = 0; place < letter_count; ++place) {
    const bool is_left_out = place == place_of(' ') || place == small_place(except);
    if (is_left_out || counts[place] <= most) continue;
    best = place;
    most = counts[place];
  }
  return static_cast<char>(static_cast<unsigned char>(best));
}

bool is_male_letter(char letter, const ReadingPlan& plan) {
  return letter != ' ' && (letter == plan.layout.male_letters[0] || letter == plan.layout.male_letters[1]);
}

void report_counted(Findings& findings, FindingCode code, std::uint16_t column, const CountedText& text,
                    std::string_view other) {
  add(findings, {.code = code,
                 .column = column,
                 .line = static_cast<std::int32_t>(text.first_line),
                 .text = keep(findings, text.text),
                 .other_text = keep(findings, other),
                 .number = text.count});
}

/// The animals with a text.
struct AnimalsOfText {
  const CountedText* text = nullptr;  ///< null: there is nothing to say of it
  const Wording* counts_as = nullptr;
  std::vector<std::int32_t> animals;
};

/// A list of the steer file and the column that is compared with it.
struct ListedNames {
  FindingCode not_listed, no_list;
  FieldCode field;
  const TextCounts& found;
  std::vector<std::string> names;       ///< as the steer file gives them
  std::size_t width;                    ///< of a name
  std::int64_t count_line;              ///< the steer file's line with the number of names
  std::string_view always_listed = {};  ///< a name that counts without being in the steer file
};

std::string_view cut_to_width(std::string_view text, std::size_t width) {
  return without_trailing_blanks(text.substr(0, width));
}

/// The names of a list by their folded form.
std::unordered_map<std::string, std::string> fold_names(const ListedNames& list) {
  std::unordered_map<std::string, std::string> names;
  for (const std::string& name : list.names) names.try_emplace(folded(readable(name)), name);
  names.erase("");
  return names;
}

/// Finds texts that are no name of the list, with the name that differs in capitals, accents or signs only.
void check_listed(const ListedNames& list, std::uint16_t column, Findings& findings) {
  const std::unordered_set<std::string_view> listed(list.names.begin(), list.names.end());
  const auto folded_names = fold_names(list);
  for (const CountedText& text : list.found.texts) {
    const std::string_view name = cut_to_width(text.text, list.width);
    if (listed.contains(name) || name == list.always_listed) continue;
    const auto nearest = folded_names.find(folded(readable(text.text)));
    const std::string question = nearest == folded_names.end() ? "" : "; \"" + readable(nearest->second) + "\"?";
    report_counted(findings, list.not_listed, column, text, question);
  }
}

/// Finds names of the list that no animal has.
void check_unfound(const ListedNames& list, std::uint16_t column, Findings& findings) {
  std::unordered_set<std::string_view> found;
  for (const CountedText& text : list.found.texts) found.insert(cut_to_width(text.text, list.width));
  for (std::size_t k = 0; k < list.names.size(); ++k) {
    if (found.contains(list.names[k])) continue;
    add(findings, {.code = FindingCode::name_not_found,
                   .column = column,
                   .text = keep(findings, list.names[k]),
                   .number = list.count_line + static_cast<std::int64_t>(k) + 1});
  }
}

/// The lines to write: the number of names and the names.
std::string lines_to_write(const TextCounts& found) {
  constexpr std::size_t most_named = 12;
  std::string text = std::to_string(found.texts.size());
  std::size_t count = 0;
  for (const CountedText* entry : by_frequency(found)) {
    if (++count > most_named) return text + ", ...";
    text += ", " + entry->text;
  }
  return text;
}

void check_list(const ListedNames& list, const ReadingPlan& plan, Findings& findings) {
  const std::uint16_t column = plan.column_of[list.field];
  if (list.names.empty()) {
    std::int64_t animals = 0;
    for (const CountedText& text : list.found.texts) animals += text.count;
    if (animals == 0) return;
    add(findings, {.code = list.no_list,
                   .column = column,
                   .text = keep(findings, lines_to_write(list.found)),
                   .number = animals,
                   .other_number = list.count_line});
    return;
  }
  if (column == 0) return;
  check_listed(list, column, findings);
  check_unfound(list, column, findings);
}

template <std::size_t Width>
std::vector<std::string> names_of(const NameList<Width>& list) {
  std::vector<std::string> names;
  for (const FixedText<Width>& name : list.names.entries) names.emplace_back(name.trimmed());
  return names;
}

}  // namespace

std::size_t subpopulation_count_line(const CheckSettings& settings) {
  constexpr std::size_t header_line = 9;  // without headings four lines about the columns stand behind it
  const bool has_line = settings.steer_lines.size() >= header_line;
  const std::string_view answer = has_line ? std::string_view(settings.steer_lines[header_line - 1]) : "y";
  const bool has_header = answer.starts_with('y') || answer.starts_with('Y');
  return has_header ? header_line + 1 : header_line + 5;
}

void check_male_letter(const PedigreeColumns& animals, ReadingPlan& plan, Findings& findings) {
  const SexLetters letters = count_letters(animals);
  const char given = plan.layout.male_letters[0];
  const std::size_t given_place = small_place(given);
  const char fathers = most_frequent(letters.sires, given);
  const std::size_t place = place_of(fathers);
  const bool is_better =
      letters.sires[place] > letters.sires[given_place] && letters.sires[place] > letters.dams[place];
  if (fathers == ' ' || !is_better) return;
  const std::string given_text(1, given), fathers_text(1, fathers);
  add(findings, {.code = FindingCode::male_letter,
                 .column = plan.column_of[sex_column],
                 .text = keep(findings, given_text),
                 .other_text = keep(findings, fathers_text),
                 .number = letters.animals[place],
                 .other_number = given == ' ' ? 0 : letters.animals[given_place]});
  plan.layout.male_letters = {fathers, other_case_of(fathers)};
}

void check_sexes(const PedigreeColumns& animals, const FileSurvey& survey, const ReadingPlan& plan,
                 ToolLanguage language, Findings& findings) {
  constexpr Wording as_female = {"female", "vrouwelijk"}, as_male = {"male", "mannelijk"};
  const SexLetters letters = count_letters(animals);
  const char male = plan.layout.male_letters[0];
  char females = most_frequent(letters.dams, male);
  if (females == ' ') females = most_frequent(letters.animals, male);
  std::vector<AnimalsOfText> strange(survey.sexes.texts.size() + 1), lost(survey.lost_sexes.texts.size() + 1);
  for (std::size_t place = 0; place < survey.sexes.texts.size(); ++place) {
    const CountedText& text = survey.sexes.texts[place];
    const char first = text.text.empty() ? ' ' : text.text.front();
    const std::string shown_text = readable(text.text);
    const SexMeaning meaning = sex_named(shown_text);
    const bool counts_as_male = is_male_letter(first, plan);
    const bool is_usual = small_place(first) == small_place(females) && !means_unknown(shown_text) &&
                          meaning != SexMeaning::male && first != ' ';
    if (counts_as_male ? meaning != SexMeaning::female : (meaning == SexMeaning::female || is_usual)) continue;
    strange[place + 1] = {&text, &(counts_as_male ? as_male : as_female), {}};
  }
  for (std::size_t place = 0; place < survey.lost_sexes.texts.size(); ++place) {
    lost[place + 1] = {&survey.lost_sexes.texts[place], &as_female, {}};
  }
  for (std::int32_t animal = 1; animal <= animals.count(); ++animal) {
    const std::int32_t number = survey.sex_of.at(animal);
    AnimalsOfText& found =
        number >= 0 ? strange[static_cast<std::size_t>(number)] : lost[static_cast<std::size_t>(-number)];
    if (found.text != nullptr && !animals.has_mark(animal, mark_no_animal)) found.animals.push_back(animal);
  }
  for (const auto* const each : {&strange, &lost}) {
    for (const AnimalsOfText& found : *each) {
      if (found.text == nullptr) continue;
      add_for_animals({.code = FindingCode::sex_text,
                       .column = plan.column_of[sex_column],
                       .text = keep(findings, found.text->text),
                       .other_text = keep(findings, words_of(*found.counts_as, language))},
                      found.animals, animals, findings);
    }
  }
}

void check_names(const FileSurvey& survey, const ReadingPlan& plan, const CheckSettings& settings, Findings& findings) {
  const auto first_count = static_cast<std::int64_t>(subpopulation_count_line(settings));
  const std::vector<std::string> subpopulations = names_of(settings.layout.subpopulations);
  std::vector<std::string> colours = names_of(settings.layout.colours);
  const std::string unknown_colour = colours.empty() ? std::string() : colours.back();  // always added at the end
  if (!colours.empty()) colours.pop_back();
  const std::int64_t colour_line = first_count + 1 + std::ssize(subpopulations);
  check_list({FindingCode::subpopulation, FindingCode::subpopulation_list, subpopulation_column, survey.subpopulations,
              subpopulations, SubpopulationName{}.bytes.size(), first_count},
             plan, findings);
  check_list({FindingCode::colour, FindingCode::colour_list, colour_column, survey.colours, colours,
              ColourName{}.bytes.size(), colour_line, unknown_colour},
             plan, findings);
  check_spellings(survey.subpopulations, subpopulations, plan.column_of[subpopulation_column],
                  {FindingCode::subpopulation_spelling, FindingCode::subpopulation_near}, findings);
  check_spellings(survey.colours, colours, plan.column_of[colour_column],
                  {FindingCode::colour_spelling, FindingCode::colour_near}, findings);
  check_reserved_colours(survey.colours, colours, plan.column_of[colour_column], findings);
}

void check_imports(const FileSurvey& survey, const ReadingPlan& plan, Findings& findings) {
  for (const CountedText& text : survey.imports.texts) {
    if (!means_no_import(readable(text.text))) continue;
    report_counted(findings, FindingCode::import_text, plan.column_of[import_column], text, {});
  }
}

void check_breeders(const FileSurvey& survey, const ReadingPlan& plan, Findings& findings) {
  const std::uint16_t column = plan.column_of[breeder_column];
  std::unordered_map<std::string, const CountedText*> known;
  for (const CountedText* text : by_frequency(survey.breeders)) {
    if (text->text.size() > BreederName{}.bytes.size()) {
      report_counted(findings, FindingCode::breeder_cut, column, *text, {});
    }
    std::string word = folded(readable(text->text));
    if (word.empty()) continue;
    const auto [place, is_new] = known.try_emplace(std::move(word), text);
    if (is_new) continue;
    add(findings, {.code = FindingCode::breeder_spelling,
                   .column = column,
                   .line = static_cast<std::int32_t>(text->first_line),
                   .text = keep(findings, text->text),
                   .other_text = keep(findings, place->second->text),
                   .number = text->count,
                   .other_number = place->second->count});
  }
}

void check_letters_of_file(const FileSurvey& survey, Findings& findings) {
  const LineTally &utf_8 = survey.utf_8_lines, &ansi = survey.ansi_lines;
  if (utf_8.count > 0 && ansi.count > 0) {
    add(findings, {.code = FindingCode::two_encodings,
                   .line = utf_8.count < ansi.count ? utf_8.first_line : ansi.first_line,
                   .number = utf_8.count,
                   .other_number = ansi.count});
  } else if (utf_8.count > 0) {
    add(findings, {.code = FindingCode::utf_8_letters, .line = utf_8.first_line, .number = utf_8.count});
  }
  if (survey.quoted_lines.count > 0) {
    add(findings, {.code = FindingCode::quotes,
                   .line = survey.quoted_lines.first_line,
                   .text = survey.quoted_text,
                   .number = survey.quoted_lines.count});
  }
}

void check_steer_lines(const CheckSettings& settings, Findings& findings) {
  constexpr std::size_t species_line = 6, language_line = 8;
  const std::vector<std::string>& lines = settings.steer_lines;
  const auto report = [&](std::size_t line, const Wording& read_as) {
    add(findings, {.code = FindingCode::steer_word,
                   .text = keep(findings, without_trailing_blanks(lines[line - 1])),
                   .other_text = keep(findings, words_of(read_as, settings.language)),
                   .number = static_cast<std::int64_t>(line)});
  };
  if (lines.size() >= species_line && !settings.knows_species) report(species_line, {"other", "overig"});
  if (lines.size() >= language_line && settings.language == ToolLanguage::dutch) {
    const std::string word = folded(readable(lines[language_line - 1]));
    if (!word.starts_with("nl") && !word.starts_with("nederlands") && !word.starts_with("dutch")) {
      report(language_line, {"Dutch", "Nederlands"});
    }
  }
  const std::size_t names = static_cast<std::size_t>(settings.layout.subpopulations.count()) +
                            static_cast<std::size_t>(std::max(settings.layout.colours.count() - 1, 0));
  const std::size_t told_line = place_of_corrections_line(lines);  // stands behind all that is read, as it should
  for (std::size_t line = subpopulation_count_line(settings) + 1 + names; line < lines.size(); ++line) {
    if (line == told_line || without_trailing_blanks(lines[line]).empty()) continue;
    add(findings, {.code = FindingCode::steer_rest,
                   .text = keep(findings, lines[line]),
                   .number = static_cast<std::int64_t>(line) + 1});
    return;
  }
}

}  // namespace pedigreewatch
