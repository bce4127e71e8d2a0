#include "export/frmExportResults.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "core/scanState.h"
#include "mainui/modalForms.h"
#include "results/matchGroupIndex.h"
#include "settings/profileStore.h"
#include "settings/settings.h"
#include "testing/engineTest.h"
#include "testing/qt/person.h"

namespace quernstoke {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* htmlPath = "C:\\out\\results.html";
constexpr const char* csvPath = "C:\\out\\results.csv";

class ExportDialog : public EngineTest {
 protected:
  ExportDialog() {
    basDefaultProfile("GLOBAL", "");
    GlobalSettings.ResultsOutputDirectory = "C:\\out";
    GlobalSettings.ResultsOutputFile = "results.html";
    disk.directory("C:\\out");
    disk.file("C:\\Quernstoke\\results_template.html", "<File_data_inserted_here>\n");
    buildCatalogue({{"a", "C:\\x", 1, 0}, {"b", "C:\\y", 1, 0}});
    basSetupMatchGroupInfo("MATCHNUM", startMode::none);
  }
  ~ExportDialog() override {
    Form::deleteAll();
    settle();
  }

  void open() {
    dialog_ = new forms::frmExportResults;
    dialog_->show();
    settle();
  }
  template <class Widget>
  Widget& control(const char* name) {
    return *dialog_->findChild<Widget*>(name);
  }
  QLineEdit& field(const char* name) { return control<QLineEdit>(name); }
  QCheckBox& box(const char* name) { return control<QCheckBox>(name); }
  std::string text(const char* name) { return field(name).text().toStdString(); }
  void press(const char* name) { click(control<QAbstractButton>(name)); }
  void choose(const char* option) {
    auto& button = control<QRadioButton>(option);
    click(button, {8, button.height() / 2});
  }
  bool isEnabled(const char* name) { return control<QWidget>(name).isEnabled(); }
  bool isOpen() const { return dialog_ && dialog_->isLoaded(); }
  void expectRefused(const std::string& message) {
    box("chkNumberBlocks").setChecked(false);
    press("cmdOK");
    EXPECT_TRUE(isOpen());
    EXPECT_THAT(dialogBoxes.messages, ElementsAre(message));
    EXPECT_THAT(desk.opened, IsEmpty());
    EXPECT_EQ(GlobalSettings.ResultsOutputDirectory, "C:\\out");
    EXPECT_EQ(GlobalSettings.ResultsOutputFile, "results.html");
    EXPECT_TRUE(GlobalSettings.ResultsNumberEachBlock);
  }

