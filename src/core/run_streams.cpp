#include "core/run_streams.h"

#include <array>
#include <charconv>
#include <system_error>

namespace pedigreewatch {
namespace {

void append_number(TextOutput& output, std::int64_t value) {
  std::array<char, 24> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  append(output, {digits.data(), static_cast<std::size_t>(end - digits.data())});
}

/// At most `length` bytes of `text`, with dots for those that a terminal would act on and for the rest of it.
std::string printable(std::string_view text, std::size_t length) {
  std::string result;
  for (const char byte : text.substr(0, length)) {
    const bool is_control = static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
    result.push_back(is_control ? '.' : byte);
  }
  return text.size() > length ? result + "..." : result;
}

/// Where in its line a piece of input stands.
void append_place(TextOutput& messages, const InputProblem& problem) {
  constexpr std::size_t shown_heading_length = 40;
  if (problem.field > 0) {
    append(messages, ", field ");
    append_number(messages, problem.field);
    if (!problem.heading.empty()) append(messages, " (" + printable(problem.heading, shown_heading_length) + ")");
  }
  if (problem.column > 0) {
    append(messages, problem.field > 0 ? ", character " : ", column ");
    append_number(messages, problem.column);
  }
}

}  // namespace

std::string quoted(std::string_view text) {
  constexpr std::size_t shown_length = 80;
  return "\"" + printable(text, shown_length) + "\"";
}

void stop_run() {
  throw RunStopped{};
}

void wait_for_return(RunStreams& streams) {
  flush(streams.console);
  flush(streams.report);
  flush(streams.messages);
  if (streams.keyboard == nullptr) return;
  for (int byte = std::fgetc(streams.keyboard); byte != EOF && byte != '\n';) byte = std::fgetc(streams.keyboard);
}

void stop_on_input(RunStreams& streams, const InputProblem& problem) {
  TextOutput& messages = streams.messages;
  flush(streams.console);  // what was said before stands before it, also when both go to one file
  append(messages, problem.file);
  if (problem.line > 0) {
    append(messages, ", line ");
    append_number(messages, problem.line);
    append_place(messages, problem);
    append(messages, ": ");
    append(messages, quoted(problem.text));
  }
  append(messages, ": ");
  append(messages, problem.expected);
  end_line(messages);
  stop_run();
}

void stop_on_file(RunStreams& streams, std::string_view file, std::string_view problem) {
  flush(streams.console);
  append(streams.messages, file);
  append(streams.messages, ": ");
  append(streams.messages, problem);
  end_line(streams.messages);
  stop_run();
}

std::string error_text(int error_number) {
  if (error_number == input_has_changed) {
    return "the file has changed while it was read; run again when nobody writes it";
  }
  if (error_number == EINTR) return "stopped from outside";
  return std::generic_category().message(error_number);
}

}  // namespace pedigreewatch
