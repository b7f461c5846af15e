// Random input: presses, types, drags and closes at random on the real forms, with files that break meanwhile,
// and exits and restarts the program again and again.
//   storm EVENTS SEED [trace]
// No event may crash the program, hang it, or leave an incomplete file or an invalid session. What happens is the
// same for the same seed, except for effects of the clock; `trace` prints every action.

#include <QPrinter>
#include <QtTest>
#include <QtWidgets>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <thread>

#include "gui/controls/dialogs.h"
#include "gui/controls/theme.h"
#include "gui/forms/main_form.h"
#include "gui/forms/plot_surface.h"
#include "pallomir/session/session.h"
#include "storm/whole_files.h"
#include "support/temporary_folder.h"
#include "tools/sample/draws.h"
#include "tools/sample/make_sample.h"

namespace pallomir {

namespace {

constexpr int kSpikes = 3000;
constexpr int kDeepest = 5;  // nested actions, when the program processes events while it works
constexpr int kMostWindows = 10;
constexpr auto kHung = std::chrono::seconds(60);

constexpr std::array kTexts = {
    "",          "0",           "1",      "7",
    "30",        "31",          "-1",     "12",
    "2999",      "3000",        "1200.5", "99999999999",
    "nan",       "1e308",       "-1e-40", " ",
    "cbfile.m1", "cbfile.exit", "Pos.p",  "../x",
    "\"",        "ä:ö, ü",      "%s%n",   "a very long text that goes on and on and on and on and on and on and on"};
constexpr std::array kKeys = {
    Qt::Key_Escape, Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Backtab,  Qt::Key_Space, Qt::Key_Up,  Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Plus, Qt::Key_Minus,    Qt::Key_0,     Qt::Key_1,   Qt::Key_2,
    Qt::Key_3,      Qt::Key_9,      Qt::Key_F2,   Qt::Key_Delete,   Qt::Key_Home,  Qt::Key_End, Qt::Key_PageDown,
    Qt::Key_S,      Qt::Key_Menu,   Qt::Key_F3,   Qt::Key_F4,       Qt::Key_F5,    Qt::Key_F6,  Qt::Key_N,
    Qt::Key_U,      Qt::Key_C,      Qt::Key_D,    Qt::Key_Backspace};
constexpr std::array kInputs = {"Pos.p", "TT1/TT1.waveforms", "TT1/TT1.Ntt", "TT1/Events.Nev", "VideoSampling"};
constexpr std::array kOutputs = {"TT1/ClNotes",       "TT1/Defaults", "Defaults",       "TT1/cbfile.m1.txt",
                                 "TT1/AxesScaleFile", "CenterCoords", "TT1/cl-maze1.1", "TT1/tmp.rmap"};

class Storm : public Dialogs {
 public:
  Storm(const std::string& folder, uint64_t seed, bool trace)
      : folder_(folder), watch_(folder), draws_(seed), trace_(trace) {
    for (int depth = 0; depth < kDeepest; ++depth) {
      auto& turn = turns_.emplace_back();
      QObject::connect(&turn, &QTimer::timeout, [this] { Act(); });
    }
  }

  /// Starts the program until that many events were sent. If something is found broken, prints it and returns false.
  bool Run(int64_t events) {
    wanted_ = events;
    while (Events < wanted_ && fault_.empty()) {
      Restore();
      Trace("start");
      Session session;
      Main_Form form(session, *this);
      session_ = &session;
      form_ = &form;
      ++Starts;
      if (!form.Form_Load()) continue;
      form.show();
      turns_[0].start(0);
      QApplication::exec();
      turns_[0].stop();
      if (Events < wanted_ && fault_.empty() && form.isVisible()) fault_ = "the program ended with its main form open";
      for (QWidget* window : QApplication::topLevelWidgets())
        if (!form.isVisible() && window->isVisible() && window->isModal()) fault_ = "a window outlived the main form";
      Check();
    }
    if (!fault_.empty()) std::cerr << "After " << Events << " events: " << fault_ << "\n";
    return fault_.empty();
  }

