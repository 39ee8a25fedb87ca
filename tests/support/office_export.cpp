#include "support/office_export.h"

#include <array>
#include <cstdio>
#include <random>

namespace pedigreewatch::test {
namespace {

/// The letters of UTF-8 of one or two bytes.
std::u16string letters_of(std::string_view utf_8) {
  std::u16string letters;
  for (std::size_t i = 0; i < utf_8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf_8[i]);
    if (byte < 0x80) {
      letters.push_back(byte);
    } else {
      const auto next = static_cast<unsigned char>(utf_8[++i]);
      letters.push_back(static_cast<char16_t>(((byte & 0x1F) << 6) | (next & 0x3F)));
    }
  }
  return letters;
}

std::string as_utf_16(std::u16string_view letters, bool is_little_endian) {
  std::string bytes;
  for (const char16_t letter : letters) {
    const char low = static_cast<char>(letter & 0xFF), high = static_cast<char>(letter >> 8);
    bytes += is_little_endian ? std::string{low, high} : std::string{high, low};
  }
  return bytes;
}

std::string digits(int value, int width) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%0*d", width, value);
  return text.data();
}

std::string written_date(const OfficeAnimal& animal, const std::string& layout) {
  static constexpr std::array months = {"jan", "feb", "mar", "apr", "may", "jun",
                                        "jul", "aug", "sep", "oct", "nov", "dec"};
  if (animal.year == 0) return {};
  if (layout == "d mon yyyy") {
    return std::to_string(animal.day) + " " + months[static_cast<std::size_t>(animal.month) - 1] + " " +
           std::to_string(animal.year);
  }
  const bool has_time = layout == "time";
  const std::string form = has_time ? "yyyy-mm-dd" : layout;
  std::string date;
  for (std::size_t i = 0; i < form.size();) {
    const std::size_t length = std::min(form.find_first_not_of(form[i], i), form.size()) - i;
    switch (form[i]) {
      case 'y': date += digits(animal.year, 4); break;
      case 'm': date += digits(animal.month, static_cast<int>(length)); break;
      case 'd': date += digits(animal.day, static_cast<int>(length)); break;
      default: date += form.substr(i, length); break;
    }
    i += length;
  }
  return has_time ? date + "T00:00:00.000Z" : date;
}

std::string quoted_field(const std::string& field, const ExportForm& form) {
  const bool needs_quotes = field.find_first_of(std::string("\"\r\n") + form.delimiter) != std::string::npos;
  if (!needs_quotes && !form.quotes_all) return field;
  std::string result = "\"";
  for (const char byte : field) result += byte == '"' ? "\"\"" : std::string(1, byte);
  return result + "\"";
}

std::string joined_fields(const std::vector<std::string>& fields, const ExportForm& form) {
  std::string line;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) line += form.delimiter;
    line += quoted_field(fields[i], form);
  }
  return line + form.line_end;
}

}  // namespace

std::vector<OfficeAnimal> make_office_population(int count, std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  const std::array<std::string, 5> names = {"Zo\xC3\xAB", "Rex, the dog", "Ren\xC3\xA9; second", "the \"great\" one",
                                            "Bo"};
  const std::array<std::string, 3> groups = {"North",
                                             "Zu\xC3\xAF"
                                             "d",
                                             "West"};
  std::vector<OfficeAnimal> animals;
  for (int i = 0; i < count; ++i) {
    OfficeAnimal animal;
    animal.id = "HS-" + digits(i + 1, 5);
    animal.name = names[static_cast<std::size_t>(below(5))] + " " + std::to_string(i);
    animal.is_male = i % 2 == 0;
    animal.year = 2000 + i * 12 / count;
    animal.month = 1 + below(12);
    animal.day = 1 + below(28);
    animal.colour = std::array<std::string, 3>{"black", "white", ""}[static_cast<std::size_t>(below(3))];
    animal.breeder = std::array<std::string, 3>{"Fell", "Moor, End",
                                                "H\xC3\xB6"
                                                "fer"}[static_cast<std::size_t>(below(3))];
    animal.subpopulation = groups[static_cast<std::size_t>(i % 3)];
    if (below(20) == 0) animal.import = "Germany";
    const int oldest = count / 4;
    if (i >= oldest && below(20) != 0) animal.sire = animals[static_cast<std::size_t>(2 * below(i / 4 + 1))].id;
    if (i >= oldest && below(20) != 0) animal.dam = animals[static_cast<std::size_t>(2 * below(i / 4) + 1)].id;
    if (below(50) == 0) animal.year = 0;
    animals.push_back(animal);
  }
  return animals;
}

std::string encoded(std::string_view utf_8, std::string_view encoding) {
  const std::u16string letters = letters_of(utf_8);
  if (encoding == "utf-8") return std::string(utf_8);
  if (encoding == "utf-8-mark") return "\xEF\xBB\xBF" + std::string(utf_8);
  if (encoding == "utf-16le") return "\xFF\xFE" + as_utf_16(letters, true);
  if (encoding == "utf-16be") return "\xFE\xFF" + as_utf_16(letters, false);
  if (encoding == "utf-16le-bare") return as_utf_16(letters, true);
  std::string bytes;
  for (const char16_t letter : letters) bytes.push_back(static_cast<char>(static_cast<unsigned char>(letter)));
  return bytes;
}

std::string write_export(const std::vector<OfficeAnimal>& animals, const ExportForm& form) {
  std::string text;
  if (form.has_header) {
    text += joined_fields(
        {"Notes", "Reg. No", "NAME", "Sex", "Date of birth", "Sire", "Dam", "Kleur", "Breeder", "Variety", "IMPORT"},
        form);
  }
  for (const OfficeAnimal& animal : animals) {
    const auto parent = [&](const std::string& id) { return id.empty() ? form.unknown_parent : id; };
    text += joined_fields(
        {form.has_notes ? "seen, weighed" : "", animal.id, animal.name, animal.is_male ? form.male : form.female,
         written_date(animal, form.layout), parent(animal.sire), parent(animal.dam), animal.colour, animal.breeder,
         animal.subpopulation, animal.import.empty() ? "no" : animal.import},
        form);
  }
  return encoded(text, form.encoding);
}

std::string write_data_file(const std::vector<OfficeAnimal>& animals) {
  std::string text = "id\tname\tsex\tbirthdate\tsire\tdam\tcolour\tbreeder\tsubpopulation\tImport\n";
  for (const OfficeAnimal& animal : animals) {
    text += animal.id + "\t" + animal.name + "\t" + (animal.is_male ? "m" : "f") + "\t" +
            written_date(animal, "dd-mm-yyyy") + "\t" + animal.sire + "\t" + animal.dam + "\t" + animal.colour + "\t" +
            animal.breeder + "\t" + animal.subpopulation + "\t" + animal.import + "\n";
  }
  return encoded(text, "1252");
}

std::string write_steer_file(std::string_view data_file_name) {
  return "Moorland\n" + std::string(data_file_name) +
         "\n\t\nn\ndd-mm-yyyy\nsheep\nm\nen\ny\n3\nNorth\nZu\xEF"
         "d\nWest\n2\nblack\nwhite\n";
}

}  // namespace pedigreewatch::test
