#include "desk/desk.h"

namespace pedigreewatch {
void forget_run(Desk& desk) {
  desk.files.reset();
  desk.steer.reset();
  desk.check.reset();
  desk.forecast.reset();
  desk.results.reset();
  desk.males.clear();
  desk.males_for_dam = 0;
  desk.left_out.clear();
  desk.mates = {};
  std::vector<std::int32_t>().swap(desk.chosen_animals);
  desk.card_of = 0;
  desk.plan.reset();
  std::vector<std::uint32_t>().swap(desk.chosen_findings);
}

void forget_all(Desk& desk) {
  forget_run(desk);
  desk.has_export = false;
  desk.preparation = {};
  desk.options = {};
  desk.corrections.clear();
  desk.settings.clear();
}

void add_lines(JsonText& json, std::string_view name, std::string_view text) {
  begin_list(json, name);
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    if (end != 0) add_text(json, text.substr(0, end));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  end_list(json);
}

void add_texts(JsonText& json, std::string_view name, std::span<const std::string> texts) {
  begin_list(json, name);
  for (const std::string& text : texts) add_text(json, text);
  end_list(json);
}

}  // namespace pedigreewatch
