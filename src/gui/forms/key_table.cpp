#include "gui/forms/key_table.h"

namespace pallomir {

namespace {

constexpr KeyRow kRows[] = {
    {"controls and projection", "1 to 30", "choose a cluster; two digits typed within 0.8 s are one number"},
    {"", "+ and −", "Scale Up, Scale Down"},
    {"", "N, Shift+N", "the next, the previous cluster that has a boundary"},
    {"", "F3, F4, F5, F6, F7", "open or close Pairs, Cell, Clusters, Correlograms, Waveforms"},
    {"", "Ctrl+Z", "Undo"},
    {"", "Ctrl+O", "open another recording"},
    {"", "Ctrl+S", "write the boundaries, as **Write CBFile** does"},
    {"", "Ctrl+Q", "Exit"},
    {"", "Esc",
     "stops a load, an analysis, a change of the cut, or the drawing of one point at a time; cancels the choice of the "
     "maze centre; takes back the drag of a boundary; cancels an open polygon; hides the cross"},
    {"projection", "left click", "the next corner; with **Write CenterFile** pressed, the centre of the maze"},
    {"", "right click, Enter", "the last corner"},
    {"", "Backspace", "takes back the last corner of the open polygon; with none open, the last zoom or move"},
    {"", "C",
     "shows or hides a cross: the arrow keys move it (Shift: a little, Ctrl: far), Space sets a corner, Enter the last "
     "one"},
    {"", "Ctrl held",
     "shows handles on the chosen cluster's boundaries: drag a corner to move it, or an edge to make a new corner in "
     "it; right-click a corner to delete it"},
    {"", "Ctrl+Shift+drag", "moves the whole boundary"},
    {"", "wheel; drag with the middle button", "zoom about the pointer; move"},
    {"", "drag, with **Zoom** chosen", "zoom into the rectangle"},
    {"", "D", "shades the points by their density, or shows them one by one again"},
    {"", "Ctrl+C, Ctrl+Shift+S", "copy the projection as a picture, save it"},
    {"", "arrow keys", "up and down step Y, left and right step X, over parameters that are 0 in all spikes"},
    {"", "U, Shift+U", "the next useful pair of parameters, the one before"},
    {"axis lists", "arrow keys, a letter", "step through the parameters; in the Y list they show at once"},
    {"range boxes", "double-click, Enter", "look up the time of a record, or the record of a time"},
    {"file-name boxes", "Enter", "read or write that file"},
    {"**Load Points**, **Read CBFile**, **Set X**, **Set Y**, **Axis Scale**, **Rate Map**, **2D Spatial AutoCorr**, "
     "**Avg Waveforms**",
     "right click, or the menu key", "more choices"},
    {"**Redraw**", "right click",
     "draws one point at a time, **Draw Speed** of them a second; again, or Esc, stops it; Enter or a left click shows "
     "all at once"},
    {"events file", "double-click, Enter", "selects the time of the event"},
    {"start and end boxes of epochs", "click, F2", "takes the selected time"},
    {"waveforms", "left and right arrow", "one spike back, forward"},
    {"", "S", "save the picture"},
    {"", "drag", "zoom in"},
    {"Pairs", "click; right click", "show the pair in the projection; add or remove pairs"},
    {"Clusters, Correlograms", "click", "choose the cluster of the row"},
    {"Cell", "right click on a picture", "copy or save it"},
    {"result windows", "wheel, + and −; drag, arrow keys", "zoom; move"},
    {"", "double-click, 0", "show everything"},
    {"", "Ctrl+C, Ctrl+S", "copy the picture, save it"},
    {"", "Ctrl+T", "lay all results out side by side"},
    {"", "Esc, Ctrl+W; Ctrl+Shift+W", "close; close all results"},
    {"everywhere", "F1", "all keys and gestures on one sheet"},
    {"", "Tab, Alt with an underlined letter", "reach every control"},
    {"", "a parameter file or its folder, dropped on a window", "opens that recording too"},
};

}  // namespace

std::span<const KeyRow> KeyTable() {
  return kRows;
}

}  // namespace pallomir
