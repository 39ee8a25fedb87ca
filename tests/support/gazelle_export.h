// What a zoo's office exports of 1316 gazelles: 40 columns in UTF-8 with a byte order mark, quoted names with commas,
// ISO dates, NA for unknown parents; sound, or with faults of which each place is known.
#pragma once

#include <string>
#include <vector>

namespace pedigreewatch::test {

struct PlantedFault {
  std::string what, code;  ///< the kind of finding that names it
  int line = 0;            ///< of the export, where it is found
  std::string text;        ///< a piece of what is said of it
};

struct GazelleExport {
  std::string bytes;
  std::vector<PlantedFault> faults;
};

inline constexpr int gazelle_count = 1316;

GazelleExport make_gazelle_export(bool has_faults);

}  // namespace pedigreewatch::test
