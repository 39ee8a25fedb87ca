// Everything that is said of an export and of what is made of it, with the counts that speak for it, as values.
#pragma once

#include <cstdint>
#include <vector>

#include "intake/export_preparation.h"
#include "intake/remark.h"

namespace pedigreewatch {

/// All remarks in the order in which they are shown: the file and its columns, the contents, what is changed.
std::vector<Remark> remarks_on(const Preparation& read, const PrepareOptions& options);

/// The three parts; each adds its remarks to the list.
void add_reading_remarks(const Preparation& read, const PrepareOptions& options, std::vector<Remark>& remarks);
void add_content_remarks(const Preparation& read, std::vector<Remark>& remarks);
void add_repair_remarks(const Preparation& read, const PrepareOptions& options, std::vector<Remark>& remarks);

/// Adds a remark on texts with their lines, or with a count, if there are any.
void remark_noted(RemarkKind kind, const NotedTexts& noted, std::vector<Remark>& remarks);
void remark_count(RemarkKind kind, std::int64_t count, std::vector<Remark>& remarks);

/// Whether the field has a column.
bool is_in_use(const PreparePlan& plan, FieldCode code);

}  // namespace pedigreewatch
