#pragma once

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/linux/descriptor.h"

namespace quernstoke {

// How the program ended and what it said.
struct RunResult {
  int status = -1;  // -1: it was killed.
  std::string out;
  std::string err;
};

// One run of the built program, for tests. Fields are set as needed before run().
struct RunScan {
  std::string executable = QUERNSTOKE_SCAN_PATH;
  std::vector<std::string> arguments;
  std::vector<std::pair<std::string, std::string>> environment;  // Added; an empty value unsets.
  std::string workingDirectory;
  std::vector<int> signals;    // Pending when the program begins, so that no test races it.
  std::optional<int> ignored;  // A signal that its starter ignores.
  std::string outPath;         // Opened as standard output instead of a pipe.
  bool closesOut = false;      // Runs without a standard output.
  bool breaksOut = false;      // Nobody reads the pipe of its standard output.
  bool errIsTerminal = false;
  bool withoutPrivileges = false;  // Permissions count for nothing as long as root runs the tests.

  RunResult run() const {
    Channel out = pipeChannel();
    Channel err = errIsTerminal ? terminalChannel() : pipeChannel();
    const pid_t child = ::fork();
    if (child < 0) throw std::runtime_error("no process for the test");
    if (child == 0) become(out.write.get(), err.write.get());
    out.write.reset();
    err.write.reset();
    if (breaksOut) out.read.reset();
    RunResult result;
    readBoth(out, result.out, err, result.err);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    return result;
  }

 private:
  struct Channel {
    Descriptor read;
    Descriptor write;
  };

  static Channel pipeChannel() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe for the test");
    return {Descriptor(ends[0]), Descriptor(ends[1])};
  }

  static Channel terminalChannel() {
    Descriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!master.isOpen() || ::grantpt(master.get()) != 0 || ::unlockpt(master.get()) != 0)
      throw std::runtime_error("no terminal for the test");
    Descriptor slave(::open(::ptsname(master.get()), O_RDWR | O_NOCTTY | O_CLOEXEC));
    return {std::move(master), std::move(slave)};
  }

  static void readBoth(Channel& out, std::string& outText, Channel& err, std::string& errText) {
    while (out.read.isOpen() || err.read.isOpen()) {
      pollfd watched[] = {{out.read.get(), POLLIN, 0}, {err.read.get(), POLLIN, 0}};
      if (::poll(watched, 2, -1) < 0) continue;
      if (watched[0].revents != 0) readSome(out.read, outText);
      if (watched[1].revents != 0) readSome(err.read, errText);
    }
  }

  static void readSome(Descriptor& from, std::string& text) {
    char buffer[4096];
    const ssize_t count = ::read(from.get(), buffer, sizeof buffer);
    if (count > 0)
      text.append(buffer, static_cast<std::size_t>(count));
    else
      from.reset();
  }

  // In the child: turns into the program.
  [[noreturn]] void become(int out, int err) const {
    constexpr unsigned secondsToLive = 240;
    constexpr int cannotRun = 127;
    if (!workingDirectory.empty() && ::chdir(workingDirectory.c_str()) != 0) ::_exit(cannotRun);
    for (const auto& [name, value] : environment)
      value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
    prepareSignals();
    const int chosen = outPath.empty() ? out : ::open(outPath.c_str(), O_WRONLY | O_CLOEXEC);
    ::dup2(chosen, STDOUT_FILENO);
    ::dup2(err, STDERR_FILENO);
    if (closesOut) ::close(STDOUT_FILENO);
    if (withoutPrivileges) dropPrivileges();
    ::alarm(secondsToLive);
    execute();
    ::_exit(cannotRun);
  }

  void prepareSignals() const {
    if (ignored) ::signal(*ignored, SIG_IGN);
    sigset_t held;
    sigemptyset(&held);
    for (const int number : signals)
      sigaddset(&held, number);
    ::sigprocmask(SIG_BLOCK, &held, nullptr);
    for (const int number : signals)
      ::raise(number);
  }

  static void dropPrivileges() {
    constexpr unsigned nobody = 65534;
    if (::geteuid() != 0) return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
      ::_exit(126);
  }

  void execute() const {
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), "quernstoke-scan");
    std::vector<char*> pointers;
    for (std::string& word : words)
      pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(executable.c_str(), pointers.data());
  }
};

}  // namespace quernstoke
