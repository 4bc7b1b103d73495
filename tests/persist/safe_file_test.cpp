#include "persist/safe_file.h"
#include "support/places.h"
#include "support/scratch.h"
#include <algorithm>
#include <charconv>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

using namespace sm;
using namespace sm::test;
namespace fs = std::filesystem;

namespace {

const std::string OLD(1'000, 'o');
const std::string NEW(200'000, 'n');

/// The system calls by which a save can fail; "?" for those that not every machine has.
const std::string CALLS = "?stat,?lstat,?newfstatat,?statx,?readlink,?access,?faccessat,?faccessat2,?open,openat,"
                          "fchmod,write,fsync,close,?rename,?renameat,?renameat2,?unlink,?unlinkat";

struct TRACED_CALL {
    std::string NAME;
    int COUNT;   // the COUNT-th call of that name in the process, as injection counts them
    std::string LINE;
};

/// One save of NEW over OLD under strace. `inject` is an injection in strace's own words, or empty.
struct TRACED_SAVE {
    COMMAND_RESULT RESULT;
    std::string TRACE;
    std::string AFTER;                // what the target holds afterwards
    std::vector<std::string> NAMES;   // what its folder holds
};

class Fault : public ::testing::Test {
protected:
    void SetUp() override
    {
        const COMMAND_RESULT allowed = Run_Command("strace -o /dev/null true");
        if (allowed.STATUS != 0 && (allowed.PRINTED.find("ptrace") != std::string::npos ||
                                    allowed.PRINTED.find("PTRACE") != std::string::npos))
            GTEST_SKIP() << "this machine does not permit ptrace: " << allowed.PRINTED;
        ASSERT_EQ(allowed.STATUS, 0) << allowed.PRINTED;
    }

    TRACED_SAVE Save(const std::string& inject, const std::string& limit = "")
    {
        const fs::path folder = scratch_ / "saves";
        fs::remove_all(folder);
        Put_File(folder / "game.btl", OLD);
        const fs::path trace = scratch_ / "trace";
        TRACED_SAVE save;
        save.RESULT =
            Run_Command("ASAN_OPTIONS=detect_leaks=0 strace -qq -o '" + trace.string() + "' -e trace=" + CALLS +
                        (inject.empty() ? "" : " -e inject=" + inject) + " '" WRITE_WHOLE_FILE "' '" +
                        (folder / "game.btl").string() + "' " + std::to_string(NEW.size()) + " " + limit);
        save.TRACE = File_Content(trace);
        save.NAMES = Names_In(folder);
        save.AFTER = File_Content(folder / "game.btl");
        return save;
    }

    /// The calls that the save itself makes, from the first that names the target on.
    std::vector<TRACED_CALL> Calls_Of_A_Save()
    {
        const TRACED_SAVE save = Save("");
        EXPECT_EQ(save.RESULT.STATUS, 0) << save.RESULT.PRINTED;
        EXPECT_EQ(save.AFTER, NEW);
        std::vector<TRACED_CALL> calls;
        std::map<std::string, int> counts;
        std::istringstream lines(save.TRACE);
        for (std::string line; std::getline(lines, line);) {
            const std::string name = line.substr(0, line.find('('));
            ++counts[name];
            if (!calls.empty() || line.find("game.btl") != std::string::npos)
                calls.push_back({name, counts[name], line});
        }
        return calls;
    }

    Scratch_Folder scratch_;
};

std::string Injection(const TRACED_CALL& call, const std::string& what)
{
    return call.NAME + ":" + what + ":when=" + std::to_string(call.COUNT);
}

}   // namespace

TEST_F(Fault, AFailingCallLeavesTheOldFileWholeAndNoTemporary)
{
    std::map<std::string, int> hit;
    for (const TRACED_CALL& call : Calls_Of_A_Save()) {
        for (const char* error : {"ENOSPC", "EIO", "EACCES"}) {
            SCOPED_TRACE(call.LINE + " with " + error);
            const TRACED_SAVE save = Save(Injection(call, std::string("error=") + error));
            ASSERT_NE(save.TRACE.find(std::string(error)), std::string::npos) << save.TRACE;
            ASSERT_NE(save.TRACE.find("(INJECTED)"), std::string::npos) << save.TRACE;
            ++hit[call.NAME.starts_with("rename") ? "rename" : call.NAME];
            EXPECT_EQ(save.NAMES, std::vector<std::string>{"game.btl"});
            const bool unconfirmed = save.RESULT.PRINTED.find("did not confirm") != std::string::npos;
            if (save.RESULT.STATUS == 0 || unconfirmed)
                EXPECT_EQ(save.AFTER, NEW);
            else
                EXPECT_EQ(save.AFTER, OLD);
            // Every fault in an act of writing must be told; only looking at the old file first may go unnoticed.
            EXPECT_TRUE(save.RESULT.STATUS == 1 || call.NAME.find("stat") != std::string::npos);
        }
    }
    // The temporary and the folder are each opened, synced and closed.
    for (const char* twice : {"openat", "fsync", "close"}) EXPECT_EQ(hit[twice], 2 * 3) << twice;
    for (const char* once : {"write", "fchmod", "rename"}) EXPECT_EQ(hit[once], 1 * 3) << once;
}

TEST_F(Fault, AKillAtAnyCallLeavesTheOldFileOrTheNewOne)
{
    bool old_seen = false, new_seen = false;
    for (const TRACED_CALL& call : Calls_Of_A_Save()) {
        SCOPED_TRACE(call.LINE);
        const TRACED_SAVE save = Save(Injection(call, "signal=SIGKILL"));
        ASSERT_NE(save.TRACE.find("killed by SIGKILL"), std::string::npos) << save.TRACE;
        EXPECT_TRUE(save.AFTER == OLD || save.AFTER == NEW) << save.AFTER.size() << " bytes";
        (save.AFTER == OLD ? old_seen : new_seen) = true;
        Remove_Leftover_Temporaries(scratch_ / "saves");
        EXPECT_EQ(Names_In(scratch_ / "saves"), std::vector<std::string>{"game.btl"});
    }
    EXPECT_TRUE(old_seen && new_seen);
}

TEST_F(Fault, AnInterruptedCallIsMadeAgain)
{
    for (const TRACED_CALL& call : Calls_Of_A_Save()) {
        if (call.NAME != "openat" && call.NAME != "write" && call.NAME != "fsync") continue;
        SCOPED_TRACE(call.LINE);
        const TRACED_SAVE save = Save(Injection(call, "error=EINTR"));
        ASSERT_NE(save.TRACE.find("EINTR (Interrupted system call) (INJECTED)"), std::string::npos) << save.TRACE;
        EXPECT_EQ(save.RESULT.STATUS, 0) << save.RESULT.PRINTED;
        EXPECT_EQ(save.AFTER, NEW);
    }
}

TEST_F(Fault, ADiskThatFillsHalfWayThroughAWriteKeepsTheOldFile)
{
    const TRACED_SAVE save = Save("", "70000");
    // The first write is cut short at the limit; the second offers exactly the rest, 200000 - 70000, and fails.
    ASSERT_NE(save.TRACE.find("200000) = 70000\n"), std::string::npos) << save.TRACE;
    ASSERT_NE(save.TRACE.find("130000) = -1 EFBIG"), std::string::npos) << save.TRACE;
    EXPECT_EQ(save.RESULT.STATUS, 1);
    EXPECT_NE(save.RESULT.PRINTED.find("game.btl\": File too large"), std::string::npos) << save.RESULT.PRINTED;
    EXPECT_EQ(save.AFTER, OLD);
    EXPECT_EQ(save.NAMES, std::vector<std::string>{"game.btl"});
}

TEST(SafeFile, ALinkStaysALinkAndPermissionsCarryOver)
{
    Scratch_Folder scratch;
    Put_File(scratch / "there/real.sce", OLD);
    fs::permissions(scratch / "there/real.sce", fs::perms(0640));
    fs::create_symlink("there/real.sce", scratch / "link.sce");
    EXPECT_EQ(Write_File_Whole(scratch / "link.sce", NEW), "");
    EXPECT_TRUE(fs::is_symlink(scratch / "link.sce"));
    EXPECT_EQ(File_Content(scratch / "there/real.sce"), NEW);
    EXPECT_EQ(fs::status(scratch / "there/real.sce").permissions(), fs::perms(0640));
}

TEST(SafeFile, OnlyPlainFilesAreReplaced)
{
    Scratch_Folder scratch;
    fs::create_directory(scratch / "folder");
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    for (const char* name : {"folder", "pipe"})
        EXPECT_EQ(Write_File_Whole(scratch / name, NEW),
                  "Cannot write \"" + (scratch / name).string() + "\": not a plain file");
    EXPECT_EQ(Write_File_Whole("/dev/null", NEW), "Cannot write \"/dev/null\": not a plain file");
    EXPECT_NE(Write_File_Whole("", NEW), "");
    EXPECT_NE(Write_File_Whole(scratch / "no/such/folder.btl", NEW).find("No such file or directory"),
              std::string::npos);
    EXPECT_EQ(Names_In(scratch.Path()), (std::vector<std::string>{"folder", "pipe"}));
}

TEST(SafeFile, TheReaderTakesTheCapAndRefusesAByteMore)
{
    Scratch_Folder scratch;
    Put_File(scratch / "game.btl", OLD);
    EXPECT_EQ(Read_File_Whole(scratch / "game.btl", 1000).CONTENT, OLD);
    const FILE_READ longer = Read_File_Whole(scratch / "game.btl", 999);
    EXPECT_EQ(longer.CONTENT, "");
    EXPECT_FALSE(longer.MISSING);
    EXPECT_NE(longer.ERROR.find("longer than 999 bytes"), std::string::npos) << longer.ERROR;

    Put_File(scratch / "empty", "");
    const FILE_READ empty = Read_File_Whole(scratch / "empty", 10);
    EXPECT_TRUE(empty.ERROR.empty() && empty.CONTENT.empty());
    // A file whose size is told as 0 but which is not empty.
    EXPECT_EQ(Read_File_Whole("/proc/self/cmdline", 100'000).CONTENT, File_Content("/proc/self/cmdline"));
}

TEST(SafeFile, AMissingFileIsToldFromAnUnreadableOneAndNothingIsWaitedFor)
{
    Scratch_Folder scratch;
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    Put_File(scratch / "file", OLD);
    EXPECT_TRUE(Read_File_Whole(scratch / "none.btl", 10).MISSING);
    EXPECT_TRUE(Read_File_Whole(scratch / "file/under", 10).MISSING);
    EXPECT_TRUE(Read_File_Whole("", 10).MISSING);
    for (const fs::path& file : {scratch / "pipe", scratch.Path(), fs::path("/dev/zero")}) {
        const FILE_READ read = Read_File_Whole(file, 10);
        EXPECT_FALSE(read.MISSING);
        EXPECT_NE(read.ERROR.find("not a plain file"), std::string::npos) << read.ERROR;
    }
}

TEST(SafeFile, OnlyTheTemporariesOfDeadWritersAreSweptAway)
{
    Scratch_Folder scratch;
    const std::string live = ".stonemarch-" + std::to_string(::getpid()) + "-7.part";
    // No process has a number above 2^22, the system's own upper bound.
    for (const std::string& name : {std::string(".stonemarch-4194999-1.part"), live, std::string("game.part"),
                                    std::string(".stonemarch-.part"), std::string(".stonemarch-12x-1.part")})
        Put_File(scratch / name, "x");
    Remove_Leftover_Temporaries(scratch.Path());
    std::vector<std::string> left = {live, "game.part", ".stonemarch-.part", ".stonemarch-12x-1.part"};
    std::sort(left.begin(), left.end());
    EXPECT_EQ(Names_In(scratch.Path()), left);
}
