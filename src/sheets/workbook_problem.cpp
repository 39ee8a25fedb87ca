// Each fault has a sentence: what is wrong, where, and what to do.

#include "sheets/workbook_problem.h"

namespace pedigreewatch {
namespace {

constexpr Wording save_again = {
    " Open it in the spreadsheet program, save it again as .xlsx, .ods or CSV, and take that.",
    " Open het in het rekenbladprogramma, bewaar het opnieuw als .xlsx, .ods of CSV, en neem dat."};

constexpr Wording is_cut_off = {"this workbook is not complete. Copy or export it again.",
                                "deze werkmap is niet volledig. Kopieer of exporteer haar opnieuw."};
constexpr Wording holds_no_sheets = {
    "this is an archive (zip) and no workbook. Unpack it, and take the .xlsx, .ods or CSV file in it.",
    "dit is een archief (zip) en geen werkmap. Pak het uit en neem het .xlsx-, .ods- of CSV-bestand dat erin "
    "zit."};
constexpr Wording is_old = {"this is a workbook of a form used before 2007 (.xls), which cannot be read.",
                            "dit is een werkmap van v\u00F3\u00F3r 2007 (.xls); die is niet te lezen."};
constexpr Wording is_binary = {"this is a binary workbook (.xlsb), which cannot be read.",
                               "dit is een binaire werkmap (.xlsb); die is niet te lezen."};
constexpr Wording is_html = {"this is a web page (HTML), whatever its name says.",
                             "dit is een webpagina (HTML), wat de naam ook zegt."};
constexpr Wording is_xml = {"this is a workbook in the XML form of 2003, which cannot be read.",
                            "dit is een werkmap in de XML-vorm van 2003; die is niet te lezen."};
constexpr Wording is_locked = {"this workbook has a password. Save it without one, and take that.",
                               "deze werkmap heeft een wachtwoord. Bewaar haar zonder, en neem die."};
constexpr Wording packed_otherwise = {"the part \"{1}\" of the workbook is packed in a way that is not known.",
                                      "het deel \"{1}\" van de werkmap is ingepakt op een onbekende manier."};
constexpr Wording packed_badly = {"the part \"{1}\" of the workbook is damaged. Copy or export it again.",
                                  "het deel \"{1}\" van de werkmap is beschadigd. Kopieer of exporteer haar opnieuw."};
constexpr Wording unpacks_too_far = {
    "the workbook unpacks to more than {2} GB, which no sheet of animals does; it was not read further.",
    "uitgepakt is deze werkmap groter dan {2} GB, en zo groot is geen blad met dieren; er is niet verder "
    "gelezen."};
constexpr Wording xml_is_broken = {"the part \"{1}\" of the workbook is broken{2}.",
                                   "het deel \"{1}\" van de werkmap is kapot{2}."};
constexpr Wording has_doctype = {
    "the part \"{1}\" of the workbook defines words of its own (DOCTYPE), which no spreadsheet program writes.",
    "het deel \"{1}\" van de werkmap definieert eigen woorden (DOCTYPE), wat geen rekenbladprogramma doet."};
constexpr Wording is_too_deep = {"the part \"{1}\" of the workbook has more than {3} levels, which none should.",
                                 "het deel \"{1}\" van de werkmap heeft meer dan {3} niveaus, wat niet hoort."};
constexpr Wording is_too_long = {"a text of the part \"{1}\" is longer than a million letters{2}.",
                                 "een tekst van het deel \"{1}\" is langer dan een miljoen letters{2}."};
constexpr Wording is_no_utf_8 = {"the part \"{1}\" of the workbook is not written in UTF-8{2}.",
                                 "het deel \"{1}\" van de werkmap is niet in UTF-8 geschreven{2}."};
constexpr Wording cell_is_odd = {"the cells of the workbook are not in their order{2}.",
                                 "de cellen van de werkmap staan niet op volgorde{2}."};
constexpr Wording text_is_missing = {"a cell refers to the text number {3}, which is not there{2}.",
                                     "een cel verwijst naar tekst nummer {3}, die er niet is{2}."};
constexpr Wording has_too_many_rows = {"there is a row {3}{2}; at most {4} rows are read.",
                                       "er is een rij {3}{2}; hoogstens {4} rijen worden gelezen."};
constexpr Wording has_too_many_columns = {
    "{3} stands too far to the right{2}; at most {4} columns are read. Remove what is not needed there.",
    "{3} staat te ver naar rechts{2}; hoogstens {4} kolommen worden gelezen. Haal weg wat daar niet nodig is."};
constexpr Wording has_too_much_text = {"the sheet holds more than {4} MB of text{2}; it was not read further.",
                                       "het blad bevat meer dan {4} MB tekst{2}; het is niet verder gelezen."};
constexpr Wording has_no_such_sheet = {"there is no sheet {3}. Choose one with --sheet NAME (or its number): {5}.",
                                       "er is geen blad {3}. Kies er een met --sheet NAAM (of het nummer): {5}."};
constexpr Wording has_no_table = {"the workbook holds nothing that could be read{2}.",
                                  "de werkmap bevat niets dat gelezen kan worden{2}."};

constexpr Wording on_sheet = {" (sheet {1})", " (blad {1})"};
constexpr Wording at_cell = {" (sheet {1}, cell {2})", " (blad {1}, cel {2})"};

struct Message {
  const Wording* wording = nullptr;
  bool advises_to_save = false;
  std::uint64_t bound = 0;
};

Message message_for(WorkbookFault fault) {
  switch (fault) {
    case WorkbookFault::none:
    case WorkbookFault::cut_off: return {&is_cut_off};
    case WorkbookFault::no_workbook: return {&holds_no_sheets};
    case WorkbookFault::old_workbook: return {&is_old, true};
    case WorkbookFault::binary_workbook: return {&is_binary, true};
    case WorkbookFault::html: return {&is_html, true};
    case WorkbookFault::xml_2003: return {&is_xml, true};
    case WorkbookFault::is_protected: return {&is_locked};
    case WorkbookFault::unknown_packing: return {&packed_otherwise, true};
    case WorkbookFault::broken_packing: return {&packed_badly};
    case WorkbookFault::too_large: return {&unpacks_too_far, false, most_unpacked_bytes >> 30};
    case WorkbookFault::broken_xml: return {&xml_is_broken, true};
    case WorkbookFault::has_definitions: return {&has_doctype, true};
    case WorkbookFault::too_deep: return {&is_too_deep, true, most_xml_levels};
    case WorkbookFault::too_long: return {&is_too_long};
    case WorkbookFault::other_encoding: return {&is_no_utf_8, true};
    case WorkbookFault::odd_cell: return {&cell_is_odd, true};
    case WorkbookFault::no_such_text: return {&text_is_missing, true};
    case WorkbookFault::too_many_rows: return {&has_too_many_rows, false, most_sheet_rows};
    case WorkbookFault::too_many_columns: return {&has_too_many_columns, false, most_sheet_columns};
    case WorkbookFault::too_much_text: return {&has_too_much_text, false, most_sheet_text >> 20};
    case WorkbookFault::no_such_sheet: return {&has_no_such_sheet};
    case WorkbookFault::no_table: return {&has_no_table};
  }
  return {&is_cut_off};
}

/// " (sheet "Dogs", cell D12)"; empty where no sheet is meant.
std::string place_of(const WorkbookProblem& problem, ToolLanguage language) {
  if (problem.sheet.empty()) return {};
  if (problem.cell.empty()) return phrase(on_sheet, language, {in_quotes(problem.sheet)});
  return phrase(at_cell, language, {in_quotes(problem.sheet), problem.cell});
}

std::string listed(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + in_quotes(name);
  return list;
}

}  // namespace

std::string message_of(const WorkbookProblem& problem, ToolLanguage language) {
  const Message message = message_for(problem.fault);
  const std::string bound = std::to_string(message.bound);
  const bool is_size = problem.fault == WorkbookFault::too_large;
  const bool is_number = problem.fault == WorkbookFault::too_deep || problem.fault == WorkbookFault::too_many_rows;
  const std::string text = problem.fault == WorkbookFault::too_deep ? bound
                           : is_number                              ? shown(problem.text)
                                                                    : in_quotes(problem.text);
  std::string said = phrase(
      *message.wording, language,
      {shown(problem.part), is_size ? bound : place_of(problem, language), text, bound, listed(problem.choices)});
  if (message.advises_to_save) said += words_of(save_again, language);
  return said;
}

}  // namespace pedigreewatch
