// The options of `prepare` about an export: on the command line, in a file of answers, and so in the desk.
#pragma once

#include <string>
#include <string_view>

#include "intake/prepare_options.h"

namespace pedigreewatch {

/// Whether it is an option about an export, such as "--male"; others, such as --out, are about one run.
bool is_about_export(std::string_view option);

/// Obeys such an option. Yields what was expected instead of its value; empty: nothing, it is obeyed.
std::string read_export_option(std::string_view option, std::string_view value, PrepareOptions& options);

/// Names as an option takes them: "all", "none", "at-least-50", or with semicolons between and behind them, so that a
/// name with a comma in it is not taken apart.
std::string text_of_names(const NameWish& wish);

}  // namespace pedigreewatch
