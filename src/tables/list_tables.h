// Tables of single animals that people act on, of founders, and of subpopulations beside each other.
#pragma once

#include <span>

#include "diversity/diversity.h"
#include "diversity/figures.h"
#include "diversity/founder_list.h"
#include "tables/table_writer.h"

namespace pedigreewatch {

/// What the lists are made of; all of it belongs to one population.
struct ListedPopulation {
  const PopulationStore& store;
  const Diversity& diversity;
  const PopulationFigures& figures;
  const ByNumber<std::int32_t>& offspring;  ///< of `count_offspring`
};

/// Females, then males of the last ten birth years, each in the order of their mean kinship.
void write_kinship_list(const ListedPopulation& population, TableWriter& writer);

/// The most inbred animals, the highest F first.
void write_most_inbred(const ListedPopulation& population, TableWriter& writer);

/// The most used sires, and the reference population without each.
void write_used_sires(const ListedPopulation& population, TableWriter& writer);

/// Founders of the reference population, the largest contribution first.
void write_founders(const PopulationStore& store, std::span<const FounderEntry> founders, TableWriter& writer);

/// Each two subpopulations of the reference population, and each with itself.
void write_division(const PopulationStore& store, const SubpopulationDiversity& division, TableWriter& writer);

}  // namespace pedigreewatch
