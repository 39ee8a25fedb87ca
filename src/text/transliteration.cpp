// Tables of what stands for a letter, one text for each block of letters: its words are those of the letters in their
// order, with "?" where there is none. Cyrillic is written as English atlases do, Greek likewise.

#include "text/transliteration.h"

#include <algorithm>
#include <array>

namespace pedigreewatch {
namespace {

struct LetterBlock {
  char32_t first, last;
  std::string_view words;
};

constexpr std::array<LetterBlock, 9> blocks = {{
    {0xC0, 0xFF,
     "A A A A A A AE C E E E E I I I I D N O O O O O ? O U U U U Y TH ss a a a a a a ae c e e e e i i i i d n o o o o "
     "o ? o u u u u y th y"},
    {0x100, 0x17F,
     "A a A a A a C c C c C c C c D d D d E e E e E e E e E e G g G g G g G g H h H h I i I i I i I i I i IJ "
     "ij J j K k k L l L l L l L l L l N n N n N n n N n O o O o O o OE oe R r R r R r S s S s S s S s T t T "
     "t T t U u U u U u U u U u U u W w Y y Y Z z Z z Z z s"},
    {0x1CD, 0x233,
     "A a I i O o U u U u U u U u U u e A a A a ? ? ? ? G g K k O o O o ? ? j DZ Dz dz G g ? ? N n A a ? ? ? ? "
     "A a A a E e E e I i I i O o O o R r R r U u U u S s T t ? ? H h ? ? ? ? ? ? A a E e O o O o O o O o Y y"},
    {0x386, 0x3CE,
     "A ? E I I ? O ? Y O i A V G D E Z I Th I K L M N X O P R ? S T Y F Ch Ps O I Y a e i i y a v g d e z i th i k l "
     "m n x o p r s s t y f ch ps o i y o y o"},
    {0x400, 0x45F,
     "E E Dj G Ye Dz I Yi J Lj Nj C K I U Dz A B V G D E Zh Z I Y K L M N O P R S T U F Kh Ts Ch Sh Shch ? Y ? E Yu Ya "
     "a b v g d e zh z i y k l m n o p r s t u f kh ts ch sh shch ? y ? e yu ya e e dj g ye dz i yi j lj nj c k i u "
     "dz"},
    {0x490, 0x491, "G g"},
    {0x1E00, 0x1E9F,
     "A a B b B b B b C c D d D d D d D d D d E e E e E e E e E e F f G g H h H h H h H h H h I i I i K k K k "
     "K k L l L l L l L l M m M m M m N n N n N n N n O o O o O o O o P p P p R r R r R r R r S s S s S s S s "
     "S s T t T t T t T t U u U u U u U u U u V v V v W w W w W w W w W w X x X x Y y Z z Z z Z z h t w y ? s "
     "? ? SS ?"},
    {0x1EA0, 0x1EF9,
     "A a A a A a A a A a A a A a A a A a A a A a A a E e E e E e E e E e E e E e E e I i I i O o O o "
     "O o O o O o O o O o O o O o O o O o O o U u U u U u U u U u U u U u Y y Y y Y y Y y"},
    {0x2010, 0x2015, "- - - - - -"},
}};

struct SingleLetter {
  char32_t letter;
  std::string_view word;
};

// The letters that stand alone in their block.
constexpr std::array<SingleLetter, 19> single_letters = {{
    {0x152, "OE"},  {0x153, "oe"},  {0x160, "S"},  {0x161, "s"},  {0x178, "Y"},  {0x17D, "Z"}, {0x17E, "z"},
    {0x18F, "E"},   {0x192, "f"},   {0x259, "e"},  {0x2B9, "'"},  {0x2BB, "'"},  {0x2BC, "'"}, {0x2032, "'"},
    {0x2033, "\""}, {0x2116, "No"}, {0x2212, "-"}, {0x2715, "x"}, {0x00D7, "x"},
}};

/// The word of a text of words divided by single blanks, counted from 0.
std::string_view word_at(std::string_view words, std::size_t place) {
  for (; place > 0; --place) words.remove_prefix(std::min(words.find(' '), words.size() - 1) + 1);
  return words.substr(0, words.find(' '));
}

struct Composition {
  char32_t accent;
  std::string_view plain;
  std::u32string_view letters;
};

constexpr std::array<Composition, 8> compositions = {{
    {0x300, "AEIOUaeiou", U"\u00C0\u00C8\u00CC\u00D2\u00D9\u00E0\u00E8\u00EC\u00F2\u00F9"},
    {0x301, "AEIOUYaeiouy", U"\u00C1\u00C9\u00CD\u00D3\u00DA\u00DD\u00E1\u00E9\u00ED\u00F3\u00FA\u00FD"},
    {0x302, "AEIOUaeiou", U"\u00C2\u00CA\u00CE\u00D4\u00DB\u00E2\u00EA\u00EE\u00F4\u00FB"},
    {0x303, "ANOano", U"\u00C3\u00D1\u00D5\u00E3\u00F1\u00F5"},
    {0x308, "AEIOUYaeiouy", U"\u00C4\u00CB\u00CF\u00D6\u00DC\u0178\u00E4\u00EB\u00EF\u00F6\u00FC\u00FF"},
    {0x30A, "Aa", U"\u00C5\u00E5"},
    {0x30C, "SZsz", U"\u0160\u017D\u0161\u017E"},
    {0x327, "Cc", U"\u00C7\u00E7"},
}};

}  // namespace

std::string_view transliterated(char32_t letter) {
  for (const SingleLetter& single : single_letters) {
    if (single.letter == letter) return single.word;
  }
  for (const LetterBlock& block : blocks) {
    if (letter < block.first || letter > block.last) continue;
    const std::string_view word = word_at(block.words, letter - block.first);
    return word == "?" ? std::string_view() : word;
  }
  return {};
}

char32_t composed(char32_t letter, char32_t accent) {
  if (letter > 0x7F) return 0;
  for (const Composition& composition : compositions) {
    if (composition.accent != accent) continue;
    const std::size_t place = composition.plain.find(static_cast<char>(letter));
    if (place != std::string_view::npos) return composition.letters[place];
  }
  return 0;
}

std::string_view plain_sign(char32_t letter) {
  switch (letter) {
    case 0xB4:   // acute accent
    case 0x2B9:  // modifier letters
    case 0x2BB:
    case 0x2BC:
    case 0x2018:  // quotation marks
    case 0x2019:
    case 0x201A:
    case 0x201B:
    case 0x2032:  // prime
    case 0x2039:
    case 0x203A: return "'";
    case 0xAB:
    case 0xBB:
    case 0x201C:
    case 0x201D:
    case 0x201E:
    case 0x201F:
    case 0x2033: return "\"";
    case 0xAD:  // soft hyphen
    case 0x2010:
    case 0x2011:
    case 0x2012:
    case 0x2013:
    case 0x2014:
    case 0x2015:
    case 0x2212:  // minus
    case 0xFF0D: return "-";
    case 0xA0:
    case 0x2007:
    case 0x2009:
    case 0x202F: return " ";
    default: return {};
  }
}

}  // namespace pedigreewatch
