// Settings files: their records, a profile and the settings of the installation.

#include <string>
#include <string_view>
#include <vector>

#include "core/modMain.h"
#include "fuzz/require.h"
#include "platform/platform.h"
#include "settings/configRecord.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/standIns.h"

namespace quernstoke {
namespace {

// The records of a file up to the first that is told of in a box.
std::vector<ConfigRecord> recordsUntilAMessage(const StandIns& engine, const std::string& path) {
  std::vector<ConfigRecord> records;
  const FileNumber file = files().open(path, OpenMode::input);
  for (ConfigRecord record;
       !basConfigRead(file, record.key, record.index, record.value, record.type);) {
    if (!engine.dialogBoxes.messages.empty()) break;
    records.push_back(record);
  }
  files().close(file);
  return records;
}

void tryRecords(std::string_view bytes) {
  StandIns engine;
  engine.disk.file("C:\\given", bytes);
  std::vector<ConfigRecord> records = recordsUntilAMessage(engine, "C:\\given");
  engine.dialogBoxes.messages.clear();

  const FileNumber file = files().open("C:\\written", OpenMode::binary);
  for (ConfigRecord& record : records)
    basConfigWrite(file, record.key, record.index, record.value, record.type);
  files().close(file);
  require(recordsUntilAMessage(engine, "C:\\written") == records,
          "records are read as they were written");
  require(engine.dialogBoxes.messages.empty(), "nothing is said of records that were written");
}

void requireBounds() {
  require(ProfileDirList.upperBound() == lastDirSlot, "the directories keep their slots");
  require(FileTypeTable.FileTypeDescription.upperBound() == lastFileTypeRow &&
              FileTypeTable.FileTypesList.upperBound() == lastFileTypeRow,
          "the file types keep their rows");
  require(ProfileList.ProfileNameList.upperBound() == lastProfileSlot &&
              ProfileList.ProfileDateList.upperBound() == lastProfileSlot,
          "the profiles keep their slots");
}

// What a load of a file and a save of what was loaded have come to.
struct Outcome {
  bool loaded;
  std::size_t messages;
  std::string saved;
};

// Loads the file into settings that nothing was loaded into, and saves them.
Outcome loadAndSave(std::string_view bytes, std::string_view mode, const std::string& path) {
  StandIns engine;
  ProfileName = "Fuzz";
  engine.disk.file(path, bytes);
  const bool loaded = basLoadProfile(mode);
  requireBounds();
  require(engine.disk.content(path) == bytes, "loading leaves the file alone");
  require(engine.disk.openFiles() == (loaded ? 0 : 1), "a file that was read to its end is closed");
  require(loaded || !engine.dialogBoxes.messages.empty(), "a file that can't be taken is told of");
  basSaveProfile(mode);
  return {loaded, engine.dialogBoxes.messages.size(), engine.disk.content(path)};
}

void tryLoading(std::string_view bytes, std::string_view mode, const std::string& path) {
  const std::string saved = loadAndSave(bytes, mode, path).saved;
  const Outcome again = loadAndSave(saved, mode, path);
  require(again.loaded, "what was saved can be loaded");
  require(again.saved == saved, "what was saved is loaded as it was");
  require(again.messages == 0, "nothing is said of settings that were saved");
}

}  // namespace
}  // namespace quernstoke

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace quernstoke;
  const std::string bytes(data, data + size);
  tryRecords(bytes);
  tryLoading(bytes, "PROFILE", "C:\\Quernstoke\\Profiles\\Fuzz.profile");
  tryLoading(bytes, "GLOBAL", "C:\\Quernstoke\\Profiles\\global.settings");
  return 0;
}
