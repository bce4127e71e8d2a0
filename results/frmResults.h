#pragma once

#include <QPoint>
#include <QPointer>
#include <array>
#include <memory>
#include <string_view>

#include "controls/flexGridModel.h"
#include "controls/form.h"
#include "core/integers.h"
#include "results/resultsControls.h"

class QAction;
class QMenu;
class QPushButton;

namespace Ui {
class frmResults;
}

namespace quernstoke {

class QtScrollBar;

namespace forms {

class AutoResizeButton;
class DirectoryButton;
class FilterItem;

// Shows what a scan has found, page by page, and lets the person tick, open, delete, filter and
// match files. Leaving it, which leads back to the main window, writes the list to disk.
class frmResults : public Form, private ResultsControls {
  Q_OBJECT

 public:
  frmResults();
  ~frmResults() override;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Unload() override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  // The controls as the procedures of the results ask for them.
  FlexGridModel& gridMatches() override;
  const FlexGridModel& gridMatches() const override;
  ScrollBarControl& vscrGridMatches() override;
  PictureButtonControl& cmdAutoResize() override;
  MenuItemControl& mnuFilter(Int16 index) override;
  MenuItemControl& mnuFilterTwoDirs(Int16 index) override;
  DirectoryButtonControl& cmdSetDir(Int16 index) override;
  const TextRuler& labSizer() const override;
  void labNoDuplicates(bool visible) override;
  void disable(std::string_view control) override;
  Int32 pictureWidth(std::string_view picture) const override;
  std::intptr_t hWnd() const override;
  void setTag(std::string_view tag) override;
  void takeInput(bool taken) override;
  bool& lastSubDirectories() override { return lastSubDirectories_; }
  bool& exclusionStored() override { return exclusionStored_; }
  void popUp(std::string_view menu) override;
  void popUpBeside(std::string_view menu, std::string_view control, Int32 gap) override;
  void basUpdateStatusBar() override;

  void cboGroup_Click();
  void cboView_Click();
  void cmdDeleteFile_Click(Int16 mode);
  void cmdSetDir_Click(int index);
  void moveToScrollBar();
  void cmdSHowHideHelp_Click();
  void displayHelp(Int16 helpId);

  void connectControls();
  void preparePictures();
  void makeMenus();
  void makeFilterMenu();
  QMenu* makeMenu(const char* name, const QString& title);
  template <class Command>
  void keepingThePage(Command command);
  void closeMenus();
  void popUpAt(GridButton button, QPoint atGrid);

  void basPositionFormObjects(Int16 keepOrder);
  void placeAtRight();
  void placeGrid();
  void placeButtons();
  void placeStatusBar();
  void limitSize();
  int margin() const;
  int columnHeight() const;
  int leastHeight() const;
  bool actionsScroll() const;
  int columnWidth() const;
  int gridLeft() const;
  bool helpIsShown() const;
  void showHelpPicture();
  void focusGrid();

  std::unique_ptr<Ui::frmResults> ui_;
  std::unique_ptr<QtScrollBar> scrollBar_;
  std::unique_ptr<AutoResizeButton> autoResize_;
  std::unique_ptr<FilterItem> filterDirectory_;
  std::array<std::unique_ptr<FilterItem>, 2> filterTwoDirs_;
  std::array<std::unique_ptr<DirectoryButton>, 2> setDir_;
  std::array<QMenu*, 3> menus_{};
  QPoint menuPosition_;  // Where the next menu comes up, on the screen.
  bool firstActivation_ = false;
  bool pageIsKept_ = false;
  bool resizeOwed_ = false;  // The window's size changed while the page was kept.
  bool scrollOwed_ = false;  // The scroll bar moved meanwhile.
  bool lastSubDirectories_ = false;
  bool exclusionStored_ = false;
  QPointer<QWidget> focusBefore_;  // That of the window while it takes no input.
};

}  // namespace forms
}  // namespace quernstoke
