// The road to the sheets: relations name the workbook, the workbook its sheets, relations of the workbook their parts.

#include <algorithm>
#include <charconv>
#include <map>

#include "sheets/office_open_sheet.h"
#include "sheets/xml_reader.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view first_relations = "_rels/.rels";
constexpr std::size_t most_relations = 10'000;  // of which sheets are some; a real workbook has dozens

bool refuse(WorkbookFault fault, std::string_view part, WorkbookProblem& problem) {
  problem.fault = fault;
  problem.part = part;
  return false;
}

struct Relation {
  std::string id, type, target;
};

/// The folder of a part, with the "/" behind it.
std::string folder_of(std::string_view part) {
  const std::size_t slash = part.rfind('/');
  return std::string(part.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
}

/// A target as it is seen from a folder: "../styles.xml" from "xl/sheets/".
std::string resolved(std::string folder, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  for (;;) {
    if (target.starts_with("./")) {
      target.remove_prefix(2);
    } else if (target.starts_with("../")) {
      target.remove_prefix(3);
      if (!folder.empty()) folder.pop_back();
      folder = folder_of(folder);
    } else {
      return folder.append(target);
    }
  }
}

std::string relations_of(std::string_view part) {
  const std::string folder = folder_of(part);
  return folder + "_rels/" + std::string(part.substr(folder.size())) + ".rels";
}

/// Calls `take` with the reader at every start of an element. False when the part is missing or broken.
template <typename Take>
bool for_each_element(ZipArchive& archive, std::string_view name, WorkbookProblem& problem, Take&& take) {
  const ZipPart* const part = find_part(archive, name);
  if (part == nullptr) return refuse(WorkbookFault::no_workbook, name, problem);
  XmlReader reader = read_xml(open_part(*part, archive));
  for (;;) {
    switch (next_event(reader)) {
      case XmlEvent::start: take(reader); break;
      case XmlEvent::end:
      case XmlEvent::text: break;
      case XmlEvent::done: return true;
      case XmlEvent::broken: return refuse(reader.fault, name, problem);
    }
  }
}

bool read_relations(ZipArchive& archive, std::string_view name, std::string_view folder,
                    std::vector<Relation>& relations, WorkbookProblem& problem) {
  return for_each_element(archive, name, problem, [&](const XmlReader& reader) {
    if (local_name(reader.name) != "Relationship" || relations.size() == most_relations) return;
    const std::string target = attribute_text(reader, "Target");
    relations.push_back(
        {attribute_text(reader, "Id"), attribute_text(reader, "Type"), resolved(std::string(folder), target)});
  });
}

const Relation* relation_of_type(const std::vector<Relation>& relations, std::string_view type) {
  const auto found = std::find_if(relations.begin(), relations.end(),
                                  [&](const Relation& relation) { return relation.type.ends_with(type); });
  return found == relations.end() ? nullptr : &*found;
}

/// The value of the first attribute of that name, whatever its prefix.
std::string any_attribute(const XmlReader& reader, std::string_view wanted) {
  std::string_view rest = reader.attributes, name, value;
  while (take_attribute(rest, name, value)) {
    if (name != wanted && local_name(name) == wanted && name.size() > wanted.size()) return std::string(value);
  }
  return {};
}

bool read_sheet_list(ZipArchive& archive, const std::string& book_part, OfficeOpenBook& book,
                     WorkbookProblem& problem) {
  std::vector<Relation> relations;
  const std::string folder = folder_of(book_part);
  if (!read_relations(archive, relations_of(book_part), folder, relations, problem)) return false;
  const Relation* const styles = relation_of_type(relations, "/styles");
  const Relation* const texts = relation_of_type(relations, "/sharedStrings");
  if (styles != nullptr) book.styles_part = styles->target;
  if (texts != nullptr) book.texts_part = texts->target;
  return for_each_element(archive, book_part, problem, [&](const XmlReader& reader) {
    const std::string_view name = local_name(reader.name);
    if (name == "workbookPr") {
      const std::string_view since_1904 = attribute_of(reader, "date1904");
      if (since_1904 == "1" || since_1904 == "true") book.dates = DateSystem::since_1904;
    }
    if (name != "sheet" || book.sheets.size() == most_sheets) return;
    const std::string id = any_attribute(reader, "id");
    const auto found = std::find_if(relations.begin(), relations.end(), [&](const Relation& r) { return r.id == id; });
    // Sheets of charts and dialogues have parts of other types.
    if (found == relations.end() || !found->type.ends_with("/worksheet")) return;
    const std::string_view state = attribute_of(reader, "state");
    book.sheets.push_back({attribute_text(reader, "name"), found->target, state == "hidden" || state == "veryHidden"});
  });
}

std::int32_t small_number(std::string_view text) {
  std::int32_t value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

bool read_styles(ZipArchive& archive, OfficeOpenBook& book, WorkbookProblem& problem) {
  if (find_part(archive, book.styles_part) == nullptr) return true;
  std::map<std::int32_t, CellFormat> own_formats;
  bool is_in_cells = false;
  return for_each_element(archive, book.styles_part, problem, [&](const XmlReader& reader) {
    const std::string_view name = local_name(reader.name);
    if (name == "numFmt") {
      own_formats[small_number(attribute_of(reader, "numFmtId"))] =
          format_of_code(attribute_text(reader, "formatCode"));
    }
    if (name == "cellXfs" || name == "cellStyleXfs" || name == "cellStyles" || name == "dxfs") {
      is_in_cells = name == "cellXfs";
    }
    if (name != "xf" || !is_in_cells) return;
    const std::int32_t number = small_number(attribute_of(reader, "numFmtId"));
    const auto own = own_formats.find(number);
    book.formats.push_back(own == own_formats.end() ? format_of_number(number) : own->second);
  });
}

/// A shared text is the text of its pieces; how eastern Asian words are pronounced is none of it.
bool read_texts(ZipArchive& archive, OfficeOpenBook& book, WorkbookProblem& problem) {
  const ZipPart* const part = find_part(archive, book.texts_part);
  if (part == nullptr) return true;
  XmlReader reader = read_xml(open_part(*part, archive));
  bool is_in_text = false;
  for (;;) {
    const XmlEvent event = next_event(reader);
    if (event == XmlEvent::done) return true;
    if (event == XmlEvent::broken) return refuse(reader.fault, book.texts_part, problem);
    const std::string_view name = local_name(reader.name);
    if (event == XmlEvent::text && is_in_text) append_text(book.texts.letters, reader);
    if (book.texts.letters.size() > most_sheet_text) {
      return refuse(WorkbookFault::too_much_text, book.texts_part, problem);
    }
    if (event == XmlEvent::start && name == "rPh" && !skip_element(reader)) {
      return refuse(reader.fault, book.texts_part, problem);
    }
    if (event == XmlEvent::start) is_in_text = name == "t";
    if (event == XmlEvent::end) {
      is_in_text = false;
      if (name == "si") book.texts.ends.push_back(book.texts.letters.size());
    }
  }
}

}  // namespace

bool is_office_open(const ZipArchive& archive) {
  return find_part(archive, "[Content_Types].xml") != nullptr && find_part(archive, first_relations) != nullptr;
}

bool open_office_open_book(ZipArchive& archive, OfficeOpenBook& book, WorkbookProblem& problem) {
  std::vector<Relation> relations;
  if (!read_relations(archive, first_relations, {}, relations, problem)) return false;
  const Relation* const document = relation_of_type(relations, "/officeDocument");
  if (document == nullptr) return refuse(WorkbookFault::no_workbook, first_relations, problem);
  if (document->target.ends_with(".bin")) return refuse(WorkbookFault::binary_workbook, document->target, problem);
  if (!read_sheet_list(archive, document->target, book, problem)) return false;
  if (book.sheets.empty()) return refuse(WorkbookFault::no_workbook, document->target, problem);
  return read_styles(archive, book, problem) && read_texts(archive, book, problem);
}

}  // namespace pedigreewatch
