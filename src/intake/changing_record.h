// A line of an export on its way through a list of corrections: the operations that change one record, and note what
// becomes of each correction.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "corrections/correction_list.h"
#include "intake/column_choice.h"
#include "intake/corrected_text.h"
#include "intake/export_records.h"

namespace pedigreewatch {

/// The corrections of an animal, and who has taken the place of another, by identification.
using PlacesOfId = std::unordered_map<std::string, std::vector<std::size_t>>;

/// Where one animal that is given up for another leads.
struct Lead {
  bool is_known = false, is_on_path = false;
  std::optional<std::string> to;  ///< the identification of the animal that stays; nothing when there is none
};

/// An animal that has the identification which a correction would give to another one.
struct IdHolder {
  std::int64_t line = 0;  ///< of the export, counted from 1
  std::string name;       ///< empty where the export has none
};

struct Corrector {
  std::span<const Correction> corrections;
  const ColumnChoice& columns;
  PlacesOfId of_id;
  std::unordered_map<std::string, std::size_t> same_as;  ///< by the identification that is given up
  std::vector<CorrectionOutcome> outcomes;
  const LineAnimal* animal = nullptr;  ///< of a line with several, the one at hand
  std::vector<Lead> leads = {};        ///< by correction; empty while only the other corrections are made
  /// By correction of an identification: who has the new one already when its turn comes.
  std::unordered_map<std::size_t, IdHolder> holders = {};
};

/// A record on its way: its fields, and whether they are still those of the export.
struct ChangingRecord {
  std::vector<std::string> fields;
  std::int64_t line = 0;
  bool is_changed = false, is_left_out = false;
  std::vector<std::size_t> applied = {};  ///< corrections of values
};

/// The corrections by identification; nothing has become of any yet.
Corrector make_corrector(std::span<const Correction> corrections, const ColumnChoice& columns);

/// The column of a field, for the animal at hand.
std::optional<std::size_t> place_of(const Corrector& corrector, FieldCode field);

/// The text in a column, trimmed; empty where the line is too short.
std::string text_at(const ChangingRecord& record, std::size_t place);

/// The identification of the animal at hand, as it is now.
std::string id_of(const Corrector& corrector, const ChangingRecord& record);

/// Puts a text into a column. Line ends inside the old text stay behind the new one: lines behind it keep their
/// numbers.
void set_field(ChangingRecord& record, std::size_t place, const std::string& text);

/// Keeps what became of a correction. Of several lines one that it applies to counts before all others.
void note(CorrectionOutcome& outcome, CorrectionFate fate, std::int64_t line, std::string now);

/// The fields as a correction keeps a whole line.
std::string joined_fields(const std::vector<std::string>& fields);

/// Makes correction `k` of a value, or leaves the animal at hand out, where that fits; and notes what became of it. An
/// identification that another animal has is not given.
void apply_value(Corrector& corrector, std::size_t k, ChangingRecord& record);
void leave_out(Corrector& corrector, std::size_t k, ChangingRecord& record);

}  // namespace pedigreewatch
