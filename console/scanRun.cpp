#include "console/scanRun.h"

#include "catalogue/fileTable.h"
#include "console/consolePlatform.h"
#include "console/exitStatus.h"
#include "console/exportReport.h"
#include "console/foundSets.h"
#include "console/homeDirectory.h"
#include "console/machinePaths.h"
#include "console/options.h"
#include "console/output.h"
#include "console/reportPage.h"
#include "console/scanPlan.h"
#include "console/signals.h"
#include "console/standardError.h"
#include "console/summary.h"
#include "console/textReport.h"
#include "core/modMain.h"
#include "core/scanDriver.h"
#include "core/scanState.h"
#include "export/pageTemplate.h"
#include "mainui/profileSelection.h"
#include "platform/linux/process.h"
#include "settings/profileStore.h"
#include "settings/settings.h"

namespace quernstoke {

namespace {

bool showsProgress(const Options& options, const StandardError& err) {
  return err.isTerminal() && !options.quiet;
}

void startProgram(const std::string& home, const ConsolePlatform& platform) {
  AppPath = homeAsProgramPath(home, platform.files.drives());
  ExeName = "quernstoke-scan";
  Main();
  if (!platform.mainWindow.isLoaded())
    throw ScanError(ExitStatus::failed, "the program can't use '" + home + "' as its home");
}

void takeLimits(const DirectoryScan& scan) {
  ProfileSettings.MinimumSize = scan.minimum.number;
  ProfileSettings.MinimumSizeMeasure = scan.minimum.measure;
  ProfileSettings.MaximumSize = scan.maximum.number;
  ProfileSettings.MaximumSizeMeasure = scan.maximum.measure;
}

void takeDirectories(const ScanPlan& plan, const std::string& types, const DriveTable& drives) {
  Int16 slot = 0;
  for (const std::string& directory : plan.includes)
    ProfileDirList[++slot] = {drives.programPath(directory), "I", types, true};
  // With its subdirectories an exclude is a mere prefix that other directories may share. Without
  // them it does as much, since what isn't entered leads nowhere.
  for (const std::string& directory : plan.excludes)
    ProfileDirList[++slot] = {drives.programPath(directory), "E", types, false};
}

void describeScan(const DirectoryScan& scan, const ScanPlan& plan, const DriveTable& drives) {
  ProfileName = "scan";
  basSaveProfile("NEWPROFILE");
  ProfileSettings.MatchingCriteria = scan.match;
  ProfileSettings.ContentMatchingPercent = scan.percent;
  ProfileSettings.ProcessZip = scan.zip;
  ProfileSettings.ScanHiddenFiles = scan.hidden;
  ProfileSettings.ScanSystemFiles = scan.system;
  takeLimits(scan);
  takeDirectories(plan, scan.types, drives);
  // The walk never enters the temp directory. So the home is not scanned when it lies in a
  // directory that is.
  GlobalSettings.TempPath = TempDir = AppPath;
}

void selectProfile(const Options& options) {
  ProfileName = options.profile;
  bool ok = false;
  basProcessProfileSelection(ok);
  if (!ok)
    throw ScanError(ExitStatus::notThere, "profile '" + options.profile + "' can't be loaded");
  StartMode = options.continues ? startMode::continueScan : startMode::newScan;
  const Int16 mode = ProfileSettings.RunMode;
  if (options.continues && (mode < runState::comparing || mode > runState::pauseRequested))
    throw ScanError(ExitStatus::wrongArguments,
                    "profile '" + options.profile + "' is not paused, so it can't be continued");
}

Summary::Outcome scanOutcome(const ConsoleDialogs& dialogs) {
  if (RunState == runState::paused) return Summary::Outcome::paused;
  if (RunState == runState::aborted) return Summary::Outcome::aborted;
  // A scan that failed on its way has left the state as it was then.
  if (RunState != runState::finished || dialogs.sawFailure()) return Summary::Outcome::failed;
  return Summary::Outcome::finished;
}

// Looks at all that writing the report needs, as a scan may take hours. Returns the page that an
// html report is made from.
PageTemplate prepareReport(const Options& options) {
  if (options.output) requireWritable(*options.output);
  return options.format == ReportFormat::html ? reportPage(options.home) : PageTemplate();
}

void leaveOutputOut(const Options& options, MachinePaths& paths, StandardError& err) {
  if (options.output && leaveOut(*options.output, paths) && !options.quiet)
    err.line("quernstoke-scan: '" + *options.output + "' is left out: it is replaced");
}

// Returns the number of duplicates.
std::int64_t writeReport(const Options& options, const PageTemplate& page, const DriveTable& drives,
                         StandardError& err) {
  MachinePaths paths(drives);
  leaveOutputOut(options, paths, err);
  const SetCounts counts = groupSets();
  Output output(options.output);
  if (options.format == ReportFormat::text) writeTextReport(paths, output);
  if (options.format == ReportFormat::csv) writeCsvReport(paths, output);
  if (options.format == ReportFormat::html) writeHtmlReport(page, paths, output);
  output.finish();
  return counts.files - counts.sets;
}

ExitStatus statusOf(Summary::Outcome outcome) {
  if (outcome == Summary::Outcome::finished) return ExitStatus::finished;
  return outcome == Summary::Outcome::failed ? ExitStatus::failed : ExitStatus::stopped;
}

// A scan that was stopped has no report, and leaves that of an earlier one as it is.
ExitStatus report(const Options& options, const PageTemplate& page, const ConsolePlatform& platform,
                  std::int64_t files, StandardError& err) {
  err.clearProgress();
  Summary summary;
  summary.files = files;
  summary.seconds = platform.tally.seconds();
  summary.passedOver = platform.tally.passedOver();
  summary.duplicates = RunState == runState::finished
                           ? writeReport(options, page, platform.files.drives(), err)
                           : DuplicateCount.raw();
  summary.outcome = scanOutcome(platform.dialogs);
  if (!options.quiet || summary.outcome == Summary::Outcome::failed) err.line(summaryLine(summary));
  return statusOf(summary.outcome);
}

}  // namespace

ExitStatus scanDirectories(const Options& options, StandardError& err) {
  const ScanPlan plan = planScan(options.scan);
  const PageTemplate page = prepareReport(options);
  if (!options.quiet)
    for (const std::string& remark : plan.remarks)
      err.line("quernstoke-scan: " + remark);

  const DriveTable drives;  // C: alone, so that each directory has one path.
  ConsolePlatform platform(drives, OnStop::abort, showsProgress(options, err), err);
  {
    const StopSignals signals;
    const ScratchHome home(options.home);
    startProgram(home.path(), platform);
    describeScan(options.scan, plan, drives);
    StartMode = startMode::newScan;
    basStartScan();
  }
  return report(options, page, platform, platform.tally.filesMet(), err);
}

ExitStatus scanProfile(const Options& options, StandardError& err) {
  const std::string home = programHome(options.home);
  const PageTemplate page = prepareReport(options);
  ConsolePlatform platform(DriveTable::fromEnvironment(), OnStop::pause,
                           showsProgress(options, err), err);
  std::int64_t filesTakenUp = 0;
  {
    const StopSignals signals;
    startProgram(home, platform);
    selectProfile(options);
    filesTakenUp = FileCount.raw();
    basStartScan();
  }
  const std::int64_t files = options.continues ? filesTakenUp : platform.tally.filesMet();
  return report(options, page, platform, files, err);
}

}  // namespace quernstoke
