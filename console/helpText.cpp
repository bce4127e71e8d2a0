#include "console/helpText.h"

#include "core/version.h"

namespace quernstoke {

std::string helpText() {
  return R"(usage: quernstoke-scan [options] DIRECTORY...
       quernstoke-scan [options] --profile NAME [--continue]

Finds duplicate files below the directories, or runs the scan of a stored profile. The sets of
equal files go to standard output, one path a line, a blank line between two sets; or as a table.

What to look at (with DIRECTORY only):
  --match LETTERS   compare N names, C content, S sizes, in any combination (default C)
  --percent N       how much of the content has to be equal, 50 to 100 (default 100)
  --min-size SIZE   smallest file, a whole number with B, KB, MB or GB (default 1B)
  --max-size SIZE   largest file (default 2GB)
  --types LIST      file types, such as "jpg;png" or "*.jpg;*.png" (default all)
  --exclude DIR     leave out this directory and all below it, in capitals or not; repeatable
  --zip             look inside zip archives, whose entries are matched by name and size (take
                    --match N, S or NS); the archives themselves are then not compared
  --hidden          also look at names that begin with a dot
  --system          also look at system files

Profiles:
  --profile NAME    run the profile anew; its log, settings and results are kept as the program
                    with windows keeps them
  --continue        take the profile's paused scan up where it was paused

Both:
  --home DIR        where the program's files lie (default: what QUERNSTOKE_HOME names, or the
                    directory of the program). A scan of directories makes a home of its own below
                    DIR, or else in TMPDIR or /tmp, and removes it afterwards
  --format FORMAT   text, csv or html (default text). csv and html also tell dates and sizes; html
                    is made from results_template.html in the home or beside the program, or else
                    from a page of its own
  --output FILE     write the sets to FILE, which is replaced and so never one of a set
  --quiet           neither progress nor remarks nor the summary; messages, errors, the word that a
                    scan pauses and the summary of one that failed stay
  --version         print the version
  --help            print this

Ctrl-C, SIGTERM and SIGHUP abort a scan of directories. They pause the scan of a profile at the next
place from which --continue can take it up, or after ten seconds, which costs the rest of the group
being compared; a second one aborts it.

Files of 2 GiB and more, links and special files are passed over and counted. When exactly two of
the files looked at have the smallest size (with --match N: the name that is sorted first),
these two are not compared.

Exit status: 0 the scan ran to its end, 1 something failed and what was found or written is
incomplete, 2 wrong arguments, 3 a directory or profile isn't there, 4 the scan was paused or
aborted.
)";
}

std::string versionText() {
  return "quernstoke-scan " + std::to_string(programVersion.major) + "." +
         std::to_string(programVersion.minor) + "." + std::to_string(programVersion.revision) +
         "\n";
}

}  // namespace quernstoke
