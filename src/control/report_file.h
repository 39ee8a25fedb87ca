// The file of the report: opened under its name, but never over a file that the run reads. The report of an earlier run
// is put aside under the same name and ".last-complete" until the new one is complete, so that a run that stops, or is
// killed, does not take it along.
#pragma once

#include <span>
#include <string>

#include "core/run_streams.h"

namespace pedigreewatch {

/// Creates the report. A file that stands there already is kept as `NAME.last-complete`, unless it is empty or tells of
/// a loop in the pedigree; when there is such a report under that name already, that is the one of the last complete
/// run and stays, and what stands at the report's own name is overwritten. Links and devices are written to as they
/// are. Stops the run, with every file as it was, when the report is one of `inputs`, by whatever name, when it cannot
/// be created, and when the older one cannot be kept, for which that name must be free or a plain file's.
void open_report(const std::string& name, std::span<const std::string> inputs, RunStreams& streams);

/// The new report is complete and has been closed: removes the older one that was kept. One that stays is told.
void remove_last_complete_report(RunStreams& streams);

/// A report that is not complete must not look complete: it is taken away, and a message says so and why. Of a link
/// what it leads to is removed; a device stays. The report has been closed.
void remove_incomplete_report(const std::string& reason, RunStreams& streams);

/// Says where the last complete report is, when one was kept and is still there; the one at hand says itself what is
/// wrong, or is empty.
void leave_incomplete_report(RunStreams& streams);

}  // namespace pedigreewatch
