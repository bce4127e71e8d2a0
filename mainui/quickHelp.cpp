#include "mainui/quickHelp.h"

#include "catalogue/fileTable.h"
#include "core/modMain.h"
#include "core/procedure.h"
#include "core/scanState.h"
#include "core/text.h"
#include "mainui/helpStrings.h"
#include "platform/controls.h"
#include "settings/settings.h"

namespace quernstoke {

Int16 HelpState;

namespace {

constexpr std::int16_t nothingShown = -1;
constexpr std::int16_t welcome =
    1000;  // Also the text of state 0; those of the other states follow it.

namespace step {
constexpr std::int16_t welcomed = 0;
constexpr std::int16_t selectingDirectories = 1;
constexpr std::int16_t choosingOptions = 2;
constexpr std::int16_t startingScan = 3;
constexpr std::int16_t viewingResults = 4;
}  // namespace step

bool showsNothing(const TaggedControl& frame) {
  return toNumber(frame.tag()) == nothingShown;
}

// The text to show for an id that names none.
Int16 stepText(const TaggedControl& frame) {
  if (showsNothing(frame)) return welcome;
  if (HelpState < step::welcomed || HelpState > step::viewingResults) return nothingShown;
  return Int16(welcome) + HelpState;
}

}  // namespace

void basDisplayHelp(Int16 helpId, TaggedControl& frame, TextControl& textBox) {
  procedure("basDisplayHelp", [&] {
    if (frame.tag().empty()) frame.setTag(toText(Int32(nothingShown)));
    const Int16 shownId = helpId > 0 ? helpId : stepText(frame);
    if (shownId == nothingShown) return;
    // The pointer moves on within one control.
    if (!showsNothing(frame) && frame.tag() == toText(Int32(shownId))) return;
    textBox.setText(helpText(shownId));
    frame.setTag(toText(Int32(shownId)));
  });
}

Int16 basDetermineHelpState(Int32 gridRows, Int32 tickedOptions) {
  return procedure("basDetermineHelpState", [&]() -> Int16 {
    constexpr int headerAndOneDirectory = 2;
    if (ProfileName.empty()) return step::welcomed;
    if (gridRows < headerAndOneDirectory) return step::selectingDirectories;
    if (tickedOptions == 0) return step::choosingOptions;
    if (FileCount == 0) return step::startingScan;
    if (ProfileSettings.RunMode == runState::finished) return step::viewingResults;
    return step::welcomed;
  });
}

}  // namespace quernstoke
