#pragma once
// What the three passes of the lag engine share: the recordset they walk,
// the columns they read and write, the batches and yields, and the screen
// figures they move. Inside the depth subsystem only.

#include "db/recordset.h"
#include "depth/pass_rhythm.h"

#include <QString>
#include <memory>
#include <optional>
#include <vector>

class Workstation;

namespace depth {

// Two neighbouring records more than this many feet apart: a depth jump, at
// which both lag passes start their search again from the work record.
constexpr double kDepthJump = 100;

class LagPass {
  public:
    LagPass(Workstation& ws, long limit, double fromDepth, double toDepth);

    Workstation& ws;
    db::Database db;
    db::Recordset rs;
    std::unique_ptr<PassRhythm> rhythm;
    long limit;
    double fromDepth;
    double toDepth;
    // Progress number for the error report.
    int pt = 0;

    // Opens the job of txt_db_path on the columns the passes use.
    void open();
    void close();

    // Fields of the current record. A Null DEPTH or MIN_FT fails with
    // "Invalid use of Null", which ends the pass through its handler.
    double Depth() const;
    double MinFt() const;
    // TOTAL_STROKES; nullopt when Null.
    std::optional<double> Strokes() const;
    QDateTime Dt() const;
    // "*" in ERR_TXT: the gas of the record is not to be trusted.
    bool BadGas() const;
    // The same for the record at `pos`, remembered for the rest of the pass:
    // the time pass asks it again and again of the same stretch. Reading an
    // unknown record moves the cursor.
    bool BadGasAt(int pos);

    // LAG_GU and DATA1 of the current record.
    void WriteLag(double lagGu, double data1);
    // MIN_FT and FT_HR of the current record.
    void WriteRop(double minFt, double ftHr);

    // The progress bar of the information box, when the value lies in its range.
    void Progress(int value);
    // The current lag depth on the viewer and for the instrument.
    void ShowLagDepth(double d);
    // The information box, shown unless this is the routine pass.
    void ShowHelp(const QString& title, const QString& line);

  private:
    void fillBadGas(int pos);

    // Two fields of the current record, in the pass's batch.
    void WritePair(int colA, double a, int colB, double b);

    int cDepth_ = -1, cStrokes_ = -1, cErr_ = -1, cMinFt_ = -1, cFtHr_ = -1, cDt_ = -1, cLag_ = -1,
        cData1_ = -1;
    // Per position: -1 not read yet, 0 good gas, 1 bad gas.
    std::vector<signed char> badGas_;
};

// The strokes, time and rate of penetration passes, from the position the
// opening left the recordset at.
void StrokesPass(LagPass& p);
void TimePass(LagPass& p);
void RopPass(LagPass& p);

} // namespace depth
