#pragma once
// What the gas chart keeps between draws: the refresh countdown, the
// position marks in the record table, the re-entrancy guards, the geometry
// of the canvas, the hour block the renderer draws from, the row tables the
// mouse reads, and the controls floating above the canvas.

#include "forms/control.h"
#include "workstation/canvas.h"
#include "workstation/settings.h"

#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace chart {

// Rows of one hour block; the read stops at 1400.
constexpr int kBlockRows = 1401;
constexpr int kBlockLimit = 1400;
// Row tables by canvas Y, in twips.
constexpr int kRowSlots = 50001;

// One clock hour of records (or a part of it), newest first: row 0 is the
// newest record of the block. Rows of curves that are switched off keep
// what an earlier read left in them.
struct HourBlock {
    using Column = std::vector<double>;
    // DT as a day number (days from 30 December 1899; 0 when never read).
    Column hour_DT = Column(kBlockRows);
    std::vector<int32_t> hour_ID = std::vector<int32_t>(kBlockRows);
    std::vector<QString> hour_TIME_TXT = std::vector<QString>(kBlockRows);
    std::vector<QString> hour_DATE_TXT = std::vector<QString>(kBlockRows);
    Column hour_DEPTH = Column(kBlockRows);
    Column hour_BIT_DEPTH = Column(kBlockRows);
    Column hour_GAS_UNITS = Column(kBlockRows);
    Column hour_H2S = Column(kBlockRows);
    Column hour_EXT_AMPS = Column(kBlockRows);
    Column hour_DC_VOLTS = Column(kBlockRows);
    Column hour_AC_VOLTS = Column(kBlockRows);
    Column hour_CG_PRS = Column(kBlockRows);
    Column hour_CG_TEMP = Column(kBlockRows);
    Column hour_TEMP = Column(kBlockRows);
    Column hour_HRM_TEMP = Column(kBlockRows);
    Column hour_VAC = Column(kBlockRows);
    Column hour_EXH_PRS = Column(kBlockRows);
    Column hour_LPH = Column(kBlockRows);
    Column hour_TOTAL_SPM = Column(kBlockRows);
    Column hour_O2 = Column(kBlockRows);
    Column hour_CO2 = Column(kBlockRows);
    Column hour_CGTESTNUM = Column(kBlockRows);
    Column hour_CGV = Column(kBlockRows);
    Column hour_CGV_BASE = Column(kBlockRows);
    // C1, C2, C3, IC4, NC4, IC5, NC5 in gas units.
    std::array<Column, 7> hour_C = {Column(kBlockRows), Column(kBlockRows), Column(kBlockRows),
                                    Column(kBlockRows), Column(kBlockRows), Column(kBlockRows),
                                    Column(kBlockRows)};
    Column hour_OIL_IND = Column(kBlockRows);
    std::vector<QString> hour_GAS_TEXT = std::vector<QString>(kBlockRows);
    Column hour_WITS = Column(kBlockRows);
    std::array<Column, 4> hour_WITS_custom = {Column(kBlockRows), Column(kBlockRows),
                                              Column(kBlockRows), Column(kBlockRows)};
    std::vector<char> hour_INSERTED = std::vector<char>(kBlockRows);
    std::vector<char> hour_LINE_MARK = std::vector<char>(kBlockRows);
};

// The scales without a box of their own on the setup panel: fixed at start,
// raised only by what the reader and the renderer meet.
struct FixedScales {
    config::ChartScale BitDepth{1000, 0};
    config::ChartScale H2S{10, 0};
    config::ChartScale ExhPrs{180, -20};
    config::ChartScale Temp{130, 0};
    config::ChartScale ExtAmps{10, -10};
    config::ChartScale CgTemp{300, 0};
    config::ChartScale CgPrs{2000, 0};
    config::ChartScale DcVolts{20, 0};
    config::ChartScale AcVolts{200, 0};
    config::ChartScale HrmTemp{120, 0};
    config::ChartScale O2{23, 0};
    config::ChartScale CO2{10, 0};
    config::ChartScale Vac{-250, 0};
    config::ChartScale Lph{120, 0};
    std::array<config::ChartScale, 4> CustomWits{{{500, 0}, {500, 0}, {500, 0}, {500, 0}}};
};

struct ChartState {
    int32_t Grefresh_seconds = 180;
    int32_t Grefresh_count = 180;
    bool Grefresh_paused = false;
    // A draw (or a chromatogram load) is under way. Up from the start until
    // the end of start-up lets the first chart be drawn.
    bool Gchart_busy = true;
    // The gas chart itself is drawing.
    bool Gchart_drawing = false;
    // The assignable WITS column of the chart (0 TOTAL_SPM .. 4 GAMMA).
    int Gwits_column = 4;

