// The message of a formula that reads too much (a cycle, as a rule). It goes
// straight to the debug channel, not to the call's pending messages, and at
// most once per data source.
#pragma once

#include <string>

// Writes the message for the size `sizeIdentifier` unless `reported` is
// already set; sets it.
void ReportFormulaCycle(bool& reported, const std::wstring& sizeIdentifier);