  QPointer<forms::frmExportResults> dialog_;
};

TEST_F(ExportDialog, HasItsCaptions) {
  open();
  EXPECT_EQ(dialog_->windowTitle(), "Export Results");
  for (const auto& [name, caption] : std::vector<std::pair<const char*, const char*>>{
           {"cmdDirectoryBrowse", "..."},
           {"optOutputFormat_0", "html"},
           {"optOutputFormat_1", "csv"},
           {"chkAutoLaunch", "Launch results file automatically"},
           {"chkUseBlockMarkers", "Use csv block markers:"},
           {"chkNumberBlocks", "Number each block"},
           {"cmdOK", "OK"},
           {"cmdCancel", "Cancel"}})
    EXPECT_EQ(control<QAbstractButton>(name).text(), caption);
  std::vector<std::string> labels;
  for (const QLabel* label : dialog_->findChildren<QLabel*>())
    labels.push_back(label->text().toStdString());
  EXPECT_THAT(labels,
              testing::UnorderedElementsAre(
                  "Output directory:", "Output filename:", "OR", "Block indicators:",
                  "To distinguish each block of duplicate files from another block, specify your "
                  "preferred prefixes for each block.",
                  "1", "2",
                  "Each block in the csv file will have a unique number so that the data can be "
                  "sorted using different criteria and then sorted back into the original order."));
}

TEST_F(ExportDialog, HasItsDefaultsBeforeItIsLoaded) {
  dialog_ = new forms::frmExportResults;
  EXPECT_EQ(text("txtOutputDirectory"), "c:\\temp");
  EXPECT_EQ(text("txtOutputFilename"), "results.html");
  EXPECT_TRUE(control<QRadioButton>("optOutputFormat_0").isChecked());
  for (const char* name : {"chkAutoLaunch", "chkUseBlockMarkers", "chkNumberBlocks"})
    EXPECT_TRUE(box(name).isChecked()) << name;
  EXPECT_EQ(text("txtBlockMarker_0"), "");
  EXPECT_EQ(text("txtBlockMarker_1"), "#");
  delete dialog_;
}

TEST_F(ExportDialog, EveryFieldAndButtonHasANameForScreenReaders) {
  open();
  for (const auto& [name, label] : std::vector<std::pair<const char*, const char*>>{
           {"txtOutputDirectory", "labOutputDirectory"},
           {"txtOutputFilename", "labOutputFilename"},
           {"txtBlockMarker_0", "labBlockMarker_0"},
           {"txtBlockMarker_1", "labBlockMarker_1"}})
    EXPECT_EQ(control<QLabel>(label).buddy(), &field(name)) << name;
  for (const char* name : {"cmdDirectoryBrowse", "txtBlockMarker_0", "txtBlockMarker_1"})
    EXPECT_FALSE(control<QWidget>(name).accessibleName().isEmpty()) << name;
}

TEST_F(ExportDialog, ShowsTheSettings) {
  GlobalSettings.ResultsOutputFormat = "CSV";
  GlobalSettings.ResultsOutputFile = "duplicates.txt";
  GlobalSettings.ResultsNumberEachBlock = false;
  GlobalSettings.ResultsBlockMarkers = GlobalSettings.ResultsLaunch = false;
  GlobalSettings.ResultsBlockIndicator = {"", "-", "+"};
  open();
  EXPECT_TRUE(control<QRadioButton>("optOutputFormat_1").isChecked());
  EXPECT_EQ(text("txtOutputDirectory"), "C:\\out");
  EXPECT_EQ(text("txtOutputFilename"), "duplicates.txt");
  EXPECT_FALSE(box("chkNumberBlocks").isChecked());
  EXPECT_FALSE(box("chkUseBlockMarkers").isChecked());
  EXPECT_EQ(text("txtBlockMarker_0"), "-");
  EXPECT_EQ(text("txtBlockMarker_1"), "+");
}

// The settings of the installation have always carried both for one box.
TEST_F(ExportDialog, TheLaunchSettingDecidesTheBlockMarkersAndNotTheLaunch) {
  for (const bool launch : {true, false}) {
    GlobalSettings.ResultsBlockMarkers = !launch;
    GlobalSettings.ResultsLaunch = launch;
    open();
    EXPECT_EQ(box("chkUseBlockMarkers").isChecked(), launch);
    EXPECT_TRUE(box("chkAutoLaunch").isChecked());
    press("cmdCancel");
    settle();
  }
}

TEST_F(ExportDialog, AnotherFormatThanCsvIsHtml) {
  GlobalSettings.ResultsOutputFormat = "csv";
  open();
  EXPECT_TRUE(control<QRadioButton>("optOutputFormat_0").isChecked());
}

TEST_F(ExportDialog, WithoutADirectoryTheProgramsIsOffered) {
  GlobalSettings.ResultsOutputDirectory.clear();
  open();
  EXPECT_EQ(text("txtOutputDirectory"), "C:\\Quernstoke");
}

TEST_F(ExportDialog, ANameWithoutExtensionGetsThatOfTheFormatWhenItIsLoaded) {
  GlobalSettings.ResultsOutputFile.clear();
  open();
  EXPECT_EQ(text("txtOutputFilename"), "Results.html");
  press("cmdCancel");
  settle();
  GlobalSettings.ResultsOutputFormat = "CSV";
  open();
  EXPECT_EQ(text("txtOutputFilename"), "Results.csv");
  press("cmdCancel");
  settle();
  GlobalSettings.ResultsOutputFile = "mine.";
  open();
  EXPECT_EQ(text("txtOutputFilename"), "mine.csv");
}

TEST_F(ExportDialog, TheBlockControlsAreForCsvAlone) {
  open();
  for (const char* option : {"", "optOutputFormat_1", "optOutputFormat_0", "optOutputFormat_1"}) {
    if (*option != '\0') choose(option);
    const bool csv = std::string(option) == "optOutputFormat_1";
    for (const char* name : {"fraBlockIndicators", "fraNumberBlocks", "chkNumberBlocks",
                             "chkUseBlockMarkers", "txtBlockMarker_0", "txtBlockMarker_1"})
      EXPECT_EQ(isEnabled(name), csv) << option << name;
    for (const char* name : {"txtOutputDirectory", "txtOutputFilename", "chkAutoLaunch", "cmdOK"})
      EXPECT_TRUE(isEnabled(name)) << name;
  }
}

TEST_F(ExportDialog, TheBlockControlsOfAStoredCsvAreEnabled) {
  GlobalSettings.ResultsOutputFormat = "CSV";
  open();
  EXPECT_TRUE(isEnabled("chkNumberBlocks"));
}

TEST_F(ExportDialog, SwitchingTheFormatChangesTheExtension) {
  open();
  const auto switched = [&](const char* from, const char* option) {
    field("txtOutputFilename").setText(from);
    choose(option);
    return text("txtOutputFilename");
  };
  EXPECT_EQ(switched("results.html", "optOutputFormat_1"), "results.csv");
  EXPECT_EQ(switched("results.csv", "optOutputFormat_0"), "results.html");
  EXPECT_EQ(switched("results", "optOutputFormat_1"), "results.csv");
  EXPECT_EQ(switched("", "optOutputFormat_0"), "results.html");
  EXPECT_EQ(switched("a.b.txt", "optOutputFormat_1"), "a.b.csv");
  EXPECT_EQ(switched("results.", "optOutputFormat_0"), "results.html");
  EXPECT_EQ(switched(".", "optOutputFormat_1"), ".csv");
}

TEST_F(ExportDialog, BrowsingPutsTheDirectoryPickedIntoItsField) {
  open();
  modalForms.frmDirTree = [] {
    EXPECT_EQ(DialogText, "C:\\out");
    DialogText = "C:\\picked";
  };
  press("cmdDirectoryBrowse");
  EXPECT_EQ(text("txtOutputDirectory"), "C:\\picked");
  DialogValue = 1;
  int found = 0;
  modalForms.frmDirTree = [&] {
    found = DialogValue.raw();
    DialogText.clear();
  };
  press("cmdDirectoryBrowse");
  EXPECT_EQ(found, 1);
  EXPECT_EQ(text("txtOutputDirectory"), "C:\\picked");
}

TEST_F(ExportDialog, OkWritesThePageAndOpensIt) {
  open();
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(disk.content(htmlPath), StartsWith("<tr><td class=\"colour1\">a</td>"));
  ASSERT_EQ(desk.opened.size(), 1U);
  EXPECT_EQ(desk.opened[0].file, htmlPath);
  EXPECT_EQ(desk.opened[0].operation, "open");
  EXPECT_EQ(desk.opened[0].parameters + desk.opened[0].directory, "");
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ExportDialog, OkWritesTheTableAsChosen) {
  open();
  choose("optOutputFormat_1");
  field("txtBlockMarker_0").setText("*");
  box("chkNumberBlocks").setChecked(false);
  press("cmdOK");
  EXPECT_EQ(disk.content(csvPath),
            "Marker,Name,Directory,Date,Size\r\n"
            "\"*\",\"a\",\"C:\\x\",1970-01-01,1\r\n"
            "\"*\",\"b\",\"C:\\y\",1970-01-01,1\r\n");
}

TEST_F(ExportDialog, OkKeepsTheChoices) {
  open();
  choose("optOutputFormat_1");
  field("txtOutputDirectory").setText("C:\\out\\");
  field("txtOutputFilename").setText("mine.txt");
  box("chkNumberBlocks").setChecked(false);
  field("txtBlockMarker_0").setText("-");
  field("txtBlockMarker_1").setText("+");
  press("cmdOK");
  EXPECT_EQ(GlobalSettings.ResultsOutputFormat, "CSV");
  EXPECT_EQ(GlobalSettings.ResultsOutputDirectory, "C:\\out");
  EXPECT_EQ(GlobalSettings.ResultsOutputFile, "mine.txt");
  EXPECT_FALSE(GlobalSettings.ResultsNumberEachBlock);
  EXPECT_TRUE(GlobalSettings.ResultsBlockMarkers);
  EXPECT_TRUE(GlobalSettings.ResultsLaunch);
  EXPECT_EQ(GlobalSettings.ResultsBlockIndicator[1], "-");
  EXPECT_EQ(GlobalSettings.ResultsBlockIndicator[2], "+");
  settle();
  open();
  EXPECT_TRUE(control<QRadioButton>("optOutputFormat_1").isChecked());
  EXPECT_EQ(text("txtOutputFilename"), "mine.txt");
  press("cmdCancel");
  settle();
  GlobalSettings.ResultsOutputFormat = "CSV";
  open();
  choose("optOutputFormat_0");
  press("cmdOK");
  EXPECT_EQ(GlobalSettings.ResultsOutputFormat, "HTML");
  EXPECT_EQ(GlobalSettings.ResultsOutputFile, "mine.html");
}

TEST_F(ExportDialog, TheBoxOfTheMarkersFillsBothItsSettings) {
  open();
  choose("optOutputFormat_1");
  box("chkUseBlockMarkers").setChecked(false);
  press("cmdOK");
  EXPECT_FALSE(GlobalSettings.ResultsBlockMarkers);
  EXPECT_FALSE(GlobalSettings.ResultsLaunch);
}

TEST_F(ExportDialog, NotLaunchingIsNotKept) {
  open();
  box("chkAutoLaunch").setChecked(false);
  press("cmdOK");
  EXPECT_TRUE(disk.exists(htmlPath));
  EXPECT_THAT(desk.opened, IsEmpty());
  EXPECT_TRUE(GlobalSettings.ResultsLaunch);
  settle();
  open();
  EXPECT_TRUE(box("chkAutoLaunch").isChecked());
}

TEST_F(ExportDialog, AFileThatIsGoneAlreadyIsNotLaunched) {
  disk.before = [this](const DiskCall& call) {
    if (call.action != DiskAction::attributes || call.path != htmlPath) return;
    disk.before = {};
    disk.erase(htmlPath);
  };
  open();
  press("cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(desk.opened, IsEmpty());
}

TEST_F(ExportDialog, TheSettingsReachNoFileYet) {
  open();
  press("cmdOK");
  for (const DiskCall& call : disk.calls)
    EXPECT_THAT(call.path, testing::Not(testing::HasSubstr("Profiles")));
}

TEST_F(ExportDialog, ItsTextsHaveRoomInALargerFont) {
  dialog_ = new forms::frmExportResults;
  QFont larger = dialog_->font();
  larger.setPointSize(larger.pointSize() + 5);
  dialog_->setFont(larger);
  dialog_->show();
  settle();
  for (const char* name : {"labBlockIndicatorsText", "labNumberBlocks"}) {
    auto& label = control<QLabel>(name);
    EXPECT_GE(label.height(), label.heightForWidth(label.width())) << name;
  }
}

TEST_F(ExportDialog, AFileThatNoProgramOpensGoesToTheEditor) {
  desk.shellAnswer = shellNoAssociation;
  open();
  press("cmdOK");
  ASSERT_EQ(desk.opened.size(), 2U);
  EXPECT_EQ(desk.opened[0].file, htmlPath);
  EXPECT_EQ(desk.opened[1].file, std::string("notepad.exe ") + htmlPath);
  EXPECT_EQ(desk.opened[1].operation, "open");
  EXPECT_FALSE(isOpen());
}

TEST_F(ExportDialog, AnotherFailureToOpenTheFileIsOfNoConcern) {
  desk.shellAnswer = shellAccessDenied;
  open();
  press("cmdOK");
  EXPECT_EQ(desk.opened.size(), 1U);
  EXPECT_FALSE(isOpen());
  EXPECT_THAT(dialogBoxes.messages, IsEmpty());
}

TEST_F(ExportDialog, TheDirectoryMustBeThere) {
  open();
  field("txtOutputDirectory").setText("C:\\nowhere\\");
  expectRefused("Directory C:\\nowhere doesn't exist");
  EXPECT_EQ(text("txtOutputDirectory"), "C:\\nowhere");
}

TEST_F(ExportDialog, OnlyOneBackslashIsCut) {
  open();
  field("txtOutputDirectory").setText("C:\\nowhere\\\\");
  expectRefused("Directory C:\\nowhere\\ doesn't exist");
}

TEST_F(ExportDialog, WithoutADirectoryItStays) {
  open();
  field("txtOutputDirectory").clear();
  expectRefused("Directory  doesn't exist");
}

TEST_F(ExportDialog, AFileThatCannotBeCreatedLeavesItOpen) {
  open();
  disk.directory(htmlPath);
  expectRefused("Error creating results file. Reason: Path/File access error");
}

TEST_F(ExportDialog, WithoutAFileNameItStays) {
  open();
  field("txtOutputFilename").clear();
  press("cmdOK");
  EXPECT_TRUE(isOpen());
  ASSERT_EQ(dialogBoxes.messages.size(), 1U);
  EXPECT_THAT(dialogBoxes.messages[0], StartsWith("Error creating results file. Reason: "));
}

TEST_F(ExportDialog, WithoutATemplateItStays) {
  open();
  disk.erase("C:\\Quernstoke\\results_template.html");
  expectRefused("Can't find template results file 'C:\\Quernstoke\\results_template.html'");
}

TEST_F(ExportDialog, WithoutTheMarkerItStays) {
  open();
  disk.file("C:\\Quernstoke\\results_template.html", "<table></table>");
  expectRefused(
      "Can not find insert market in template file 'results_template.html'. Text "
      "'<File_data_inserted_here>' missing");
}

TEST_F(ExportDialog, AFullDiskLeavesItOpenForAnotherTry) {
  open();
  disk.freeBytes = 1;
  expectRefused("Error outputting results data. Reason: Disk full");
  disk.freeBytes.reset();
  press("cmdOK");
  EXPECT_FALSE(isOpen());
}

TEST_F(ExportDialog, CancelEscapeAndTheCloseBoxKeepNothing) {
  const std::vector<std::function<void()>> ways = {[&] { press("cmdCancel"); },
                                                   [&] { pressKey(*dialog_, Qt::Key_Escape); },
                                                   [&] { dialog_->close(); }};
  for (const auto& leave : ways) {
    open();
    choose("optOutputFormat_1");
    field("txtOutputDirectory").setText("C:\\");
    leave();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(GlobalSettings.ResultsOutputFormat, "HTML");
    EXPECT_EQ(GlobalSettings.ResultsOutputDirectory, "C:\\out");
    settle();
  }
  EXPECT_THAT(disk.names("C:\\out"), IsEmpty());
}

TEST_F(ExportDialog, EnterExports) {
  open();
  field("txtOutputFilename").setFocus();
  pressKey(*dialog_, Qt::Key_Return);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(disk.exists(htmlPath));
}

TEST_F(ExportDialog, TabGoesThroughItInOrder) {
  open();
  choose("optOutputFormat_1");
  field("txtOutputDirectory").setFocus();
  std::vector<std::string> order;
  for (int press = 0; press < 11; ++press) {
    order.push_back(dialog_->focusWidget()->objectName().toStdString());
    pressKey(*dialog_, Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("txtOutputDirectory", "cmdDirectoryBrowse", "txtOutputFilename",
                                 "optOutputFormat_1", "chkAutoLaunch", "chkUseBlockMarkers",
                                 "txtBlockMarker_0", "txtBlockMarker_1", "chkNumberBlocks", "cmdOK",
                                 "cmdCancel"));
}

// A record of settings ends at a control character.
TEST_F(ExportDialog, ControlCharactersOfAPasteAreNotTaken) {
  open();
  field("txtOutputFilename").setText("re\tsults.html\r\n");
  press("cmdOK");
  EXPECT_TRUE(disk.exists(htmlPath));
  EXPECT_EQ(GlobalSettings.ResultsOutputFile, "results.html");
}

TEST_F(ExportDialog, BytesThatAreNoTextSurvive) {
  disk.directory("C:\\\xFF");
  GlobalSettings.ResultsOutputDirectory = "C:\\\xFF";
  open();
  press("cmdOK");
  EXPECT_TRUE(disk.exists("C:\\\xFF\\results.html"));
  EXPECT_EQ(GlobalSettings.ResultsOutputDirectory, "C:\\\xFF");
}

TEST_F(ExportDialog, RunsUntilItIsClosed) {
  auto* const dialog = new forms::frmExportResults;
  QTimer::singleShot(0, dialog, [&] { dialog->findChild<QAbstractButton*>("cmdCancel")->click(); });
  dialog->showModal();
  EXPECT_TRUE(dialog->isUnloaded());
}

}  // namespace
}  // namespace quernstoke