  // Dialogs
  void ShowMessage(QWidget*, const QString& text, const QString&) override {
    Trace("message " + text);
    ++Messages;
    Beat();
  }
  QString OpenFile(QWidget*, const FileDialogOptions& options) override {
    if (options.DefaultExtension == "Ntt.parms") return InFolder(Chance(0.98) ? "/TT1/TT1.Ntt.parms" : "/Pos.p");
    if (Chance(0.7)) return InFolder("/TT1/Events.Nev");
    return Chance(0.5) ? InFolder(Chance(0.5) ? "/TT1/TT1.Ntt" : "/TT1/none") : QString();
  }
  QString SaveFile(QWidget*, const FileDialogOptions& options) override {
    if (Chance(0.1)) return {};
    if (options.FileName == "Defaults") return InFolder(Chance(0.5) ? "/Defaults" : "/TT1/Defaults");
    return InFolder(Chance(0.1) ? "/none/" + options.FileName : "/" + options.FileName);
  }
  int Print(QWidget*, QPrinter& printer) override {
    printer.setOutputFileName(InFolder("/printed.pdf"));
    return Below(3);
  }
  bool Confirm(QWidget*, const QString&) override { return Chance(0.7); }
  bool StartProgram(const QString&) override { return Chance(0.9); }
  bool ShowDocument(const QString&) override { return Chance(0.9); }

  /// The time of the last action or message, read by the watchdog.
  std::atomic<std::chrono::steady_clock::rep> LastBeat{0};
  std::atomic<int64_t> Events = 0;
  int64_t Starts = 0, Messages = 0, Actions = 0;
  /// Also read by the watchdog.
  std::string LastAction() {
    const std::lock_guard lock(actionMutex_);
    return lastAction_;
  }

 private:
  int Below(int count) { return static_cast<int>(draws_.Next() % static_cast<uint64_t>(std::max(count, 1))); }
  bool Chance(double probability) { return draws_.Chance(probability); }
  template <class List>
  typename List::value_type OneOf(const List& list) {
    return list[Below(static_cast<int>(std::size(list)))];
  }
  QString InFolder(const QString& name) const { return QString::fromStdString(folder_) + name; }
  void Beat() { LastBeat = std::chrono::steady_clock::now().time_since_epoch().count(); }
  void Trace(const QString& what) {
    {
      const std::lock_guard lock(actionMutex_);
      lastAction_ = what.toStdString();
    }
    if (trace_) std::cerr << Events << " " << lastAction_ << "\n";
  }

  /// One action of the user. If the program processes events meanwhile, the next action follows within it.
  void Act() {
    if (++depth_ < kDeepest) turns_[depth_].start(0);
    Beat();
    ++Actions;
    DoSomething();
    if (depth_ < kDeepest) turns_[depth_].stop();
    --depth_;
    if (depth_ > 0) return;
    if (Actions % 200 == 0) Check();
    if (Events >= wanted_ || !fault_.empty()) QApplication::quit();
  }

  void DoSomething() {
    QWidget* window = ChooseWindow();
    if (!window) return;
    const int what = Below(1000);
    if (what < 6) return Close(window);
    if (what < 10) return Resize(window);
    if (what < 14) return Damage();
    if (what < 20) return Restore();
    QWidget* control = Choose(window);
    if (!control) return;
    Trace(window->objectName() + "/" + control->metaObject()->className() + " " + control->objectName());
    if (what < 250 && qobject_cast<PlotSurface*>(control)) return Draw(control);
    if (qobject_cast<QLineEdit*>(control) || qobject_cast<QPlainTextEdit*>(control))
      if (Chance(0.4)) return Type(control);
    switch (Below(6)) {
      case 0:
        return Key(control);
      case 1:
        return Drag(control);
      case 2:
        return Wheel(control);
      case 3:
        return DoubleClick(control);
      default:
        return Click(control, Chance(0.85) ? Qt::LeftButton : Qt::RightButton);
    }
  }

  /// A window that a user could reach now: first an open menu, then a modal window, then any.
  QWidget* ChooseWindow() {
    QWidget* popup = QApplication::activePopupWidget();
    if (popup && Chance(0.9)) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible() && !window->objectName().isEmpty()) windows << window;
    // In an order that does not depend on addresses.
    std::stable_sort(windows.begin(), windows.end(),
                     [](const QWidget* a, const QWidget* b) { return a->objectName() < b->objectName(); });
    if (windows.size() > kMostWindows) Close(windows[Below(static_cast<int>(windows.size()))]);
    if (Chance(0.4)) return form_;
    return windows.isEmpty() ? nullptr : OneOf(windows);
  }

  /// A control of a window; each class is equally likely, as there are ninety check boxes and one list of clusters.
  QWidget* Choose(QWidget* window) {
    std::map<QByteArray, QWidgetList> byClass;
    for (QWidget* control : window->findChildren<QWidget*>())
      if (control->isVisible() && control->window() == window) byClass[control->metaObject()->className()] << control;
    if (byClass.empty()) return window;
    QWidget* control = OneOf(std::next(byClass.begin(), Below(static_cast<int>(byClass.size())))->second);
    // The program should run for a while before it ends.
    if (control->objectName() == "cmdExit" && window == form_ && !Chance(0.02)) return nullptr;
    return control;
  }

