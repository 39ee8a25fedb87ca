#include "support/prepared_run.h"

#include <gtest/gtest.h>

#include <utility>

namespace pedigreewatch::test {

ProgramStart prepare_with(std::vector<std::string> options, const std::string& export_name) {
  options.insert(options.begin(), "prepare");
  options.push_back(export_name);
  return tools_with(std::move(options));
}

WholeRun run_prepared(const std::string& export_name, const std::string& bytes,
                      const std::vector<std::string>& options) {
  const RunFolder folder(Files{{export_name, bytes}});
  WholeRun prepared = run_program_in(folder, prepare_with(options, export_name));
  if (prepared.exit_status != 0) return prepared;
  EXPECT_EQ(prepared.messages, "");
  return run_program_in(folder);
}

}  // namespace pedigreewatch::test
