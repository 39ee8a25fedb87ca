// Any field list with any items, and any free-form line. A field list is either refused or gives one line; a
// free-form line never holds more than 80 columns, but for the one text of exactly 80 characters.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/line_writer.h"

namespace {

using namespace pedigreewatch;

void require(bool holds) {
  if (!holds) std::abort();
}

/// Texts are kept in `texts`, which must not move any more.
std::vector<LineItem> take_items(FuzzedDataProvider& input, std::vector<std::string>& texts, bool with_reals) {
  constexpr std::size_t most_items = 40;
  texts.reserve(most_items);
  std::vector<LineItem> items;
  const std::size_t count = input.ConsumeIntegralInRange<std::size_t>(0, most_items);
  for (std::size_t i = 0; i < count; ++i) {
    switch (input.ConsumeIntegralInRange(0, with_reals ? 4 : 3)) {
      case 0: items.emplace_back(input.ConsumeIntegral<std::int32_t>()); break;
      case 1: items.emplace_back(input.ConsumeIntegral<std::int64_t>()); break;
      case 2: items.emplace_back(UndefinedInteger{}); break;
      case 3: items.emplace_back(texts.emplace_back(input.ConsumeRandomLengthString(200))); break;
      default: items.emplace_back(input.ConsumeFloatingPoint<float>()); break;
    }
  }
  return items;
}

void check_free_line(const std::vector<LineItem>& items) {
  TextOutput output;
  write_free_line(output, items);
  require(!output.pending.empty() && output.pending.back() == '\n');
  std::size_t line_length = 0, printed = 0;
  bool has_line_feed_text = false, has_eighty = false;
  for (const LineItem& item : items) {
    has_line_feed_text |= item.text.find('\n') != std::string_view::npos;
    has_eighty |= item.text.size() == 80;
    printed += item.kind == LineItem::Kind::text ? item.text.size() : 12;
  }
  require(output.pending.size() >= printed);
  if (has_line_feed_text) return;
  for (const char byte : output.pending) {
    if (byte != '\n') {
      ++line_length;
      continue;
    }
    require(line_length <= 80 || (has_eighty && line_length == 81));
    line_length = 0;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider input(bytes, size);
  std::vector<std::string> texts;
  if (input.ConsumeBool()) {
    check_free_line(take_items(input, texts, false));
    return 0;
  }
  std::string field_list = input.ConsumeRandomLengthString(60);
  if (input.ConsumeBool()) {
    const std::int64_t count = input.ConsumeIntegralInRange<std::int64_t>(-5, 3000);
    field_list = row_fields(field_list, count, input.ConsumeRandomLengthString(10));
  }
  const std::vector<LineItem> items = take_items(input, texts, true);
  TextOutput output;
  try {
    write_format_line(output, field_list, items);
    require(output.pending.back() == '\n');
  } catch (const std::invalid_argument&) {
  }
  return 0;
}
