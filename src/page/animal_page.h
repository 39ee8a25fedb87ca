// The card of an animal as HTML, and cards as a page to keep and to print.
#pragma once

#include <span>
#include <string>

#include "animals/animal_card.h"
#include "checks/calendar.h"
#include "control/population_analysis.h"
#include "diversity/reference_population.h"
#include "text/phrases.h"

namespace pedigreewatch {

/// What cards are made from. All of it outlives the making.
struct CardInput {
  const AnalysedPopulation& population;
  const CardSource& source;
  const ReferencePopulation& reference;  ///< the animals of today
  CalendarDate today;                    ///< for the head of a printed card
  ToolLanguage language = ToolLanguage::english;
  bool is_pressable = false;  ///< other animals are buttons, see `AnimalTelling`
};

/// The card of one animal, to stand in an element of class "pw" of a page that has `animal_style`. Its heading is of
/// the second level.
std::string animal_card_html(const CardInput& input, const AnimalCard& card);

/// A page of cards in UTF-8, one behind the other. It asks for nothing from anywhere.
std::string make_animal_page(const CardInput& input, std::span<const std::int32_t> positions);

}  // namespace pedigreewatch
