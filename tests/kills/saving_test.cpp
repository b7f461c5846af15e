// Every command that saves, with a fault or a kill at each of its system calls, with two writers at once, and
// with foreign links and pipes under the names that it writes. The suite tries a sample of the calls;
// PALLOMIR_ALL_FAULTS=1 (scripts/faults) tries them all.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <map>
#include <set>

#include "kills/saving_commands.h"
#include "pallomir/files/file_reader.h"
#include "pallomir/files/folder_lock.h"
#include "pallomir/files/save_file.h"
#include "support/injected_fault.h"
#include "support/refusal.h"
#include "support/temporary_folder.h"

namespace pallomir {
namespace {

namespace fs = std::filesystem;

/// A folder's files, by name: their contents except for the date of writing.
using Content = std::map<std::string, std::string>;

Content ContentOf(const TemporaryFolder& folder) {
  Content content;
  for (const auto& entry : fs::recursive_directory_iterator(folder / "")) {
    if (!entry.is_regular_file() || entry.path().filename() == FolderLock::kFileName) continue;
    std::string text = ReadText(entry.path().string());
    const size_t date = text.substr(0, 300).find("# Date: ");
    if (date != std::string::npos) text.erase(date, text.find('\n', date) - date);
    content[fs::relative(entry.path(), folder / "").string()] = text;
  }
  return content;
}

std::set<std::string> Leftovers(const Content& content) {
  std::set<std::string> names;
  for (const auto& [name, text] : content)
    if (name.ends_with(".saving~")) names.insert(name);
  return names;
}

void Prepare(const SavingCommand& command, const TemporaryFolder& folder) {
  fs::create_directory(folder / "TT1");
  if (command.OverEarlier) command.Run(folder / "", 1);
}

/// Runs something in a process of its own, which is killed if it hangs; returns the status from waitpid().
int InAProgramOfItsOwn(const std::function<void()>& run) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(60);
    run();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

struct Saving : ::testing::TestWithParam<SavingCommand> {
  Content Before, After;
  int Calls = 0;

  void SetUp() override {
    const TemporaryFolder folder;
    Prepare(GetParam(), folder);
    Before = ContentOf(folder);
    constexpr int kNever = 1 << 30;
    const InjectedFault counted(kNever);
    GetParam().Run(folder / "", 2);
    Calls = kNever - InjectedFault::Left();
    After = ContentOf(folder);
    ASSERT_NE(After, Before);
    ASSERT_TRUE(Leftovers(After).empty());
  }

  /// The calls to be tried, from 1: all of them, or some twenty.
  std::vector<int> Tried() const {
    const int step = std::getenv("PALLOMIR_ALL_FAULTS") ? 1 : std::max(1, Calls / 20);
    std::vector<int> tried;
    for (int k = 1; k <= Calls; k += step) tried.push_back(k);
    tried.push_back(Calls);
    return tried;
  }

