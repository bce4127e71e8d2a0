#include "core/system.h"

#include "core/procedure.h"
#include "core/text.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

struct DriveSpace {
  std::string root;
  FixedPoint freeBytes;
  FixedPoint totalBytes;
  float usedFraction = 0;
  float freeFraction = 0;
};

DriveSpace driveSpace(std::string_view rootPath, const DiskSpace& space) {
  const FixedPoint clusterBytes =
      FixedPoint::fromWhole(space.sectorsPerCluster).times(space.bytesPerSector);
  DriveSpace drive;
  drive.root = firstCharacters(rootPath, 3);
  drive.freeBytes = clusterBytes.times(space.freeClusters);
  drive.totalBytes = clusterBytes.times(space.totalClusters);
  const double total = drive.totalBytes.toDouble();
  if (total != 0) {
    drive.freeFraction = static_cast<float>(drive.freeBytes.toDouble() / total);
    drive.usedFraction = static_cast<float>((total - drive.freeBytes.toDouble()) / total);
  }
  return drive;
}

std::string groupedBytes(FixedPoint bytes) {
  return grouped(bytes.tenThousandths() / FixedPoint::scale);
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

void showUnopenable(const std::string& path) {
  dialogs().messageBox("Can't open file '" + path + "'");
}

void showNoApplication() {
  dialogs().messageBox("This file has no associated application");
}

std::string basGetSpecialFolder(Int32 folderId) {
  return desktop().specialFolder(folderId.raw()).value_or("");
}

std::string basGetDiskSpace(std::string_view rootPath, std::string_view key) {
  const std::optional<DiskSpace> space = desktop().diskSpace(rootPath);
  DiskFreeBytes = {};
  const DriveSpace drive = space ? driveSpace(rootPath, *space) : DriveSpace();
  DiskFreeBytes = drive.freeBytes;

  const std::string wanted = upper(key);
  if (wanted == "ROOTPATH") return drive.root;
  if (wanted == "FREEBYTES") return groupedBytes(drive.freeBytes);
  if (wanted == "TOTALBYTES") return groupedBytes(drive.totalBytes);
  // The names of these two are the wrong way round; their callers count on it.
  if (wanted == "FREEPCNT") return percentWithTwoDecimals(drive.usedFraction);
  if (wanted == "USEDPCNT") return percentWithTwoDecimals(drive.freeFraction);
  return space ? "1" : "0";
}

}  // namespace quernstoke
