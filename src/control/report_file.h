// The file of the report. It is written under another name, and gets its own one in a single step when it is complete:
// whatever ends the run before leaves the report of an earlier run where it was. Only a run that bad data stop puts
// that one aside, as the report's name and ".last-complete", for its own report tells what is wrong with the data.
#pragma once

#include <span>
#include <string>

#include "core/run_streams.h"

namespace pedigreewatch {

/// Begins the report, beside the one of an earlier run. Of a link to a file that file is replaced; a device is written
/// to as it is. Stops the run, with every file as it was, when the report is one of `inputs`, by whatever name, when it
/// cannot be created, when the older one may not be written, and when the name under which that would be put aside is
/// one of `inputs` or no plain file's.
void open_report(const std::string& name, std::span<const std::string> inputs, RunStreams& streams);

/// Hands everything to the file; false, with the reason, when it did not all arrive.
bool close_report(RunStreams& streams, std::string& reason);

/// Gives the report its name; false, with the reason, when that fails, and then nothing is changed. One that is not
/// complete, which tells what is wrong with the data, puts the last complete one aside.
bool name_report(bool is_complete, RunStreams& streams, std::string& reason);

/// The new report is complete and has its name: removes the older one that was kept. One that stays is told.
void remove_last_complete_report(RunStreams& streams);

/// Takes a report away that is not complete; a message says so and why, and where the last complete one is. On a device
/// it stays.
void remove_incomplete_report(const std::string& reason, RunStreams& streams);

/// Says where the last complete report is, when one was kept and is still there; the one at hand says itself what is
/// wrong, or is empty.
void leave_incomplete_report(RunStreams& streams);

}  // namespace pedigreewatch
