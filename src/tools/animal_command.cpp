// Computes the population as a run does, finds the animals, and writes their cards: all files or none.

#include "tools/animal_command.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "animals/animal_card.h"
#include "checks/readable_text.h"
#include "core/fixed_text.h"
#include "diversity/recent_inbreeding.h"
#include "matings/candidates.h"
#include "page/animal_page.h"
#include "text/plain_letters.h"
#include "tools/current_date.h"
#include "tools/folder_analysis.h"
#include "tools/folder_command.h"
#include "tools/output_files.h"
#include "tools/reference_choice.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view help = R"(usage: pedigreewatch-tools animal [OPTION...] ID...
  Run it in the folder with pedigreewatch.ini. For each identification it writes NAME_ID.html beside where the report
  goes: the animal's pedigree of five generations as a drawing, its inbreeding and the ancestors that this comes from,
  its mean kinship and its place among the animals of its year, how far its ancestors are known, its offspring by
  mate and year, and its part in the animals of today. Older pages of these names are replaced.

  --together            one page with all cards, NAME_cards.html, to be printed at once
  --years A-B           animals of today: all animals born from A to B, such as 2001-2010
  --ids FILE            animals of today: those of a list, one identification a line
                        (else: animals of the last ten birth years with both parents known)
  --help                shows this text

  An identification that begins with a hyphen stands behind "--".
  Exit status: 0 done, 1 something stands in the way (nothing was written) or an identification is not known,
  2 wrong arguments.
)";

constexpr auto rules = std::to_array<OptionRule>({{"--together", false}, {"--years"}, {"--ids"}});

constexpr std::size_t most_cards = 1000;

constexpr Wording unknown_id = {"{1}: no animal has this identification; left out",
                                "{1}: geen dier heeft deze identificatie; weggelaten"};
constexpr Wording nobody_known = {"none of these animals is in the data; nothing was written",
                                  "geen van deze dieren staat in de gegevens; er is niets geschreven"};
constexpr Wording written = {"{1}: the card of {2}; open it in a browser",
                             "{1}: de kaart van {2}; open hem in een browser"};
constexpr Wording written_together = {"{1}: {2} cards; open it in a browser",
                                      "{1}: {2} kaarten; open het bestand in een browser"};

struct AnimalOptions {
  std::vector<std::string_view> ids;
  ReferenceOptions reference;
  bool is_together = false;
};

/// Yields what is wrong with the arguments; empty: nothing.
std::string read_animal_options(std::span<const std::string_view> arguments, AnimalOptions& options) {
  const CommandLine line = read_command_line(arguments, rules);
  if (!line.problem.empty()) return line.problem;
  for (const GivenOption& option : line.options) {
    if (option.name == "--together") options.is_together = true;
    std::string problem = take_reference_option(option.name, option.value, options.reference);
    if (!problem.empty()) return problem;
  }
  options.ids = line.operands;
  if (options.ids.empty()) return "the identification of an animal was expected";
  if (options.ids.size() > most_cards)
    return "at most " + std::to_string(most_cards) + " identifications were expected";
  return {};
}

/// The positions of the animals, each once, in the order in which they are named. Says which are not there.
std::vector<std::int32_t> find_named(FolderRun& run, const AnimalOptions& options) {
  std::vector<ListedId> ids;
  for (const std::string_view id : options.ids) ids.push_back({0, std::string(id)});
  const std::vector<std::int32_t> found = positions_listed(run.population.store, ids);
  std::vector<std::int32_t> positions;
  for (std::size_t k = 0; k < found.size(); ++k) {
    if (found[k] == 0) {
      say(run.streams.messages, run.words(unknown_id, {in_quotes(options.ids[k])}));
      run.exit_status = stands_in_the_way;
    } else if (std::find(positions.begin(), positions.end(), found[k]) == positions.end()) {
      positions.push_back(found[k]);
    }
  }
  return positions;
}

std::string_view id_of(const FolderRun& run, std::int32_t position) {
  return without_trailing_blanks(run.population.store.id(position));
}

