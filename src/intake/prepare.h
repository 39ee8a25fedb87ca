// Turns what an office program exports into a data file and a steer file.
#pragma once

#include "core/tool_streams.h"
#include "intake/prepare_options.h"

namespace pedigreewatch {

/// Reads the export, says what it recognises, and writes NAME.txt and pedigreewatch.ini, and
/// NAME_available.txt where the export tells which animals have gone. Yields the exit status: 0 when
/// all was written (or would have been, in a dry run), 1 when a question stays open or something cannot be read or
/// written; nothing is written then.
int prepare(const PrepareOptions& options, ToolStreams& streams);

}  // namespace pedigreewatch
