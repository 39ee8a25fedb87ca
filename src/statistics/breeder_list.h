// The breeders of the data, and which of them count as top breeders.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/text_output.h"
#include "pedigree/population_store.h"

namespace pedigreewatch {

inline constexpr std::size_t breeder_entry_width = 20;
inline constexpr std::size_t breeder_slot_width = 7;

/// All different breeders as one long text of entries of 20 characters. Counting, choosing and reordering see the
/// same text as slots of 7 characters, the report and the subpopulations too; only the yearly pass over the whole
/// population reads entries. The two views do not name the same breeders, and both are wanted.
struct BreederList {
  std::string text;
  std::int32_t breeder_count = 0;
  std::int32_t top_breeder_count = 0;  ///< 0 to 30

  /// Entry t, counted from 1: its 20 characters.
  std::string_view entry(std::int32_t t) const { return piece(t, breeder_entry_width); }
  /// Slot t, counted from 1: its 7 characters.
  std::string_view slot(std::int32_t t) const { return piece(t, breeder_slot_width); }

  /// Piece t, counted from 1, of the text cut into pieces of `width` characters.
  std::string_view piece(std::int32_t t, std::size_t width) const {
    return std::string_view(text).substr(static_cast<std::size_t>(t - 1) * width, width);
  }
};

/// Lists the breeders in order of first appearance, chooses the top breeders and puts their slots at the front.
BreederList list_breeders(const PopulationStore& store, TextOutput& console);

/// The list of a population without a breeder column: one entry, no top breeders.
BreederList no_breeders();

}  // namespace pedigreewatch
