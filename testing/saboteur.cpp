#include "testing/saboteur.h"

#include <limits>
#include <new>
#include <ostream>

namespace quernstoke::sabotage {

namespace {

FailureNumber usualFailure(DiskAction action) {
  switch (action) {
    case DiskAction::list:
    case DiskAction::canEnter:
      return FailureNumber::pathNotFound;
    case DiskAction::entryAttributes:
    case DiskAction::entrySize:
    case DiskAction::entryDate:
    case DiskAction::nameOnDisk:
      return FailureNumber::fileNotFound;
    case DiskAction::makeDirectory:
    case DiskAction::removeDirectory:
    case DiskAction::copy:
    case DiskAction::rename:
      return FailureNumber::pathFileAccess;
    case DiskAction::clearAttributes:
    case DiskAction::look:
    case DiskAction::remove:
    case DiskAction::open:
      return FailureNumber::permissionDenied;
    case DiskAction::attributes:
    case DiskAction::length:
    case DiskAction::modified:
    case DiskAction::sameFile:
    case DiskAction::nextEntry:
    case DiskAction::read:
    case DiskAction::write:
    case DiskAction::seek:
    case DiskAction::openLength:
    case DiskAction::atEnd:
    case DiskAction::close:
      break;
  }
  return FailureNumber::deviceError;
}

bool takesRoom(const DiskCall& call) {
  return call.action == DiskAction::write || call.action == DiskAction::makeDirectory ||
         call.action == DiskAction::close ||
         (call.action == DiskAction::open &&
          (call.mode == OpenMode::output || call.mode == OpenMode::binary));
}

// Settings are read byte by byte; some of these reads will do.
bool isOneOfMany(const DiskCall& call) {
  constexpr int oneIn = 61;
  return call.action == DiskAction::read && call.position % oneIn != 0 &&
         (call.path.ends_with(".profile") || call.path.ends_with(".settings"));
}

// Whether a call is of the part of the program in which a way differs from the others.
bool isOfWay(Way way, const DiskCall& call) {
  switch (way) {
    case Way::inPlace:
      return kindOf(call.path) == "data";
    case Way::extracted:
      return kindOf(call.path) == "temp";
    case Way::slowMedium:
    case Way::names:
      break;
  }
  return true;
}

}  // namespace

const std::string tempPath = "C:\\Quernstoke\\temp\\";

std::string nameOf(const Case& given) {
  constexpr const char* faults[] = {"Usual", "DiskFull", "OutOfMemory", "StaysFull", "MediumGone"};
  constexpr const char* scans[] = {"Whole", "Paused", "Continued", "First"};
  constexpr const char* ways[] = {"", "Names", "InPlace", "Extracted"};
  return std::string(scans[static_cast<int>(given.scan)]) + faults[static_cast<int>(given.fault)] +
         ways[static_cast<int>(given.way)];
}
void PrintTo(const Case& given, std::ostream* out) {
  *out << nameOf(given);
}

bool goesOn(Fault fault) {
  return fault == Fault::staysFull || fault == Fault::mediumGone;
}
bool isOfRoom(Fault fault) {
  return fault == Fault::diskFull || fault == Fault::staysFull;
}

// The directory's name is that of its first maker, who may have a capital.
bool isInTemp(const std::string& path) {
  return path.starts_with(tempPath.substr(0, tempPath.size() - 1)) ||
         path.starts_with("C:\\Quernstoke\\Temp");
}

std::string kindOf(const std::string& path) {
  if (path.ends_with(".profile") || path.ends_with(".settings")) return "settings";
  if (path.ends_with(".files") || path.ends_with(".dir")) return "snapshot";
  if (isInTemp(path)) return "temp";
  return path.starts_with("C:\\Data\\") ? "data" : path;
}

void Saboteur::seeDisk(const DiskCall& call) {
  if (hasBroken() ? !goesOn(fault_) : isOneOfMany(call)) return;
  if (!isOfWay(way_, call) || (isOfRoom(fault_) && !takesRoom(call)) || !isDue()) return;
  if (broken_.empty()) {
    broken_ = describe(call);
    brokenPath_ = call.path;
    kind_ = describe({call.action, kindOf(call.path)});
  }
  if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
  fail(isOfRoom(fault_) ? FailureNumber::diskFull : usualFailure(call.action));
}

int Saboteur::seeArchives(const ScriptedArchives::Call& call) {
  const bool isListing = call.included.empty();
  if (way_ == Way::inPlace || (way_ == Way::extracted && isListing) || !isDue()) return archiveOk;
  if (broken_.empty()) {
    broken_ = "archive library on " + call.options.lpszZipFN +
              (isListing ? "" : ", entry " + call.included.front());
    kind_ = isListing ? "listing of an archive" : "extraction";
  }
  if (fault_ == Fault::outOfMemory) throw std::bad_alloc();
  return isOfRoom(fault_) ? archiveDiskFull : archiveDamaged;
}

Saboteur nothingBreaks(Fault::usual, std::numeric_limits<int>::max());

}  // namespace quernstoke::sabotage
