// What is said of an export before anybody puts it into words: remarks, questions and refusals. Each is a kind and the
// values that belong to it. The console puts its words to them (console_words.h), the desk its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "intake/date_layout_recognition.h"
#include "intake/delimiter_recognition.h"
#include "intake/id_rules.h"
#include "intake/text_counts.h"
#include "pedigree/header_words.h"
#include "sheets/sheet_table.h"
#include "sheets/workbook_problem.h"
#include "text/encoding.h"
#include "text/letter_evidence.h"
#include "text/windows_1252.h"

namespace pedigreewatch {

struct Delimiter {
  char character = ';';
};

/// The name under which a field's column is chosen: "id", "sire", ...
struct FieldName {
  FieldCode code = unused_column;
};

/// Columns by their headings and their numbers, counted from 1.
struct ColumnList {
  struct Column {
    std::string heading;
    std::size_t number = 0;
  };
  std::vector<Column> columns;
};

/// Columns with the number of texts that stand where they should, of how many.
struct MatchList {
  struct Match {
    std::string heading;
    std::size_t number = 0;
    std::int64_t found = 0, of = 0;
  };
  std::vector<Match> matches;
};

/// What stands in columns that may hold a field.
struct ColumnEvidence {
  /// So many of the different texts of one column stand in another one.
  struct Link {
    std::string heading;
    std::size_t number = 0;
    std::string other_heading;
    std::size_t other_number = 0;
    std::int64_t found = 0, of = 0;
  };
  std::string heading;
  std::size_t number = 0;
  std::int64_t texts = 0, different = 0;  ///< of all lines, or of a sample of a large export
  std::int64_t judged = 0, dates = 0;     ///< of the first lines
  std::vector<std::string> examples;
  std::vector<Link> links;
  std::int64_t parents_of_known_sex = 0, parents_of_wrong_sex = 0;  ///< if this were the id of the animals
};
struct ColumnEvidenceList {
  std::vector<ColumnEvidence> columns;
  std::size_t more = 0;
};

struct LetterList {
  std::vector<ReplacedLetter> letters;
  std::int64_t more = 0;
};

struct TriedDelimiters {
  std::vector<DelimiterEvidence> tried;
};

struct WordList {
  std::vector<std::string_view> words;
};

struct EncodingReadings {
  std::vector<EncodingReading> readings;
};

/// Parents, and the animals that they may be.
struct IdPairList {
  std::vector<IdPair> pairs;
};

/// Names of subpopulations that a user can ask for, with the report that they make.
struct NameChoice {
  std::string value;               ///< as it is asked for: "all", "at-least-50", "none"
  std::int64_t names = 0;          ///< that are named by themselves
  std::int64_t least_animals = 0;  ///< that each of these has, all others being one together; 0: it does not matter
  std::int64_t bytes = 0, longest_line = 0;  ///< of the report
};
struct NameChoiceList {
  std::vector<NameChoice> choices;
};

/// Why the system does not hand out a file, as `reason_text` takes it.
struct SystemReason {
  int error = 0;
};

/// A number, a text of the export or of the user, the place of a column, lines with what stands in them, ...
using Value =
    std::variant<std::int64_t, std::string, FieldCode, FieldName, DateOrder, Encoding, Delimiter, ColumnList,
                 CountedList, NotedTexts, MatchList, LetterList, TriedDelimiters, WordList, NotedCells, WorkbookProblem,
                 EncodingReadings, IdRules, IdPairList, NameChoiceList, ColumnEvidenceList, SystemReason>;
using Values = std::vector<Value>;

// --- Remarks: what was recognised, and what is changed on the way. Behind each kind stand its values ---

enum class RemarkKind {
  export_read,                   ///< file, lines
  encoding_plain,                ///< none
  encoding_found,                ///< encoding
  encoding_wished,               ///< encoding
  encoding_by_mark,              ///< encoding
  encoding_by_letters,           ///< encoding, letters with accents, a word with one
  encoding_by_mark_and_letters,  ///< the same
  bytes_mended,                  ///< bytes
  letters_undoubled,             ///< letters, words as they stood there and as they are meant
  letters_doubled,               ///< the same, of those that were left
  letters_broken,                ///< letters
  half_letter,                   ///< none
  delimiter_wished,              ///< delimiter
  delimiter_found,               ///< delimiter, lines that agree, lines looked at, columns
  header_found,                  ///< line
  header_absent,                 ///< none
  animals_found,                 ///< animals
  columns_counted,               ///< columns
  column_used,                   ///< number of the column, heading, field, fields that are filled
  column_possible,               ///< field, columns
  columns_unused,                ///< columns with their texts
  columns_empty,                 ///< columns that are not used and hold no text
  fathers_linked,                ///< fathers, those with a line
  fathers_linked_in_sample,      ///< the same
  mothers_linked,                ///< mothers, those with a line
  mothers_linked_in_sample,      ///< the same
  parents_without_line,          ///< none
  unknown_parents,               ///< texts
  unknown_is_animal,             ///< text
  fathers_named_only,            ///< animals, lines with the names of their fathers
  mothers_named_only,            ///< the same
  dates_written,                 ///< layout
  dates_in_order,                ///< dates, layout, dates that fit no other, dates that fit the other, the other
  dates_compact,                 ///< dates, layout
  dates_impossible,              ///< dates, their lines
  dates_exchanged,               ///< dates, their lines, layout that they fit
  dates_doubtful,                ///< dates, their lines
  dates_named,                   ///< dates
  dates_year_only,               ///< dates
  dates_month_only,              ///< dates
  dates_timed,                   ///< dates
  dates_rough,                   ///< dates
  dates_serial,                  ///< dates, year from which their days are counted
  dates_empty,                   ///< texts
  dates_short,                   ///< dates, first and last year that they mean
  dates_short_open,              ///< dates, their lines
  dates_unreadable,              ///< dates, their lines
  sexes_found,                   ///< texts of males, of females
  sexes_unknown,                 ///< texts
  sexes_concluded,               ///< animals that are fathers, mothers, both, neither
  subpopulations_found,          ///< names, texts
  colours_found,                 ///< names, texts
  names_left_out,                ///< texts
  names_joined,                  ///< names, their animals, the name that they get
  names_all_joined,              ///< the fewest animals of a name that would be listed by itself
  names_absent,                  ///< names that are listed and stand nowhere
  imports_found,                 ///< imports, texts that mean none
  species_found,                 ///< the word of the steer file
  population_named,              ///< name
  column_counts_differ,          ///< lines, columns of the first line, the lines
  quotes_bad,                    ///< lines, the lines
  ids_missing,                   ///< animals, their lines
  ids_odd,                       ///< animals, what their lines say
  ids_unknown,                   ///< texts
  ids_with_rules,                ///< rules, parents that get a line by them, some with the animals
  ids_of_thousands,              ///< identifications
  texts_cut,                     ///< width, field, texts, their lines
  letters_replaced,              ///< letters
  letters_invisible,             ///< letters
  blanks_removed,                ///< texts
  quotes_removed,                ///< lines
  sheet_marks_removed,           ///< lines
  blank_lines_removed,           ///< lines
  lines_shifted,                 ///< none
  line_shifted,                  ///< line of the export, line of the data file, name of that file
  further_shifts,                ///< such places, line of the export and of the data file at the last
  sheet_read,                    ///< sheet, sheets of the workbook
  cells_with_errors,             ///< cells, their places
  formulas_without_value,        ///< cells, their places
  dates_without_day,             ///< cells, their places
  cells_merged,                  ///< ranges, their places
  rows_hidden,                   ///< rows, their numbers
  columns_hidden,                ///< columns, their letters
  answers_used,                  ///< file
  answer_unfit,                  ///< line of that file, what it says
  column_by_content,             ///< column, field
  lines_above,                   ///< lines, what they say
  headers_again,                 ///< lines, their numbers
  lines_no_animals,              ///< lines, what they say
  young_found,                   ///< columns, lines, animals
  young_stillborn,               ///< young, their lines
  gone_by_dates,                 ///< column, animals with a date in it
  gone_by_texts,                 ///< column, texts of animals that have gone
  gone_not_counted,              ///< column, texts of which nobody knows it
  gone_castrated,                ///< words for the sex
};
inline constexpr std::size_t remark_kind_count = static_cast<std::size_t>(RemarkKind::gone_castrated) + 1;

struct Remark {
  RemarkKind kind;
  Values values;
};

// --- Questions: what only the user can decide ---

enum class QuestionKind {
  column_missing,           ///< field, its name, columns that may hold it
  sex_missing,              ///< the same
  columns_alike,            ///< field, columns, its name, what stands in them
  optional_columns_alike,   ///< the same for a field that may be left out
  no_such_column,           ///< name of the field, what the user says, columns of the export
  several_such_columns,     ///< name of the field, what the user says, columns
  header_unclear,           ///< none
  parents_lack_lines,       ///< field, its name, column, column of the ids, better ones, parents, those with a line
  id_lacks_parents,         ///< field, its name, column, the same column, better ones
  dates_unclear,            ///< dates of the first layout, the layout, dates of the second, the layout, dates of both
  dates_not_understood,     ///< column, dates that are not understood, all dates, some with their lines
  dates_absent,             ///< column
  dates_all_unread,         ///< column, all dates, some with their lines
  century_unclear,          ///< dates, some with their lines, hundreds of years
  serials_unclear,          ///< dates, one of them, its day counted from 1900, and from 1904
  parents_of_wrong_sex,     ///< field, its name, column, parents whose sex is known, those of the other sex
  parents_doubtful,         ///< texts with their young
  parents_repeated,         ///< texts that stand for what the line above says, with their young
  sexes_unclear,            ///< texts
  sexes_open,               ///< texts that nobody knows
  sexes_contradict,         ///< text, fathers, mothers
  male_never,               ///< what the user says, texts
  species_unclear,          ///< words of the species
  species_wrong,            ///< what the user says, words of the species
  ids_destroyed,            ///< columns, identifications, some with their lines
  ids_alike,                ///< parents without a line, those that get one, rules, their names, some with the animals
  too_many_subpopulations,  ///< heading, texts, what can be asked for
  too_many_listed,          ///< heading, names that the user lists, what can be asked for, the report, its longest line
  too_many_colours,         ///< heading, texts
  no_delimiter_left,        ///< none
  young_unclear,            ///< columns, their numbers with commas between
  no_such_young,            ///< what the user says, columns of the export
  availability_unclear,     ///< columns, texts of the first, numbers of the columns with these, and without
  availability_all_gone,    ///< the same, where all animals would have gone
  no_such_availability,     ///< what the user says, columns of the export
  gone_unclear,             ///< column, texts that nobody knows
  import_unclear,           ///< columns, texts of the first, its number
  sheets_alike,             ///< sheet that is read, others with their rows
};
inline constexpr std::size_t question_kind_count = static_cast<std::size_t>(QuestionKind::sheets_alike) + 1;

/// What a question is answered with: a setting of the preparation.
enum class Setting {
  none,
  column,
  header,
  sheet,
  dates,
  serials,
  century,
  ids,
  male,
  unknown,
  known,
  species,
  subpopulations,
  colours,
  young,
  availability,
  gone,
  present
};

/// A possible answer: the value of the setting, and the text of the export that it stands for, if there is one.
struct Answer {
  std::string value, text;
  Setting setting = Setting::none;  ///< none: that of the question
};

struct Question {
  QuestionKind kind;
  Values values;
  Setting setting = Setting::none;
  FieldCode field = unused_column;  ///< whose column is asked for
  std::vector<Answer> answers;      ///< empty: too many to be listed
};

// --- Refusals: why nothing can be made of the export as it is ---

enum class RefusalKind {
  cannot_read,        ///< file, reason of the system
  is_folder,          ///< file
  is_empty,           ///< file
  is_binary,          ///< file, what kind of file it is
  has_zeros,          ///< file, zeros, line of the first
  encoding_unclear,   ///< file, letters of UTF-8, line of the first, other bytes, line of the first
  delimiter_unclear,  ///< file, what each delimiter would give
  too_many_columns,   ///< file, columns that are allowed
  never_closed,       ///< file, line
  no_animals,         ///< file
  ids_clash,          ///< file, line, id, other id, what both would become
  workbook_unread,    ///< file, why
  encodings_alike,    ///< file, the encodings that the letters fit
  holds_no_text,      ///< file
  lines_in_quotes,    ///< file, line
  letters_doubled,    ///< file, letters that may be doubled, words as they stand there and as they may be meant, others
};
inline constexpr std::size_t refusal_kind_count = static_cast<std::size_t>(RefusalKind::letters_doubled) + 1;

struct Refusal {
  RefusalKind kind;
  Values values;
  std::vector<Values> further = {};  ///< the same at other places
};

}  // namespace pedigreewatch
