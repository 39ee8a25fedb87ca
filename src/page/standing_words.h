// How the breed stands, in sentences: each is a claim that holds for what it is said of.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "page/page_frame.h"

namespace pedigreewatch {

/// "0,9 %" in Dutch; two decimals below 1 %, one below 10 %, else none.
std::string percent_text(double share, ToolLanguage language);

/// A limit as it was given: "5 %", "6.25 %".
std::string limit_text(double share, ToolLanguage language);

/// Of two counts: "27 of 100"; with fewer than 100 "3 of 12".
std::string share_text(std::int64_t part, std::int64_t all, ToolLanguage language);

/// Generation equivalents of the young of the last five years, never more than there are.
std::string equivalents_text(const Standing& standing, ToolLanguage language);

/// "2012-2021"; of one year "2021".
std::string years_text(std::int32_t first, std::int32_t last);

/// An effective size as a whole number; "more than 10,000" style words for what is beyond all meaning.
std::string size_text(double effective_size, ToolLanguage language);

/// "1.1 % (0.9 % to 1.3 %)"; a dash when the rate is not known.
std::string rate_text(const RateEstimate& estimate, ToolLanguage language);

/// The name of an animal with its identification behind it; one of them when they are the same or there is no name.
struct AnimalWords {
  std::string name, id;
};
AnimalWords words_of_animal(const PageFrame& frame, std::int32_t position);

/// "Too fast" and the like.
std::string pace_words(Pace pace, ToolLanguage language);

/// What the verdict rests on, or why there is none; a sentence each.
std::vector<std::string> verdict_sentences(const PageFrame& frame, const Standing& standing);

/// "How sure: fairly", and the reasons.
std::string sureness_heading(const Standing& standing, ToolLanguage language);
std::vector<std::string> sureness_sentences(const PageFrame& frame, const Standing& standing);

/// The rates before and since, and what can be said of them.
std::vector<std::string> trend_sentences(const PageFrame& frame, const Standing& standing);

/// "Yes", "partly" or "no" for the verdict, and why.
/// "96 of 100": young of the last ten years with both parents known, never more than there are.
std::string known_text(const Standing& standing, ToolLanguage language);

std::string data_heading(const Standing& standing, ToolLanguage language);
std::vector<std::string> data_sentences(const PageFrame& frame, const Standing& standing);

/// What can be seen in pedigrees of so many generation equivalents.
const Wording& words_of_depth(double equivalents);

}  // namespace pedigreewatch
