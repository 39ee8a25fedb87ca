// Text by text: by wish, by word, by parents; then the letters m and f, then what is left over of a pair.

#include "intake/sex_choice.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

/// Everything that is known of one text.
struct SexText {
  const CountedText* text = nullptr;
  SexVotes votes;
  SexMeaning by_word = SexMeaning::unknown, by_parents = SexMeaning::unknown;
  bool is_letter = false;   ///< `by_word` is what most offices mean by it
  bool means_none = false;  ///< says itself that the sex is not known
};

/// One letter stands for all texts that begin with it, a longer text for itself.
bool is_wished(std::string_view text, std::span<const std::string> wishes) {
  const std::string word = folded(text);
  return std::any_of(wishes.begin(), wishes.end(), [&](const std::string& wish) {
    const std::string wanted = folded(wish);
    if (wanted.empty()) return text.starts_with(wish);
    return wanted.size() == 1 ? word.starts_with(wanted) : word == wanted;
  });
}

bool says_unknown(std::string_view text) {
  return text != "0" && (means_unknown(text) || folded(text) == "u");
}

std::vector<SexText> collect(const ExportSurvey& survey) {
  const std::vector<SexVotes> votes = count_sex_votes(survey.links, survey.sexes.texts.size());
  std::vector<SexText> texts;
  for (const CountedText& entry : survey.sexes.texts) {
    const SexVotes& vote = votes[texts.size()];
    texts.push_back({&entry, vote, sex_named(entry.text), sex_of_parents(vote), is_sex_letter(entry.text),
                     says_unknown(entry.text)});
  }
  return texts;
}

/// What a text means to somebody who has said which texts are male, or female, or both.
SexMeaning meaning_beside_wishes(const SexText& sex, const PrepareOptions& options) {
  if (sex.by_word != SexMeaning::unknown && !sex.is_letter) return sex.by_word;
  if (sex.means_none) return SexMeaning::unknown;
  if (sex.by_parents != SexMeaning::unknown) return sex.by_parents;
  if (options.female.empty()) return SexMeaning::female;
  return options.male.empty() ? SexMeaning::male : SexMeaning::unknown;
}

std::vector<SexMeaning> sexes_by_wish(std::span<const SexText> texts, const PrepareOptions& options) {
  // A word for itself goes before a letter with which it begins: "--male hengst --female h".
  const auto is_meant = [](const SexText& sex, std::span<const std::string> wishes) {
    return is_wished(sex.text->text, wishes);
  };
  std::vector<SexMeaning> meanings;
  for (const SexText& sex : texts) {
    if (is_meant(sex, options.male)) {
      meanings.push_back(SexMeaning::male);
    } else if (is_meant(sex, options.female)) {
      meanings.push_back(SexMeaning::female);
    } else {
      meanings.push_back(meaning_beside_wishes(sex, options));
    }
  }
  return meanings;
}

/// Letters m and f beside each other, or alone, mean what they mean everywhere; M beside H may be a mare.
bool are_usual_letters(std::span<const SexText> texts) {
  bool has_male = false, has_female = false, has_other = false;
  for (const SexText& sex : texts) {
    const std::string word = folded(sex.text->text);
    has_male = has_male || word == "m";
    has_female = has_female || word == "f";
    has_other = has_other || (sex.is_letter && !sex.means_none && word != "m" && word != "f");
  }
  return !has_other || (has_male && has_female);
}

/// Whether the parents confirm what most offices mean by a letter, of one letter at least, and contradict it of none.
bool do_parents_confirm_letters(std::span<const SexText> texts) {
  bool is_confirmed = false;
  for (const SexText& sex : texts) {
    if (!sex.is_letter || sex.by_word == SexMeaning::unknown || sex.by_parents == SexMeaning::unknown) continue;
    if (sex.by_word != sex.by_parents) return false;
    is_confirmed = true;
  }
  return is_confirmed;
}

/// Of two letters or numbers the parents of one may tell enough: the other one means the other sex.
void conclude_other_of_pair(std::span<const SexText> texts, std::vector<SexMeaning>& meanings) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (!texts[i].means_none) places.push_back(i);
  }
  if (places.size() != 2) return;
  for (const auto& [known, open] : {std::pair(places[0], places[1]), std::pair(places[1], places[0])}) {
    if (meanings[open] != SexMeaning::unknown || !texts[open].is_letter) continue;
    if (texts[known].by_parents == SexMeaning::unknown) continue;
    meanings[open] = texts[known].by_parents == SexMeaning::male ? SexMeaning::female : SexMeaning::male;
    return;
  }
}

std::vector<SexMeaning> sexes_by_evidence(std::span<const SexText> texts) {
  const bool trusts_letters = are_usual_letters(texts) || do_parents_confirm_letters(texts);
  std::vector<SexMeaning> meanings;
  for (const SexText& sex : texts) {
    SexMeaning meaning = sex.is_letter && !sex.means_none ? sex.by_parents : sex.by_word;
    if (meaning == SexMeaning::unknown && !sex.means_none) meaning = sex.by_parents;
    if (meaning == SexMeaning::unknown && sex.is_letter && trusts_letters) meaning = sex.by_word;
    meanings.push_back(meaning);
  }
  conclude_other_of_pair(texts, meanings);
  return meanings;
}

