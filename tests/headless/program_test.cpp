#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>

namespace brovin::headless {
namespace {

struct Ended {
    int status;
    std::string said; ///< on both outputs
};

/// Runs a command of the shell in which $brovin is the program, with a home of its own in `scratch`.
Ended run(const posix::ScratchFolder& scratch, const std::string& command) {
    const std::string whole =
        "export brovin='" BROVIN_PROGRAM "' HOME='" + scratch.path() +
        "' XDG_CONFIG_HOME= XDG_DATA_HOME= LC_ALL=C; scan=\"$brovin --scan --nasty x\"; { " + command +
        "; } 2>&1";
    FILE* const output = ::popen(whole.c_str(), "r");
    std::string said;
    for (int c = std::getc(output); c != EOF; c = std::getc(output))
        said.push_back(static_cast<char>(c));
    return {WEXITSTATUS(::pclose(output)), said};
}

TEST(Program, needsNoToolkit) {
    const posix::ScratchFolder scratch;
    const Ended listed = run(scratch, "ldd $brovin");
    ASSERT_EQ(0, listed.status) << listed.said;
    std::istringstream libraries(listed.said);
    for (std::string line; std::getline(libraries, line);) {
        const std::string name = line.substr(line.find_first_not_of(" \t"));
        bool known = name.starts_with("/lib"); // the loader
        for (const char* mayBe :
             {"linux-vdso", "libsimpleini.", "libicui18n.", "libicuuc.", "libicudata.", "libstdc++.", "libm.",
              "libgcc_s.", "libc.", "libasan.", "libubsan.", "libtsan."})
            known = known || name.starts_with(mayBe);
        EXPECT_TRUE(known) << name;
    }
}

TEST(Program, endsWithAStatusThatTellsWhy) {
    const posix::ScratchFolder scratch;
    scratch.addText("Share/Thumbs.db", "x");
    scratch.addFolder("Empty");
    const struct {
        const char* command;
        int status;
        const char* says;
    } kCases[] = {
        {"$brovin --version", 0, "Brovin "},
        {"$brovin --skan", 2, "unknown option --skan"},
        {"$brovin --scan", 4, "no folder is watched"},
        {"$brovin --check-language " BROVIN_ASSETS "/german.blp", 0, ""},
        {"sed 's/&dude&!|/\\&dood\\&!|/' " BROVIN_ASSETS
         "/german.blp >$HOME/x.blp; $brovin --check-language $HOME/x.blp",
         1, "/x.blp:"},
        {"$brovin --check-language $HOME", 2, "cannot be read"},
        {"printf '\\033]0;hello=' >$HOME/y.blp; $brovin --check-language $HOME/y.blp", 1,
         "nothing reads \"\uFFFD]0;hello"},
        {"$brovin --version >/dev/full", 5, ""},
        {"$brovin --scan --folder $HOME/Share --nasty x --dry-run >/dev/full", 5, ""},
        {"{ sleep 0.1; $brovin --help; echo $? >&2; } | true; sleep 0.5", 0, "5\n"}, // nobody listens
        {"$brovin --check-language /dev/null >/dev/full", 5, ""},
        {"$scan --folder $HOME/Empty --folder $HOME/none", 1, "/none: "},
        {"mkdir $HOME/Share/._x; $scan --folder $HOME/Share --confirm --nasty x </dev/null", 0, ""},
        {"$scan --folder $HOME/Share --confirm --dot-underscore </dev/null", 1, "[y/N]"},
        {"rm -r $HOME/.local; mkdir -p $HOME/.local/share/brovin/deletions.log; $scan --folder $HOME/Empty",
         1, "log could not be"},
        {"rmdir $HOME/.local/share/brovin/deletions.log; ln -s /dev/full "
         "$HOME/.local/share/brovin/deletions.log; "
         "$scan --folder $HOME/Empty; a=$?; rm $HOME/.local/share/brovin/deletions.log; exit $a",
         1, "log could not be"},
        {"mkdir -p $HOME/Many; (cd $HOME/Many; seq 505 | xargs mkdir); $scan --folder $HOME/Many", 1,
         "4 subfolders were not visited"},
        {"mkdir $HOME/Empty/x $HOME/.config/Brovin/Brovin.conf.new; $scan --folder $HOME/Empty; a=$?; rmdir "
         "$HOME/.config/*/*.new; "
         "exit $a",
         1, "totals could not be saved"},
        {"flock $HOME/.config/Brovin $scan --folder $HOME/Empty", 3, "another scan"},
        {"flock $HOME/.config/Brovin env XDG_CONFIG_HOME=$HOME/other $scan --folder $HOME/Empty", 0,
         "in 1 folder"},
        {"mkdir $HOME/bare; $brovin --scan --program-folder $HOME/bare --folder $HOME/Empty", 2,
         "language file"},
        {"$scan --folder $HOME/Empty", 0, "in 1 folder"},
        {"echo torn >>$HOME/.config/Brovin/Brovin.conf; $scan --folder $HOME/Empty", 1,
         "settings are damaged"},
        {"cp $brovin $HOME; $HOME/brovin --program-folder /x", 127, "install the package brovin-desktop"},
        {"cp $brovin $HOME; printf '#!/bin/sh\\necho $HOME \"$@\"' >$HOME/brovin-desktop; chmod +x "
         "$HOME/brovin-desktop; cd $HOME; ./brovin --program-folder '/x  y' | sed \"s:$PWD:home:\"",
         0, "home --program-folder /x  y\n"},
    };
    for (const auto& expected : kCases) {
        const Ended ended = run(scratch, expected.command);
        EXPECT_EQ(expected.status, ended.status) << expected.command << "\n" << ended.said;
        EXPECT_NE(std::string::npos, ended.said.find(expected.says)) << expected.command << "\n"
                                                                     << ended.said;
    }
}

/// A stranger finds what joe made for all to read in joe's hands alone, once joe's first scan has run.
TEST(Program, keepsOtherUsersOut) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the administrator can become somebody else";
    const posix::ScratchFolder scratch;
    const Ended ended = run(scratch, R"(
chmod 755 $HOME; mkdir -p -m 755 $HOME/bin $HOME/joe $HOME/joe/Share $HOME/joe/.config/Brovin $HOME/joe/.local/share/brovin
mkdir -m 0 $HOME/joe/Share/locked; >$HOME/joe/.local/share/brovin/deletions.log
cp $brovin $HOME/bin/; cp -r ")" BROVIN_ASSETS R"(" $HOME/bin/assets; chown -R 64001 $HOME/joe
as() { uid=$1; shift; setpriv --reuid=$uid --regid=$uid --clear-groups --no-new-privs env HOME=$HOME/joe "$@"; }
scan="$HOME/bin/brovin --scan --program-folder $HOME/joe/.local/share/brovin --nasty x --folder $HOME/joe/Share"
cp $HOME/bin/assets/default.blp $HOME/joe/.local/share/brovin/
as 64001 $scan >/dev/null 2>&1; echo "locked folder: $?"
for f in .config/Brovin .config/Brovin/Brovin.conf .local/share/brovin/deletions.log; do stat -c '%a' $HOME/joe/$f; done
as 64002 flock $HOME/joe/.config/Brovin true 2>/dev/null; echo "stranger's lock: $?"
as 64002 cat $HOME/joe/.local/share/brovin/deletions.log >/dev/null 2>&1; echo "stranger reads: $?"
setpriv --reuid=64003 --clear-groups env -u HOME -u XDG_CONFIG_HOME $HOME/bin/brovin --scan --folder /; echo "service: $?")");
    EXPECT_EQ("locked folder: 1\n700\n600\n600\nstranger's lock: 66\nstranger reads: 1\n"
              "brovin: the environment names no home folder: set HOME, or XDG_CONFIG_HOME and XDG_DATA_HOME\n"
              "service: 2\n",
              ended.said);
}

/// Begins a scan of a thousand things whose output nobody takes, so that it stands still in the middle, and
/// then does something with its process, $pid. Tells the status, how many are left, and what the log and the
/// totals say.
const std::string kHalfway = R"(
cd $HOME; rm -rf Share .config .local; mkdir -p Share .config/Brovin
printf '[Settings]\nLog=1\nDotDash=1\n[filelist.txt]\nNumber=1\nEntry1=x\n' >.config/Brovin/Brovin.conf
(cd Share; seq -f '._a name that is long enough for a thousand to fill a pipe: %.0f' 1000 | xargs -d '\n' touch)
rm -f output; mkfifo output
env --default-signal=INT,HUP $brovin --scan --folder $HOME/Share >output & pid=$!
exec 3<output; read line <&3; sleep 0.2
)";
const std::string kTell = R"(
wait $pid; echo status $?
left=$(ls -A Share | wc -l); total=$(sed -n 's/^TotalNuked=//p' .config/Brovin/Brovin.conf); log=$(ls .local/share/*/deletions.log)
[ $left -gt 0 ] && [ $left -lt 1000 ] && echo halfway
[ $((left + total)) = 1000 ] && echo counted
[ $(grep -c '\._a name' $log) = $total ] && grep -q "$total .* KB" $log && echo logged)";

TEST(Program, endsInOrderWhenItIsStopped) {
    const posix::ScratchFolder scratch;
    const struct {
        const char* what;
        const char* status;
    } kCases[] = {
        {"kill -INT $pid; cat <&3 >/dev/null", "status 130"},
        {"kill -TERM $pid; cat <&3 >/dev/null", "status 143"},
        {"kill -HUP $pid; cat <&3 >/dev/null", "status 129"},
        {"exec 3<&-", "status 5"},
    };
    for (const auto& [what, status] : kCases) {
        const Ended ended = run(scratch, std::string(kHalfway).append(what).append(kTell));
        for (const char* expected : {status, "halfway", "counted", "logged"})
            EXPECT_NE(std::string::npos, ended.said.find(expected)) << what << ": " << expected << "\n"
                                                                    << ended.said;
    }
}

TEST(Program, endsAtOnceWhenItIsStoppedTwice) {
    const posix::ScratchFolder scratch;
    const Ended ended =
        run(scratch, kHalfway + "kill -INT $pid; sleep 0.1; kill -INT $pid; wait $pid; echo status $?");
    EXPECT_NE(std::string::npos, ended.said.find("status 130")) << ended.said;
}

} // namespace
} // namespace brovin::headless
