#include "control/missing_file.h"

namespace pedigreewatch {

void stop_on_missing_file(RunStreams& streams, const MissingFileMessages& messages, std::string_view name,
                          const LineReader& file) {
  TextOutput& console = streams.console;
  write_free_line(console, {messages.english_error, name});
  write_free_line(console, {messages.english_reason});
  write_free_line(console, {"           ***PROGRAM TERMINATED***"});
  write_free_line(console, {"End of program. Press RETURN to exit."});
  write_free_line(console, {"__________________________________________________"});
  write_free_line(console, {messages.dutch_error, name, messages.dutch_error_end});
  write_free_line(console, {messages.dutch_reason});
  write_free_line(console, {"           ***PROGRAMMA BEEINDIGD***"});
  write_free_line(console, {"Einde programma. Druk op Enter om uit het programma te gaan."});
  append(streams.messages, quoted(file.name) + ": " + error_text(file.error));
  end_line(streams.messages);
  wait_for_return(streams);
  stop_run();
}

}  // namespace pedigreewatch
