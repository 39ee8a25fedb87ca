// The card of an animal in the desk.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "desk/desk.h"

namespace pedigreewatch {

/// The card of the animal at `position`, in the language of the desk, every other animal on it to be pressed. Yields an
/// object: position, id, name, html; without any of them for a position that no animal has.
std::string animal_card(Desk& desk, std::int32_t position);

/// The last card as a page of its own; empty without one.
std::string animal_page(const Desk& desk);

/// The animal with this identification, as a page or a table shows it. Yields an object: position, 0 for none.
std::string position_of_id(const Desk& desk, std::string_view id);

}  // namespace pedigreewatch
