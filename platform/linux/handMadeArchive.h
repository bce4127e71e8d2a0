#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quernstoke {

// A number of so many bytes, little-endian, as archives have them.
inline std::string bytesOf(std::uint64_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i)
    bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
  return bytes;
}

// An entry of an archive that libzip would not write.
struct HandMade {
  std::string name;
  std::string content;
  std::optional<std::uint64_t> toldSize = std::nullopt;  // That of the content unless set.
  bool zip64 = false;                                    // Tells its sizes in the extra field.
};

// Puts the bytes of an archive together, its entries stored.
class ArchiveByHand {
 public:
  void add(const HandMade& entry) {
    const std::uint64_t offset = entries_.size();
    const std::string tail = describe(entry);
    entries_ += "PK\x03\x04" + tail + entry.name + extraField(entry) + entry.content;
    directory_ += "PK\x01\x02" + bytesOf(version, 2) + tail + bytesOf(0, 8) + bytesOf(0, 2) +
                  bytesOf(offset, 4) + entry.name + extraField(entry);
    ++count_;
  }

  std::string whole() const {
    return entries_ + directory_ + endRecord(count_, directory_.size(), entries_.size());
  }
  // With the records that large archives have in front of the last.
  std::string wholeAsZip64() const {
    const std::string end = "PK\x06\x06" + bytesOf(44, 8) + bytesOf(version, 2) +
                            bytesOf(version, 2) + bytesOf(0, 8) + bytesOf(count_, 8) +
                            bytesOf(count_, 8) + bytesOf(directory_.size(), 8) +
                            bytesOf(entries_.size(), 8);
    const std::string locator = "PK\x06\x07" + bytesOf(0, 4) +
                                bytesOf(entries_.size() + directory_.size(), 8) + bytesOf(1, 4);
    return entries_ + directory_ + end + locator + endRecord(0xFFFF, unknown, unknown);
  }

 private:
  static constexpr std::uint64_t version = 45;
  static constexpr std::uint64_t unknown = 0xFFFFFFFF;

  static std::uint64_t toldSize(const HandMade& entry) {
    return entry.toldSize.value_or(entry.content.size());
  }
  static std::string extraField(const HandMade& entry) {
    if (!entry.zip64) return {};
    return bytesOf(1, 2) + bytesOf(16, 2) + bytesOf(toldSize(entry), 8) +
           bytesOf(entry.content.size(), 8);
  }
  // What both records of an entry say, from the version that is needed to the extra field's length.
  static std::string describe(const HandMade& entry) {
    constexpr std::uint64_t sixthOfMay2004 = (24U << 9) | (5U << 5) | 6U;
    return bytesOf(version, 2) + bytesOf(0, 4) + bytesOf(0, 2) + bytesOf(sixthOfMay2004, 2) +
           bytesOf(crcOf(entry.content), 4) +
           bytesOf(entry.zip64 ? unknown : entry.content.size(), 4) +
           bytesOf(entry.zip64 ? unknown : toldSize(entry), 4) + bytesOf(entry.name.size(), 2) +
           bytesOf(extraField(entry).size(), 2);
  }
  static std::string endRecord(std::uint64_t count, std::uint64_t size, std::uint64_t offset) {
    return "PK\x05\x06" + bytesOf(0, 4) + bytesOf(count, 2) + bytesOf(count, 2) + bytesOf(size, 4) +
           bytesOf(offset, 4) + bytesOf(0, 2);
  }
  static std::uint32_t crcOf(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char byte : bytes) {
      crc ^= static_cast<unsigned char>(byte);
      for (int bit = 0; bit < 8; ++bit)
        crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~crc;
  }

  std::string entries_;
  std::string directory_;
  std::uint64_t count_ = 0;
};

inline std::string madeByHand(const std::vector<HandMade>& entries) {
  ArchiveByHand archive;
  for (const HandMade& entry : entries)
    archive.add(entry);
  return archive.whole();
}

}  // namespace quernstoke
