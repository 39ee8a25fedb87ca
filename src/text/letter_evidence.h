// Which encoding of one byte a letter a text is in, by the words that its letters beyond ASCII make: letters as the
// languages of Europe use them, small within small words, vowels between consonants.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "text/letter_tables.h"

namespace pedigreewatch {

/// One reading of a text.
struct EncodingReading {
  ByteEncoding encoding = ByteEncoding::windows_1252;
  double score = 0;                   ///< the logarithm of how likely its words are, and of how usual the encoding is
  std::vector<std::string> examples;  ///< in UTF-8: words that the readings tell differently, at most two
};

struct LetterEvidence {
  std::vector<EncodingReading> readings;  ///< the best first. One: it is decided; several: all of them may be right
  std::size_t word_count = 0;             ///< different words with letters beyond ASCII that were looked at
};

/// How much likelier (as a natural logarithm) the best reading must be than the next one to be taken without a
/// question: fifty times.
inline constexpr double least_encoding_margin = 4.0;
/// The same where a single word is all that there is, and nobody knows it: two hundred and fifty times.
inline constexpr double least_margin_of_lone_word = 5.5;

/// The bytes must not be UTF-8 or UTF-16. Encodings that read every word alike count as one, which is the most usual of
/// them; without any letter beyond ASCII that is Windows-1252. Of a long text the first words decide.
LetterEvidence recognise_letters(std::string_view bytes);

/// The word in UTF-8.
std::string decoded_word(std::string_view word, ByteEncoding encoding);

}  // namespace pedigreewatch
