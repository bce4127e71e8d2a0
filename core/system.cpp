#include "core/system.h"

#include "core/procedure.h"
#include "core/text.h"
#include "platform/platform.h"

namespace quernstoke {

namespace {

// What is kept of the drive that was asked about last.
struct DriveSpace {
  std::string root;
  std::int64_t freeBytes = 0;
  std::int64_t totalBytes = 0;
  float usedFraction = 0;
  float freeFraction = 0;
};

DriveSpace lastDrive;

DriveSpace driveSpace(std::string_view rootPath, const DiskSpace& space) {
  const FixedPoint clusterBytes =
      FixedPoint::fromWhole(space.sectorsPerCluster).times(space.bytesPerSector);
  const FixedPoint free = clusterBytes.times(space.freeClusters);
  const FixedPoint total = clusterBytes.times(space.totalClusters);
  DiskFreeBytes = free;
  DriveSpace drive{std::string(firstCharacters(rootPath, 3)),
                   free.tenThousandths() / FixedPoint::scale,
                   total.tenThousandths() / FixedPoint::scale, 0, 0};
  if (drive.totalBytes != 0) {
    const auto totalBytes = static_cast<double>(drive.totalBytes);
    drive.freeFraction = static_cast<float>(static_cast<double>(drive.freeBytes) / totalBytes);
    drive.usedFraction =
        static_cast<float>(static_cast<double>(drive.totalBytes - drive.freeBytes) / totalBytes);
  }
  return drive;
}

}  // namespace

FixedPoint DiskFreeBytes;

std::string basShellOpen(std::string_view file, ShowMode showMode, std::string_view parameters,
                         std::string_view directory, std::string_view operation,
                         std::intptr_t window) {
  ShellRequest request{operation, file, {}, {}, ShowMode::normal, window};
  if (!parameters.empty() || !directory.empty()) {
    const bool isProgram = upper(file).find(".EXE") != std::string::npos;
    request.parameters = parameters;
    request.directory = directory;
    request.showMode = isProgram ? ShowMode::hidden : showMode;
  }
  std::int32_t answer = 0;
  ignoringFailure([&] { answer = desktop().shellExecute(request); });
  if (answer < 0 || answer >= shellSuccess) return "OK";
  return answer == shellNoAssociation ? "NOASSOC" : "";
}

std::string basGetSpecialFolder(Int32 folderId) {
  return desktop().specialFolder(folderId.raw()).value_or("");
}

std::string basGetDiskSpace(std::string_view rootPath, std::string_view key) {
  const std::optional<DiskSpace> space = desktop().diskSpace(rootPath);
  lastDrive = {};
  DiskFreeBytes = {};
  if (space) lastDrive = driveSpace(rootPath, *space);

  const std::string wanted = upper(key);
  if (wanted == "ROOTPATH") return lastDrive.root;
  if (wanted == "FREEBYTES") return grouped(lastDrive.freeBytes);
  if (wanted == "TOTALBYTES") return grouped(lastDrive.totalBytes);
  // The names of these two are the wrong way round; their callers count on it.
  if (wanted == "FREEPCNT") return percentWithTwoDecimals(lastDrive.usedFraction);
  if (wanted == "USEDPCNT") return percentWithTwoDecimals(lastDrive.freeFraction);
  return space ? "1" : "0";
}

}  // namespace quernstoke
