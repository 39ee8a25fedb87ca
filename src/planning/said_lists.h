// The lists that a plan is told more with, files or texts that were typed: animals, numbers of matings, pairs, breeding
// values. Everything that is wrong with them is said, with list and line; a plan is not made then.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "core/tool_streams.h"
#include "pedigree/known_sexes.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// Where faults are told. Streams without a file keep what is said.
struct PlanInput {
  const PopulationStore& store;
  ToolStreams& streams;
  ToolLanguage language;
  SexEvidence sexes;                                 ///< with those that lists have told of animals without a sex
  std::unordered_set<std::int32_t> told_sexes = {};  ///< these animals
  std::map<std::string, std::string> texts = {};     ///< by name: a list that was typed, and is no file
  bool has_faults = false;
};

/// An animal of a list with what stands behind its identification.
struct ListedAnimal {
  std::int64_t line = 0;
  std::int32_t position = 0;  ///< in the store
  std::string id, text;       ///< text: of the second field; empty where there is none
};

/// How many fields a line has.
enum class LineForm : std::uint8_t {
  id,        ///< one
  id_value,  ///< an identification and a text
  two_ids,   ///< two identifications; `text` is the second
};

/// The animals of a list whose identifications are known. Fields are divided by a tab, a semicolon, a comma or a blank:
/// the first of these that leaves the identification of an animal in front. An animal that stands twice is told and
/// taken once; with two values it is a fault. A first line of two words without digits is taken for a heading, and
/// told.
std::vector<ListedAnimal> read_animals(PlanInput& input, const std::string& name, std::string_view option,
                                       LineForm form);

/// The animals of a list of which none takes part: one a line, or as the desk keeps them (NAME_left_out.tsv), where
/// animals that the data do not have are told and are no fault. Positions.
std::vector<std::int32_t> read_excluded(PlanInput& input, const std::string& name, std::string_view option);

/// The animals of a list, all of which are of the wanted sex: the list tells it of those that have none.
std::vector<std::int32_t> read_candidates(PlanInput& input, const std::string& name, std::string_view option, Sex sex);

/// Two animals of different sex. Positions.
struct ReadPair {
  std::int64_t line = 0;
  std::int32_t female = 0, male = 0;
};
std::vector<ReadPair> read_pairs(PlanInput& input, const std::string& name, std::string_view option);

/// A breeding value: a number with a decimal point or comma; none for any other text.
std::optional<double> read_value(std::string_view text);

struct NumberRange {
  std::int32_t least = 0, most = 0;
};
/// "3" or "2-5"; none for any other text.
std::optional<NumberRange> read_range(std::string_view text);

/// Tells a fault of a line.
void tell_fault(PlanInput& input, const std::string& name, std::int64_t line, std::string_view text,
                const Wording& fault);

}  // namespace pedigreewatch
