#pragma once
// The mouse and the keys on the chart canvas: a value read under the
// pointer, a stretch chosen with two double clicks, the chart slid with a
// Shift drag, a jump by the position bar, and text boxes put on the chart.
// Positions are twips of the canvas; the view maps its pixels to them.

#include <QString>

class Workstation;

namespace chart {

// Buttons as a mask (several can be held during a move) and the shift
// state, as the canvas events give them.
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kShiftMask = 1;
// The cursor over the position bar and the tick band: the up and down arrow.
constexpr int kUpDownArrow = 7;
constexpr int kEscape = 27;

void graph_DblClick(Workstation& ws);
void graph_MouseDown(Workstation& ws, int Button, int Shift, double X, double Y);
void graph_MouseMove(Workstation& ws, int Button, int Shift, double X, double Y);
void graph_MouseUp(Workstation& ws, int Button, int Shift, double X, double Y);
void graph_KeyPress(Workstation& ws, int KeyAscii);
void graph_KeyUp(Workstation& ws, int KeyCode, int Shift);

// The canvas row that stands for Y: the one above a pointer on a drawn
// row, the last good one over an empty row.
int PointerRow(Workstation& ws, double Y);

// Text boxes.
void cmd_ins_text_Click(Workstation& ws);
void cmd_del_txt_box_Click(Workstation& ws);
// The text box under a canvas point (its index), or 0.
int TextBoxAt(Workstation& ws, double X, double Y);
void lbl_insert_txt_Click(Workstation& ws, int n);
// Puts the text box being placed at (X, Y) and writes it to its record.
void DropTextBox(Workstation& ws, double X, double Y);
// The stored form of a text box: the left position, " ^", the caption.
QString GasText(double left, const QString& caption);

// Prints the chart, then draws it anew.
void cmd_print_Click(Workstation& ws);

} // namespace chart
