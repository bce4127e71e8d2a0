#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "platform/desktop.h"
#include "platform/linux/pathMapping.h"

namespace quernstoke {

// The desktop as freedesktop.org's conventions reach it.
class LinuxDesktop final : public Desktop {
 public:
  explicit LinuxDesktop(DriveTable drives = DriveTable::fromEnvironment());
  ~LinuxDesktop() override;
  LinuxDesktop(const LinuxDesktop&) = delete;
  LinuxDesktop& operator=(const LinuxDesktop&) = delete;

  // Starts xdg-open without a shell, and waits up to a second for a failure.
  std::int32_t shellExecute(const ShellRequest& request) override;
  std::optional<std::string> specialFolder(std::int32_t id) override;
  std::optional<DiskSpace> diskSpace(std::string_view rootPath) override;
  std::vector<std::string> drives() override;  // With their directories: "C: [/]".

 private:
  std::int32_t start(const std::string& target, const std::string& directory);
  void reapEnded();

  DriveTable drives_;
  std::vector<pid_t> running_;  // Started and not yet waited for.
};

}  // namespace quernstoke
