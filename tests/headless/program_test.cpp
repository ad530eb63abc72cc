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
    const std::string whole = "export brovin='" BROVIN_PROGRAM "' HOME='" + scratch.path() +
                              "' XDG_CONFIG_HOME= XDG_DATA_HOME= LC_ALL=C; { " + command + "; } 2>&1";
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
             {"linux-vdso", "libsqlite3.", "libsimpleini.", "libicui18n.", "libicuuc.", "libicudata.",
              "libstdc++.", "libm.", "libgcc_s.", "libc.", "libasan.", "libubsan.", "libtsan."})
            known = known || name.starts_with(mayBe);
        EXPECT_TRUE(known) << name;
    }
}

TEST(Program, endsWithAStatusThatTellsWhy) {
    const posix::ScratchFolder scratch;
    scratch.addText("Share/Thumbs.db", "x");
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
        {"$brovin --version >/dev/full", 5, ""},
        {"$brovin --scan --folder $HOME/Share --nasty x --dry-run >/dev/full", 5, ""},
        {"{ sleep 0.1; $brovin --help; echo $? >&2; } | true; sleep 0.5", 0, "5\n"}, // nobody listens
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
