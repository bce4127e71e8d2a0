#include "platform/linux/zipArchives.h"

#include <array>
#include <ctime>
#include <fcntl.h>
#include <limits.h>
#include <limits>
#include <sys/stat.h>
#include <unordered_map>
#include <utility>
#include <vector>
#include <zip.h>

#include "platform/failure.h"
#include "platform/linux/descriptor.h"
#include "platform/linux/extractedFile.h"
#include "platform/linux/localTime.h"
#include "platform/linux/pathLookup.h"
#include "platform/linux/systemCall.h"
#include "platform/linux/zipSource.h"
#include "platform/utf8.h"

namespace quernstoke {

namespace {

struct DiscardArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Archive = std::unique_ptr<zip_t, DiscardArchive>;

struct CloseAtEnd {
  Descriptor& file;
  ~CloseAtEnd() { file.reset(); }
};

struct CloseEntry {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

// A file that has been opened; two of the same identity have the same content.
struct Identity {
  dev_t device;
  ino_t inode;
  off_t size;
  std::int64_t seconds;
  std::int64_t nanoseconds;

  bool operator==(const Identity&) const = default;
};

Identity identityOf(const struct stat& facts) {
  return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

// Not blocking: a FIFO that has taken the place must not make us wait for its writer.
Descriptor openForReading(const std::string& path, int flags = 0) {
  const Place place = locate(path);
  if (!place.exists) return Descriptor();
  return Descriptor(outcomeOf([&] {
    return ::openat(place.directory.get(), place.name.c_str(),
                    O_RDONLY | O_CLOEXEC | O_NONBLOCK | flags);
  }));
}

CivilTime civilMinutes(std::time_t time, LocalTime& localTime) {
  CivilTime civil = civilTime(localTime.at(time));
  civil.second = 0;
  return civil;
}

ArchiveEntry describe(std::string_view name, const zip_stat_t& facts, LocalTime& localTime) {
  ArchiveEntry entry;
  entry.name = name;
  if ((facts.valid & ZIP_STAT_SIZE) != 0) entry.size = facts.size;
  if ((facts.valid & ZIP_STAT_COMP_SIZE) != 0) entry.compressedSize = facts.comp_size;
  if ((facts.valid & ZIP_STAT_MTIME) != 0) entry.date = civilMinutes(facts.mtime, localTime);
  if ((facts.valid & ZIP_STAT_CRC) != 0) entry.crc = facts.crc;
  entry.encrypted =
      (facts.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && facts.encryption_method != ZIP_EM_NONE;
  return entry;
}

// What is left of a name in the catalogue, which keeps folder and bare name apart, so that one
// slash in front of an entry of the root is lost, and cuts what is too long.
std::string_view nameInCatalogue(std::string_view name) {
  const std::string_view kept = firstCharacters(name, longestEntryName);
  return kept.rfind('/') == 0 ? kept.substr(1) : kept;
}

// The name of the file that an entry becomes; empty if no file can have it.
std::string bareLinuxName(std::string_view name) {
  const std::string bare = linuxName(name.substr(name.rfind('/') + 1));  // npos + 1 is 0.
  const bool isFileName =
      bare != "." && bare != ".." && bare.find('/') == std::string::npos && bare.size() <= NAME_MAX;
  return isFileName ? bare : std::string();
}

int copyEntry(zip_file_t* entry, zip_uint64_t size, ExtractedFile& file, const std::string& name,
              ArchiveCallbacks& callbacks) {
  constexpr std::size_t bufferSize = std::size_t{256} * 1024;
  std::vector<char> buffer(bufferSize);
  const auto damaged = [&](const char* reason) {
    callbacks.print("  error:  " + name + " is damaged: " + reason + "\n");
    return archiveDamaged;
  };
  zip_uint64_t copied = 0;
  for (;;) {
    const zip_int64_t got = zip_fread(entry, buffer.data(), buffer.size());
    if (got < 0) return damaged(zip_error_strerror(zip_file_get_error(entry)));
    copied += static_cast<zip_uint64_t>(got);
    // An entry that is longer than it says would fill the disk.
    if (copied > size || (got == 0 && copied < size)) return damaged("wrong size");
    if (got == 0) return archiveOk;
    if (!file.write({buffer.data(), static_cast<std::size_t>(got)})) {
      callbacks.print("  error:  write of " + name + " failed, the disk may be full\n");
      return archiveDiskFull;
    }
  }
}

bool wantsPassword(zip_t* archive) {
  const int error = zip_error_code_zip(zip_get_error(archive));
  return error == ZIP_ER_NOPASSWD || error == ZIP_ER_WRONGPASSWD;
}

// Opens an entry, asking for a password if it needs one. No password opens an entry whose
// encryption is unknown, and libzip loses memory when it is tried with one.
Entry openEntry(zip_t* archive, zip_uint64_t index, const zip_stat_t& facts,
                ArchiveCallbacks& callbacks) {
  Entry entry(zip_fopen_index(archive, index, 0));
  if (entry || zip_error_code_zip(zip_get_error(archive)) != ZIP_ER_NOPASSWD) return entry;
  if (zip_encryption_method_supported(facts.encryption_method, 0) == 0) return nullptr;
  std::array<char, 256> password{};
  if (callbacks.password(password) != 0) return nullptr;
  return Entry(zip_fopen_index_encrypted(archive, index, 0, password.data()));
}

int writeEntry(zip_file_t* entry, zip_uint64_t size, const std::string& name,
               const std::string& target, const std::string& directory,
               ArchiveCallbacks& callbacks) {
  const auto cannotCreate = [&] {
    callbacks.print("  error:  cannot create " + name + "\n");
    return archiveDiskFull;
  };
  const Descriptor place = openForReading(directory, O_DIRECTORY);
  if (!place.isOpen()) return cannotCreate();
  ExtractedFile file(place);
  if (!file.isOpen()) return cannotCreate();
  const int result = copyEntry(entry, size, file, name, callbacks);
  if (result != archiveOk) return result;
  return file.keepAs(target) ? archiveOk : cannotCreate();
}

}  // namespace

class ZipArchives::OpenArchive {
 public:
  OpenArchive(Descriptor file, const struct stat& facts)
      : identity_(identityOf(facts)), source_(facts.st_size) {
    source_.file = std::move(file);
    archive_.reset(source_.openArchive());
  }

  bool isArchive() const { return archive_ != nullptr; }
  const Identity& identity() const { return identity_; }
  Descriptor& file() { return source_.file; }

  void list(ArchiveCallbacks& callbacks) const {
    LocalTime localTime;
    for (zip_uint64_t index = 0; index < count(); ++index) {
      zip_stat_t facts;
      if (zip_stat_index(archive_.get(), index, 0, &facts) != 0) continue;
      const std::string name = entryName(index);
      callbacks.message(describe(name, facts, localTime));
    }
  }

  int extract(const std::string& name, const std::string& directory, ArchiveCallbacks& callbacks) {
    const Candidate* const found = find(name);
    if (found != nullptr && !found->isOnlyOne) {
      callbacks.print("caution: more than one entry has this name:  " + name + "\n");
      return archiveNoMatchingEntry;
    }
    zip_stat_t facts;
    if (found == nullptr || entryName(found->index) != name ||
        zip_stat_index(archive_.get(), found->index, 0, &facts) != 0) {
      callbacks.print("caution: filename not matched:  " + name + "\n");
      return archiveNoMatchingEntry;
    }
    const std::string target = bareLinuxName(name);
    if (target.empty()) {
      callbacks.print("   skipping: " + name + "  no file can have this name\n");
      return archiveNoMatchingEntry;
    }
    callbacks.service(name);
    const Entry entry = openEntry(archive_.get(), found->index, facts, callbacks);
    if (!entry && wantsPassword(archive_.get())) {
      callbacks.print("   skipping: " + name + "  incorrect password\n");
      return archiveBadPassword;
    }
    if (!entry) {
      callbacks.print("  error:  " + name + ": " + zip_strerror(archive_.get()) + "\n");
      return archiveDamaged;
    }
    return writeEntry(entry.get(), facts.size, name, target, directory, callbacks);
  }

 private:
  // The first entry of a name in the catalogue. If there are more, none can be told from another.
  struct Candidate {
    zip_uint64_t index;
    bool isOnlyOne = true;
  };
  using Candidates = std::unordered_map<std::string, Candidate>;

  zip_uint64_t count() const {
    return static_cast<zip_uint64_t>(zip_get_num_entries(archive_.get(), 0));
  }

  // A name of the archive as the program's: "/" divides, all else is part of a component.
  std::string entryName(zip_uint64_t index) const {
    const char* name = zip_get_name(archive_.get(), index, ZIP_FL_ENC_GUESS);
    return name == nullptr ? std::string() : windowsName(name);
  }

  // The entry that is asked for, if there is one of its name in the catalogue, letter case
  // counting. An entry without a 32-bit size is in no catalogue, and could fill the disk.
  const Candidate* find(const std::string& name) {
    constexpr zip_uint64_t largest = std::numeric_limits<std::int32_t>::max();
    if (candidates_.empty()) {
      Candidates whole;  // Kept only if memory lasts.
      for (zip_uint64_t index = 0; index < count(); ++index) {
        zip_stat_t facts;
        if (zip_stat_index(archive_.get(), index, 0, &facts) != 0 || facts.size > largest) continue;
        const std::string told = entryName(index);
        const auto [known, isNew] =
            whole.try_emplace(std::string(nameInCatalogue(told)), Candidate{index});
        if (!isNew) known->second.isOnlyOne = false;
      }
      candidates_ = std::move(whole);
    }
    const auto found = candidates_.find(std::string(nameInCatalogue(name)));
    return found == candidates_.end() ? nullptr : &found->second;
  }

  Identity identity_;
  ZipSource source_;
  Archive archive_;
  Candidates candidates_;  // Empty until one is looked for.
};

ZipArchives::ZipArchives(DriveTable drives) : drives_(std::move(drives)) {}

ZipArchives::~ZipArchives() = default;

// Null if there is no archive that can be read. Else its file is open until someone closes it.
ZipArchives::OpenArchive* ZipArchives::open(const std::string& programPath) {
  Descriptor file = openForReading(drives_.linuxPath(programPath));
  struct stat facts;
  const bool isFile = file.isOpen() && ::fstat(file.get(), &facts) == 0 && S_ISREG(facts.st_mode);
  if (isFile && last_ && last_->identity() == identityOf(facts)) {
    last_->file() = std::move(file);
    return last_.get();
  }
  last_.reset();
  if (!isFile) return nullptr;
  last_ = std::make_unique<OpenArchive>(std::move(file), facts);
  if (!last_->isArchive()) last_.reset();
  return last_.get();
}

int ZipArchives::singleEntryUnzip(std::span<const std::string> included,
                                  const ArchiveOptions& options, ArchiveCallbacks& callbacks) {
  try {
    OpenArchive* const archive = open(options.lpszZipFN);
    if (archive == nullptr) {
      callbacks.print("error:  cannot find or open " + options.lpszZipFN + "\n");
      return archiveNotFound;
    }
    const CloseAtEnd closing{archive->file()};
    if (options.nvflag != 0) {
      archive->list(callbacks);
      return archiveOk;
    }
    const std::string directory = drives_.linuxPath(options.lpszExtractDir);
    int result = archiveOk;
    for (const std::string& name : included) {
      const int one = archive->extract(withoutEscapedBrackets(name), directory, callbacks);
      if (one != archiveOk) result = one;
    }
    return result;
  } catch (const Failure& failure) {
    callbacks.print("error:  " + failure.description + "\n");
    return archiveNotFound;
  }
}

}  // namespace quernstoke
