// The steer file "pedigreewatch.ini": the run's only configuration, read line by line in a fixed order.
#pragma once

#include <string>
#include <string_view>

#include "control/steer_settings.h"
#include "core/line_reader.h"
#include "core/run_streams.h"

namespace pedigreewatch {

inline constexpr const char* steer_file_name = "pedigreewatch.ini";

/// Reads the steer file of the working directory and echoes on the console what was understood. A steer file that
/// cannot be opened prints its messages, waits for one line on the keyboard and stops the run; one that ends early
/// leaves blanks and zeros. A list too long for any report stops the run with a message.
SteerSettings read_steer_file(RunStreams& streams);

/// The same from a file that has been opened already.
SteerSettings read_steer_lines(LineReader& reader, RunStreams& streams);

/// The report's name: the data file's name without leading blanks, its last three characters replaced by "out".
FixedText<30> derive_report_file_name(const FixedText<30>& data_file_name);

/// A file beside the report: its name with `ending` in place of what stands behind the last full stop ("_years.tsv").
std::string name_beside_report(const SteerSettings& settings, std::string_view ending);

/// The same letter in the other case; any other byte is its own partner.
char other_case(char letter);

}  // namespace pedigreewatch
