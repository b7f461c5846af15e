#include "gui/forms/cut_keeper.h"

#include <QTime>

#include "gui/controls/run_command.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/clusters/autosave.h"
#include "pallomir/clusters/boundaries_file.h"
#include "pallomir/files/save_file.h"
#include "pallomir/files/set_aside.h"
#include "pallomir/files/write_target.h"

namespace pallomir {

namespace {

/// Interval of the autosave check in milliseconds.
constexpr int kAutosaveCheck = 65535;

float SecondsSinceMidnight() {
  return static_cast<float>(QTime(0, 0).msecsTo(QTime::currentTime())) / 1000.0F;
}

}  // namespace

CutKeeper::CutKeeper(Workbench& bench) : bench_(bench), session_(bench.TheSession()), Timer1_(new QTimer(this)) {
  Timer1_->setObjectName("Timer1");
  connect(Timer1_, &QTimer::timeout, this, &CutKeeper::Timer1_Timer);
}

bool CutKeeper::EnterFolder() {
  folder_ = FolderLock(session_.DataDirectory);
  if (folder_.Taken()) {
    const std::string holder = "Another program is at work in this folder: " + folder_.Holder() + ".";
    if (!bench_.Agrees(FromText(
            holder + "\n\nOpen " + PathText(session_.DataDirectory) +
            " anyway? Nothing would then be saved there automatically, neither on exit nor in between; files that "
            "you write yourself would be.")))
      return false;
    bench_.AppendMessage(holder +
                         " No autosave, exit copy or axis scales are written here; files that you write yourself are.");
  }
  RemoveLeftovers(session_.DataDirectory);
  RemoveLeftovers(session_.DataDirectory / "..");
  return true;
}

void CutKeeper::LeaveFolder() {
  Timer1_->stop();
  folder_ = FolderLock();
}

void CutKeeper::Start() {
  lastAutosave_ = SecondsSinceMidnight();
  Timer1_->start(kAutosaveCheck);
  bench_.Run([this] { TellNewestCut(); });
}

void CutKeeper::TellNewestCut() {
  if (const std::vector<std::string> kept = KeptCuts(session_); !kept.empty())
    bench_.AppendMessage(
        "Exit copies and autosaves that were never read are kept here: " + std::to_string(kept.size()) +
        ", the last as " + kept.back() + "; delete those you no longer need");
  const std::string& named = bench_.Names.CBFileRead;
  const auto newest = NewerCutThan(session_, named);
  if (!newest) return;
  bench_.AppendMessage("The newest cut here is " + newest->Name + ", written " + newest->Written + ", and not " +
                       named + ". To read it: load points, then Read CBFile with the name " + newest->Name);
  bench_.Say("The newest cut here is " + FromText(newest->Name) + ", and not " + FromText(named) + ".");
}

void CutKeeper::Write(const std::filesystem::path& path) {
  if (!knownCuts_.contains(path))
    if (const auto kept = KeepUnreadCut(session_, path))
      bench_.AppendMessage("An earlier cut that nobody has read is kept under the name " + *kept);
  WriteCBFile(session_, bench_, path);
  knownCuts_.insert(path);
}

void CutKeeper::Timer1_Timer() {
  const float now = SecondsSinceMidnight();
  if (bench_.Working() || folder_.Taken() || !AutosaveDue(now, lastAutosave_)) return;
  lastAutosave_ = now;
  try {
    Autosave();
    bench_.AppendMessage("Autosaved CBFile");
    autosaveFailed_ = false;
  } catch (const std::exception& error) {
    if (!autosaveFailed_) bench_.AppendMessage("Autosave failed: " + SentenceOf(error));
    autosaveFailed_ = true;
  }
}

void CutKeeper::Autosave() {
  const std::filesystem::path path = AutosavePath(session_);
  // The user may be away, so do not ask.
  if (IsWriteProtected(path)) SetAside(path);
  Write(path);
}

void CutKeeper::SaveBeforeTheEnd() {
  if (session_.DefinitionCounter == 0 || folder_.Taken()) return;
  try {
    Autosave();
  } catch (const std::exception& error) {
    bench_.ShowMessage(SentenceOf(error), "ERROR");
  }
}

}  // namespace pallomir
