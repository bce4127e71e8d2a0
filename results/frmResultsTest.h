#pragma once

#include <QAction>
#include <QComboBox>
#include <QCursor>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/fileTable.h"
#include "controls/flexGrid.h"
#include "controls/panelStatusBar.h"
#include "core/modMain.h"
#include "mainui/modalForms.h"
#include "platform/platform.h"
#include "results/frmResultsWindow.h"
#include "results/gridPaging.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/qt/input.h"
#include "testing/qt/person.h"

namespace quernstoke {

// The real results window over the engine's stand-ins.
class ResultsWindowTest : public EngineTest {
 protected:
  ResultsWindowTest() {
    QCursor::setPos(farAway, farAway);  // Where it shows no help of its own.
    platform.frmResults = &window;
    usePlatform(platform);
    ProfileName = "Music";
    ProfileSettings.ContentMatchingPercent = 100;
  }
  ~ResultsWindowTest() override {
    Form::deleteAll();
    settle();
  }

  static constexpr int farAway = 10000;

  // Shows these files and brings the window to rest.
  void show(const std::vector<CatalogueFile>& files) {
    buildCatalogue(files);
    show();
  }
  void show() {
    window.show();
    settle();
  }
  // Pairs f1 and f2, f3 and f4 and so on, in C:\music and on the disk.
  void showFiles(int count) {
    std::vector<CatalogueFile> files;
    for (int file = 1; file <= count; ++file) {
      const std::string name = "f" + std::to_string(file);
      if (count < manyFiles) disk.file("C:\\music\\" + name, "0123456789");
      files.push_back({name, "C:\\music", 10, (file - 1) / 2});
    }
    show(files);
  }
  static constexpr int manyFiles = 200;

  forms::frmResults& form() { return window.form(); }
  template <class Widget>
  Widget& control(const char* name) {
    auto* const found = form().findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }
  QScrollBar& bar() { return control<QScrollBar>("vscrGridMatches"); }
  FlexGrid& view() { return control<FlexGrid>("gridMatches"); }
  FlexGridModel& grid() { return view().model(); }
  bool isShown(const char* name) { return control<QWidget>(name).isVisible(); }
  bool isEnabled(const char* name) { return control<QWidget>(name).isEnabled(); }
  std::string panel(int number) { return control<PanelStatusBar>("sbarStatus").panel(number).text; }
  std::string help() { return control<QPlainTextEdit>("txtHelp").toPlainText().toStdString(); }
  std::string helpTag() {
    return control<QWidget>("fraHelp").property("Tag").toString().toStdString();
  }

  const std::string& text(int row, int col) { return grid().cell(row, col).text; }
  // The names on the page, in their order.
  std::vector<std::string> names() {
    std::vector<std::string> found;
    for (Int32 row = 1; row < grid().rows(); ++row)
      if (grid().rowData(row) >= 0) found.emplace_back(grid().cell(row, 1).text);
    return found;
  }
  int firstFile() { return grid().rowData(1).raw(); }
  std::pair<int, int> rows() { return {grid().row().raw(), grid().rowSel().raw()}; }
  std::vector<std::string> ticked() {
    std::vector<std::string> found;
    for (Int32 file = 1; file <= FileCount; ++file)
      if (FileTable.FileStatus[statusTick][file] == 1) found.emplace_back(FileTable.FileName[file]);
    return found;
  }
  bool onDisk(const std::string& name) const { return disk.exists("C:\\music\\" + name); }

  // A place in a cell, for the mouse.
  QPoint cellCentre(int row, int col) {
    return view().layoutOnScreen().cellRect(row, col).center();
  }
  QWidget& cells() { return *view().viewport(); }
  void clickCell(int row, int col) {
    quernstoke::click(cells(), cellCentre(row, col));
    settle();
  }
  void dragCells(int fromRow, int toRow, int col) {
    pressMouse(cells(), cellCentre(fromRow, col));
    moveMouse(cells(), cellCentre(toRow, col), Qt::LeftButton);
    releaseMouse(cells(), cellCentre(toRow, col));
    settle();
  }
  void rightClickRow(int row) {
    pressMouse(cells(), cellCentre(row, 1), Qt::RightButton);
    releaseMouse(cells(), cellCentre(row, 1), Qt::RightButton);
    settle();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    pressKey(form(), key, modifiers);
    settle();
  }
  void click(const char* name) {
    button(name).click();
    settle();
  }
  void choose(const char* name, int index) {
    auto& list = control<QComboBox>(name);
    list.setCurrentIndex(index);
    emit list.activated(index);
    settle();
  }
  void resizeTo(int width, int height) {
    form().resize(width, height);
    settle();
  }
  std::vector<std::string> itemsOf(const char* menu) {
    std::vector<std::string> items;
    for (const QAction* action : control<QMenu>(menu).actions())
      items.push_back(action->objectName().toStdString() + ": " + action->text().toStdString());
    return items;
  }
  bool isUp(const char* menu) { return control<QMenu>(menu).isVisible(); }
  // Chooses an item of a menu that is up.
  void chooseItem(const char* item) {
    auto* const action = form().findChild<QAction*>(item);
    if (action == nullptr) throw std::runtime_error(std::string("no item ") + item);
    for (QMenu* menu : form().findChildren<QMenu*>())
      if (menu->isVisible()) menu->close();
    action->trigger();
    settle();
  }

  FormsResultsWindow window;
};

}  // namespace quernstoke
