// Texts are measured by the widths of their letters in a wide font; one that is too long is squeezed a little by the
// browser, one that would be unreadable then is cut, and stands whole in the title of its box.

#include "page/pedigree_drawing.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "genetics/ancestor_pedigree.h"
#include "page/page_text.h"
#include "text/utf_8.h"

namespace pedigreewatch {
namespace {

constexpr Wording tree_label = {"Pedigree of {1}: {2} generations", "Stamboom van {1}: {2} generaties"};
constexpr Wording unknown_sire = {"sire unknown", "vader onbekend"}, unknown_dam = {"dam unknown", "moeder onbekend"};
constexpr Wording sire_word = {"sire", "vader"}, dam_word = {"dam", "moeder"};
constexpr Wording of_sire = {"sire's", "vaders"}, of_dam = {"dam's", "moeders"};
constexpr Wording born_in = {"born {1}", "geb. {1}"};

struct Box {
  double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
};

/// Where a line of text begins, and the width that it keeps within.
struct TextPlace {
  double x = 0.0, y = 0.0, width = 0.0;
};

/// What the drawing of one picture works with.
struct TreeDrawing {
  std::string& page;
  const AnimalTelling& telling;
  const FamilyTree& tree;
};

std::string number_text(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.1f", value);
  std::string digits = text.data();
  if (digits.ends_with(".0")) digits.resize(digits.size() - 2);
  return digits;
}

/// Widths of letters of 12 pixels in a wide font.
double letter_width(char32_t letter) {
  constexpr char32_t first_wide = 0x1100;
  if (letter >= first_wide) return 12.5;
  if (letter == ' ' || letter == '.' || letter == ',' || letter == 'i' || letter == 'l' || letter == '-') return 4.2;
  if (letter >= 'A' && letter <= 'Z') return 8.4;
  return 7.4;
}

double text_width(std::string_view text) {
  double width = 0.0;
  while (!text.empty()) width += letter_width(take_letter(text));
  return width;
}

/// As many letters as fit, with dots behind them where that is not all.
std::string cut_to(std::string_view text, double width) {
  constexpr double dots = 12.0;
  if (text_width(text) <= width) return std::string(text);
  std::string kept;
  for (double used = dots; !text.empty();) {
    const char32_t letter = take_letter(text);
    used += letter_width(letter);
    if (used > width) break;
    append_letter(kept, letter);
  }
  return kept + "\xE2\x80\xA6";
}

/// A text that keeps within its width; `mark` stands before it.
void draw_text(TreeDrawing& drawing, const TextPlace& place, std::string_view style, std::string_view text,
               std::string_view mark = {}) {
  constexpr double most_squeezed = 0.75;  // beyond it letters are hard to read
  if (text.empty()) return;
  const double mark_width = mark.empty() ? 0.0 : text_width(mark) + letter_width(' ');
  const std::string kept = cut_to(text, place.width / most_squeezed - mark_width);
  std::string& page = drawing.page;
  page += "<text x=\"" + number_text(place.x) + "\" y=\"" + number_text(place.y) + "\" class=\"" + std::string(style) +
          "\"";
  if (text_width(kept) + mark_width > place.width) {
    page += " textLength=\"" + number_text(place.width) + "\" lengthAdjust=\"spacingAndGlyphs\"";
  }
  page += ">";
  if (!mark.empty()) page += "<tspan class=\"fa-mark\">" + std::string(mark) + "</tspan> ";
  page += escaped(kept) + "</text>";
}

/// What the ancestor of a place is to the animal: "sire's dam".
std::string place_words(const AnimalTelling& telling, std::size_t place) {
  std::string words;
  for (std::size_t depth = generation_of(place); depth-- > 0;) {
    const bool is_dam = ((place >> depth) & 1U) != 0;
    const bool is_last = depth == 0;
    const Wording& wording = is_last ? (is_dam ? dam_word : sire_word) : (is_dam ? of_dam : of_sire);
    words += std::string(words_of(wording, telling.language)) + (is_last ? "" : " ");
  }
  return words;
}

std::string id_of(const TreeDrawing& drawing, std::size_t place) {
  return data_text(drawing.telling.store.id(drawing.tree.positions[place]));
}

std::string name_of(const TreeDrawing& drawing, std::size_t place) {
  return name_of_animal(drawing.telling.store, drawing.tree.positions[place]);
}

std::string year_of(const TreeDrawing& drawing, std::size_t place) {
  const std::int32_t year = drawing.telling.store.birth_year[drawing.tree.positions[place]];
  return year == 0 ? std::string() : phrase(born_in, drawing.telling.language, {std::to_string(year)});
}

std::string inbreeding_of(const TreeDrawing& drawing, std::size_t place) {
  return shown_inbreeding(drawing.telling, drawing.tree.positions[place]);
}

/// Everything about the animal of a place, for those who cannot read its box.
std::string whole_text(const TreeDrawing& drawing, std::size_t place) {
  std::string text;
  for (const std::string& part : {place_words(drawing.telling, place), id_of(drawing, place), name_of(drawing, place),
                                  year_of(drawing, place), "F " + inbreeding_of(drawing, place)}) {
    if (!part.empty()) text += (text.empty() ? "" : ", ") + part;
  }
  return text;
}

/// The letters of a meeting: A to Z, then a to z.
std::string mark_of(const FamilyTree& tree, std::size_t place) {
  constexpr int letters = 26;
  const int number = tree.meeting[place];
  if (number == 0) return {};
  return {static_cast<char>(number <= letters ? 'A' + number - 1 : 'a' + number - letters - 1)};
}

void draw_box(TreeDrawing& drawing, const Box& box, bool is_male, std::string_view style) {
  drawing.page += "<rect x=\"" + number_text(box.x) + "\" y=\"" + number_text(box.y) + "\" width=\"" +
                  number_text(box.width) + "\" height=\"" + number_text(box.height) + "\" rx=\"" +
                  (is_male ? "0" : "8") + "\" class=\"" + std::string(style) + "\"/>";
}

/// Begins the group of a known animal and draws its box.
void begin_animal(TreeDrawing& drawing, std::size_t place, const Box& box) {
  const std::int32_t position = drawing.tree.positions[place];
  const std::string text = escaped(whole_text(drawing, place));
  drawing.page +=
      drawing.telling.is_pressable && place > 1
          ? "<g class=\"fa-animal\" role=\"button\" tabindex=\"0\" data-animal=\"" + std::to_string(position) + "\">"
          : std::string("<g class=\"fa-animal\">");
  drawing.page += "<title>" + text + "</title>";
  const bool is_repeated = drawing.tree.times[place] > 1;
  draw_box(drawing, box, drawing.telling.store.sex[position] == male,
           is_repeated  ? "fa-box fa-twice"
           : place == 1 ? "fa-box fa-self"
                        : "fa-box");
}

void draw_unknown(TreeDrawing& drawing, std::size_t place, const Box& box) {
  constexpr double below_middle = 4.0, margin = 6.0;
  const bool is_sire = place % 2 == 0;
  drawing.page += "<g>";
  draw_box(drawing, box, is_sire, "fa-box fa-none");
  draw_text(drawing, {box.x + margin, box.y + box.height / 2.0 + below_middle, box.width - 2.0 * margin}, "fa-soft",
            words_of(is_sire ? unknown_sire : unknown_dam, drawing.telling.language));
  drawing.page += "</g>";
}

/// Whether something is drawn at a place: an animal, or that the parent of one is unknown.
bool is_drawn(const FamilyTree& tree, std::size_t place) {
  return place < tree_places && (place == 1 || tree.positions[place / 2] != 0);
}

/// The places that are drawn, each sire with its ancestors above the animal and each dam below it.
void list_places(const FamilyTree& tree, std::size_t place, std::vector<std::size_t>& places) {
  if (!is_drawn(tree, place)) return;
  list_places(tree, 2 * place, places);
  places.push_back(place);
  list_places(tree, 2 * place + 1, places);
}

void begin_picture(TreeDrawing& drawing, std::string_view style, double width, double height) {
  const std::string label =
      phrase(tree_label, drawing.telling.language, {id_of(drawing, 1), std::to_string(tree_generations)});
  drawing.page += "<svg class=\"fa-tree " + std::string(style) + "\" role=\"group\" viewBox=\"0 0 " +
                  number_text(width) + " " + number_text(height) + "\" aria-label=\"" + escaped(label) + "\">\n";
}

// --- beside each other ---

constexpr std::array<double, tree_generations + 1> column_x = {1.0, 150.0, 312.0, 480.0, 652.0, 834.0};
constexpr std::array<double, tree_generations + 1> column_width = {137.0, 150.0, 156.0, 160.0, 170.0, 225.0};
constexpr std::array<double, tree_generations + 1> box_height = {46.0, 46.0, 46.0, 46.0, 34.0, 18.0};
constexpr double wide_width = 1060.0, wide_height = 640.0, letters_margin = 5.0, f_width = 52.0;

Box wide_box(std::size_t place) {
  const std::size_t generation = generation_of(place), in_generation = std::size_t{1} << generation;
  const double slot = wide_height / static_cast<double>(in_generation);
  const double middle = (static_cast<double>(place - in_generation) + 0.5) * slot;
  const double height = box_height[generation];
  return {column_x[generation], middle - height / 2.0, column_width[generation], height};
}

/// Identification, name where there is one, and year with F, one below the other.
void write_three_lines(TreeDrawing& drawing, std::size_t place, const Box& box) {
  constexpr std::array<double, 3> lines = {14.0, 27.5, 41.0};
  const double x = box.x + letters_margin, width = box.width - 2.0 * letters_margin;
  const std::string year = year_of(drawing, place), name = name_of(drawing, place);
  draw_text(drawing, {x, box.y + lines[0], width}, "fa-id", id_of(drawing, place), mark_of(drawing.tree, place));
  draw_text(drawing, {x, box.y + lines[1], width}, "fa-name", name);
  draw_text(drawing, {x, box.y + (name.empty() ? lines[1] : lines[2]), width}, "fa-soft",
            (year.empty() ? "" : year + ", ") + "F " + inbreeding_of(drawing, place));
}

void write_f(TreeDrawing& drawing, std::size_t place, const Box& box, double y) {
  drawing.page += "<text x=\"" + number_text(box.x + box.width - letters_margin) + "\" y=\"" + number_text(y) +
                  "\" class=\"fa-soft fa-end\">" + escaped(inbreeding_of(drawing, place)) + "</text>";
}

/// F at the right of the identification; the name below both, or behind the identification where there is one line.
void write_with_f(TreeDrawing& drawing, std::size_t place, const Box& box) {
  constexpr double first_line = 14.0, second_line = 28.0;
  const bool has_two_lines = generation_of(place) < tree_generations;
  const double x = box.x + letters_margin, width = box.width - 2.0 * letters_margin - f_width;
  const std::string id = id_of(drawing, place), name = name_of(drawing, place);
  const std::string text = has_two_lines || name.empty() ? id : id + " " + name;
  draw_text(drawing, {x, box.y + first_line, width}, has_two_lines ? "fa-id" : "fa-name", text,
            mark_of(drawing.tree, place));
  write_f(drawing, place, box, box.y + first_line);
  if (has_two_lines) draw_text(drawing, {x, box.y + second_line, width + f_width}, "fa-name", name);
}

/// From the box of an animal to those of its parents.
void connect_wide(TreeDrawing& drawing, std::size_t place) {
  if (!is_drawn(drawing.tree, 2 * place)) return;
  const Box own = wide_box(place);
  const double x = own.x + own.width, y = own.y + own.height / 2.0;
  for (const std::size_t parent : {2 * place, 2 * place + 1}) {
    const Box other = wide_box(parent);
    const double middle = (x + other.x) / 2.0;
    drawing.page += "<path class=\"fa-line\" d=\"M" + number_text(x) + " " + number_text(y) + "H" +
                    number_text(middle) + "V" + number_text(other.y + other.height / 2.0) + "H" + number_text(other.x) +
                    "\"/>";
  }
}

void draw_wide(TreeDrawing& drawing, const std::vector<std::size_t>& places) {
  begin_picture(drawing, "fa-wide", wide_width, wide_height);
  for (const std::size_t place : places) {
    if (drawing.tree.positions[place] != 0) connect_wide(drawing, place);
  }
  for (const std::size_t place : places) {
    const Box box = wide_box(place);
    if (drawing.tree.positions[place] == 0) {
      draw_unknown(drawing, place, {box.x, box.y, box.width, std::min(box.height, 20.0)});
      continue;
    }
    begin_animal(drawing, place, box);
    generation_of(place) <= 3 ? write_three_lines(drawing, place, box) : write_with_f(drawing, place, box);
    drawing.page += "</g>\n";
  }
  drawing.page += "</svg>\n";
}

// --- below each other ---

constexpr double narrow_width = 360.0, narrow_row = 36.0, narrow_box = 32.0, indent = 13.0;

Box narrow_place(std::size_t place, std::size_t row) {
  const double x = 1.0 + indent * static_cast<double>(generation_of(place));
  return {x, 2.0 + narrow_row * static_cast<double>(row), narrow_width - 1.0 - x, narrow_box};
}

void write_two_lines(TreeDrawing& drawing, std::size_t place, const Box& box) {
  constexpr double first_line = 13.0, second_line = 27.0;
  const double x = box.x + letters_margin, width = box.width - 2.0 * letters_margin;
  const std::string name = name_of(drawing, place), year = year_of(drawing, place);
  draw_text(drawing, {x, box.y + first_line, width - f_width}, "fa-id", id_of(drawing, place),
            mark_of(drawing.tree, place));
  write_f(drawing, place, box, box.y + first_line);
  draw_text(drawing, {x, box.y + second_line, width}, "fa-name",
            name + (name.empty() || year.empty() ? "" : ", ") + year);
}

/// A line from each animal, at the left of its box, to its parents.
void connect_narrow(TreeDrawing& drawing, const std::vector<std::size_t>& places) {
  std::array<std::size_t, tree_places> row_of = {};
  for (std::size_t row = 0; row < places.size(); ++row) row_of[places[row]] = row;
  for (const std::size_t place : places) {
    if (place == 1) continue;
    const Box own = narrow_place(place / 2, row_of[place / 2]), parent = narrow_place(place, row_of[place]);
    constexpr double beside = 4.0;
    drawing.page += "<path class=\"fa-line\" d=\"M" + number_text(own.x + beside) + " " +
                    number_text(own.y + own.height / 2.0) + "V" + number_text(parent.y + parent.height / 2.0) + "H" +
                    number_text(parent.x) + "\"/>";
  }
}

void draw_narrow(TreeDrawing& drawing, const std::vector<std::size_t>& places) {
  begin_picture(drawing, "fa-narrow", narrow_width, 4.0 + narrow_row * static_cast<double>(places.size()));
  connect_narrow(drawing, places);
  for (std::size_t row = 0; row < places.size(); ++row) {
    const std::size_t place = places[row];
    const Box box = narrow_place(place, row);
    if (drawing.tree.positions[place] == 0) {
      draw_unknown(drawing, place, box);
      continue;
    }
    begin_animal(drawing, place, box);
    write_two_lines(drawing, place, box);
    drawing.page += "</g>\n";
  }
  drawing.page += "</svg>\n";
}

}  // namespace

void draw_pedigree(std::string& page, const AnimalTelling& telling, const FamilyTree& tree) {
  TreeDrawing drawing = {page, telling, tree};
  std::vector<std::size_t> places;
  list_places(tree, 1, places);
  draw_wide(drawing, places);
  draw_narrow(drawing, places);
}

std::string name_of_animal(const PopulationStore& store, std::int32_t position) {
  const std::string name = store.has_name ? data_text(store.name(position)) : std::string();
  return name == "-" ? std::string() : name;
}

std::string shown_inbreeding(const AnimalTelling& telling, std::int32_t position) {
  constexpr double percent = 100.0;
  const KnownParents parents = known_parents(telling.store, position);
  if (parents.sire == 0 || parents.dam == 0) return std::string(no_figure);
  const double f = double{telling.store.inbreeding[position]};
  return report_figure(percent * f, 2, telling.language) + " %";
}

}  // namespace pedigreewatch