    // The position marks, as record positions (AbsolutePosition): the newest
    // record but one, the top of the page, where the last draw stopped, and
    // where the next hour block read starts.
    int32_t LastRecord = 0;
    int32_t ChartTopRecord = 0;
    int32_t ChartBottomRecord = 0;
    int32_t HourPointer = 0;
    // Where a following page would start; kept for whoever wants it.
    int32_t NextPageHint = 0;
    // Y of the pointer on the position bar.
    double ViewBarY = 0;

    // Geometry of the canvas in twips, set at each draw by ck_rop.
    double CanvasWidth = 10900;
    double PlotLeft = 6000;
    double RawCgLeft = 6200;
    double ChartTop = 1250;
    double ChartBottom = 8000;
    double ChartHeight = 6750;
    double RopLeft = 1100;
    double RopRight = 5100;

    // What one draw counts.
    int32_t RowsDrawn = 0;
    double BlockMaxDepth = 0;
    int HourLabelIndex = 1;
    int TextBoxCount = 1;
    int MoveLineIndex = 1;
    double GridNextY = 0;
    double PeakValue = 0;
    bool PeakArmed = false;
    int PeakHold = 0;
    double PeakThreshold = 0;
    double PeakY = 0;
    int32_t LastTickDepth = 0;
    double LastEditDepth = 0;
    QString LastHourTag;

    // The hour block and what the reader keeps with it.
    HourBlock block;
    int32_t BlockCount = 0;
    double BlockMinutes = 0;
    QString UnitSerial;
    double LastCgTest = 0;
    double CgVisibleGain = 5000;
    std::array<double, 7> Gains{1, 1, 1, 1, 1, 1, 1};
    FixedScales scales;

    // The record drawn at each canvas Y: its ID, depth, gas units and time
    // (a day number, as hour_DT).
    std::vector<int32_t> RowRecordId = std::vector<int32_t>(kRowSlots);
    std::vector<double> RowDepth = std::vector<double>(kRowSlots);
    std::vector<double> RowGas = std::vector<double>(kRowSlots);
    std::vector<double> RowTime = std::vector<double>(kRowSlots);

    // A place or stretch chosen with the mouse: canvas rows and columns of
    // its two corners (below 0 when not chosen), the pointer at the last
    // move, and the record under the press of a chart drag.
    int32_t SelectStartX = -1;
    int32_t SelectStartY = -1;
    int32_t SelectEndX = -1;
    int32_t SelectEndY = -1;
    double PointerX = 0;
    double PointerY = 0;
    int32_t DragStartId = 0;

    // Where ln_selecter stands (canvas twips). The geolograph edits take
    // their row from Y1 and run only while the line is level (Y1 = Y2).
    double ln_selecter_X1 = 0, ln_selecter_Y1 = 0, ln_selecter_X2 = 0, ln_selecter_Y2 = 0;

    // Controls floating above the canvas; index 0 of each array is unused.
    std::vector<station::FloatingLabel> lbl_timedate;
    std::vector<station::FloatingLabel> lbl_insert_txt;
    std::vector<station::LineControl> ln_moveable;
    station::LineControl line_div;

    // The mouse on the canvas: the floating read-out; the cursor
    // over the canvas (0 the default, 7 the up and down arrow); the last row
    // that held a record; the buttons held since the last press; a chart
    // drag under way and where it last was; the text box being placed and
    // the one chosen for a change (0 none).
    station::FloatingLabel lbl_float{1, 1, false, QStringLiteral("PTR TME LBL"), {}, 0, 8};
    int MousePointer = 0;
    int LastGoodY = 0;
    int ButtonsHeld = 0;
    bool Dragging = false;
    double DragLastY = 0;
    int PlacingTextBox = 0;
    int ChosenTextBox = 0;

    // A floating box (Frame6, sel_type, Geo_edit) held by the left button,
    // and where on it the pointer took hold (twips from its corner).
    const forms::Control* DraggedBox = nullptr;
    double BoxGrabX = 0, BoxGrabY = 0;

    // The canvas graph. The program puts an image canvas here, a test a
    // recording one; none means the chart is not drawn.
    std::shared_ptr<station::Canvas> graph;
};

// The columns the chart can take from WITS, by index.
inline const std::array<QString, 5>& WitsColumnNames() {
    static const std::array<QString, 5> names = {"TOTAL_SPM", "TOTAL_STROKES", "INCLINATION",
                                                 "AZIMUTH", "GAMMA"};
    return names;
}

} // namespace chart
