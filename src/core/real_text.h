// Reals as the shortest decimal texts from which the same reals are read back: with a decimal point whatever the locale
// is, and the same bytes on every machine.
#pragma once

#include <string>

namespace pedigreewatch {

/// Adds the shortest text that reads back as `value`: "0.25", "16777216", "1e-10". Small and large values have an
/// exponent of at least two digits. Values that are not finite must not be given.
void append_shortest(std::string& text, float value);
void append_shortest(std::string& text, double value);

/// The same digits found with the functions of C alone, one number of digits after the other. For platforms whose
/// library has no conversion of its own, and for tests; slow.
void append_shortest_slowly(std::string& text, float value);
void append_shortest_slowly(std::string& text, double value);

}  // namespace pedigreewatch
