// How parents were used, year by year of their lives, and how somebody goes on who has been used so and so: like one of
// those observed who had come to the same age, had stood still as long and had been used about as much (a nearest
// neighbours' hot deck). Age, length of use and popularity for life thereby belong together as they did in the data.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "forecast/families.h"
#include "forecast/random_stream.h"

namespace pedigreewatch {

/// One parent's use. Use is the number of families of a year; of sires as a multiple of the geometric mean of the sires
/// of their subpopulation that were used in that year.
struct Career {
  std::int32_t parent = 0;      ///< position
  std::int32_t first_year = 0;  ///< of use
  std::int32_t first_age = 0;   ///< years; the mean of the others where the birth year is unknown
  GroupNo group = 0;
  Descent descent = Descent::known;
  std::vector<float> use;     ///< by year from the first to the last one in which there was any
  std::int32_t families = 0;  ///< in all of these years

  std::int32_t last_year() const { return first_year + static_cast<std::int32_t>(use.size()) - 1; }
  float use_in(std::int32_t year) const {
    return year < first_year || year > last_year() ? 0.0F : use[static_cast<std::size_t>(year - first_year)];
  }
};

/// A parent who has had no families for more years than these does not come back.
inline constexpr std::int32_t longest_pause = 3;

/// Where somebody stands in a career: behind so many of its years.
struct CareerPoint {
  std::int32_t career = 0, year = 0;  ///< the career's number, and the calendar year that was the last one
};

/// By what those who go on alike are found.
struct CareerState {
  std::int32_t age = 0, pause = 0;  ///< years old in the year that ends, and years without a family up to its end
  double mean_use = 0.0;            ///< a year since the first one
};

/// The careers of one sex, with their points in the order in which they are looked for.
struct CareerRecords {
  std::vector<Career> careers;
  std::int32_t last_year = 0;
  std::int32_t oldest = 0;  ///< age at any use

  struct Donor {
    CareerPoint point;
    float mean_use = 0.0F;
  };
  std::vector<Donor> donors;       ///< points with a known following year, by age and pause, then by mean use
  std::vector<std::size_t> begin;  ///< by age and pause

  const Career& at(std::int32_t number) const { return careers[static_cast<std::size_t>(number)]; }
};

/// The careers of all parents of one sex with any use from `first_year` on. Donors are points of those years.
CareerRecords list_careers(const FamilyRecords& records, Sex sex, std::int32_t first_year);

/// A point from which somebody in this state goes on, its next year being known; none when nobody was ever in a state
/// like it.
std::optional<CareerPoint> find_donor(const CareerRecords& records, const CareerState& state, RandomStream& random);

}  // namespace pedigreewatch
