// Births of one dam: the bounds between one litter, two litters that are too close, and two that are believed. Sheep
// lamb 130 days apart or more and have five lambs at most.
#include "checks/litter_checks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/check_runs.h"

namespace pedigreewatch::test {
namespace {

const std::string head = "id;sex;birthdate;sire;dam\nd;f;01-01-1998;;\n";

/// A young of the first of March 2001 and one of another day, of one dam.
CheckResult two_births(const std::string& later, const std::string& species = "sheep") {
  SteerLines steer = sheep_steer();
  steer.species = species;
  return checked(head + "a;m;01-03-2001;;d\nb;m;" + later + ";;d\n", check_settings(steer));
}

TEST(CheckLitters, BirthsOfAWeekAreOneLitter) {
  const CheckResult week = two_births("08-03-2001"), more = two_births("09-03-2001");
  EXPECT_EQ(count_of(week, FindingCode::litter_dates), 1);
  EXPECT_EQ(count_of(week, FindingCode::births_too_close), 0);
  EXPECT_EQ(count_of(more, FindingCode::litter_dates), 0);
  EXPECT_EQ(count_of(more, FindingCode::births_too_close), 1);
}

TEST(CheckLitters, BirthsAreTooCloseBelowTheLimit) {
  // The 130th day behind the first of March is the 9th of July.
  EXPECT_EQ(count_of(two_births("08-07-2001"), FindingCode::births_too_close), 1);
  EXPECT_EQ(count_of(two_births("09-07-2001"), FindingCode::births_too_close), 0);
  EXPECT_EQ(count_of(two_births("09-07-2001"), FindingCode::births_close), 0);
}

TEST(CheckLitters, BirthsAreWorthALookBelowTheSecondLimit) {
  // Cattle, 210 and 273 days: the 27th of September and the 29th of November.
  EXPECT_EQ(count_of(two_births("26-09-2001", "cattle"), FindingCode::births_too_close), 1);
  EXPECT_EQ(count_of(two_births("27-09-2001", "cattle"), FindingCode::births_too_close), 0);
  EXPECT_EQ(count_of(two_births("27-09-2001", "cattle"), FindingCode::births_close), 1);
  EXPECT_EQ(count_of(two_births("28-11-2001", "cattle"), FindingCode::births_close), 1);
  EXPECT_EQ(count_of(two_births("29-11-2001", "cattle"), FindingCode::births_close), 0);
}

CheckResult litter_of(int young, const std::string& limits = {}) {
  std::string data = head;
  for (int k = 0; k < young; ++k) data += "y" + std::to_string(k) + ";m;01-03-2001;;d\n";
  CheckSettings settings = check_settings(sheep_steer());
  EXPECT_EQ(read_limits(limits, "limits.txt", settings.limits), "");
  return checked(data, settings);
}

TEST(CheckLitters, ALitterIsLargeAboveTheLimit) {
  EXPECT_EQ(count_of(litter_of(5), FindingCode::litter_size), 0);
  EXPECT_EQ(count_of(litter_of(6), FindingCode::litter_size), 1);
}

TEST(CheckLitters, NoLitterIsTooLargeWithALimitOfNothing) {
  EXPECT_EQ(count_of(litter_of(30, "largest_litter = 0"), FindingCode::litter_size), 0);
  EXPECT_EQ(count_of(litter_of(2, "largest_litter = 1"), FindingCode::litter_size), 1);
}

}  // namespace
}  // namespace pedigreewatch::test
