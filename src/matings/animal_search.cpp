// Texts are compared in the order of the data file, in which they lie in memory; a byte for each record says how well
// it fits. One pass through the animals gathers those that do.

#include "matings/animal_search.h"

#include <algorithm>
#include <string>
#include <tuple>

#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "pedigree/known_sexes.h"
#include "text/search_text.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

/// How a record fits; smaller is better.
enum Fit : std::uint8_t { is_exact = 1, begins_so = 2, is_part = 3, fits_not = 4 };

/// As words are looked for in it.
void fold_into(std::string& folded, std::string_view text) {
  if (is_ascii(text)) return fold_for_search(folded, text);
  fold_for_search(folded, readable(text));
}

std::vector<std::string> words_of_search(std::string_view text) {
  std::string folded;
  fold_into(folded, text);
  std::vector<std::string> words(1);
  for (const char letter : folded) {
    if (letter != ' ' && letter != '\t') {
      words.back() += letter;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

bool is_of_word(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') ||
         static_cast<unsigned char>(letter) >= 0x80;
}

/// How one word stands in a text: at the beginning of one of its words, elsewhere, or not at all.
Fit fit_in(std::string_view text, std::string_view word) {
  Fit fit = fits_not;
  for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
    if (at == 0 || !is_of_word(text[at - 1])) return begins_so;
    fit = is_part;
  }
  return fit;
}

/// Texts of a record, folded.
struct RecordTexts {
  std::string id, name;
};

Fit fit_of(const RecordTexts& texts, const std::vector<std::string>& words) {
  if (words.size() == 1 && texts.id == words.front()) return is_exact;
  Fit worst = begins_so;
  for (const std::string& word : words) {
    const Fit in_name = texts.name.empty() ? fits_not : fit_in(texts.name, word);
    worst = std::max(worst, std::min(fit_in(texts.id, word), in_name));
    if (worst == fits_not) return fits_not;
  }
  return worst;
}

/// By record.
ByNumber<Fit> fits_of_records(const PopulationStore& store, const std::vector<std::string>& words) {
  ByNumber<Fit> fits(store.size(), fits_not);
  RecordTexts texts;
  for (std::int32_t record = 1; record <= store.animal_count; ++record) {
    fold_into(texts.id, without_trailing_blanks(store.kept.ids.at(record)));
    texts.name.clear();
    if (store.has_name && record <= store.kept.file_records) fold_into(texts.name, store.kept.names.at(record));
    fits[record] = fit_of(texts, words);
  }
  return fits;
}

struct Match {
  std::int32_t position = 0, record = 0, year = 0;
  Fit fit = fits_not;
  bool may_live = false;
};

bool is_before(const Match& a, const Match& b) {
  const auto key = [](const Match& match) {
    return std::tuple(match.fit != is_exact, !match.may_live, match.fit, -std::int64_t{match.year}, match.record);
  };
  return key(a) < key(b);
}

}  // namespace

FoundAnimals find_animals(const PopulationStore& store, const AnimalSearch& search) {
  const std::vector<std::string> words = words_of_search(search.text);
  FoundAnimals found;
  if (words.empty()) return found;
  const ByNumber<Fit> fits = fits_of_records(store, words);
  const SexEvidence sexes = search.sex ? find_sex_evidence(store) : SexEvidence();
  std::vector<Match> matches;
  for (std::int32_t i = 1; i <= store.animal_count; ++i) {
    const std::int32_t record = store.record_no(i);
    if (fits[record] == fits_not || (search.sex && known_sex(store, sexes, i).value_or(*search.sex) != *search.sex))
      continue;
    const bool may_live = search.may_live == nullptr || (*search.may_live)[i] != 0;
    matches.push_back({i, record, store.birth_year[i], fits[record], may_live});
  }
  found.count = std::ssize(matches);
  const std::size_t named = std::min(matches.size(), search.most);
  std::partial_sort(matches.begin(), matches.begin() + static_cast<std::ptrdiff_t>(named), matches.end(), is_before);
  for (std::size_t k = 0; k < named; ++k) found.positions.push_back(matches[k].position);
  return found;
}

}  // namespace pedigreewatch
