#include "console/program.h"

#include <csignal>
#include <exception>
#include <fcntl.h>
#include <string>
#include <unistd.h>

#include "console/exitStatus.h"
#include "console/helpText.h"
#include "console/options.h"
#include "console/output.h"
#include "console/scanRun.h"
#include "console/standardError.h"

namespace quernstoke {

namespace {

// A standard stream that was closed would be the number of the next file opened, and that file
// would get what is meant for the stream. Its place is taken so that using it fails.
void reserveStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (::fcntl(descriptor, F_GETFD) == -1)
      static_cast<void>(::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

ExitStatus print(const std::string& text) {
  Output output(std::nullopt);
  output.write(text);
  output.finish();
  return ExitStatus::finished;
}

ExitStatus carryOut(const Options& options, StandardError& err) {
  switch (options.task) {
    case Options::Task::showHelp:
      return print(helpText());
    case Options::Task::showVersion:
      return print(versionText());
    case Options::Task::runProfile:
      return scanProfile(options, err);
    case Options::Task::scanDirectories:
      break;
  }
  return scanDirectories(options, err);
}

ExitStatus run(int argc, char* argv[], StandardError& err) {
  try {
    return carryOut(parseOptions(argc, argv), err);
  } catch (const ScanError& error) {
    err.line(std::string("quernstoke-scan: ") + error.what());
    return error.status;
  } catch (const std::exception& error) {
    err.line(std::string("quernstoke-scan: the run failed: ") + error.what());
    return ExitStatus::failed;
  }
}

}  // namespace

int runProgram(int argc, char* argv[]) {
  reserveStandardStreams();
  std::signal(SIGPIPE, SIG_IGN);  // A reader that has gone is an error of writing.
  std::signal(SIGXFSZ, SIG_IGN);  // And so is a file that may not become so long.
  StandardError err(STDERR_FILENO);
  return static_cast<int>(run(argc, argv, err));
}

}  // namespace quernstoke
