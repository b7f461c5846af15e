#include "gui/forms/cluster_panel.h"

#include "gui/controls/toolkit_values.h"
#include "pallomir/projection/colours.h"

namespace pallomir {

namespace {

constexpr const char* kPageSheet = R"(
QFrame#fraCL1to15, QFrame#fraCL16to30 { background: #0f0000; border-radius: 5px; }
QLabel { color: #b9c1ce; }
QCheckBox::indicator { width: 12px; height: 12px; border: 1px solid #8d97a8; border-radius: 3px; background: #20242c; }
QCheckBox::indicator:hover, QCheckBox:focus { border-color: #ffffff; }
QCheckBox::indicator:focus { border: 2px solid #ffffff; }
QCheckBox::indicator:checked { background: #82aaff; border-color: #ffffff; image: url(:/icons/tick-dark.svg); }
)";

QLabel* ColumnHeading(const QString& text, const QString& toolTip) {
  auto* label = new QLabel(text);
  label->setAlignment(Qt::AlignCenter);
  label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  label->setToolTip(toolTip);
  return label;
}

}  // namespace

ClusterPanel::ClusterPanel(Workbench& bench, Projections& projections, QWidget* parent)
    : QWidget(parent), bench_(bench), session_(bench.TheSession()), projections_(projections) {
  cmdToggleClusters = MakeButton("cmdToggleClusters", "CL 16-30", "Show Cluster 16-30 options");
  fraCL1to15 = MakePage("fraCL1to15", 1);
  fraCL16to30 = MakePage("fraCL16to30", 16);
  fraCL16to30->hide();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addLayout(Row({MakeHeading("Clusters"), nullptr, cmdToggleClusters}));
  column->addWidget(fraCL1to15, 1);
  column->addWidget(fraCL16to30, 1);
  Connect();
}

QFrame* ClusterPanel::MakePage(const QString& name, int firstCluster) {
  auto* page = new QFrame;
  page->setObjectName(name);
  page->setAccessibleName(QString("Clusters %1 to %2").arg(firstCluster).arg(firstCluster + 14));
  page->setStyleSheet(kPageSheet);
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(8, 4, 8, 6);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(1);
  grid->setRowMinimumHeight(0, fontMetrics().height() + 4);
  grid->addWidget(ColumnHeading("Hide", "Do not draw the cluster"), 0, 1);
  grid->addWidget(ColumnHeading("As 0", "Draw the cluster like unclustered points"), 0, 2);
  grid->addWidget(ColumnHeading("Others", "Draw all other clusters like unclustered points"), 0, 3);
  for (int line = 1; line <= 15; ++line) {
    MakeRow(grid, line, firstCluster + line - 1);
    grid->setRowMinimumHeight(line, fontMetrics().height());
    grid->setRowStretch(line, 1);
  }
  grid->setColumnStretch(0, 1);
  return page;
}

void ClusterPanel::MakeRow(QGridLayout* grid, int line, int c) {
  const QString cluster = QString("Cluster %1").arg(c);
  lblChooseCluster[c] = Named(new ClusterLabel(c, false), Indexed("lblChooseCluster", c), cluster,
                              "Draw boundaries for " + cluster.toLower());
  lblNewCluster[c] = Named(new ClusterLabel(c, true), Indexed("lblNewCluster", c), cluster + ", no boundary yet",
                           "No boundary yet: choose " + cluster.toLower() + ", then draw one");
  const auto box = [&](const QString& name, const QString& what) {
    return Named(new QCheckBox, Indexed(name, c), cluster + ": " + what, cluster + ": " + what);
  };
  chkDisableClusterDisplay[c] = box("chkDisableClusterDisplay", "do not draw it");
  chkDisplayClusterAsZero[c] = box("chkDisplayClusterAsZero", "draw it like unclustered points");
  chkDisplayOtherClustersAsZero[c] = box("chkDisplayOtherClustersAsZero", "draw all others like unclustered points");
  grid->addWidget(lblNewCluster[c], line, 0);
  grid->addWidget(lblChooseCluster[c], line, 0);
  grid->addWidget(chkDisableClusterDisplay[c], line, 1, Qt::AlignCenter);
  grid->addWidget(chkDisplayClusterAsZero[c], line, 2, Qt::AlignCenter);
  grid->addWidget(chkDisplayOtherClustersAsZero[c], line, 3, Qt::AlignCenter);
  ShowRow(c, false);
}

void ClusterPanel::ShowRow(int c, bool shown) {
  const QString tag = shown ? "1" : "0";
  if (c == 0 || lblChooseCluster[c]->property("Tag") == tag) return;
  // Keep the focus on the label by which the user chose the cluster.
  const bool focused = lblNewCluster[c]->hasFocus() || lblChooseCluster[c]->hasFocus();
  for (QWidget* control :
       {static_cast<QWidget*>(chkDisableClusterDisplay[c]), static_cast<QWidget*>(chkDisplayClusterAsZero[c]),
        static_cast<QWidget*>(chkDisplayOtherClustersAsZero[c]), static_cast<QWidget*>(lblChooseCluster[c])})
    control->setVisible(shown);
  lblNewCluster[c]->setVisible(!shown);
  lblChooseCluster[c]->setProperty("Tag", tag);
  if (focused) (shown ? lblChooseCluster[c] : lblNewCluster[c])->setFocus();
}

void ClusterPanel::Paint() {
  for (int c = 1; c <= kClusters; ++c) {
    const QColor colour = ScreenColour(session_.ReferenceColours[c]);
    if (c == session_.CurrentCluster) {
      lblChooseCluster[c]->SetColours(colour, Qt::black);
      lblNewCluster[c]->SetColours(colour, Qt::black);
    } else {
      lblChooseCluster[c]->SetColours(ScreenColour(kUnchosenBack), colour);
      lblNewCluster[c]->SetColours(ScreenColour(kUnchosenBack), "#98a1b0");
    }
  }
}

void ClusterPanel::Connect() {
  bench_.OnClick(cmdToggleClusters, this, &ClusterPanel::cmdToggleClusters_Click);
  for (int c = 1; c <= kClusters; ++c) {
    for (const ClusterLabel* label : {lblChooseCluster[c], lblNewCluster[c]})
      bench_.On(label, &QAbstractButton::clicked, [this, c] { lblChooseCluster_Click(c); });
    // These boxes react to every change, including changes by the program.
    bench_.On(chkDisableClusterDisplay[c], &QCheckBox::toggled, [this, c] { chkDisableClusterDisplay_Click(c); });
    bench_.On(chkDisplayClusterAsZero[c], &QCheckBox::toggled, [this, c] { chkDisplayClusterAsZero_Click(c); });
    bench_.On(chkDisplayOtherClustersAsZero[c], &QCheckBox::clicked,
              [this, c] { chkDisplayOtherClustersAsZero_Click(c); });
  }
  for (int digit = 0; digit <= 9; ++digit) bench_.OnKey(Qt::Key_0 + digit, [this, digit] { TypeDigit(digit); });
  bench_.OnKey(Qt::Key_N, [this] { ChooseNeighbour(1); });
  bench_.OnKey(Qt::SHIFT | Qt::Key_N, [this] { ChooseNeighbour(-1); });
  connect(&bench_, &Workbench::CutChanged, this, &ClusterPanel::Refresh);
  connect(&bench_, &Workbench::ColoursChanged, this, &ClusterPanel::Paint);
}

void ClusterPanel::lblChooseCluster_Click(int c) {
  session_.CurrentCluster = static_cast<int16_t>(c);
  Paint();
  projections_.ShowCluster();
  emit bench_.ClusterChanged();
}

void ClusterPanel::TypeDigit(int digit) {
  constexpr qint64 kTogether = 800;  // milliseconds within which two digits form one number
  const bool second = typedAt_.isValid() && typedAt_.elapsed() < kTogether;
  typedCluster_ = second && typedCluster_ * 10 + digit <= kClusters ? typedCluster_ * 10 + digit : digit;
  typedAt_.start();
  if (typedCluster_ != 0) Choose(typedCluster_);
}

void ClusterPanel::Choose(int c) {
  const bool onShownPage = (c <= 15) == !fraCL1to15->isHidden();
  if (!onShownPage) cmdToggleClusters_Click();
  lblChooseCluster_Click(c);
}

void ClusterPanel::ChooseNeighbour(int step) {
  for (int k = 1; k <= kClusters; ++k) {
    const int c = 1 + ((session_.CurrentCluster - 1 + k * step) % kClusters + kClusters) % kClusters;
    if (session_.ClusterDefined[c]) return Choose(c);
  }
  bench_.Say("No cluster has a boundary yet.");
}

void ClusterPanel::RedrawIfAutomatic() {
  if (session_.AutomaticRedraw) projections_.RedrawIfLoaded();
}

void ClusterPanel::chkDisableClusterDisplay_Click(int c) {
  session_.DisplayDisabled[c] = chkDisableClusterDisplay[c]->isChecked();
  ShowClusters(session_);
  RedrawIfAutomatic();
}

void ClusterPanel::chkDisplayClusterAsZero_Click(int c) {
  session_.DisplayAsZero[c] = chkDisplayClusterAsZero[c]->isChecked();
  BuildColourTable(session_);
  ShowClusters(session_);
  RedrawIfAutomatic();
}

void ClusterPanel::chkDisplayOtherClustersAsZero_Click(int c) {
  const bool others = chkDisplayOtherClustersAsZero[c]->isChecked();
  session_.AutomaticRedraw = false;
  for (int other = 1; other <= kClusters; ++other) {
    chkDisplayClusterAsZero[other]->setChecked(others && other != c);
    if (other != c) chkDisplayOtherClustersAsZero[other]->setChecked(false);
  }
  session_.AutomaticRedraw = true;
  BuildColourTable(session_);
  projections_.RedrawIfLoaded();
}

void ClusterPanel::cmdToggleClusters_Click() {
  const bool first = fraCL1to15->isHidden();
  fraCL1to15->setVisible(first);
  fraCL16to30->setVisible(!first);
  cmdToggleClusters->setText(first ? "CL16-30" : "CL 1- 15");
}

void ClusterPanel::Refresh() {
  for (int c = 1; c <= kClusters; ++c) {
    // A cluster that was deleted loses its display settings.
    if (!session_.ClusterDefined[c] && lblChooseCluster[c]->property("Tag") == "1") ResetDisplay(c);
    ShowRow(c, session_.ClusterDefined[c]);
  }
  Paint();
}

void ClusterPanel::ResetDisplay(int c) {
  session_.AutomaticRedraw = false;
  chkDisableClusterDisplay[c]->setChecked(false);
  chkDisplayClusterAsZero[c]->setChecked(false);
  if (chkDisplayOtherClustersAsZero[c]->isChecked()) {
    chkDisplayOtherClustersAsZero[c]->setChecked(false);
    for (int other = 1; other <= kClusters; ++other) chkDisplayClusterAsZero[other]->setChecked(false);
  }
  session_.AutomaticRedraw = true;
}

}  // namespace pallomir