  /// Every file is either as before or as after; none is missing, though it may have its OLD name.
  void ExpectWhole(const Content& now, int k) const {
    for (const auto& [name, text] : now) {
      const auto is = [&, &file = name, &bytes = text](const Content& version) {
        const auto found = version.find(file);
        return found != version.end() && found->second == bytes;
      };
      EXPECT_TRUE(name.ends_with(".saving~") || is(Before) || is(After)) << name << " is incomplete at call " << k;
    }
    for (const auto& [name, text] : Before) {
      const fs::path path(name), old = path.parent_path() / ("OLD" + path.filename().string());
      const auto renamed = now.find(old.string());
      EXPECT_TRUE(now.contains(name) || (renamed != now.end() && renamed->second == text))
          << name << " is lost at call " << k;
    }
  }
};

TEST_P(Saving, LeavesWholeFilesAndReportsWhicheverCallFails) {
  for (const int k : Tried()) {
    const TemporaryFolder folder;
    Prepare(GetParam(), folder);
    std::string sentence;
    {
      const InjectedFault fault(k);
      sentence = Refusal([&] { GetParam().Run(folder / "", 2); });
      ASSERT_TRUE(InjectedFault::Happened());
    }
    const Content now = ContentOf(folder);
    EXPECT_NE(sentence, "") << "no error message at call " << k;
    EXPECT_TRUE(sentence.find(fs::path(folder / "").parent_path().filename()) != std::string::npos ||
                sentence.find("Not written") != std::string::npos)
        << sentence;
    EXPECT_EQ(Leftovers(now), std::set<std::string>()) << "at call " << k;
    ExpectWhole(now, k);
  }
}

TEST_P(Saving, LeavesWholeFilesWhereverItIsKilled) {
  for (const int k : Tried()) {
    const TemporaryFolder folder;
    Prepare(GetParam(), folder);
    const int status = InAProgramOfItsOwn([&] {
      const InjectedFault end(k, {}, InjectedFault::kKill);
      GetParam().Run(folder / "", 2);
    });
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "call " << k;
    ExpectWhole(ContentOf(folder), k);
    // The next program to start removes what it left.
    for (const char* part : {"", "TT1", "out", "out/TT1", "sample", "sample/raw", "sample/TT1"})
      RemoveLeftovers(folder / part);
    EXPECT_EQ(Leftovers(ContentOf(folder)), std::set<std::string>()) << "call " << k;
  }
}

TEST_P(Saving, FollowsNoLinkAndDoesNotBlockOnAPipe) {
  for (const auto& [name, text] : After) {
    if (const auto before = Before.find(name); before != Before.end() && before->second == text) continue;
    for (const std::string ending : {"", ".saving~"}) {
      for (const bool pipe : {false, true}) {
        const TemporaryFolder folder;
        Prepare(GetParam(), folder);
        const std::string victim = folder.Put("elsewhere/victim", "a stranger's"), planted = folder / (name + ending);
        fs::create_directories(fs::path(planted).parent_path());
        fs::remove(planted);
        if (pipe) {
          ASSERT_EQ(mkfifo(planted.c_str(), 0600), 0);
        } else {
          fs::create_symlink(victim, planted);
        }
        const int status = InAProgramOfItsOwn([&] { Refusal([&] { GetParam().Run(folder / "", 2); }); });
        EXPECT_TRUE(WIFEXITED(status)) << planted << (pipe ? " as a pipe" : " as a link");
        EXPECT_EQ(ReadText(victim), "a stranger's") << planted;
        EXPECT_EQ(std::distance(fs::directory_iterator(folder / "elsewhere"), {}), 1) << planted;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, Saving, ::testing::ValuesIn(SavingCommands()),
                         [](const auto& command) { return command.param.Name; });

/// Four processes at once, each running its own function several times.
void ExpectFourAtOnce(const std::function<void(int program, int round)>& run) {
  constexpr int kPrograms = 4, kRounds = 10;
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    programs.push_back(fork());
    if (programs.back() != 0) continue;
    std::string refusal;
    for (int round = 0; round < kRounds && refusal.empty(); ++round) refusal = Refusal([&] { run(program, round); });
    if (!refusal.empty()) std::fprintf(stderr, "%s\n", refusal.c_str());
    _exit(refusal.empty() ? 0 : 1);
  }
  for (const pid_t program : programs) {
    int status = 0;
    waitpid(program, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
}

TEST(WritersAtOnce, LeaveWholeFiles) {
  for (const SavingCommand& command : SavingCommands()) {
    // Of two programs that save notes, the second one is told of the first.
    if (!command.OverEarlier || command.Name == "import" || command.Name == "notes") continue;
    const TemporaryFolder folder, alone;
    // The OLD file and the copy may be of any version.
    std::map<std::string, std::set<std::string>> whole;
    fs::create_directory(alone / "TT1");
    for (const int version : {1, 2, 1, 2}) {
      command.Run(alone / "", version);
      for (const auto& [name, text] : ContentOf(alone)) whole[name].insert(text);
    }
    Prepare(command, folder);
    ExpectFourAtOnce([&](int program, int round) { command.Run(folder / "", 1 + (program + round) % 2); });
    const Content now = ContentOf(folder);
    EXPECT_EQ(Leftovers(now), std::set<std::string>());
    for (const auto& [name, text] : now) EXPECT_TRUE(whole[name].contains(text)) << name << " is torn";
  }
}

TEST(WritersAtOnce, ImportTheirTetrodesIntoOneFolder) {
  const TemporaryFolder folder;
  ExpectFourAtOnce([&](int program, int) { ImportTetrode(folder / "", "TT" + std::to_string(program), 1); });
  for (const char* tetrode : {"TT0", "TT1", "TT2", "TT3"})
    EXPECT_TRUE(fs::exists(folder / ("out/" + std::string(tetrode) + "/" + tetrode + ".Ntt.parms")));
  EXPECT_EQ(Leftovers(ContentOf(folder)), std::set<std::string>());
}

}  // namespace
}  // namespace pallomir
