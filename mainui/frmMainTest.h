#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <functional>
#include <stdexcept>
#include <string>

#include "controls/flexGrid.h"
#include "controls/panelStatusBar.h"
#include "core/modMain.h"
#include "mainui/frmMain.h"
#include "mainui/frmMainWindow.h"
#include "mainui/modalForms.h"
#include "platform/platform.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/qt/person.h"

namespace quernstoke {

// The real main window over the engine's stand-ins.
class MainWindowTest : public EngineTest {
 protected:
  MainWindowTest() {
    QCursor::setPos(farAway, farAway);  // Where it shows no help of its own.
    platform.frmMain = &window;
    usePlatform(platform);
    basDefaultProfile("GLOBAL", "");
    disk.directory("C:\\Photos");
    disk.directory("C:\\Music");
  }
  ~MainWindowTest() override {
    Form::deleteAll();
    settle();
  }

  static constexpr int farAway = 10000;

  // Starts the program and brings its window to rest.
  void open() {
    start();
    settle();
  }
  // A stored profile with the defaults of a new one but for what `change` does to its settings and
  // directories.
  static void haveProfile(const std::string& name, const std::function<void()>& change = {}) {
    ProfileName = name;
    basSaveProfile("NEWPROFILE");
    if (change) change();
    basSaveProfile("PROFILE");
    basSaveProfile("GLOBAL");
    ProfileName.clear();
  }
  // Opens the window and chooses the profile "Ann".
  void openAnn(const std::function<void()>& change = {}) {
    haveProfile("Ann", change);
    open();
    choose("Ann");
  }
  // Makes this the chosen entry of the list of profiles.
  static void choose(const std::string& entry) {
    auto& list = control<QComboBox>("cboProfile");
    const int position = list.findText(QString::fromStdString(entry));
    ASSERT_GE(position, 0) << entry;
    list.setCurrentIndex(position);
    emit list.activated(position);
  }
  static void showGlobalPage() {
    control<QTabWidget>("tabMain").setCurrentIndex(1);
    settle();
  }

  static forms::frmMain& form() { return window.form(); }
  template <class Widget>
  static Widget& control(const char* name) {
    auto* const found = form().findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *found;
  }
  static QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
  static QCheckBox& box(const char* name) { return control<QCheckBox>(name); }
  static QComboBox& list(const char* name) { return control<QComboBox>(name); }
  static QAbstractButton& button(const char* name) { return control<QAbstractButton>(name); }
  static FlexGridModel& grid() { return control<FlexGrid>("gridList").model(); }
  static bool isEnabled(const char* name) { return control<QWidget>(name).isEnabled(); }
  static std::string text(const char* name) { return field(name).text().toStdString(); }
  static std::string help() {
    return control<QPlainTextEdit>("txtHelp").toPlainText().toStdString();
  }
  static std::string helpTag() {
    return control<QWidget>("fraHelp").property("Tag").toString().toStdString();
  }
  static std::string panel(int number) {
    return control<PanelStatusBar>("sbarStatus").panel(number).text;
  }
  std::string profileFile(const std::string& name) const {
    return disk.content(ProfilesDir + "\\" + name + ".profile");
  }
  std::string globalFile() const { return disk.content(ProfilesDir + "\\global.settings"); }

  static inline FormsMainWindow window;
};

}  // namespace quernstoke
