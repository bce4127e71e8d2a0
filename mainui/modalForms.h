#pragma once

#include <functional>
#include <string>

#include "core/integers.h"

namespace quernstoke {

// What small dialogs are given and what they answer.
extern std::string DialogText;
extern Int32 DialogValue;
extern Int32 DialogValue2;

// Shows each of the small dialogs and returns when it is closed. The executable fills them in.
struct ModalForms {
  std::function<void()> frmAddFileType;
  std::function<void()> frmDirTree;
  std::function<void()> frmExportResults;
  std::function<void()> frmDirMatch;
  std::function<void()> frmGetDirName;
  std::function<void()> frmSplashScreen;
};

extern ModalForms modalForms;

}  // namespace quernstoke
