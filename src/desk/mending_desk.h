// Mending in the desk: the list of corrections, what became of them, and new ones. The list is a text that the page
// keeps, so that it can undo and save; nothing changes in the export.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Takes the whole list of corrections and applies it to the export; what came of one that is applied already is kept.
/// Yields an object: messages (what stands in the way), faults (of the lines that cannot be read), list (the lines that
/// can be read; empty without any), sentence (what became of them), rows (id, field, was, becomes, why,
/// when, fate, said; where they are numbers of days also wasDay and becomesDay, what people would write).
std::string set_corrections(Desk& desk, std::string_view list);

/// A correction of an animal in a line of the export; of what several on the line share it becomes one for each of
/// them. `field` is a field's name in a list of corrections, "leave out" or "same as"; or "exchange parents", by which
/// father and mother change places.
struct NewCorrection {
  std::int64_t line = 0;  ///< of the export, counted from 1
  std::string_view field, becomes;
  bool is_everywhere = false;  ///< for every animal with the same text in that field
  std::size_t animal = 0;      ///< of several on the line, counted from 0
};
/// The list at hand with corrections added; nothing is applied. Yields an object: list (the text), refused (why nothing
/// was added: another animal has the identification, the line has none, or the date may be two days; else empty),
/// count. A date becomes what the column would have: 43538 for 14-03-2019 among numbers of days.
std::string propose_correction(const Desk& desk, const NewCorrection& wanted);

/// The dates of birth, or the parents, that findings of a kind accuse become unknown: of the parents only the one that
/// is accused. `what` is "dates" or "parents"; an empty `kind` means all that stop the run.
std::string propose_going_on(const Desk& desk, std::string_view kind, std::string_view what);

/// The lines of the export that a chosen finding is about. Yields an object: headings, fields (of each column its name
/// in a list of corrections, or empty), column (the one that is meant, counted from 0, or -1), cell (its text),
/// proposal (another text for it, or empty), number (animals whose text there is accused with it), mayBeOne (the two
/// lines may be of one animal), exchange (father and mother of the first row seem exchanged), rows (line, day: what
/// people would write where its date of birth is the number of a day, animal: its number on that line, cells; that of
/// the cell that is meant first). Where the finding cannot tell which cell is wrong, none is meant. Of a line with
/// several animals each has a row, without the columns of the others.
std::string finding_lines(const Desk& desk, std::size_t place);

}  // namespace pedigreewatch
