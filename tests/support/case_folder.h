// The cases of whole runs: what a case's folder holds besides the inputs of its run.
//   about               why the case exists; always there
//   stdin               what is typed on the keyboard
//   expected.console    always there
//   expected.report     without it, no file may be written
//   expected.status     without it, 0
//   expected.messages   without it, none
// Every other file is an input. docs/testing.md tells how a case is renewed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/files.h"

namespace pedigreewatch::test {

struct CaseFolder {
  std::string about;
  Files inputs;
  std::string keyboard;
  std::optional<std::string> console, report;
  int exit_status = 0;
  std::string messages;
};

/// The names of the folders of tests/golden, in order.
std::vector<std::string> case_names();

/// The case of this name; the test fails when an expectation of another name stands there.
CaseFolder read_case(const std::string& name);

}  // namespace pedigreewatch::test
