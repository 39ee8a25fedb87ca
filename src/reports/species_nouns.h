// The words by which a report names its animals.
#pragma once

#include "core/fixed_text.h"

namespace pedigreewatch {

using SpeciesWord = FixedText<8>;

/// The six words of the run's species, eight characters each.
struct SpeciesNouns {
  SpeciesWord male, female, young;
  SpeciesWord males, females, youngs;  ///< the plurals
};

}  // namespace pedigreewatch
