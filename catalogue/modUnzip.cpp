#include "catalogue/modUnzip.h"

namespace quernstoke {

std::string ZipMessages;

// Archives can't be read yet: none has entries, and no entry can be extracted.

std::string basScanThisZip(std::string_view /*path*/, Int32 /*row*/) {
  return {};
}

Int16 basZipExtract(std::string_view /*path*/, std::string& /*entry*/) {
  constexpr int nothingRead = 11;
  ZipMessages = "Zip archives can't be read yet";
  return nothingRead;
}

}  // namespace quernstoke
