// Identifications of one animal that are written in two ways: with other signs between, in capitals, with zeros in
// front, with letters for digits, with or without the letters or the country's number in front or the check digit at
// the end. A rule says what does not count when they are compared.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/phrases.h"

namespace pedigreewatch {

enum IdRule : unsigned {
  no_id_rule = 0,
  separators_rule = 1,    ///< blanks, hyphens, dots, slashes, underscores
  capitals_rule = 2,      ///< capitals of the letters from A to Z
  zeros_rule = 4,         ///< zeros in front of a number
  look_alikes_rule = 8,   ///< O for 0; l and I for 1
  prefix_rule = 16,       ///< letters in front of the first digit, with what stands between
  check_digit_rule = 32,  ///< the last digit, of one of the two
  marks_rule = 128,       ///< signs before and behind: "NL12?", "NL12*", "(NL12)"
  country_rule = 64       ///< the three digits of the country in front of the twelve of an animal
};

/// Some rules at once, as a sum of their bits.
struct IdRules {
  unsigned bits = no_id_rule;

  bool operator==(const IdRules&) const = default;
};

/// The rules that a user names, with "+" between them: "separators", "capitals", "zeros", "look-alikes", "prefix",
/// "marks", "country", "check-digit"; "keep" for none. Nothing for other words.
std::optional<IdRules> id_rules_named(std::string_view text);

/// The names, as the option takes them.
std::string name_of_rules(IdRules rules);

/// What the rules leave out, for people.
std::string description_of_rules(IdRules rules, ToolLanguage language);

/// Adds what counts of an identification. The check digit is no matter of one identification alone and stays.
void append_id_key(std::string& key, std::string_view id, IdRules rules);

/// The number of an animal without that of its country, of an identification of fifteen digits; empty for others. Signs
/// may stand between the digits.
std::string_view without_country(std::string_view id);

/// The identification without its last digit, and without a sign in front of that; empty when it ends in none.
std::string_view without_check_digit(std::string_view id);

/// A parent as it is written, and the animal that the rules find for it.
struct IdPair {
  std::string parent, id;
  std::int64_t line = 0;  ///< where the parent is named
};

/// The rule that gives most of the parents without a line one.
struct IdProposal {
  IdRules rules;
  std::int64_t without_line = 0;  ///< different parents that were looked at
  std::int64_t explained = 0;     ///< those that the rules give exactly one animal
  std::vector<IdPair> examples;
};

/// The animals that parents are by the rules: for the text of a parent without a line the id of the animal.
struct IdSubstitutes {
  std::unordered_map<std::string, std::string> ids;
  std::vector<IdPair> examples;  ///< the first ones
};
}  // namespace pedigreewatch
