// The finding comes with the refusal of the run, and not before it.
#include "checks/size_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"
#include "support/lines.h"
#include "support/program_run.h"
#include "support/sanitizers.h"
#include "support/steer_lines.h"

namespace pedigreewatch::test {
namespace {

struct Herds {
  int names = 2, used = 2;
  std::string last_year = "2004";
};

/// Ten animals a year from 2000 on with parents of the years before, of the first `used` herds in turn.
std::string data_of(const Herds& herds) {
  std::string data = "id;sex;birthdate;sire;dam;subpopulation\n";
  for (int n = 0; n < 40; ++n) {
    const std::string parents =
        n < 20 ? ";;" : ";a" + std::to_string(n - 10 - n % 2) + ";a" + std::to_string(n - 19 + n % 2);
    data += "a" + std::to_string(n) + (n % 2 == 0 ? ";m;" : ";f;") + "01-01-" + std::to_string(2000 + n / 10) +
            parents + ";herd" + std::to_string(n % herds.used + 1) + "\n";
  }
  return data + "z;m;01-01-" + herds.last_year + ";;;herd1\n";
}

SteerLines steer_of(const Herds& herds) {
  SteerLines steer = sheep_steer();
  steer.subpopulations = std::to_string(herds.names);
  for (int k = 1; k <= herds.names; ++k) steer.subpopulations += "\nherd" + std::to_string(k);
  return steer;
}

/// Whether the check has the finding; the run refuses the same data.
bool is_found(const Herds& herds) {
  const bool found = count_of(checked(data_of(herds), check_settings(steer_of(herds))), FindingCode::report_size) > 0;
  const WholeRun run = run_program_on(files_of(data_of(herds), steer_of(herds)));
  EXPECT_EQ(found, has(run.messages, "the report would have ")) << herds.names << ": " << run.messages;
  return found;
}

TEST(CheckReportSize, FindsLinesThatAreTooLong) {
  EXPECT_FALSE(is_found({447, 3}));
  EXPECT_TRUE(is_found({448, 3}));
}

TEST(CheckReportSize, FindsTooManyBytesOfPairsInAllYears) {
  // 150 names make 11,175 pairs of ten bytes in 8,000 and in 9,999 years.
  if (!has_address_sanitizer) {  // its report has 900 MB, and is written
    EXPECT_FALSE(is_found({150, 1, "9000"}));
  }
  EXPECT_TRUE(is_found({150, 1, "11998"}));
}

TEST(CheckReportSize, TakesTheAgesOfEachSubpopulationByItself) {
  // One father of 9,000 years is 72 kB in each row of his young's block, not of the others.
  std::string data = data_of({20, 20, "2004"}) + "y;m;01-01-4003;a0;;herd1\n";
  const auto found = [&](int names) {
    const SteerLines steer = steer_of({names, names});
    const bool is_too_large = count_of(checked(data, check_settings(steer)), FindingCode::report_size) > 0;
    const WholeRun run = run_program_on(files_of(data, steer));
    EXPECT_EQ(is_too_large, has(run.messages, "the report would have ")) << run.messages;
    return is_too_large;
  };
  EXPECT_FALSE(found(20)) << "two blocks of 32 MB with 2,003 columns of ages";
}

}  // namespace
}  // namespace pedigreewatch::test
