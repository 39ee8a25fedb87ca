// The records of an export below its header, and which of them are animals. Others are blank lines, headers that come
// again, totals and remarks.
#pragma once

#include <string_view>

#include "intake/column_choice.h"
#include "intake/export_records.h"

namespace pedigreewatch {

enum class RecordKind { animal, blank, header_again, remark };

/// A reader that stands behind the header, or before the first animal where there is none.
RecordReader read_animals(std::string_view text, char delimiter, const ColumnChoice& columns);

/// What a record is. A header comes again in its own words or in others. A remark is a further line of headings, or it
/// has no sex, no date, no parents, and where an id should stand nothing, or a text that is written like no id; or it
/// is a lone number that is no id, or a total with a count.
RecordKind kind_of_record(const ExportRecord& record, const ColumnChoice& columns);

/// The next record that is an animal; false at the end.
bool next_animal(RecordReader& reader, ExportRecord& record, const ColumnChoice& columns);

/// How the ids of the first animals are written.
TextStyle find_id_style(std::string_view text, char delimiter, const ColumnChoice& columns);

/// The last line of the export, where it holds nothing but the number of the animals above it, in the place of an id;
/// else 0.
std::int64_t find_count_line(std::string_view text, char delimiter, const ColumnChoice& columns);

/// The field of a record; empty where the record is too short or the field has no column.
std::string_view field_of(const ExportRecord& record, const ColumnChoice& columns, FieldCode code);

}  // namespace pedigreewatch