/// A name that none of the files has, also where capitals make no difference.
std::string free_name(const FolderRun& run, std::string_view id, std::set<std::string>& taken) {
  const std::string part = file_name_part(id);
  std::string ending = "_" + part + ".html";
  for (int number = 2; !taken.insert(small_letters(ending)).second; ++number) {
    ending = "_" + part + "=" + std::to_string(number) + ".html";
  }
  return name_beside_report(run.population.settings, ending);
}

std::vector<OutputFile> make_files(const FolderRun& run, const AnimalOptions& options, const CardInput& input,
                                   const std::vector<std::int32_t>& positions) {
  std::vector<OutputFile> files;
  if (options.is_together) {
    files.push_back({name_beside_report(run.population.settings, "_cards.html"), make_animal_page(input, positions)});
    return files;
  }
  std::set<std::string> taken;
  for (const std::int32_t position : positions) {
    if (is_stop_requested(run.streams)) break;
    files.push_back({free_name(run, id_of(run, position), taken), make_animal_page(input, {&position, 1})});
  }
  return files;
}

void say_cards(const FolderRun& run, const AnimalOptions& options, std::span<const OutputFile> files,
               std::span<const std::int32_t> positions) {
  for (std::size_t k = 0; k < files.size(); ++k) {
    const std::string name = shown(files[k].name);
    say(run.streams.console, options.is_together
                                 ? run.words(written_together, {name, std::to_string(positions.size())})
                                 : run.words(written, {name, in_quotes(readable(id_of(run, positions[k])))}));
  }
}

std::optional<ToolRefusal> write_cards(FolderRun& run, const AnimalOptions& options) {
  const PopulationStore& store = run.population.store;
  ReferencePopulation reference;
  if (std::optional<ToolRefusal> refusal = choose_reference(run, options.reference, reference)) return refusal;
  const std::vector<std::int32_t> positions = find_named(run, options);
  if (positions.empty()) return ToolRefusal{run.words(nobody_known)};
  const ByNumber<KnownLine> lines = count_known_lines(store);
  const ByNumber<float> mean_kinship = mean_kinship_of_all(store, reference.positions);
  constexpr std::int32_t few_generations = 3, more_generations = 5;
  const ByNumber<float> recent_3 = recent_inbreeding(store, few_generations);
  const ByNumber<float> recent_5 = recent_inbreeding(store, more_generations);
  const ByNumber<float> ancestral = ancestral_inbreeding(store);
  const CardSource source = {store, reference.positions, mean_kinship, lines, recent_3, recent_5, ancestral};
  const CardInput input = {run.population, source, reference, current_date(), run.language};
  std::vector<OutputFile> files = make_files(run, options, input, positions);
  std::optional<ToolRefusal> refusal = write_files(run, files, {&options.reference.ids_file, 1}, OutputKind::cards);
  if (!refusal) say_cards(run, options, files, positions);
  return refusal;
}

}  // namespace

std::string_view animal_help() {
  return help;
}

int run_animal(std::span<const std::string_view> arguments, ToolStreams& streams) {
  AnimalOptions options;
  const std::string problem = read_animal_options(arguments, options);
  return run_in_folder("animal", problem, streams, [&](FolderRun& run) { return write_cards(run, options); });
}

std::string file_name_part(std::string_view id) {
  constexpr auto other_pages = std::to_array<std::string_view>({"cards", "plan"});
  constexpr std::string_view digits = "0123456789ABCDEF";
  const std::string text = readable(id);
  const std::string small = small_letters(text);
  const bool is_other_page = std::find(other_pages.begin(), other_pages.end(), small) != other_pages.end();
  std::string part;
  for (std::size_t k = 0; k < text.size(); ++k) {
    const auto byte = static_cast<unsigned char>(text[k]);
    const bool is_plain = byte < 0x80 && (std::isalnum(byte) != 0 || byte == '.' || byte == '-');
    if (is_plain && !(k == 0 && is_other_page)) {
      part += text[k];
    } else {
      part += {'=', digits[byte >> 4U], digits[byte & 15U]};
    }
  }
  return part;
}

}  // namespace pedigreewatch
