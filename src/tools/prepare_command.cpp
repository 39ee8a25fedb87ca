// Turns the arguments of `prepare` into its options; those about the export are read in intake/export_options.cpp.

#include "tools/prepare_command.h"

#include <array>

#include "intake/correction_words.h"
#include "intake/export_options.h"
#include "intake/export_preparation.h"
#include "text/encoding.h"
#include "text/phrases.h"
#include "text/system_reasons.h"
#include "tools/command_line.h"
#include "tools/current_date.h"
#include "tools/folder_command.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools prepare [OPTION...] EXPORT
  Turns what an office program exports (CSV, text, .xlsx, .ods) into NAME.txt and pedigreewatch.ini, for pedigreewatch.
  It says what it recognises, and asks for what it cannot decide: each question names the option that answers it.

  --dry-run             show everything, write nothing
  --out DIR             write into this folder (else: the folder you are in)
  --answers FILE        the answers of an earlier export (else: NAME.answers about the same headings, in the folder of
                        the new files or of the export)
  --force               write over files that are there already
  --species WORD        dog, cat, cattle, sheep, horse, poultry, pig or other
  --language en|nl      language of the report and of these messages (else: English)
  --name TEXT           name of the population in the report (else: the name of the export)
  --column FIELD=COLUMN the column of a field, by its heading or number, or "none". Fields: id, sire, dam, sex,
                        birthdate, name, colour, breeder, subpopulation, import. As often as needed:
                        --column id="Reg. no" --column sire=7
  --young COLUMNS       the columns of the ids where a line holds several animals, such as the young of a litter: by
                        heading or number, with commas between them (or semicolons). Each gets a line of its own.
                        "none": a line is one animal
  --availability COLUMNS the columns that tell which animals are dead, sold, exported or castrated: by heading or
                        number, with commas between them (or semicolons); "none": no column does
  --gone TEXT           a text in them that says that an animal has gone; "all": all that nobody knows. As often as
                        needed
  --present TEXT        a text in them that says that it is still there, likewise
  --header yes|no       whether the first line holds the headings
  --dates LAYOUT        order of the dates: dd-mm-yyyy, mm-dd-yyyy, yyyy-mm-dd, yyyy-dd-mm, ddmmyyyy, ...; or
                        serial-1900, serial-1904: how the days of a spreadsheet are counted. As often as needed
  --century YEAR        the first of the hundred years that years of two digits mean: 1925 for 1925 to 2024
  --ids RULE            what does not count when parents are compared with ids: separators, capitals, zeros,
                        look-alikes (O for 0, l for 1), marks (? and * around it), prefix (letters in front),
                        country (the first 3 of 15 digits), check-digit, or several with "+" between; "keep" for none
  --male TEXT           how males are written: a letter with which the text begins, or the whole text. As often as
                        needed
  --female TEXT         how females are written, likewise
  --unknown TEXT        a text that stands for an unknown parent, besides the usual ones. As often as needed
  --known TEXT          a parent without a line of its own that is an animal all the same; "all": all of them. As often
                        as needed
  --subpopulations LIST names that the report distinguishes, with commas between them (or semicolons); "all";
                        "at-least-50" for those with at least 50 animals and one for all others; or "none" to leave
                        the column out
  --colours LIST        names with commas between them, "all" or "none"
  --corrections FILE    a list of corrections to apply: columns id, field, was, becomes, why, when, with tabs
                        between them. Each applies only where the export still says what it was
  --delimiter CHARACTER what divides the columns of the export: ";" "," tab bar
  --encoding NAME       utf-8, utf-16, windows-1252, windows-1250, iso-8859-15, macroman, cp850, cp437 or
                        utf-8-twice
  --sheet SHEET         the sheet of a workbook, by its name or number (else: the first that holds a table)
  --help                shows this text

  Exit status: 0 done, 1 something has to be answered or mended first (nothing was written), 2 wrong arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--answers"},
                                                  {"--delimiter"},
                                                  {"--encoding"},
                                                  {"--sheet"},
                                                  {"--dates", true, true},
                                                  {"--century"},
                                                  {"--ids"},
                                                  {"--male", true, true},
                                                  {"--female", true, true},
                                                  {"--unknown", true, true},
                                                  {"--known", true, true},
                                                  {"--column", true, true},
                                                  {"--header"},
                                                  {"--young"},
                                                  {"--availability"},
                                                  {"--gone", true, true},
                                                  {"--present", true, true},
                                                  {"--species"},
                                                  {"--language"},
                                                  {"--name"},
                                                  {"--subpopulations"},
                                                  {"--colours"},
                                                  {"--corrections"},
                                                  {"--out"},
                                                  {"--force", false},
                                                  {"--dry-run", false}});

/// The options about this one run; the others are about the export.
void read_run_option(const GivenOption& option, PrepareOptions& options) {
  if (option.name == "--answers") options.answers_name = option.value;
  if (option.name == "--corrections") options.corrections_file = option.value;
  if (option.name == "--out") options.folder = option.value;
  if (option.name == "--force") options.may_overwrite = true;
  if (option.name == "--dry-run") options.is_dry_run = true;
}

constexpr Wording list_not_read = {"{1}: the list of corrections could not be read: {2}",
                                   "{1}: de lijst met correcties kon niet gelezen worden: {2}"};

constexpr Wording holds_none = {"{1}: this list holds no corrections", "{1}: in deze lijst staan geen correcties"};

/// Reads the list of corrections, where one is named, and says so where it holds none.
std::optional<ToolRefusal> read_list(PrepareOptions& options, ToolStreams& streams) {
  if (options.corrections_file.empty()) return std::nullopt;
  std::string bytes;
  const int error = read_file_bytes(options.corrections_file, bytes);
  if (error != 0) {
    return ToolRefusal{phrase(list_not_read, options.language,
                              {shown(options.corrections_file), reason_text(error, options.language)})};
  }
  const EncodingEvidence evidence = recognise_encoding(bytes);
  const std::string text = decode(std::move(bytes), evidence.encoding.value_or(Encoding::windows_1252)).text;
  CorrectionList list = read_corrections(text);
  std::string problems;
  for (const std::string& line : fault_sentences(list.faults, options.corrections_file, options.language)) {
    problems += (problems.empty() ? "" : "\n") + line;
  }
  if (!problems.empty()) return ToolRefusal{problems};
  options.corrections = std::move(list.corrections);
  if (options.corrections.empty()) {
    say(streams.messages, phrase(holds_none, options.language, {shown(options.corrections_file)}));
  }
  return std::nullopt;
}

}  // namespace

std::string_view prepare_help() {
  return help;
}

std::string read_prepare_options(std::span<const std::string_view> arguments, PrepareOptions& options) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  for (const GivenOption& option : line.options) {
    read_run_option(option, options);
    if (!is_about_export(option.name)) continue;
    std::string problem = read_export_option(option.name, option.value, options);
    if (!problem.empty()) return problem;
  }
  if (line.operands.empty()) return "the name of the export was expected";
  if (line.operands.size() > 1) return in_quotes(line.operands[1]) + ": one export was expected";
  options.export_name = line.operands.front();
  options.this_year = current_date().year;
  return {};
}

int run_prepare(std::span<const std::string_view> arguments, ToolStreams& streams) {
  PrepareOptions options;
  const std::string problem = read_prepare_options(arguments, options);
  if (!problem.empty()) return refuse(streams, refusal_of_arguments("prepare", problem));
  const std::optional<ToolRefusal> refusal = read_list(options, streams);
  return refusal ? refuse(streams, *refusal) : prepare(options, streams);
}

}  // namespace pedigreewatch
