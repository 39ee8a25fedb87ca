// What to do about a kind of finding, in a sentence. docs/check.md says the same with its reasons.
#pragma once

#include "checks/findings.h"
#include "core/wording.h"

namespace pedigreewatch {

/// Empty for kinds that only a steer file or data file made by hand can have: their messages say what to write.
Wording mending_advice(FindingCode code);

}  // namespace pedigreewatch
