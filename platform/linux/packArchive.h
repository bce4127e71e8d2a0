#pragma once

#include <ctime>
#include <stdexcept>
#include <string>
#include <vector>
#include <zip.h>

namespace quernstoke {

constexpr const char* archivePassword = "sesame";

// An entry of an archive to be made for a test.
struct Packed {
  std::string name;
  std::string content;
  zip_flags_t encoding = ZIP_FL_ENC_UTF_8;
  bool encrypted = false;
};

inline void packArchive(const std::string& path, const std::vector<Packed>& entries,
                        bool compressed = true) {
  zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (const Packed& entry : entries) {
    zip_source_t* source =
        zip_source_buffer(archive, entry.content.data(), entry.content.size(), 0);
    const auto index = static_cast<zip_uint64_t>(
        zip_file_add(archive, entry.name.c_str(), source, entry.encoding));
    std::tm date{};
    date.tm_year = 104;
    date.tm_mon = 4;
    date.tm_mday = 6;
    date.tm_hour = 7;
    date.tm_min = 8;
    date.tm_sec = 30;
    date.tm_isdst = -1;
    zip_file_set_mtime(archive, index, std::mktime(&date), 0);
    zip_set_file_compression(archive, index, compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 0);
    if (entry.encrypted) zip_file_set_encryption(archive, index, ZIP_EM_AES_256, archivePassword);
  }
  if (zip_close(archive) != 0) throw std::runtime_error("no archive of the test");
}

}  // namespace quernstoke
