// The parts of a page that are words and tables: summary, what the checks found, diversity.
#pragma once

#include <string>

#include "page/page_frame.h"

namespace pedigreewatch {

/// How the breed stands, on one screen and one sheet of paper. The page must have been given it.
void write_standing(std::string& page, const PageFrame& frame);

/// What an officer wants to know first, in sentences.
void write_summary(std::string& page, const PageFrame& frame);

/// What the checks found: a sentence, and a row for each kind of finding.
void write_findings(std::string& page, const PageFrame& frame);

/// How many findings stop a run or falsify figures, as a sentence for the summary.
std::string findings_sentence(const PageFrame& frame);

/// The ancestors that contribute most to the reference population, by name; nothing when there are none.
void write_main_ancestors(std::string& page, const PageFrame& frame);

/// The figures of the reference population.
void write_diversity(std::string& page, const PageFrame& frame);

/// The lists that people act on; `has_lists` tells whether there are any.
void write_lists(std::string& page, const PageFrame& frame);
bool has_lists(const PageFrame& frame);

}  // namespace pedigreewatch
