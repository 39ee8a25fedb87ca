// A second column of identifications in which the parents stand as well as in the one in use: running numbers beside
// ear tags that are numbers too. Nobody but the user knows which of them the parents name. Or one that names animals
// which the column in use leaves without an identification: herdbook numbers beside chips that older animals have not.
#pragma once

#include <cstdint>
#include <vector>

#include "intake/id_matches.h"
#include "intake/parent_links.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

/// Of a hundred parents that are animals by the column in use a rival holds so many, or more.
inline constexpr std::int64_t rival_percent = 90;

/// Of so many animals one may lack its id; where more do, a column that names most of these is a rival.
inline constexpr std::int64_t animals_with_one_unnamed = 50;

/// The columns, by their places counted from 0, whose texts nearly all differ, that hold the parents as well as the
/// column of the id does, by heading and content, and say something else than it on a line at least; or that name most
/// of the animals without an id. None where the user has named the column, or a line holds several animals. Large
/// exports are judged by the sample of the links.
std::vector<std::size_t> find_rival_ids(const ExportTable& table, const ParentLinks& links,
                                        const PrepareOptions& options);

}  // namespace pedigreewatch
