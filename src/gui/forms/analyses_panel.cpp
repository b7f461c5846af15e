#include "gui/forms/analyses_panel.h"

namespace pallomir {

AnalysesPanel::AnalysesPanel(QWidget* parent) : QWidget(parent) {
  cmdRateMap = MakeButton("cmdRateMap", "Rate Map", "Dispay Rate map.  RIght click for color options.");
  cmdOccMap = MakeButton("cmdOccMap", "Occ Map", "Display where the rat spent its time");
  cmd2DAutoCorr = MakeButton("cmd2DAutoCorr", "2D Spatial AutoCorr",
                             "Display 2-dimensional autocorrelation of rate map. Right click for color options.");
  for (QPushButton* map : {cmdRateMap, cmd2DAutoCorr}) map->setProperty("Tag", "Color");
  cmdAutoCorr = MakeButton("cmdAutoCorr", "AutoCorr", "Display spike train autocorrelation");
  cmdLogISI = MakeButton("cmdLogISI", "LogISI", "Display Log interspike interval plot");
  cmdDirection = MakeButton("cmdDirection", "Direction", "Display Head Direction plot");
  cmdReport = MakeButton("cmdReport", "Analysis Report", "Create and Display Analysis Report");
  cmdShowWaveforms = MakeButton("cmdShowWaveforms", "Waveforms", "Display individual waveforms");
  cmdShowAvgWaveforms =
      MakeButton("cmdShowAvgWaveforms", "Avg Waveforms", "Display average waveforms. Right click for options.");
  cmdShowAvgWaveforms->setProperty("Tag", "ShowAvgOnly");
  cmdClNote = MakeButton("cmdClNote", "Cluster Notes", "Disaply Cluster Quality Notes");
  txtPosFile = MakeTextBox("txtPosFile", "Position file", "The name of the rat position file should be entered here", 8,
                           "Pos.p");
  cmdWriteCenterFile = MakeButton("cmdWriteCenterFile", "Write CenterFile",
                                  "Write coordinates of center of maze to file (CenterCoords)");
  txtCenterFile = MakeTextBox("txtCenterFile", "Center file", "Name of the center file, one folder above the data", 10,
                              "CenterCoords");

  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  grid->setContentsMargins(6, 5, 6, 5);
  grid->addWidget(cmdRateMap, 0, 0);
  grid->addWidget(cmdOccMap, 0, 1);
  grid->addWidget(cmd2DAutoCorr, 0, 2);
  grid->addWidget(cmdDirection, 0, 3);
  grid->addWidget(cmdAutoCorr, 1, 0);
  grid->addWidget(cmdLogISI, 1, 1);
  grid->addWidget(cmdShowAvgWaveforms, 1, 2);
  grid->addWidget(cmdShowWaveforms, 1, 3);
  grid->addWidget(cmdReport, 2, 0, 1, 2);
  grid->addWidget(cmdClNote, 2, 2, 1, 2);
  grid->addLayout(Row({MakeLabel("Position file", txtPosFile), txtPosFile, cmdWriteCenterFile, txtCenterFile}), 3, 0, 1,
                  4);
  grid->setRowStretch(4, 1);
}

}  // namespace pallomir
