#include "settings/settingKeys.h"

#include <array>
#include <type_traits>

#include "core/text.h"
#include "settings/settings.h"

namespace quernstoke {

std::span<const Setting> profileSettingKeys() {
  static const std::array settings = {
      Setting{"Desc", 0, &ProfileSettings.Desc},
      Setting{"MatchingCriteria", 0, &ProfileSettings.MatchingCriteria},
      Setting{"ProcessZip", 0, &ProfileSettings.ProcessZip},
      Setting{"ScanHiddenFiles", 0, &ProfileSettings.ScanHiddenFiles},
      Setting{"ScanSystemFiles", 0, &ProfileSettings.ScanSystemFiles},
      Setting{"SlowNetwork", 0, &ProfileSettings.SlowNetwork},
      Setting{"MinimumSize", 0, &ProfileSettings.MinimumSize},
      Setting{"MinimumSizeMeasure", 0, &ProfileSettings.MinimumSizeMeasure},
      Setting{"MaximumSize", 0, &ProfileSettings.MaximumSize},
      Setting{"MaximumSizeMeasure", 0, &ProfileSettings.MaximumSizeMeasure},
      Setting{"ContentMatchingPercent", 0, &ProfileSettings.ContentMatchingPercent},
      Setting{"RunMode", 0, &ProfileSettings.RunMode},
      Setting{"RestartPointMatchGroup", 0, &ProfileSettings.RestartPointMatchGroup},
      Setting{"RestartPointPrimaryFile", 0, &ProfileSettings.RestartPointPrimaryFile},
      Setting{"RestartPointSecondaryFile", 0, &ProfileSettings.RestartPointSecondaryFile},
      Setting{"RestartPointNumDuplicates", 0, &ProfileSettings.RestartPointNumDuplicates},
      Setting{"RestartPoint", 0, &ProfileSettings.RestartPoint},
      Setting{"ElapsedTime", 0, &ProfileSettings.ElapsedTime},
      Setting{"MatchNum", 0, &ProfileSettings.MatchNum},
      Setting{"NumDuplicates", 0, &ProfileSettings.NumDuplicates},
  };
  return settings;
}

std::span<const Setting> globalSettingKeys() {
  static const std::array settings = {
      Setting{"NumberOfFileBuffers", 0, &GlobalSettings.NumberOfFileBuffers},
      Setting{"FileBufferSize", 0, &GlobalSettings.FileBufferSize},
      Setting{"TransferMaxDiskSpace", 0, &GlobalSettings.TransferMaxDiskSpace},
      Setting{"TransferMaxDiskSpaceMeasure", 0, &GlobalSettings.TransferMaxDiskSpaceMeasure},
      Setting{"TransferFileLocally", 0, &GlobalSettings.TransferFileLocally},
      Setting{"TempPath", 0, &GlobalSettings.TempPath},
      Setting{"HelpPanel", 0, &GlobalSettings.HelpPanel},
      Setting{"ResultsOutputFormat", 0, &GlobalSettings.ResultsOutputFormat},
      Setting{"ResultsOutputDirectory", 0, &GlobalSettings.ResultsOutputDirectory},
      Setting{"ResultsOutputFile", 0, &GlobalSettings.ResultsOutputFile},
      Setting{"ResultsNumberEachBlock", 0, &GlobalSettings.ResultsNumberEachBlock},
      Setting{"ResultsBlockMarkers", 0, &GlobalSettings.ResultsBlockMarkers},
      Setting{"ResultsBlockIndicator", 1, &GlobalSettings.ResultsBlockIndicator[1]},
      Setting{"ResultsBlockIndicator", 2, &GlobalSettings.ResultsBlockIndicator[2]},
      Setting{"ResultsLaunch", 0, &GlobalSettings.ResultsLaunch},
  };
  return settings;
}

std::string typeOf(const SettingField& field) {
  if (std::holds_alternative<std::string*>(field)) return "S";
  return std::holds_alternative<bool*>(field) ? "B" : "N";
}

std::string textOf(const SettingField& field) {
  return std::visit(
      [](const auto* variable) -> std::string {
        if constexpr (std::is_same_v<decltype(variable), const std::string*>)
          return *variable;
        else
          return toText(*variable);
      },
      field);
}

void assign(const SettingField& field, const std::string& value, Int32 number) {
  if (auto* const* text = std::get_if<std::string*>(&field)) {
    **text = value;
  } else if (auto* const* truth = std::get_if<bool*>(&field)) {
    **truth = toBoolean(value);
  } else if (auto* const* small = std::get_if<Int16*>(&field)) {
    **small = number;
  } else {
    *std::get<Int32*>(field) = number;
  }
}

}  // namespace quernstoke
