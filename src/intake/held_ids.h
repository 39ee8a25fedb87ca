// New identifications that other animals have already: two animals would become one in silence.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "intake/changing_record.h"

namespace pedigreewatch {

/// By correction of an identification: the first animal that has the new one when the turn of the correction comes,
/// once those before it in the list are made. One that is given up for another animal still counts.
std::unordered_map<std::size_t, IdHolder> find_id_holders(Corrector corrector, std::string_view text, char delimiter);

}  // namespace pedigreewatch
