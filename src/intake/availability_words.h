// What offices write of animals that can be bred from no more, and of those that can: dead, sold, exported, castrated;
// alive, breeding. The words of English, Dutch, German, French, Spanish and Italian offices.
#pragma once

#include <cstdint>
#include <string_view>

namespace pedigreewatch {

/// What the heading of a column says of it.
enum class AvailabilityHeading : std::uint8_t {
  none,     ///< something else, or nothing that is known
  gone,     ///< what stands in it says that the animal has gone: "Date of death", "Verkocht"
  here,     ///< that it is there: "Alive", "Fokdier"
  status,   ///< one or the other
  reason,   ///< why it has gone: any text says that it has
  remarks,  ///< anything
};

/// Reads a heading about the animal itself.
AvailabilityHeading read_availability_heading(std::string_view heading);

/// What a text says.
enum class AvailabilityText : std::uint8_t {
  nothing,  ///< an empty field, or a word for unknown
  gone,     ///< words alone that say so, with a date or behind them to whom, where, of what: "sold to Smith"
  here,
  yes,    ///< to what the heading says
  no,     ///< likewise
  date,   ///< a day that has been
  mixed,  ///< holds a word that is known among others: "her dam died"
  other,
};

/// Reads a text. A date behind `this_year` is no day that has been; 0: the year is not known.
AvailabilityText read_availability(std::string_view text, std::int32_t this_year);

}  // namespace pedigreewatch
