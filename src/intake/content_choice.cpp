// First sex and date of birth, each by its own texts; then id, father and mother together: an id is sound when it holds
// most of the texts of one column of fathers and of one of mothers.

#include "intake/content_choice.h"

#include <algorithm>
#include <array>
#include <functional>

#include "intake/heading_words.h"
#include "text/folded_words.h"

namespace pedigreewatch {
namespace {

constexpr std::int64_t fewest_judged_texts = 20;

/// Everything that the choice is made from.
struct ContentCase {
  const ColumnContents& contents;
  const ColumnChoice& choice;
  std::vector<bool> is_open;  ///< columns that are not chosen, and whose heading says nothing else

  const ColumnProfile& at(std::size_t column) const { return contents.profiles[column]; }
};

/// Whether a heading leaves open what its column holds.
bool is_unknown_heading(std::string_view heading) {
  const HeadingMeaning meaning = read_heading(heading);
  const bool is_open = !meaning.is_understood || meaning.thing == HeadingThing::date;
  return is_open && meaning_of(heading).code == unused_column;
}

ContentCase open_case(const ColumnContents& contents, const ColumnChoice& choice) {
  ContentCase content = {contents, choice, std::vector<bool>(contents.profiles.size())};
  for (std::size_t k = 0; k < content.is_open.size(); ++k) {
    content.is_open[k] = !choice.has_header || is_unknown_heading(choice.headings[k]);
  }
  for (const auto& place : choice.place) {
    if (place && *place < content.is_open.size()) content.is_open[*place] = false;
  }
  return content;
}

std::vector<std::size_t> open_columns(const ContentCase& content, const std::function<bool(std::size_t)>& fits) {
  std::vector<std::size_t> places;
  for (std::size_t k = 0; k < content.is_open.size(); ++k) {
    if (content.is_open[k] && fits(k)) places.push_back(k);
  }
  return places;
}

bool holds_sexes(const ColumnProfile& profile) {
  constexpr std::int64_t tolerated = 50;  // of so many texts one may be no sex
  const std::int64_t others = profile.judged - profile.males - profile.females;
  return profile.judged >= fewest_judged_texts && profile.males > 0 && profile.females > 0 &&
         others * tolerated <= profile.judged;
}

bool holds_dates(const ColumnProfile& profile) {
  constexpr std::int64_t tolerated = 20;
  return profile.judged >= fewest_judged_texts && (profile.judged - profile.dates) * tolerated <= profile.judged;
}

bool holds_years(const ColumnProfile& profile) {
  constexpr std::int64_t tolerated = 20;
  return profile.judged >= fewest_judged_texts && (profile.judged - profile.years) * tolerated <= profile.judged;
}

/// "Jahrgang" may be that of a course as well: the years in the column say that it is the year of birth.
bool names_birth_year(std::string_view heading) {
  constexpr auto words = std::to_array<std::string_view>({"jg", "jahrg", "jahrgang"});
  return is_among(folded(heading), words);
}

/// Of columns that are called dates of birth those that hold whole dates; all of them where none does.
void prefer_dates(const ContentCase& content, std::vector<std::size_t>& places) {
  std::vector<std::size_t> with_dates = places;
  std::erase_if(with_dates,
                [&](std::size_t k) { return k >= content.contents.profiles.size() || !holds_dates(content.at(k)); });
  if (!with_dates.empty()) places = std::move(with_dates);
}

/// Ids are nearly all different.
bool holds_ids(const ColumnProfile& profile) {
  constexpr std::int64_t tolerated = 50;
  const std::int64_t different = std::ssize(profile.texts);
  return different >= fewest_judged_texts && (profile.texts_read - different) * tolerated <= profile.texts_read;
}

/// Whether at least half of the texts of a column of parents are ids.
bool is_linked(const ContentCase& content, std::size_t parents, std::size_t id) {
  const auto different = static_cast<std::int64_t>(content.at(parents).texts.size());
  return parents != id && different >= fewest_judged_parents &&
         count_common(content.at(parents).texts, content.at(id).texts) * 2 >= different;
}

/// The columns that may hold one field by heading: the chosen one, or the best and the further ones.
std::vector<std::size_t> allowed(FieldCode code, const ContentCase& content, const ColumnPlaces& best,
                                 const ColumnPlaces& further) {
  std::vector<std::size_t> places;
  if (const auto& chosen = content.choice.place[code]) {
    places.push_back(*chosen);
  } else {
    places = best[code];
    places.insert(places.end(), further[code].begin(), further[code].end());
  }
  std::erase_if(places, [&](std::size_t k) { return k >= content.contents.profiles.size(); });
  return places;
}

/// Id, fathers and mothers that belong together.
struct Kinship {
  std::size_t id = 0;
  std::vector<std::size_t> sires, dams;
};

/// Which parents no heading names.
struct OpenParents {
  bool sires = false, dams = false;
};

/// Open columns that hold ids of animals of one sex only. A heading that names the parent is never overruled by them.
void find_open_parents(const ContentCase& content, std::size_t sex, OpenParents open, Kinship& kinship) {
  constexpr std::int64_t tolerated = 20;
  const auto sexes = sexes_by_id(content.contents.text, content.contents.delimiter, content.choice, kinship.id, sex);
  for (const std::size_t k : open_columns(content, [&](std::size_t k) { return is_linked(content, k, kinship.id); })) {
    const NamedSexes named = count_named_sexes(content.at(k).texts, sexes);
    const HeadingOwner owner =
        content.choice.has_header ? read_heading(content.choice.headings[k]).owner : HeadingOwner::animal;
    const std::int64_t known = named.males + named.females;
    if (known < fewest_judged_parents || owner == HeadingOwner::other_relative) continue;
    const bool are_males = named.females * tolerated <= known, are_females = named.males * tolerated <= known;
    if (open.sires && are_males && owner != HeadingOwner::dam) kinship.sires.push_back(k);
    if (open.dams && are_females && owner != HeadingOwner::sire) kinship.dams.push_back(k);
  }
}

std::vector<std::size_t> linked_ones(const ContentCase& content, std::vector<std::size_t> places, std::size_t id) {
  std::erase_if(places, [&](std::size_t k) { return !is_linked(content, k, id); });
  return places;
}

/// One column of those that fit: the only one, or the first of the best headings where they fit too.
void settle(std::vector<std::size_t> fitting, std::vector<std::size_t>& best) {
  std::vector<std::size_t> among_best = fitting;
  std::erase_if(among_best, [&](std::size_t k) { return std::find(best.begin(), best.end(), k) == best.end(); });
  if (!among_best.empty()) fitting = among_best;
  if (!fitting.empty()) best = std::move(fitting);
}

std::vector<Kinship> find_kinships(const ContentCase& content, const ColumnPlaces& best, const ColumnPlaces& further,
                                   std::optional<std::size_t> sex) {
  std::vector<std::size_t> ids = allowed(id_column, content, best, further);
  if (ids.empty()) ids = open_columns(content, [&](std::size_t k) { return holds_ids(content.at(k)); });
  const std::vector<std::size_t> sires = allowed(sire_column, content, best, further);
  const std::vector<std::size_t> dams = allowed(dam_column, content, best, further);
  std::vector<Kinship> kinships;
  for (const std::size_t id : ids) {
    Kinship kinship = {id, linked_ones(content, sires, id), linked_ones(content, dams, id)};
    const OpenParents open = {sires.empty(), dams.empty()};
    if ((open.sires || open.dams) && sex) find_open_parents(content, *sex, open, kinship);
    if (!kinship.sires.empty() && !kinship.dams.empty()) kinships.push_back(std::move(kinship));
  }
  return kinships;
}

}  // namespace

void narrow_by_content(const ColumnContents& contents, const ColumnPlaces& further, ColumnChoice& choice,
                       ColumnPlaces& best) {
  const ContentCase content = open_case(contents, choice);
  const auto fill_in = [&](FieldCode code, bool (*fits)(const ColumnProfile&)) {
    if (choice.place[code] || !best[code].empty()) return;
    best[code] = open_columns(content, [&](std::size_t k) { return fits(content.at(k)); });
  };
  fill_in(sex_column, holds_sexes);
  fill_in(birthdate_column, holds_dates);
  std::vector<std::size_t>& births = best[birthdate_column];
  prefer_dates(content, births);
  if (births.empty() && !choice.place[birthdate_column]) {
    births = open_columns(
        content, [&](std::size_t k) { return names_birth_year(choice.headings[k]) && holds_years(content.at(k)); });
  }
  std::optional<std::size_t> sex = choice.place[sex_column];
  if (!sex && best[sex_column].size() == 1) sex = best[sex_column].front();
  std::vector<Kinship> kinships = find_kinships(content, best, further, sex);
  std::vector<std::size_t> ids;
  ids.reserve(kinships.size());
  for (const Kinship& kinship : kinships) ids.push_back(kinship.id);
  settle(std::move(ids), best[id_column]);
  if (best[id_column].size() != 1) return;
  const std::size_t id = best[id_column].front();
  for (const Kinship& kinship : kinships) {
    if (kinship.id != id) continue;
    settle(kinship.sires, best[sire_column]);
    settle(kinship.dams, best[dam_column]);
  }
}

}  // namespace pedigreewatch
