// The data file and the steer file that are made of an export.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "intake/export_survey.h"
#include "intake/prepare_plan.h"

namespace pedigreewatch {

/// Adds the line of the headings, if there is one.
void append_header(std::string& bytes, const PreparePlan& plan);

/// The texts of an animal that could not be taken over.
struct LostTexts {
  bool sex = false, date = false;
};

/// Adds the line of an animal, with its line feed.
LostTexts append_animal(std::string& bytes, const ExportRecord& record, const PreparePlan& plan,
                        const TextCounts& sexes);

/// The lines of the steer file.
std::string steer_text(const PreparePlan& plan);

/// A piece of the data file; false when it could not be taken, and no more is wanted.
using TakePiece = bool (*)(void* receiver, std::string_view bytes);

/// Where a data file goes.
struct DataFileTarget {
  TakePiece take = nullptr;
  void* receiver = nullptr;
  ExportLines* lines = nullptr;       ///< gets what the data file does not tell of the export, unless it is null
  AvailableIds* available = nullptr;  ///< gets the ids of the animals that are there, unless it is null
};

/// Makes the whole data file in pieces of about a megabyte, each handed to the target. Yields whether all were taken.
bool make_data_file(std::string_view text, char delimiter, const PreparePlan& plan, const TextCounts& sexes,
                    const DataFileTarget& target);

}  // namespace pedigreewatch