/// A text whose word and whose parents say the opposite. A letter other than m and f is no word.
const SexText* find_contradiction(std::span<const SexText> texts) {
  const bool has_usual_letters = are_usual_letters(texts);
  for (const SexText& sex : texts) {
    const bool is_word = sex.by_word != SexMeaning::unknown && (!sex.is_letter || has_usual_letters);
    if (is_word && sex.by_parents != SexMeaning::unknown && sex.by_parents != sex.by_word) return &sex;
  }
  return nullptr;
}

std::vector<Answer> answers_of(const CountedList& list) {
  std::vector<Answer> answers;
  for (const CountedText& entry : list.texts) {
    if (!entry.text.empty()) answers.push_back({entry.text, entry.text});
  }
  return answers;
}

/// What stays open when all has been concluded; nothing when that is little.
std::optional<Question> ask_for_sexes(const ExportSurvey& survey, std::span<const SexText> texts,
                                      std::span<const SexMeaning> meanings) {
  std::int64_t filled = 0, open = 0;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i].means_none) continue;
    filled += texts[i].text->count;
    open += meanings[i] == SexMeaning::unknown ? texts[i].text->count : 0;
  }
  const bool has_male = std::find(meanings.begin(), meanings.end(), SexMeaning::male) != meanings.end();
  if (filled == 0 || (has_male && open * tolerated_unknown_sexes <= filled)) return std::nullopt;
  const bool is_open_alone = has_male;
  const CountedList list = list_counted(survey.sexes, [&](const CountedText& entry) {
    return !is_open_alone ||
           (meanings[find_counted(survey.sexes, entry.text)] == SexMeaning::unknown && !says_unknown(entry.text));
  });
  const QuestionKind kind = is_open_alone ? QuestionKind::sexes_open : QuestionKind::sexes_unclear;
  return Question{kind, {list}, Setting::male, unused_column, answers_of(list)};
}

}  // namespace

SexMeaning sex_of_parents(const SexVotes& votes) {
  if (votes.sires >= fewest_deciding_parents && votes.sires >= votes.dams * deciding_majority) return SexMeaning::male;
  if (votes.dams >= fewest_deciding_parents && votes.dams >= votes.sires * deciding_majority) {
    return SexMeaning::female;
  }
  return SexMeaning::unknown;
}

ParentSexes count_parent_sexes(const ExportSurvey& survey, LinkRole role) {
  const std::vector<SexText> texts = collect(survey);
  const bool has_usual_letters = are_usual_letters(texts);
  const SexMeaning right = role == sire_role ? SexMeaning::male : SexMeaning::female;
  ParentSexes parents;
  for (const SexText& sex : texts) {
    if (sex.by_word == SexMeaning::unknown || (sex.is_letter && !has_usual_letters)) continue;
    const std::int64_t count = role == sire_role ? sex.votes.sires : sex.votes.dams;
    parents.known += count;
    parents.wrong += sex.by_word == right ? 0 : count;
  }
  return parents;
}

bool are_of_wrong_sex(const ParentSexes& parents) {
  return parents.wrong >= fewest_deciding_parents && parents.wrong * deciding_majority > parents.known;
}

std::vector<SexMeaning> choose_sexes(const ExportSurvey& survey, const PrepareOptions& options,
                                     std::vector<Question>& questions) {
  const std::vector<SexText> texts = collect(survey);
  const bool has_wish = !options.male.empty() || !options.female.empty();
  std::vector<SexMeaning> meanings = has_wish ? sexes_by_wish(texts, options) : sexes_by_evidence(texts);
  if (has_wish) {
    const bool has_male = std::find(meanings.begin(), meanings.end(), SexMeaning::male) != meanings.end();
    if (has_male || options.male.empty() || texts.empty()) return meanings;  // without texts the column is open
    const CountedList list = list_counted(survey.sexes, [](const CountedText&) { return true; });
    questions.push_back({QuestionKind::male_never, {options.male.front(), list}, Setting::male, {}, answers_of(list)});
    return meanings;
  }
  if (const SexText* const sex = find_contradiction(texts); sex != nullptr) {
    const CountedList list = list_counted(survey.sexes, [](const CountedText&) { return true; });
    questions.push_back({QuestionKind::sexes_contradict,
                         {sex->text->text, sex->votes.sires, sex->votes.dams},
                         Setting::male,
                         unused_column,
                         answers_of(list)});
    return meanings;
  }
  std::optional<Question> question = ask_for_sexes(survey, texts, meanings);
  if (question) questions.push_back(std::move(*question));
  return meanings;
}

}  // namespace pedigreewatch
