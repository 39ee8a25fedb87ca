// The page: summary, charts and tables of a population, as one file for a browser that needs nothing else.
#pragma once

#include <span>
#include <string>

#include "checks/check.h"
#include "control/population_analysis.h"
#include "diversity/diversity.h"
#include "diversity/figures.h"
#include "standing/standing.h"
#include "statistics/block.h"

namespace pedigreewatch {

/// What a page is made from. All of it outlives the making.
struct PageInput {
  const AnalysedPopulation& population;
  std::span<const Block> subpopulations = {};  ///< as `analyse_subpopulations` yields them
  const Diversity* diversity = nullptr;        ///< none: the page has no such section
  const CheckResult* check = nullptr;          ///< of the same data file; none: the page does not speak of it
  const Standing* standing = nullptr;          ///< none: the page does not begin with how the breed stands
  const PopulationFigures* figures = nullptr;  ///< of the same population; none: neither lists nor charts of diversity
};

/// The whole page in UTF-8, in the language of the steer file. It asks for nothing from anywhere, and says so in its
/// content security policy.
std::string make_page(const PageInput& input);

/// Everything below the main heading, to stand in an element of class "pw" of another page. Its headings begin at the
/// second level.
std::string page_body(const PageInput& input);

/// The style that `page_body` needs.
std::string_view page_style();

/// The script that makes figures readable with mouse and arrow keys: a statement that looks through the document once.
std::string_view page_script();

}  // namespace pedigreewatch
