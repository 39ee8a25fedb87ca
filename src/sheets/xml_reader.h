// XML as the parts of workbooks hold it, read in one pass: tags and the texts between them, within bounds. UTF-8 only,
// and no definitions of its own (DOCTYPE), which no workbook has and with which a small file could grow without end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sheets/workbook_problem.h"
#include "sheets/zip_archive.h"

namespace pedigreewatch {

enum class XmlEvent { start, end, text, done, broken };

struct XmlReader {
  PartReader part;
  std::vector<char> buffer;
  std::size_t first = 0, last = 0;  ///< what is read and not yet looked at
  bool has_ended = false;           ///< the part has no more bytes
  bool ends_itself = false;         ///< the tag at hand has no content: its end comes next
  bool has_begun = false, has_root = false;
  std::string open_names;            ///< of the elements that are open, one behind the other
  std::vector<std::size_t> open_at;  ///< where each of them begins
  WorkbookFault fault = WorkbookFault::none;

  std::string_view name;        ///< of the element that starts or ends; valid until the next event
  std::string_view attributes;  ///< of the element that starts, as they are written
  std::string_view text;        ///< as it is written: `append_text` makes letters of it
  bool is_literal = false;      ///< the text has no references (CDATA)
};

XmlReader read_xml(PartReader part);

/// The next tag or text. `broken` stays, with the fault; so does `done`. Every start has an end of the same name.
XmlEvent next_event(XmlReader& reader);

/// Reads to the end of the element that has just started. False when the part is broken.
bool skip_element(XmlReader& reader);

/// The name without its prefix: "row" of "x:row".
std::string_view local_name(std::string_view name);

/// Takes the next attribute off the start of `attributes`; false at their end, or where they are none.
bool take_attribute(std::string_view& attributes, std::string_view& name, std::string_view& value);

/// The attribute of that name, as it is written; empty when it is not there.
std::string_view attribute_of(const XmlReader& reader, std::string_view name);

/// The same with its references replaced.
std::string attribute_text(const XmlReader& reader, std::string_view name);

/// Adds `raw` with its references (&amp; &#235;) replaced. What is no reference stays as it is; a letter that no text
/// has (a control character) becomes a blank.
void append_text(std::string& text, std::string_view raw);

/// The text of the event at hand.
void append_text(std::string& text, const XmlReader& reader);

}  // namespace pedigreewatch