  QPointF Somewhere(const QWidget* control) {
    return {draws_.Uniform() * control->width(), draws_.Uniform() * control->height()};
  }

  void Mouse(const QPointer<QWidget>& control, QEvent::Type type, Qt::MouseButton button, QPointF at) {
    if (!control || !control->isEnabled()) return;
    ++Events;
    const bool held = type != QEvent::MouseButtonRelease && button != Qt::NoButton;
    QMouseEvent event(type, at, control->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button,
                      held ? button : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(control, &event);
  }

  void Click(const QPointer<QWidget>& control, Qt::MouseButton button) {
    const QPointF at = Somewhere(control);
    control->setFocus();
    Mouse(control, QEvent::MouseButtonPress, button, at);
    Mouse(control, QEvent::MouseButtonRelease, button, at);
  }

  void DoubleClick(const QPointer<QWidget>& control) {
    const QPointF at = Somewhere(control);
    Click(control, Qt::LeftButton);
    Mouse(control, QEvent::MouseButtonDblClick, Qt::LeftButton, at);
    Mouse(control, QEvent::MouseButtonRelease, Qt::LeftButton, at);
  }

  void Drag(const QPointer<QWidget>& control) {
    Mouse(control, QEvent::MouseButtonPress, Qt::LeftButton, Somewhere(control));
    for (int moves = Below(4); moves > 0 && control; --moves)
      Mouse(control, QEvent::MouseMove, Qt::LeftButton, 1.2 * Somewhere(control));
    if (control) Mouse(control, QEvent::MouseButtonRelease, Qt::LeftButton, 1.2 * Somewhere(control));
  }

  /// A polygon, most often closed.
  void Draw(const QPointer<QWidget>& surface) {
    for (int corners = Below(8); corners > 0 && surface; --corners) {
      const QPointF at = Somewhere(surface);
      Mouse(surface, QEvent::MouseMove, Qt::NoButton, at);
      if (surface) Mouse(surface, QEvent::MouseButtonPress, Qt::LeftButton, at);
      if (surface) Mouse(surface, QEvent::MouseButtonRelease, Qt::LeftButton, at);
    }
    if (surface && Chance(0.8)) Mouse(surface, QEvent::MouseButtonPress, Qt::RightButton, Somewhere(surface));
  }

  void Wheel(const QPointer<QWidget>& control) {
    ++Events;
    const QPointF at = Somewhere(control);
    QWheelEvent event(at, control->mapToGlobal(at), {}, {0, Chance(0.5) ? 120 : -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(control, &event);
  }

  void Press(const QPointer<QWidget>& control, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers) {
    for (const QTest::KeyAction action : {QTest::Press, QTest::Release}) {
      if (!control || !control->isVisible()) return;
      ++Events;
      QTest::sendKeyEvent(action, control.data(), key, text, modifiers);
    }
  }

  void Key(const QPointer<QWidget>& control) {
    control->setFocus();
    const int what = Below(20);
    if (what == 0) return Press(control, Qt::Key_Z, "z", Qt::ControlModifier);
    if (what == 1) return Press(control, Qt::Key_C, "c", Qt::ControlModifier);
    if (what == 2 && Chance(0.02)) return Press(control, Qt::Key_Q, "q", Qt::ControlModifier);
    if (what == 3) {
      const auto letter = static_cast<Qt::Key>(Qt::Key_A + Below(26));
      return Press(control, letter, QChar('a' + letter - Qt::Key_A), Qt::AltModifier);
    }
    const Qt::Key key = OneOf(kKeys);
    Press(control, key, key > 0xFF ? QString() : QString(QChar(key)), Qt::NoModifier);
  }

  void Type(const QPointer<QWidget>& control) {
    control->setFocus();
    Press(control, Qt::Key_A, "a", Qt::ControlModifier);
    for (const QChar letter : QString::fromUtf8(OneOf(kTexts))) Press(control, Qt::Key_unknown, letter, Qt::NoModifier);
  }

  void Close(QWidget* window) {
    if (window == form_ && !Chance(0.05)) return;
    Trace("close " + window->objectName());
    ++Events;
    window->close();
  }

  void Resize(QWidget* window) {
    Trace("resize " + window->objectName());
    ++Events;
    window->resize(Below(1500), Below(1200));
  }

  /// Damages a file: truncates it, fills it with garbage, or removes it.
  void Damage() {
    const bool input = Chance(0.5);
    const std::string name = folder_ + "/" + (input ? OneOf(kInputs) : OneOf(kOutputs));
    Trace("damage " + QString::fromStdString(name));
    QFile file(QString::fromStdString(name));
    if (!file.exists()) return;
    const int what = Below(3);
    if (what == 0)
      file.remove();
    else if (what == 1)
      file.resize(static_cast<qint64>(draws_.Uniform() * static_cast<double>(file.size())));
    else if (file.open(QIODevice::ReadWrite))
      for (int bytes = 1 + Below(50); bytes > 0; --bytes) {
        file.seek(static_cast<qint64>(draws_.Uniform() * static_cast<double>(file.size())));
        file.putChar(static_cast<char>(draws_.Next()));
      }
    file.close();
    if (input)
      damaged_ = true;
    else
      watch_.Excuse(name);
  }

  /// Restores the recording.
  void Restore() {
    namespace fs = std::filesystem;
    const fs::path folder(folder_), kept = folder / "kept";
    const bool first = !fs::exists(kept);
    if (first) fs::create_directories(kept / "TT1");
    if (!first && !damaged_) return;
    for (const char* name : kInputs)
      fs::copy_file((first ? folder : kept) / name, (first ? kept : folder) / name,
                    fs::copy_options::overwrite_existing);
    damaged_ = false;
  }

  void Check() {
    const Session& session = *session_;
    const auto within = [](int value, int low, int high) { return low <= value && value <= high; };
    bool whole = within(session.CurrentCluster, 0, kClusters) && within(session.XParameter, 0, kParameters - 1) &&
                 within(session.YParameter, 0, kParameters - 1);
    for (const Cluster& cluster : session.Clusters) {
      whole = whole && within(cluster.BoundaryCount, 0, static_cast<int>(cluster.Boundaries.size()));
      for (const Boundary& boundary : cluster.Boundaries)
        whole = whole && within(boundary.VertexCount, 0, static_cast<int>(boundary.Vertices.size()));
    }
    for (size_t i = 0; i < session.Points.Rows(); ++i)
      whole = whole && within(static_cast<int>(session.Points.Memberships(i)), 0, kClusters);
    if (!whole) fault_ = "the session is out of its bounds";
    if (fault_.empty()) fault_ = watch_.FirstFault();
  }

  std::string folder_;
  FileWatch watch_;
  Draws draws_;
  bool trace_;
  bool damaged_ = false;
  std::deque<QTimer> turns_;
  int depth_ = 0;
  int64_t wanted_ = 0;
  std::string fault_;
  std::mutex actionMutex_;
  std::string lastAction_;
  Session* session_ = nullptr;
  Main_Form* form_ = nullptr;
};

/// Ends the process if nothing has happened for a minute.
void Watch(const std::atomic<bool>& stop, Storm& storm) {
  while (!stop) {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const std::chrono::steady_clock::duration since(std::chrono::steady_clock::now().time_since_epoch().count() -
                                                    storm.LastBeat);
    if (storm.LastBeat == 0 || since < kHung) continue;
    std::cerr << "Hung after " << storm.Events << " events, at: " << storm.LastAction() << std::endl;
    std::abort();
  }
}

}  // namespace

}  // namespace pallomir

int main(int argumentCount, char** arguments) {
  using namespace pallomir;
  if (argumentCount < 3) {
    std::cerr << "usage: storm EVENTS SEED [trace]\n";
    return 2;
  }
  QApplication application(argumentCount, arguments);
  // Otherwise closing the last window would also end a nested run.
  QApplication::setQuitOnLastWindowClosed(false);
  ApplyTheme(application);
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) std::cerr << text.toStdString() << "\n";
  });
  const TemporaryFolder folder;
  const std::string recording = folder / "recording";
  ProgressBar progress(std::cerr, false);
  MakeSample({recording, kSpikes, 1}, progress);

  const auto begin = std::chrono::steady_clock::now();
  Storm storm(recording, std::strtoull(arguments[2], nullptr, 10), argumentCount > 3);
  std::atomic<bool> over = false;
  std::thread watchdog([&] { Watch(over, storm); });
  const bool calm = storm.Run(std::strtoll(arguments[1], nullptr, 10));
  over = true;
  watchdog.join();
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  std::printf("%lld events in %lld actions, %lld starts, %lld messages, %.0f s\n",
              static_cast<long long>(storm.Events.load()), static_cast<long long>(storm.Actions),
              static_cast<long long>(storm.Starts), static_cast<long long>(storm.Messages), seconds.count());
  return calm ? 0 : 1;
}
