// The first two paragraphs: how the file is read, and its columns.

#include "intake/findings.h"

#include <algorithm>
#include <array>

#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

/// `text` filled up with blanks to `width` letters.
std::string filled_up(std::string text, std::size_t width) {
  std::string_view rest = text;
  std::size_t letters = 0;
  for (; !rest.empty(); ++letters) take_letter(rest);
  return text.append(letters < width ? width - letters : 0, ' ');
}

std::string right_justified(std::int64_t number, std::size_t width) {
  const std::string digits = text_of(number);
  return std::string(digits.size() < width ? width - digits.size() : 0, ' ') + digits;
}

// --- How the file is read ---

constexpr Wording encoding_plain = {"Encoding      plain letters only (ASCII)",
                                    "Codering      alleen gewone letters (ASCII)"};
constexpr Wording encoding_found = {"Encoding      {1}{2}", "Codering      {1}{2}"};
constexpr Wording by_mark = {", as its first bytes say", ", volgens de eerste bytes"};
constexpr Wording by_letters = {"; letters with accents: {1}, such as in {2}",
                                "; letters met accenten: {1}, zoals in {2}"};
constexpr Wording by_wish = {", as you say", ", zoals u zegt"};
constexpr Wording bytes_mended = {
    "              bytes that are not UTF-8 and were read as Windows-1252: {1}. Check the letters with accents.",
    "              bytes die geen UTF-8 zijn en als Windows-1252 gelezen zijn: {1}. Kijk de letters met accenten na."};
constexpr Wording letters_broken = {"              broken letters, which become ?: {1}",
                                    "              kapotte letters, die ? worden: {1}"};
constexpr Wording half_letter = {
    "              The file ends in half a letter: it may have been cut off. Look at its end.",
    "              Het bestand eindigt met een halve letter: misschien is het afgekapt. Kijk "
    "naar het eind."};
constexpr Wording delimiter_found = {"Delimiter     {1}: {2} of the first {3} lines have {4} columns",
                                     "Scheiding     {1}: {2} van de eerste {3} regels hebben {4} kolommen"};
constexpr Wording delimiter_wished = {"Delimiter     {1}, as you say", "Scheiding     {1}, zoals u zegt"};

constexpr std::array<std::pair<char, Wording>, 5> delimiter_names = {{{';', {"; (semicolon)", "; (puntkomma)"}},
                                                                      {',', {", (comma)", ", (komma)"}},
                                                                      {'\t', {"tab", "tab"}},
                                                                      {'|', {"| (bar)", "| (streep)"}},
                                                                      {' ', {"blank", "spatie"}}}};

std::string encoding_evidence(const ReadingFindings& findings, const PrepareOptions& options) {
  if (options.encoding) return std::string(words_of(by_wish, options.language));
  const std::int64_t letters = findings.used_encoding == Encoding::windows_1252 ? findings.encoding.other_bytes
                                                                                : findings.encoding.utf_8_letters;
  std::string evidence;
  if (findings.encoding.has_mark) evidence += words_of(by_mark, options.language);
  if (letters > 0) {
    evidence += phrase(by_letters, options.language, {text_of(letters), in_quotes(findings.letter_example)});
  }
  return evidence;
}

// --- Columns ---

constexpr Wording header_found = {"Header        line {1}", "Kopregel      regel {1}"};
constexpr Wording header_absent = {"Header        none: the first line is an animal",
                                   "Kopregel      geen: de eerste regel is een dier"};
constexpr Wording animals_found = {"Animals       {1}", "Dieren        {1}"};
constexpr Wording columns_title = {"Columns       {1}, in use are:", "Kolommen      {1}, gebruikt worden:"};
constexpr Wording column_line = {"  {1}  {2} {3} {4} filled", "  {1}  {2} {3} {4} gevuld"};
constexpr Wording also_possible = {"  could be the {1} too, not used: {2}", "  kan ook zijn: {1}, niet gebruikt: {2}"};
constexpr Wording fathers_linked = {"Fathers       {1}{2} different ones, {3} of them have a line of their own",
                                    "Vaders        {1}{2} verschillende, {3} daarvan hebben een eigen regel"};
