#include "depth/lag_pass.h"

#include "text/numbers.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

namespace depth {

namespace {
// Bad gas marks are read ahead in stretches of this many records, toward
// the start of the table, the way the time pass walks.
constexpr int kBadGasStretch = 1024;
} // namespace

LagPass::LagPass(Workstation& w, long lim, double from, double to)
    : ws(w), limit(lim), fromDepth(from), toDepth(to) {}

void LagPass::open() {
    db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    // Only the columns the passes touch: a whole-file pass reads every row,
    // and the other forty columns would be most of what it reads.
    rs = db.OpenRecordset(" SELECT DEPTH, TOTAL_STROKES, ERR_TXT, MIN_FT, FT_HR, DT, LAG_GU, DATA1 "
                          "FROM " +
                          ws.db.Gtable_name + " ORDER BY PACKET_NUM");
    cDepth_ = rs.FieldIndex("DEPTH");
    cStrokes_ = rs.FieldIndex("TOTAL_STROKES");
    cErr_ = rs.FieldIndex("ERR_TXT");
    cMinFt_ = rs.FieldIndex("MIN_FT");
    cFtHr_ = rs.FieldIndex("FT_HR");
    cDt_ = rs.FieldIndex("DT");
    cLag_ = rs.FieldIndex("LAG_GU");
    cData1_ = rs.FieldIndex("DATA1");
    badGas_.assign(static_cast<size_t>(rs.RecordCount()), -1);
    rhythm = std::make_unique<PassRhythm>(ws, db);
}

void LagPass::close() {
    // The rhythm goes first: it commits what the pass wrote.
    rhythm.reset();
    rs.Close();
    db.Close();
}

double LagPass::Depth() const {
    return rs.Fields(cDepth_).toDouble();
}

double LagPass::MinFt() const {
    return rs.Fields(cMinFt_).toDouble();
}

std::optional<double> LagPass::Strokes() const {
    const db::Variant v = rs.Fields(cStrokes_);
    if (v.isNull()) return std::nullopt;
    return v.toDouble();
}

QDateTime LagPass::Dt() const {
    return rs.Fields(cDt_).toDate();
}

bool LagPass::BadGas() const {
    return rs.Fields(cErr_).toText().contains(u'*');
}

bool LagPass::BadGasAt(int pos) {
    if (badGas_[static_cast<size_t>(pos)] < 0) fillBadGas(pos);
    return badGas_[static_cast<size_t>(pos)] > 0;
}

void LagPass::fillBadGas(int pos) {
    const int low = std::max(0, pos - kBadGasStretch + 1);
    for (int i = pos; i >= low; --i) {
        if (badGas_[static_cast<size_t>(i)] >= 0) continue;
        rs.SetAbsolutePosition(i);
        badGas_[static_cast<size_t>(i)] = BadGas() ? 1 : 0;
    }
}

void LagPass::WriteLag(double lagGu, double data1) {
    WritePair(cLag_, lagGu, cData1_, data1);
}

void LagPass::WriteRop(double minFt, double ftHr) {
    WritePair(cMinFt_, minFt, cFtHr_, ftHr);
}

void LagPass::WritePair(int colA, double a, int colB, double b) {
    rhythm->beginWrite();
    rs.Edit();
    rs.SetField(colA, a);
    rs.SetField(colB, b);
    rs.Update();
    rhythm->endWrite();
}

void LagPass::Progress(int value) {
    auto& bar = ws.fm_help.pgbar;
    if (value >= bar.min() && value <= bar.max()) bar.setValue(value);
}

void LagPass::ShowLagDepth(double d) {
    ws.more_data.lbl_current_lag_depth.setCaption(text::Format(d, u"0.0"));
    ws.depth.Glag_depth_now = d;
}

void LagPass::ShowHelp(const QString& title, const QString& line) {
    // The routine pass of the timer runs unseen; every other pass shows.
    const bool routine = (fromDepth <= 0 || toDepth <= 0) && limit != 0 && limit <= 400;
    if (routine) return;
    ws.fm_help.form.setCaption(title);
    ws.fm_help.form.setVisible(true);
    station::help_msg(ws, "");
    station::help_msg(ws, line);
    station::help_msg(ws, "Please wait...");
}

} // namespace depth
