#include "console/scanTally.h"

namespace quernstoke {

void ScanTally::begin() {
  filesMetBefore_ = files_.filesMet();
  passedOverBefore_ = files_.passedOver();
  begun_ = std::chrono::steady_clock::now();
}

PassedOver ScanTally::passedOver() const {
  PassedOver since = files_.passedOver();
  since.links -= passedOverBefore_.links;
  since.specials -= passedOverBefore_.specials;
  since.tooLarge -= passedOverBefore_.tooLarge;
  since.unreadable -= passedOverBefore_.unreadable;
  return since;
}

double ScanTally::seconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun_).count();
}

}  // namespace quernstoke
