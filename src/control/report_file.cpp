#include "control/report_file.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace pedigreewatch {
namespace {

/// Whether both names lead to one file.
bool are_one_file(const std::string& name, const std::string& other) {
  std::error_code ignored;
  return name == other || std::filesystem::equivalent(name, other, ignored);
}

/// Removes a file, and of a link what it leads to; never a device.
bool remove_regular_file(const std::string& name) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(name, error);
  return !error && std::filesystem::is_regular_file(target, error) && std::filesystem::remove(target, error);
}

/// Whether a file stands under this very name, and not behind a link.
bool is_plain_file(const std::string& name) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(std::filesystem::symlink_status(name, ignored));
}

bool is_free(const std::string& name) {
  std::error_code error;
  return std::filesystem::symlink_status(name, error).type() == std::filesystem::file_type::not_found;
}

bool is_empty_file(const std::string& name) {
  std::error_code error;
  return std::filesystem::file_size(name, error) == 0 && !error;
}

/// The last bytes of a file, at most `length`; none of a file that cannot be read.
std::string end_of(const std::string& name, long length) {
  std::FILE* const file = std::fopen(name.c_str(), "rb");
  if (file == nullptr) return {};
  if (std::fseek(file, -length, SEEK_END) != 0) std::rewind(file);  // of a shorter file
  std::string bytes(static_cast<std::size_t>(length), '\0');
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
  std::fclose(file);
  return bytes;
}

/// Whether a report shows by itself that it is not complete: it is empty, or its last line is that of a loop.
bool is_known_incomplete(const std::string& name) {
  if (is_empty_file(name)) return true;
  const std::string end = end_of(name, 40);
  return end.ends_with("\n program stopped\n") || end.ends_with("\n programma is gestopt\n");
}

void stop_if_input(const std::string& output, std::span<const std::string> inputs, RunStreams& streams) {
  for (const std::string& input : inputs) {
    if (!are_one_file(output, input)) continue;
    stop_on_file(streams, output, "the report would overwrite an input file of the run");
  }
}

/// A report that may not be overwritten is not to be put aside either.
void stop_if_protected(const std::string& name, RunStreams& streams) {
  std::FILE* const file = std::fopen(name.c_str(), "r+b");
  if (file == nullptr) stop_on_file(streams, name, error_text(errno));
  std::fclose(file);
}

/// The name by which a report is kept that a run with bad data replaces must be free, or that of a report.
void check_kept_name(const std::string& kept_name, std::span<const std::string> inputs, RunStreams& streams) {
  if (is_plain_file(kept_name)) return stop_if_input(kept_name, inputs, streams);
  if (is_free(kept_name)) return;
  stop_on_file(streams, kept_name, "this is no plain file, and the last complete report is kept under that name");
}

/// Whether a report of this name is a complete one, for all that can be told.
bool is_complete_report(const std::string& name) {
  return is_plain_file(name) && !is_known_incomplete(name);
}

/// Another run in the same folder may have removed the report that was kept.
bool has_last_complete(const RunStreams& streams) {
  return !streams.last_complete_report.empty() && is_plain_file(streams.last_complete_report);
}

void append_last_complete(RunStreams& streams) {
  if (!has_last_complete(streams)) return;
  append(streams.messages, "; the last complete report is " + streams.last_complete_report);
}

/// What a link leads to, if that is a file: it is replaced, and the link stays.
std::string target_of(const std::string& name) {
  std::error_code error;
  if (!std::filesystem::is_symlink(name, error)) return name;
  const std::filesystem::path target = std::filesystem::canonical(name, error);
  return !error && std::filesystem::is_regular_file(target, error) ? target.string() : name;
}

/// Begins the report beside the one of an earlier run.
std::FILE* begin_report(const std::string& name, std::span<const std::string> inputs, RunStreams& streams) {
  const std::string kept_name = name + ".last-complete";
  check_kept_name(kept_name, inputs, streams);
  if (is_plain_file(name)) stop_if_protected(name, streams);
  FileProblem problem;
  if (!begin_file(streams.report_file, name, problem)) stop_on_file(streams, name, problem.reason);
  if (is_complete_report(kept_name)) streams.last_complete_report = kept_name;
  return streams.report_file.file;
}

/// Opens a device, or what else is no plain file, for writing.
std::FILE* open_in_place(const std::string& name, RunStreams& streams) {
  std::FILE* const file = std::fopen(name.c_str(), "wb");
  if (file == nullptr) stop_on_file(streams, name, error_text(errno));
  return file;
}

/// Puts the report of an earlier run aside, unless one is kept already; false, with the reason, when that fails.
bool put_aside(RunStreams& streams, std::string& reason) {
  const std::string& name = streams.report_file.name;
  if (has_last_complete(streams) || !is_complete_report(name)) return true;
  const std::string kept_name = name + ".last-complete";
  std::error_code error;
  std::filesystem::rename(name, kept_name, error);
  if (error) {
    reason = "the last complete report could not be kept as " + kept_name + ": " + error.message();
    return false;
  }
  streams.last_complete_report = kept_name;
  return true;
}

}  // namespace

void open_report(const std::string& name, std::span<const std::string> inputs, RunStreams& streams) {
  stop_if_input(name, inputs, streams);
  if (streams.before_report_is_begun != nullptr) streams.before_report_is_begun();
  const std::string target = target_of(name);
  const bool is_replaced = is_plain_file(target) || is_free(target);
  streams.report.file = is_replaced ? begin_report(target, inputs, streams) : open_in_place(name, streams);
  std::setvbuf(streams.report.file, nullptr, _IONBF, 0);  // the stream has a buffer of its own
  streams.report.is_essential = true;
  streams.report.name = name;
}

bool close_report(RunStreams& streams, std::string& reason) {
  TextOutput& report = streams.report;
  report.is_essential = false;  // whether everything arrived is looked at here
  if (streams.report_file.temporary.empty()) {
    close(report);
  } else {
    flush(report);
    report.file = nullptr;  // it is closed when it has its name
  }
  if (report.error != 0) reason = error_text(report.error);
  return report.error == 0;
}

bool name_report(bool is_complete, RunStreams& streams, std::string& reason) {
  if (streams.report_file.temporary.empty()) return true;
  FileProblem problem;
  if (!is_complete && !put_aside(streams, reason)) return false;
  if (finish_file(streams.report_file, problem)) return true;
  reason = problem.reason;
  return false;
}

void remove_last_complete_report(RunStreams& streams) {
  const std::string& name = streams.last_complete_report;
  std::error_code error;
  if (name.empty() || std::filesystem::remove(name, error) || !error) return;
  append(streams.messages, name + ": this report of an earlier run could not be removed: " + error.message() +
                               "; remove it, or the next run takes it for the last complete one");
  end_line(streams.messages);
}

void remove_incomplete_report(const std::string& reason, RunStreams& streams) {
  const std::string& name = streams.report.name;
  const bool was_beside = !streams.report_file.name.empty();
  append(streams.messages, name + ": the report could not be written: " + reason);
  abandon(streams.report_file);
  if (!was_beside && !remove_regular_file(name)) append(streams.messages, "; what there is of it is not complete");
  if (has_last_complete(streams)) {
    append_last_complete(streams);
  } else if (was_beside && is_complete_report(streams.report_file.name)) {
    append(streams.messages, "; the last complete report still stands there");
  }
  end_line(streams.messages);
}

void leave_incomplete_report(RunStreams& streams) {
  if (!has_last_complete(streams)) return;
  append(streams.messages, streams.report.name + ": the report is not complete");
  append_last_complete(streams);
  end_line(streams.messages);
}

}  // namespace pedigreewatch
