// What the card of an animal leaves out.
#include "page/animal_page.h"

#include <gtest/gtest.h>

#include <string>

#include "support/analysed_population.h"
#include "support/lines.h"

namespace pedigreewatch::test {
namespace {

/// The card of a full sibs' young whose F of 1/4 has `lacking` less from both founders together.
std::string card_of(double lacking) {
  const AnalysedPopulation population = analysed(
      "id;sire;dam;sex;birthdate\nS;;;m;01-01-2000\nD;;;f;02-01-2000\na;S;D;m;03-03-2002\nb;S;D;f;04-03-2002\n"
      "k;a;b;f;05-05-2004\n");
  const ByNumber<float> none(static_cast<std::size_t>(population.store.animal_count));
  const ByNumber<KnownLine> lines(static_cast<std::size_t>(population.store.animal_count));
  const CardSource source = {population.store, {}, {}, lines, none, none, none};
  AnimalCard card = make_card(source, population.store.animal_count);
  card.parts.kinship = 0.25;
  card.parts.largest = {};
  card.parts.largest[0] = {1, 0.25 - lacking};
  const ReferencePopulation nobody;
  return animal_card_html({population, source, nobody, {}, ToolLanguage::english}, card);
}

TEST(AnimalCardHtml, WhatOtherAncestorsBringIsMoreThanRounding) {
  EXPECT_FALSE(has(card_of(4.5e-7), "all others"));
  EXPECT_TRUE(has(card_of(5.5e-7), "all others"));
}

}  // namespace
}  // namespace pedigreewatch::test
