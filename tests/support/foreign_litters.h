// Books of litters: parents and date once a line, then the young beside each other.
#pragma once

#include <vector>

#include "support/foreign_form.h"
#include "support/foreign_population.h"

namespace pedigreewatch::test {

/// Makes some forms those of a book of litters: its columns are laid out anew.
void draw_litters(Dice& dice, ForeignForm& form);

/// Gives some forms a column of twins, with or without one of their sexes.
void draw_twins(Dice& dice, ForeignForm& form);

/// Animals that follow each other become litters of up to `most` young; yields the first of each. Founders stay alone.
std::vector<std::size_t> join_litters(Dice& dice, int most, std::vector<ForeignAnimal>& animals);

/// One animal in twelve becomes the twin of the one before; yields all others.
std::vector<std::size_t> join_twins(Dice& dice, std::vector<ForeignAnimal>& animals);

}  // namespace pedigreewatch::test
