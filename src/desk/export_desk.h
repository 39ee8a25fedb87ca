// The first two steps of the desk: what an export is, and what its user says of it.
#pragma once

#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// Reads the export of this name and says what it is. Everything of another export is forgotten. Yields an object, of
/// which `messages` says what stands in the way and is empty when nothing does:
/// messages, questions (text, setting, answers), evidence (label, text), encoding, delimiter, hasHeader, headings,
/// columns (a field's name or "" for each), fields, lines (the first records), animals, sexes, unknownParents,
/// subpopulations, colours, dates, species, ...
std::string open_export(Desk& desk, const std::string& name, std::string_view settings);

/// The same for the export at hand when its user says something else; only what depends on that is done again.
std::string change_settings(Desk& desk, std::string_view settings);

/// Applies the corrections of the desk to the export as it was. Yields what stands in the way.
std::vector<std::string> apply_desk_corrections(Desk& desk);

/// Writes the data file and the steer file. Yields an object: messages, steer, dataFile, steerFile.
std::string write_files_of_export(Desk& desk);

/// Takes a steer file and a data file as they are. Yields an object: messages, and what the steer file says.
std::string open_given_files(Desk& desk, const std::string& steer_file, const std::string& data_file,
                             const std::string& available_file = {});

}  // namespace pedigreewatch
