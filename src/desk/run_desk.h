// The fourth step of the desk: the run, and what comes of it.
#pragma once

#include <string>

#include "desk/desk.h"

namespace pedigreewatch {

/// Runs on the data file and the steer file and keeps everything that comes of it. Yields an object: messages, animals,
/// firstYear, lastYear (0: nobody's birth is known), dam and male examples are asked for elsewhere.
std::string run_analysis(Desk& desk);

/// The charts and tables as HTML, to stand in an element of class "pw"; and the page as a file of its own.
std::string results_body(const Desk& desk);
std::string results_page(const Desk& desk);

/// The report as it is written to its file, in Windows-1252; and the same for reading, in UTF-8.
std::string report_bytes(const Desk& desk);
std::string report_text(const Desk& desk);

}  // namespace pedigreewatch
