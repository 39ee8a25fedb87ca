// Runs on an export: prepared by pedigreewatch-tools first.
#pragma once

#include <string>
#include <vector>

#include "support/program_run.h"

namespace pedigreewatch::test {

/// Runs `prepare` with these options on an export, and the program on what comes out. Yields the run of the program, or
/// of `prepare` when that refuses; when it does not, it must have no messages.
WholeRun run_prepared(const std::string& export_name, const std::string& bytes,
                      const std::vector<std::string>& options);

/// The start of `prepare` with these options on an export.
ProgramStart prepare_with(std::vector<std::string> options, const std::string& export_name);

}  // namespace pedigreewatch::test
