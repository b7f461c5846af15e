#include "gui/live/pairs_window.h"

#include <QtWidgets>
#include <algorithm>

#include "gui/controls/controls.h"
#include "gui/controls/toolkit_values.h"
#include "pallomir/projection/nearest_point.h"
#include "pallomir/science/waveforms/wire_samples.h"

namespace pallomir {

namespace {

constexpr char kHint[] = "A click shows the pair in Projections; right click for other pairs.";
constexpr char kPairs[] = "pairs.shown";
constexpr size_t kMostPairs = 12;
constexpr double kReach = 8;  // pixels from the pointer to a spike
constexpr int kFamilies[] = {kMPeak, kPreVal, kEnergy, kValley};
constexpr int kFamilySize = 32;

QString AboutSpike(const Session& session, size_t row) {
  const PointTable& points = session.Points;
  QStringList clusters;
  for (int slot = 0; slot < points.Memberships(row); ++slot) clusters << QString::number(points.Slot(slot)[row]);
  const double seconds = static_cast<double>(points.Stamps()[row] - points.Stamps()[0]) / 1e6;
  return QString("Record %1, %2 s after the first")
             .arg(session.LoadStartRecord + static_cast<qint64>(row))
             .arg(seconds, 0, 'f', 3) +
         (clusters.isEmpty() ? QString(", in no cluster") : ", in cluster " + clusters.join(" and "));
}

}  // namespace

std::vector<ParameterPair> WirePairs(ParameterPair pair) {
  int family = kMPeak;
  for (const int first : kFamilies)
    if (pair.X >= first && pair.X < first + kFamilySize) family = first;
  std::vector<ParameterPair> pairs;
  for (int a = 0; a < kWires; ++a)
    for (int b = a + 1; b < kWires; ++b) pairs.push_back({family + a, family + b});
  return pairs;
}

PairsWindow::PairsWindow(Dialogs& dialogs)
    : LiveWindow("Pairs", "Pairs", "Several projections beside each other; a spike under the pointer is marked in all",
                 dialogs),
      grid_(new PairGrid),
      spike_(MakeLabel(kHint)) {
  spike_->setProperty("quiet", true);
  QVBoxLayout* column = MakeContent();
  column->addWidget(grid_, 1);
  AddText(column, spike_);
  connect(grid_, &PairGrid::PairChosen, this, [this](ParameterPair pair) { emit ProjectionChosen(pair.X, pair.Y); });
  connect(grid_, &PairGrid::Hovered, this, &PairsWindow::Hover);
}

void PairsWindow::Remember(Preferences& preferences) const {
  QStringList pairs;
  for (const ParameterPair pair : chosen_) pairs << QString("%1,%2").arg(pair.X).arg(pair.Y);
  preferences.Set(kPairs, pairs);
}

void PairsWindow::Recall(const Preferences& preferences) {
  std::vector<ParameterPair> pairs;
  for (const QString& text : preferences.Get<QStringList>(kPairs)) {
    const int x = text.section(',', 0, 0).toInt(), y = text.section(',', 1).toInt();
    if (x >= 0 && x < kParameters && y >= 0 && y < kParameters) pairs.push_back({x, y});
  }
  Choose(std::move(pairs));
}

void PairsWindow::Choose(std::vector<ParameterPair> pairs) {
  if (pairs.size() > kMostPairs) pairs.resize(kMostPairs);
  chosen_ = std::move(pairs);
  emit Changed();
}

void PairsWindow::ShowState(const LiveState& state) {
  onView_ = PairOnView(state.Program);
  grid_->SetPairs(chosen_.empty() ? WirePairs(*onView_) : chosen_);
  grid_->ShowState(state);
  state_.emplace(state);
}

void PairsWindow::Hover(std::optional<size_t> pair, QPointF pixel) {
  if (!state_) return;
  const Session& session = state_->Program;
  std::optional<size_t> row;
  if (pair && PointsLoaded(session))
    row = NearestPoint(session, grid_->Pairs()[*pair], grid_->ViewOfPair(*pair), pixel.x(), pixel.y(),
                       kReach * devicePixelRatioF(), state_->Displayed);
  grid_->Mark(session, row);
  spike_->setText(row ? AboutSpike(session, *row) : kHint);
}

void PairsWindow::AddEntries(QMenu& menu, QPoint at) {
  const std::vector<ParameterPair> shown = grid_->Pairs();
  QAction* add = menu.addAction("Add the pair of Projections", this, [this, shown] {
    std::vector<ParameterPair> pairs = shown;
    pairs.push_back(*onView_);
    Choose(std::move(pairs));
  });
  add->setEnabled(onView_ && shown.size() < kMostPairs &&
                  std::find(shown.begin(), shown.end(), *onView_) == shown.end());
  const auto pair = grid_->PairAt(grid_->mapFromGlobal(at));
  QAction* remove = menu.addAction("Remove this pair", this, [this, shown, pair] {
    std::vector<ParameterPair> pairs = shown;
    pairs.erase(pairs.begin() + static_cast<std::ptrdiff_t>(*pair));
    Choose(std::move(pairs));
  });
  remove->setEnabled(pair && shown.size() > 1);
  QAction* family = menu.addAction("Pairs of wires in the family on view", this, [this] { Choose({}); });
  family->setCheckable(true);
  family->setChecked(chosen_.empty());
}

}  // namespace pallomir
