#pragma once

#include <string>

#include "core/integers.h"

namespace quernstoke {

// The values of the two boxes of frmDirParent. With both of them `asItIs` it shows none.
namespace choiceBox {
constexpr int asItIs = -1;
constexpr int unticked = 0;
constexpr int ticked = 1;
constexpr int undecided = 2;  // The dimmed state of a box. Left at that, the answer is yes.
}  // namespace choiceBox

// What the person answers in frmDirParent.
struct DirectoryChoice {
  std::string directory;  // Empty if the dialog was cancelled.
  Int32 subDirectories;
  Int32 makePermanent;
};

// Lets the person choose a directory along the path of this one.
DirectoryChoice chooseDirectory(const std::string& directory, int subDirectories,
                                int makePermanent);

}  // namespace quernstoke