constexpr Wording mothers_linked = {"Mothers       {1}{2} different ones, {3} of them have a line of their own",
                                    "Moeders       {1}{2} verschillende, {3} daarvan hebben een eigen regel"};
constexpr Wording in_sample = {"in a sample ", "in een steekproef "};
constexpr Wording no_links = {
    "              None of them has a line: do these columns hold identifications of the same kind? If not, choose "
    "others with --column.",
    "              Geen daarvan heeft een regel: staan in deze kolommen wel dezelfde soort nummers? Zo niet, kies "
    "andere met --column."};

std::string_view heading_of(const PreparePlan& plan, std::size_t place) {
  return plan.columns.has_header ? std::string_view(plan.columns.headings[place]) : std::string_view("-");
}

void show_column_lines(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  constexpr std::size_t heading_width = 24, description_width = 20, number_width = 4, count_width = 9;
  for (const FieldCode code : written_fields()) {
    const std::size_t index = static_cast<std::size_t>(code);
    if (!plan.columns.place[index]) continue;
    const std::size_t place = *plan.columns.place[index];
    say(console, column_line, plan.language,
        {right_justified(static_cast<std::int64_t>(place) + 1, number_width),
         filled_up(shown(heading_of(plan, place)), heading_width),
         filled_up(std::string(description_of(code, plan.language)), description_width),
         right_justified(survey.filled[index], count_width)});
  }
}

void show_further_columns(const PreparePlan& plan, TextOutput& console) {
  for (const FieldCode code : written_fields()) {
    std::string list;
    for (const std::size_t place : plan.columns.further[static_cast<std::size_t>(code)]) {
      if (!list.empty()) list += ", ";
      list += in_quotes(plan.columns.headings[place]) + " (" + std::to_string(place + 1) + ")";
    }
    if (!list.empty()) say(console, also_possible, plan.language, {description_of(code, plan.language), list});
  }
}

void show_links(const ParentLinks& links, LinkRole role, const PreparePlan& plan, TextOutput& console) {
  const LinkCount count = count_links(links, role);
  const std::string_view sample = is_exact(links) ? std::string_view() : words_of(in_sample, plan.language);
  say(console, role == sire_role ? fathers_linked : mothers_linked, plan.language,
      {sample, text_of(count.parents), text_of(count.with_line)});
  if (count.parents > 0 && count.with_line == 0) say(console, no_links, plan.language);
}

}  // namespace

std::string name_of_delimiter(char delimiter, ToolLanguage language) {
  for (const auto& [known, name] : delimiter_names) {
    if (known == delimiter) return std::string(words_of(name, language));
  }
  return shown(std::string_view(&delimiter, 1));
}

void show_reading(const ReadingFindings& findings, const PrepareOptions& options, TextOutput& console) {
  const ToolLanguage language = options.language;
  if (findings.used_encoding == Encoding::plain) {
    say(console, encoding_plain, language);
  } else {
    say(console, encoding_found, language, {name_of(findings.used_encoding), encoding_evidence(findings, options)});
  }
  show_count(bytes_mended, findings.mended_bytes, language, console);
  show_count(letters_broken, findings.broken_letters, language, console);
  if (findings.ends_in_half_letter) say(console, half_letter, language);
  const std::string delimiter = name_of_delimiter(findings.delimiter, language);
  if (options.delimiter) return say(console, delimiter_wished, language, {delimiter});
  const DelimiterEvidence& evidence = findings.delimiter_evidence;
  say(console, delimiter_found, language,
      {delimiter, text_of(evidence.agreeing_count), text_of(evidence.record_count),
       std::to_string(evidence.field_count)});
}

void show_columns(const ExportSurvey& survey, const PreparePlan& plan, TextOutput& console) {
  say(console, plan.columns.has_header ? header_found : header_absent, plan.language, {text_of(survey.header_line)});
  say(console, animals_found, plan.language, {text_of(survey.animal_count)});
  say(console, columns_title, plan.language, {std::to_string(plan.columns.headings.size())});
  show_column_lines(survey, plan, console);
  show_further_columns(plan, console);
  if (is_in_use(plan, sire_column)) show_links(survey.links, sire_role, plan, console);
  if (is_in_use(plan, dam_column)) show_links(survey.links, dam_role, plan, console);
}

}  // namespace pedigreewatch
