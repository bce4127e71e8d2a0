#include "results/directoryChoice.h"

#include "mainui/modalForms.h"

namespace quernstoke {

DirectoryChoice chooseDirectory(const std::string& directory, int subDirectories,
                                int makePermanent) {
  DialogText = directory;
  DialogValue = subDirectories;
  DialogValue2 = makePermanent;
  modalForms.frmDirParent();
  return {DialogText, DialogValue, DialogValue2};
}

}  // namespace quernstoke
