// Single pieces of the program that every animal or every line passes through.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "core/line_writer.h"
#include "core/text_index.h"
#include "pedigree/birth_date.h"
#include "pedigree/population_store.h"
#include "pedigree/record_reading.h"

namespace pedigreewatch {
namespace {

void BM_FormatLine(benchmark::State& state) {
  TextOutput output;
  for (auto _ : state) {
    write_format_line(output, "I8,6F8.4", {2024, 0.0123F, 0.0345F, 0.0344F, 0.0411F, 0.0502F, 0.0398F});
    output.pending.clear();
  }
}
BENCHMARK(BM_FormatLine);

void BM_FreeLine(benchmark::State& state) {
  TextOutput output;
  for (auto _ : state) {
    write_free_line(output, {"animal no. ", 123456, "parents found and offspring checked"});
    output.pending.clear();
  }
}
BENCHMARK(BM_FreeLine);

void BM_StoreLine(benchmark::State& state) {
  DataFileLayout layout;
  layout.delimiter = ';';
  layout.dates = {.has_delimiters = true, .day_first = true};
  layout.male_letters = {'m', 'M'};
  const std::vector<std::int32_t> columns = {1, 4, 7, 8, 2, 3, 9, 10};
  LineRecord record;
  RunStreams streams;
  for (auto _ : state) {
    store_line("NL0000123456;Geertje;f;17-04-2012;NL0000098765;NL0000087654;black;Bakker", columns, layout,
               {"herd.txt", 1, 0, 1}, record, streams);
    benchmark::DoNotOptimize(record);
  }
}
BENCHMARK(BM_StoreLine);

void BM_FindText(benchmark::State& state) {
  std::vector<AnimalId> ids;
  for (std::int64_t i = 0; i < state.range(0); ++i) ids.emplace_back("NL" + std::to_string(1000000 + i));
  TextIndex index;
  const auto id_at = [&](std::int32_t place) { return ids[static_cast<std::size_t>(place) - 1].full(); };
  for (std::size_t i = 0; i < ids.size(); ++i) {
    find_or_add_text(index, ids[i].full(), static_cast<std::int32_t>(i) + 1, id_at);
  }
  std::size_t next = 0;
  for (auto _ : state) {
    next = (next + 7919) % ids.size();
    benchmark::DoNotOptimize(find_text(index, ids[next].full(), id_at));
  }
}
BENCHMARK(BM_FindText)->Arg(1000)->Arg(1000000);

}  // namespace
}  // namespace pedigreewatch
