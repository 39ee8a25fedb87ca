// Animals that come into use: which age, from where, and who.
#pragma once

#include "forecast/model_herd.h"

namespace pedigreewatch {

/// An animal that is taken from the candidates.
struct Entrant {
  std::int32_t sire = 0, dam = 0, birth_year = 0;
  float f = 0.0F;
  Descent descent = Descent::outside;
};

/// What is known of a candidate but its descent.
Entrant entrant_of(const ModelHerd& herd, std::int32_t candidate, std::int32_t birth_year);

/// Makes it a parent of the herd, without a career.
ModelParent& add_model_parent(ModelHerd& herd, Sex sex, const Entrant& entrant);

/// Goes on with the parents of a sex, each like somebody who had been used as it was; those who are used no more leave.
void continue_parents(ModelHerd& herd, Sex sex, std::int32_t year);

/// Brings an animal of the group into use, which begins like a career of the base period (its number). False when there
/// is nobody left.
bool enter_parent(ModelHerd& herd, Sex sex, GroupNo group, std::int32_t year, std::int32_t number,
                  RandomStream& random);

/// A career that began in the years of the practice, of the group if there was any.
std::int32_t draw_entry(const BasePeriod& base, Sex sex, GroupNo group, RandomStream& random);

/// The careers of a group's sires that began in one year, in any order: those who came into use together did not all
/// become popular.
std::vector<std::int32_t> entries_of_year(const ModelBasis& basis, GroupNo group, std::int32_t year,
                                          RandomStream& random);

/// How long somebody was used.
struct LifeOfUse {
  std::int32_t years = 1;  ///< from the first litter to the last
  std::int32_t used = 1;   ///< of these, with any litter
};

/// The whole life of one who begins like this career.
LifeOfUse live_career(const CareerRecords& careers, std::int32_t number, RandomStream& random);

/// Brings an import into use.
void enter_import(ModelHerd& herd, Sex sex, GroupNo group, std::int32_t year, RandomStream& random);

}  // namespace pedigreewatch
