#include "platform/linux/pathLookup.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <utility>
#include <vector>

#include "platform/linux/directoryReader.h"
#include "platform/linux/letterCase.h"
#include "platform/linux/systemFailure.h"

namespace quernstoke {

namespace {

Descriptor openDirectory(int within, const char* name) {
  return Descriptor(::openat(within, name, O_PATH | O_DIRECTORY | O_CLOEXEC));
}

std::vector<std::string> componentsOf(std::string_view path) {
  std::vector<std::string> components;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    if (end > 0) components.emplace_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return components;
}

// The first entry of a directory that is the name but for letter case and that `accepts` takes,
// or empty text.
template <class Accepts>
std::string writtenOtherwise(int directory, const std::string& name, Accepts accepts) {
  Descriptor readable(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!readable.isOpen()) return {};
  DirectoryReader reader(std::move(readable));
  while (reader.next())
    if (sameIgnoringCase(reader.name(), name) && accepts(reader.name())) return reader.name();
  return {};
}

void appendTo(std::string& path, const std::string& name) {
  if (!path.empty() && path.back() != '/') path += '/';
  path += name;
}

bool enter(Place& place, std::string name) {
  Descriptor next = openDirectory(place.directory.get(), name.c_str());
  const int error = next.isOpen() ? 0 : errno;
  if (saysAbsent(error))
    name = writtenOtherwise(place.directory.get(), name, [&](const char* candidate) {
      next = openDirectory(place.directory.get(), candidate);
      return next.isOpen();
    });
  if (!next.isOpen()) {
    place.error = saysAbsent(error) ? ENOTDIR : error;
    return false;
  }
  place.directory = std::move(next);
  appendTo(place.path, name);
  return true;
}

void findLast(Place& place, const std::string& name) {
  place.name = name;
  struct stat ignored;
  if (::fstatat(place.directory.get(), name.c_str(), &ignored, AT_SYMLINK_NOFOLLOW) == 0) {
    place.exact = true;
  } else if (errno == ENOENT) {
    std::string other =
        writtenOtherwise(place.directory.get(), name, [](const char*) { return true; });
    if (other.empty())
      place.error = ENOENT;
    else
      place.name = std::move(other);
  } else {
    place.error = errno;
  }
  place.exists = place.error == 0;
  appendTo(place.path, place.name);
}

// Enters all components but the last, each as it is written or failing that as it is found.
bool enterAllButLast(Place& place, const std::vector<std::string>& components) {
  place.directory = openDirectory(AT_FDCWD, place.path.empty() ? "." : place.path.c_str());
  if (!place.directory.isOpen()) {
    place.error = errno;
    return false;
  }
  for (std::size_t i = 0; i + 1 < components.size(); ++i)
    if (!enter(place, components[i])) return false;
  return true;
}

// The same for a path that is right as it is written, as nearly all are.
bool enterAsWritten(Place& place, const std::vector<std::string>& components) {
  std::string path = place.path;
  for (std::size_t i = 0; i + 1 < components.size(); ++i)
    appendTo(path, components[i]);
  place.directory = openDirectory(AT_FDCWD, path.empty() ? "." : path.c_str());
  if (place.directory.isOpen()) place.path = std::move(path);
  return place.directory.isOpen();
}

}  // namespace

Place locate(const std::string& linuxPath) {
  Place place;
  const bool isAbsolute = linuxPath.starts_with('/');
  const std::vector<std::string> components = componentsOf(linuxPath);
  if (components.empty() && !isAbsolute) {
    place.error = ENOENT;
    return place;
  }
  place.path = isAbsolute ? "/" : "";
  if (enterAsWritten(place, components) || enterAllButLast(place, components))
    findLast(place, components.empty() ? "." : components.back());
  return place;
}

}  // namespace quernstoke
