// The style of the cards of animals, which stands behind that of the page.
#pragma once

#include <string>
#include <string_view>

namespace pedigreewatch {

std::string_view animal_style();

/// The policy of a page of cards: no network, no script, and of style only the page's and this one.
std::string animal_page_policy();

}  // namespace pedigreewatch
