// The figures of diversity as a table for R and spreadsheets: one figure a row.
#pragma once

#include <string>
#include <vector>

#include "diversity/diversity.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// All texts in UTF-8, without tabs, line ends and other control characters. Numbers have a decimal point and up to
/// ten digits; what is not estimable is empty, never "nan".
struct DiversityRow {
  std::string figure;          ///< its name, the same in both languages: "effective_founders"
  std::string value;           ///< always a number
  std::string standard_error;  ///< of the value
  std::string n;               ///< animals, pairs, parents or ancestors that it is worked out from
  std::string text;            ///< what is no number: the ancestor's identification, "20 / 4", "not estimable"
  std::string meaning;         ///< for people
};

/// The names of the columns, in the order of the fields.
DiversityRow diversity_header();

/// All rows, the same ones for every population. `store` is the one that the figures come from.
std::vector<DiversityRow> diversity_rows(const PopulationStore& store, const Diversity& diversity,
                                         ToolLanguage language);

/// Why nothing is said of Ne by family sizes, in one sentence; empty where it is said.
std::string words_of_obstacle(const FamilySizeEstimate& families, ToolLanguage language);

/// Header and rows, separated by tabs, each line ended by a line feed. A field with a quotation mark stands in
/// quotation marks, with its own ones doubled.
std::string write_diversity(const PopulationStore& store, const Diversity& diversity, ToolLanguage language);

}  // namespace pedigreewatch
