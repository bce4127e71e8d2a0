#pragma once

namespace quernstoke {

enum class ExitStatus : int;
struct Options;
class StandardError;

// Carry out a run and report on it. Each throws a ScanError for a run that can't be begun, and for
// a report that can't be written.
ExitStatus scanDirectories(const Options& options, StandardError& err);
ExitStatus scanProfile(const Options& options, StandardError& err);

}  // namespace quernstoke
