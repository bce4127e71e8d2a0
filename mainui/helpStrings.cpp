#include "mainui/helpStrings.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "core/text.h"

namespace quernstoke {

namespace {

struct HelpString {
  std::int16_t id;
  std::string_view text;
};

// By number: the settings of a profile, the main window's buttons, the settings of the
// installation, the results window, some more of these, the status bars, and the steps that a
// person takes.
constexpr std::array helpStrings{
    HelpString{
        101,
        "Match option: This option will match on all files with the same name, wherever they "
        "lie. Upper and lower case letters count as different."
        "NEWLINENEWLINE"
        "Files with the same name may hold different data. Tick 'Content' as well to match "
        "only files that agree in both."
        "NEWLINENEWLINE"
        "When the profile is selected again, 'Name' comes back without the other two options. "
        "Tick them again if you want them."},
    HelpString{102,
               "Match option: This option will match on all files with the same content, whatever "
               "their names. Files of the same size are read and compared byte by byte."
               "NEWLINENEWLINE"
               "This is the surest option and the slowest, because the files are read. 'Size' is "
               "ticked with it and can't be unticked. Empty files don't match by content alone."
               "NEWLINENEWLINE"
               "In a file longer than 50 read chunks, a difference in the very last byte alone can "
               "pass unnoticed."},
    HelpString{103,
               "Match option: This option will match on all files with the same size. No file is "
               "opened, so this is quick."
               "NEWLINENEWLINE"
               "Files of the same size often hold different data. Look at them before you delete "
               "any, or use 'Content'. Empty files don't match by size."
               "NEWLINENEWLINE"
               "Together with 'Name', files match by their names, and those whose size no other "
               "matched file has are left out."},
    HelpString{
        104,
        "If this option is enabled and the 'Transfer files locally' option in the Global "
        "Settings is enabled too, parts of the files that have been read are kept on the "
        "local disk. Further comparisons read them there."
        "NEWLINENEWLINE"
        "Use it for slow media such as network drives and optical discs, where reading a file "
        "again takes long. For local hard drives it only costs time and disk space."
        "NEWLINENEWLINE"
        "It applies when contents are compared, and to three or more files of the same size."},
    HelpString{
        105,
        "In these fields enter your desired Minimum and Maximum file size limits as whole "
        "numbers, and choose bytes, KB, MB or GB beside them. 1 KB is 1024 bytes."
        "NEWLINENEWLINE"
        "Smaller and larger files are left out of the scan. A file of exactly the minimum or "
        "maximum size is part of it. The minimum can be 0, the maximum must be 1 or more."
        "NEWLINENEWLINE"
        "Files of 2 GB and above are never scanned. A limit of 2097152 KB or 2048 MB and "
        "above can't be computed and counts as 0, with a message: use GB instead."},
    HelpString{
        106,
        "NEW - Start a fresh scan of the directories selected. What the paused scan has found "
        "is given up."
        "NEWLINENEWLINE"
        "CONTINUE - Take up the paused scan where it stopped. The list of files made by that "
        "scan is used, so files added since then are not seen."
        "NEWLINENEWLINE"
        "Some files near the place where the scan was paused may stay uncompared. Only a NEW "
        "scan compares everything."},
    HelpString{
        107,
        "Enable this option if you wish to scan files within ZIP files. A zip file then "
        "counts as a directory and is not itself compared with other files. Zip files inside "
        "zip files are not opened."
        "NEWLINENEWLINE"
        "The names and sizes of the files within can be compared. With 'Content', files within "
        "zip files are as a rule not matched."
        "NEWLINENEWLINE"
        "Reading the zip files makes the scan longer. Files within zip files can be opened "
        "from the results, but not deleted."},
    HelpString{
        108,
        "Enter the percentage of the file you wish to scan before assuming it's a duplicate. "
        "The default is 100%. The number must be between 50 and 100, and it counts only when "
        "'Content' is ticked."
        "NEWLINENEWLINE"
        "With 100%, two files match when no difference is found. With less, they match when "
        "they are equal from the beginning to beyond that part of the file; the rest may "
        "differ. Look at such files before you delete any."
        "NEWLINENEWLINE"
        "A lower percentage does not make the scan faster."},
    HelpString{
        109,
        "Select your profile from the drop down list or choose <New Profile> to create a new "
        "profile."},
    HelpString{110,
               "Enter the description of your profile (optional)."
               "NEWLINENEWLINE"
               "It reminds you what the profile is for, and has no effect on the scan. It is saved "
               "with the profile."},
    HelpString{
        111,
        "Use this button to add a new directory  to the profile. "
        "You can include a directory, with the types of file to look for, exclude a directory, "
        "or name two directories whose files are not to be compared with each other."
        "NEWLINENEWLINE"
        "An included directory is always scanned together with all its sub directories. "
        "Exclude those that you don't want."
        "NEWLINENEWLINE"
        "Don't include a directory twice, or one that lies inside another: its files would be "
        "found twice and reported as duplicates of themselves, and deleting one would delete the "
        "file."},
    HelpString{
        112,
        "Use this button to edit an existing directory specification in your profile. Select "
        "the directory in the list first, or double-click it there."
        "NEWLINENEWLINE"
        "An entry stays of the kind that it is, included, excluded or a pair of directories. "
        "To change the kind, delete the entry and add it anew."},
    HelpString{113,
               "Use this button to delete an existing directory specification from your profile. "
               "Select the directory in the list first. You are not asked again."
               "NEWLINENEWLINE"
               "Only the entry goes; the directory and its files are not touched. The two "
               "directories of a pair leave the list together."},
    HelpString{
        114,
        "Use this button to delete the currently selected profile. You are asked before it is "
        "deleted."
        "NEWLINENEWLINE"
        "The profile's settings and the results of its last scan are removed from the disk "
        "and can't be brought back. The files in its directories are not touched."},
    HelpString{
        115,
        "Display previous scan results of the selected profile, with the ticks and deletions "
        "that you have made in them."
        "NEWLINENEWLINE"
        "There are results once a scan has run to its end. After a paused or an aborted scan "
        "this button does nothing."
        "NEWLINENEWLINE"
        "The list shows the files as that scan found them. What has changed on the disk since "
        "then shows only after a new scan."},
    HelpString{116,
               "Exit Quernstoke.NEWLINENEWLINEPreviously PAUSED scans can still be resumed later."
               "NEWLINENEWLINE"
               "The profile and the global settings are saved. Leave the program by this button: "
               "closing the window in another way doesn't save them."},
    HelpString{117,
               "Show or hide this help panel. Hidden, it leaves its room to the list."
               "NEWLINENEWLINE"
               "Either way the list goes back to its first page."},
    HelpString{118,
               "Use this button to add or edit the file types list. A file type is a name with its "
               "extensions, such as 'Music' for *.mp3, *.ogg and others."
               "NEWLINENEWLINE"
               "A directory that you include in a profile is scanned for the files of one type. A "
               "change here applies to every profile that uses the type, from its next scan on."},
    HelpString{
        119,
        "If this option is enabled and the 'Slow Media' option of the profile is enabled too, "
        "parts of the files that have been read are kept on the local disk. Further "
        "comparisons read them there instead of from the slow media."
        "NEWLINENEWLINE"
        "The copies need disk space, at most as much as you allow below. They are removed "
        "during the scan, and what is left of them when the next scan starts."},
    HelpString{
        120,
        "Enter the maximum disk space to be used for temporary storage during the scanning "
        "process. It holds the local copies of slow media and the files extracted from zip "
        "files."
        "NEWLINENEWLINE"
        "When it is used up, no more is copied and the scan goes on without. Files within zip "
        "files are then not extracted or compared; a message tells you."
        "NEWLINENEWLINE"
        "The room is checked before a file is extracted, so one large file can go beyond the "
        "limit."},
    HelpString{
        121,
        "Use this field to specify the location for storing temporary files. "
        "Choose a directory on a fast local drive with enough free space. If it doesn't "
        "exist, you are asked whether to create it."
        "NEWLINENEWLINE"
        "Use a directory that serves nothing else: when a scan starts, all files in it whose "
        "names begin with TMP are deleted. It is itself never scanned."},
    HelpString{122,
               "The beginning of each file read is stored in a buffer in memory, so that a file "
               "which is compared with several others need not be read from the disk each time. "
               "Enter the number of buffers, from 1 to 100000. The default is 500."
               "NEWLINENEWLINE"
               "The buffers are meant for all files of the same size together: 500 buffers and 10 "
               "files give 50 buffers each."
               "NEWLINENEWLINE"
               "More buffers save reading and take memory; the total is shown below."},
    HelpString{123,
               "Enter the buffer size in bytes. For local hard drives 8192 is the most efficient. "
               "The number must be between 256 and 32768."
               "NEWLINENEWLINE"
               "Files are read in chunks of this size, and each buffer in memory holds one chunk. "
               "For network drives a larger size may be faster."
               "NEWLINENEWLINE"
               "A larger size takes more memory; the total is shown below."},
    HelpString{
        124,
        "Open the selected file with the program that your desktop has for it. Select exactly "
        "one file."
        "NEWLINENEWLINE"
        "A file within a zip file is extracted to the directory for temporary files first. "
        "Changes that you make to that copy are lost when this window closes."},
    HelpString{125,
               "Open the directory that contains the selected file. Select exactly one file."
               "NEWLINENEWLINE"
               "For a file within a zip file this is the directory of the zip file."},
    HelpString{
        126,
        "Delete the selected files, at once and without a question. They can't be brought "
        "back."
        "NEWLINENEWLINE"
        "Read-only files are deleted too, and nothing holds back the last copy: make sure "
        "that at least one file of each group stays. Files within zip files can't be deleted."
        "NEWLINENEWLINE"
        "A deleted file stays on the list with its name struck through."},
    HelpString{
        127,
        "Delete the ticked files, after one question. They can't be brought back."
        "NEWLINENEWLINE"
        "The question counts all ticked files of the list, but only those on the page that "
        "you see are deleted. Go to the next page and use the button again for the others."
        "NEWLINENEWLINE"
        "Read-only files are deleted too, and nothing holds back the last copy: make sure "
        "that at least one file of each group stays. Files within zip files can't be deleted."},
    HelpString{
        128,
        "Use this button to filter (remove) entries from the grid. The files are not actually "
        "deleted. To add the files to the grid again you have to rescan for duplicate files."
        "NEWLINENEWLINE"
        "Select a file first: what is filtered is its directory, or one above it. You can also "
        "exclude the directory from later scans, or stop two directories from being compared "
        "with each other, which counts from the next scan on."},
    HelpString{129,
               "Fit the columns to the width of the window each time the list is shown."
               "NEWLINENEWLINE"
               "Turned off, the columns keep the widths that you give them with the mouse."},
    HelpString{130,
               "Show each file on one line, or on two lines with the directory below the name. Two "
               "lines leave more room for long names and show fewer files."
               "NEWLINENEWLINE"
               "A change takes the list back to its first page."},
    HelpString{
        131,
        "Group the files by match, so that duplicates of each other stand together, or by the "
        "directory that they lie in."
        "NEWLINENEWLINE"
        "Grouped by directory, the figure behind 'Duplicates' is counted by directories and "
        "is not the number of duplicate files."},
    HelpString{
        132,
        "Write the list to a file, as a web page or as text with commas (CSV) for a "
        "spreadsheet."
        "NEWLINENEWLINE"
        "All files of the list are written, grouped as you see them. A file of the same name "
        "is replaced."},
    HelpString{133,
               "Use this button to start the scanning process. Your settings are saved first. At "
               "least one match option must be ticked."
               "NEWLINENEWLINE"
               "A new scan replaces the results of the profile's last one."
               "NEWLINENEWLINE"
               "The scan only reads your files. Whether any are deleted is your decision when you "
               "see the results."},
    HelpString{
        140,
        "Enable this option if you wish to include hidden files in your scan. Hidden are "
        "files whose names begin with a point, and whole directories of such a name with all "
        "that is in them."
        "NEWLINENEWLINE"
        "Programs keep their settings in hidden files and often need each copy. Be careful "
        "when you delete any."},
    HelpString{
        141,
        "Enable this option if you wish to include system files in your scan. It means files "
        "with the 'system' attribute."
        "NEWLINENEWLINE"
        "Files on this computer don't have that attribute, so the option changes nothing "
        "here. Files of the operating system are scanned like all others if you include "
        "their directories."},
    HelpString{
        142,
        "This list shows which directories have been included or excluded for scanning. A "
        "plus marks an included directory, a minus an excluded one. A mark across two rows "
        "joins two directories whose files are not compared with each other."
        "NEWLINENEWLINE"
        "'File Types' tells which files of an included directory are scanned. 'Recurse' tells "
        "whether an exclusion holds for the sub directories too; an included directory is "
        "always scanned with its sub directories."
        "NEWLINENEWLINE"
        "Double-click a row to edit it."},
    HelpString{
        143,
        "Compare two directories side by side. Select a file and use the first button to set "
        "its directory, or one above it, as directory 1. Set directory 2 with the second "
        "button in the same way."
        "NEWLINENEWLINE"
        "The third button reads both directories again and shows them in a window of their "
        "own, where you can delete, move and open files."},
    HelpString{150, "The current profile name."},
    HelpString{151,
               "Total number of files being scanned, excluding some files that do not meet the "
               "criteria."},
    HelpString{152, "Total number of directories scanned."},
    HelpString{153, "Total number of duplicate files found."},
    HelpString{154, "Current profile state."},
    HelpString{161, "Number of files dealt with so far, and of all files to compare."},
    HelpString{162, "Percentage of scan completed."},
    HelpString{163, "Number of directories found."},
    HelpString{164, "Number of duplicate files found so far."},
    HelpString{165, "Percentage of the space for temporary files that is in use."},
    HelpString{
        1000,
        "Welcome to:"
        "NEWLINENEWLINE"
        "Quernstoke"
        "NEWLINENEWLINE"
        "This utility will scan selected drives/folders for duplicate files."
        "NEWLINENEWLINE"
        "Getting started tip:"
        "NEWLINENEWLINE"
        "Select an existing profile from the drop-down list or choose 'New Profile' to create "
        "your own."},
    HelpString{
        1001,
        "Select your directories.NEWLINENEWLINEIn the 'What to scan' area add the directories "
        "and file types you wish to scan or exclude from the scan"},
    HelpString{1002,
               "Choose your scan options.NEWLINENEWLINEIn the 'Scan Options' area choose your scan "
               "options. Tick what the files must have in common: name, content or size."
               "NEWLINENEWLINE"
               "'Content' finds true duplicates. 'Size' and 'Name' are quicker, but say nothing of "
               "what the files hold."
               "NEWLINENEWLINE"
               "Move the pointer over a control to read what it does."},
    HelpString{1003,
               "Starting the scan.NEWLINENEWLINEWhile the scan is running you can click the pause "
               "button to temporarily stop the scanning. You can continue it later, also after "
               "leaving the program."
               "NEWLINENEWLINE"
               "The abort button ends the scan for good. Neither changes any of your files."
               "NEWLINENEWLINE"
               "Click on 'Start' when you are ready."},
    HelpString{
        1004,
        "Previous scan results are available.NEWLINENEWLINEClick on the magnifying glass next "
        "to the profile description to see the results from a previous scan."},
};

constexpr std::string_view lineBreakWord = "NEWLINE";

}  // namespace

std::string_view helpString(Int16 id) {
  const auto* found = std::find_if(helpStrings.begin(), helpStrings.end(),
                                   [id](const HelpString& each) { return each.id == id; });
  return found == helpStrings.end() ? std::string_view() : found->text;
}

std::string helpText(Int16 id) {
  return withLineBreaks(helpString(id));
}

std::string withLineBreaks(std::string_view stored) {
  std::string shown;
  while (!stored.empty()) {
    const bool breaks = equalIgnoringCase(stored.substr(0, lineBreakWord.size()), lineBreakWord);
    shown += breaks ? "\r\n" : stored.substr(0, 1);
    stored.remove_prefix(breaks ? lineBreakWord.size() : 1);
  }
  return shown;
}

}  // namespace quernstoke
