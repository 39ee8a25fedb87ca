// The cases of whole runs: what a case's folder holds besides the inputs of its run.
//   about                 why the case exists; always there
//   arguments             what the program is started with, one argument on a line
//   stdin                 what is typed on the keyboard
//   expected.console      what is printed
//   expected.report       of pedigreewatch: the one file that is written; without it, none may be
//   expected.file.NAME    of pedigreewatch-tools: each file that is written
//   expected.status       without it, 0
//   expected.messages     without it, none
// Every other file is an input. docs/testing.md tells how a case is renewed.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "support/files.h"

namespace pedigreewatch::test {

struct CaseFolder {
  std::string about;
  Files inputs;
  std::vector<std::string> arguments;
  std::string keyboard;
  std::optional<std::string> console, report;
  Files written;
  int exit_status = 0;
  std::string messages;
};

/// The names of the folders in `folder`, in order.
std::vector<std::string> case_names(const std::filesystem::path& folder);

/// The case that stands in this folder; the test fails when there is an expectation of another name.
CaseFolder read_case(const std::filesystem::path& folder);

}  // namespace pedigreewatch::test
