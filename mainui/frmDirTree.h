#pragma once

#include <memory>
#include <string>

#include "controls/form.h"

namespace Ui {
class frmDirTree;
}

namespace quernstoke {

struct TreeNode;

namespace forms {

// The dialog that lets the person pick a directory from the tree of a drive. DialogText holds the
// directory to begin with and takes the chosen one, empty if the dialog was cancelled. With
// DialogValue 1 it holds the path of a file, and the programs in the directory picked are shown.
class frmDirTree : public Form {
  Q_OBJECT

 public:
  frmDirTree();
  ~frmDirTree() override;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;

 private:
  void drvDrive_Change();
  void treeDir_Expand(TreeNode& node);
  void treeDir_NodeClick(TreeNode& node);
  void cmdOK_Click();
  void cmdCancel_Click();

  void fillDrives();
  void setDrive(const std::string& path);
  std::string startDirectory() const;
  std::string driveText() const;
  void showPath();
  void setFileListPath(const std::string& path);
  void clearTree();

  std::unique_ptr<Ui::frmDirTree> ui_;
  std::string SelectedDir;
};

}  // namespace forms
}  // namespace quernstoke
