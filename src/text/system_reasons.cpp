// The English words are those of the systems that have POSIX, so that a message can be looked up; the Dutch ones say it
// to people who have never seen them.

#include "text/system_reasons.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "core/run_streams.h"
#include "core/wording.h"

namespace pedigreewatch {
namespace {

struct KnownReason {
  int error = 0;
  Wording words;
};

constexpr auto known_reasons = std::to_array<KnownReason>({
    {ENOENT, {"No such file or directory", "dit bestand of deze map bestaat niet"}},
    {EACCES, {"Permission denied", "geen toestemming"}},
    {EPERM, {"Operation not permitted", "dit is niet toegestaan"}},
    {ENOSPC, {"No space left on device", "de schijf is vol"}},
    {EISDIR, {"Is a directory", "dit is een map"}},
    {ENOTDIR, {"Not a directory", "een deel van het pad is geen map"}},
    {EMFILE, {"Too many open files", "er zijn te veel bestanden open"}},
    {ENFILE, {"Too many open files in system", "er zijn te veel bestanden open in het systeem"}},
    {EROFS, {"Read-only file system", "op deze schijf kan alleen gelezen worden"}},
    {EFBIG, {"File too large", "het bestand wordt te groot"}},
    {EIO, {"Input/output error", "de schijf of de verbinding geeft een fout"}},
    {ENAMETOOLONG, {"File name too long", "de bestandsnaam is te lang"}},
    {ENOMEM, {"Cannot allocate memory", "er is te weinig geheugen"}},
    {EINTR, {"stopped from outside", "van buitenaf afgebroken"}},
    {input_has_changed,
     {"the file has changed while it was read; run again when nobody writes it",
      "het bestand is veranderd terwijl het gelezen werd; start opnieuw als niemand erin schrijft"}},
});

}  // namespace

std::string reason_text(int error, ToolLanguage language) {
  const auto* const known =
      std::find_if(known_reasons.begin(), known_reasons.end(), [&](const KnownReason& r) { return r.error == error; });
  return known == known_reasons.end() ? error_text(error) : std::string(words_of(known->words, language));
}

std::string reason_of(const FileProblem& problem, ToolLanguage language) {
  return problem.error == 0 ? problem.reason : reason_text(problem.error, language);
}

}  // namespace pedigreewatch
