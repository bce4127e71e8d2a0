#include "platform/linux/pathMapping.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/linux/environment.h"

namespace quernstoke {

namespace {

constexpr std::string_view escape = "\xEF\x80\x80";  // U+F000
constexpr std::size_t standInLength = 3;
constexpr char standInLead = '\xEF';
constexpr std::string_view separators = "\\/";

constexpr bool isReserved(unsigned char byte) {
  return (byte >= 1 && byte < 32) ||
         std::string_view("\\:*?\"<>|").find(static_cast<char>(byte)) != std::string_view::npos;
}

constexpr std::array<bool, 256> makeSuspects() {
  std::array<bool, 256> suspects{};
  for (std::size_t byte = 0; byte < suspects.size(); ++byte)
    suspects[byte] = isReserved(static_cast<unsigned char>(byte));
  suspects[static_cast<unsigned char>(standInLead)] = true;
  return suspects;
}

// The bytes that have to be looked at when a name is mapped.
constexpr std::array<bool, 256> suspects = makeSuspects();

bool isSuspect(char byte) {
  return suspects[static_cast<unsigned char>(byte)];
}

// Whether U+F000, or U+F000 plus the code of a reserved character, starts at the position. Looking
// at bytes is enough: in UTF-8 a lead byte is never part of another character.
bool isStandIn(std::string_view text, std::size_t position) {
  if (text.size() - position < standInLength || text[position] != standInLead) return false;
  const unsigned high = static_cast<unsigned char>(text[position + 1]) - 0x80U;
  const unsigned low = static_cast<unsigned char>(text[position + 2]) - 0x80U;
  if (high > 1 || low > 0x3F) return false;
  const unsigned code = (high << 6) | low;
  return code == 0 || isReserved(static_cast<unsigned char>(code));
}

void appendStandIn(unsigned char reserved, std::string& into) {
  into += standInLead;
  into += static_cast<char>(0x80U | (reserved >> 6));
  into += static_cast<char>(0x80U | (reserved & 0x3FU));
}

char reservedCharacter(std::string_view standIn) {
  return static_cast<char>(((static_cast<unsigned char>(standIn[1]) & 1U) << 6) |
                           (static_cast<unsigned char>(standIn[2]) & 0x3FU));
}

void appendWindowsName(std::string_view name, std::string& into) {
  if (!needsWindowsName(name)) {
    into += name;
    return;
  }
  for (std::size_t i = 0; i < name.size(); ++i) {
    const auto byte = static_cast<unsigned char>(name[i]);
    if (isReserved(byte)) {
      appendStandIn(byte, into);
      continue;
    }
    // The bytes of the escaped character itself follow as they are.
    if (isStandIn(name, i)) into += escape;
    into += name[i];
  }
}

void appendLinuxName(std::string_view name, std::string& into) {
  if (name.find(standInLead) == std::string_view::npos) {
    into += name;
    return;
  }
  for (std::size_t i = 0; i < name.size();) {
    if (!isStandIn(name, i)) {
      into += name[i++];
      continue;
    }
    const std::string_view standIn = name.substr(i, standInLength);
    i += standInLength;
    if (standIn != escape) {
      into += reservedCharacter(standIn);
    } else if (i < name.size() && isStandIn(name, i)) {
      into += name.substr(i, standInLength);
      i += standInLength;
    } else {
      into += escape;
    }
  }
}

// Calls `visit` with each component of a path that isn't empty.
template <class Visit>
void eachComponent(std::string_view path, std::string_view separatedBy, Visit visit) {
  for (;;) {
    const std::size_t start = path.find_first_not_of(separatedBy);
    if (start == std::string_view::npos) return;
    path.remove_prefix(start);
    const std::size_t length = std::min(path.find_first_of(separatedBy), path.size());
    visit(path.substr(0, length));
    path.remove_prefix(length);
  }
}

int letterIndex(char letter) {
  if (letter >= 'A' && letter <= 'Z') return letter - 'A';
  if (letter >= 'a' && letter <= 'z') return letter - 'a';
  return -1;
}

bool startsWithDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && letterIndex(path[0]) >= 0;
}

bool isWithin(std::string_view path, std::string_view directory) {
  return path.starts_with(directory) &&
         (path.size() == directory.size() || path[directory.size()] == '/');
}

}  // namespace

bool needsWindowsName(std::string_view linuxName) {
  for (std::size_t i = 0; i < linuxName.size(); ++i)
    if (isSuspect(linuxName[i]) && (linuxName[i] != standInLead || isStandIn(linuxName, i)))
      return true;
  return false;
}

std::string windowsName(std::string_view linuxName) {
  std::string name;
  appendWindowsName(linuxName, name);
  return name;
}

std::string linuxName(std::string_view windowsName) {
  std::string name;
  appendLinuxName(windowsName, name);
  return name;
}

DriveTable::DriveTable() {
  add("C:=/");
}

DriveTable DriveTable::parse(std::string_view drives) {
  DriveTable table;
  eachComponent(drives, ";", [&](std::string_view entry) { table.add(entry); });
  return table;
}

DriveTable DriveTable::fromEnvironment() {
  return parse(environmentVariable("QUERNSTOKE_DRIVES").value_or(""));
}

void DriveTable::add(std::string_view entry) {
  if (!startsWithDrive(entry) || !entry.substr(2).starts_with("=/")) return;
  Drive& drive = drives_[static_cast<std::size_t>(letterIndex(entry[0]))];
  if (drive.present) return;
  drive.present = true;
  eachComponent(entry.substr(3), "/",
                [&](std::string_view name) { drive.directory.append("/").append(name); });
}

const DriveTable::Drive& DriveTable::drive(char letter) const {
  const Drive& drive = drives_[static_cast<std::size_t>(letterIndex(letter))];
  if (!drive.present) fail(FailureNumber::pathNotFound);
  return drive;
}

std::string DriveTable::linuxPath(std::string_view programPath) const {
  std::string path;
  assignLinuxPath(programPath, path);
  return path;
}

void DriveTable::assignLinuxPath(std::string_view programPath, std::string& into) const {
  // The system would take the path to end there, and find another file.
  if (programPath.find('\0') != std::string_view::npos) fail(FailureNumber::pathNotFound);
  into.clear();
  bool isAbsolute = !programPath.empty() && separators.find(programPath[0]) != separators.npos;
  if (startsWithDrive(programPath)) {
    into = drive(programPath[0]).directory;
    programPath.remove_prefix(2);
    isAbsolute = true;
  }
  eachComponent(programPath, separators, [&](std::string_view name) {
    if (isAbsolute || !into.empty()) into += '/';
    appendLinuxName(name, into);
  });
  if (isAbsolute && into.empty()) into = "/";
}

std::string DriveTable::programPath(std::string_view linuxPath) const {
  std::size_t best = static_cast<std::size_t>(letterIndex('C'));
  for (std::size_t i = 0; i < drives_.size(); ++i)
    if (drives_[i].present && isWithin(linuxPath, drives_[i].directory) &&
        drives_[i].directory.size() > drives_[best].directory.size())
      best = i;
  std::string path{static_cast<char>('A' + best), ':'};
  eachComponent(linuxPath.substr(drives_[best].directory.size()), "/", [&](std::string_view name) {
    path += '\\';
    appendWindowsName(name, path);
  });
  if (path.size() == 2) path += '\\';
  return path;
}

std::string DriveTable::letters() const {
  std::string letters;
  for (std::size_t i = 0; i < drives_.size(); ++i)
    if (drives_[i].present) letters += static_cast<char>('A' + i);
  return letters;
}

}  // namespace quernstoke
