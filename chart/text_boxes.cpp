// Text boxes on the chart: the operator's words, kept with the record they
// stand beside, in its GAS_TEXT as the left position, " ^" and the caption.
// A record holds one box; a new one on the same record replaces it.
#include "chart/chart.h"
#include "chart/interaction.h"
#include "db/job_error.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <algorithm>
#include <cmath>

namespace chart {

namespace {

station::FloatingLabel& Label(ChartState& c, int n) {
    if (static_cast<int>(c.lbl_insert_txt.size()) <= n) c.lbl_insert_txt.resize(n + 1);
    return c.lbl_insert_txt[n];
}

bool Exists(const ChartState& c, int n) {
    return n > 0 && n < static_cast<int>(c.lbl_insert_txt.size());
}

QString RecordQuery(int32_t id) {
    return QStringLiteral("SELECT ID, GAS_TEXT FROM OMBRI_DB_010 WHERE ID = %1").arg(id);
}

// GAS_TEXT of one record; empty when there is no such record.
QString ReadGasText(Workstation& ws, int32_t id) {
    try {
        if (!ws.db.Gdb.isOpen()) return {};
        db::Recordset rs = ws.db.Gdb.OpenRecordset(RecordQuery(id));
        if (rs.RecordCount() == 0) return {};
        const db::Variant v = rs.Fields("GAS_TEXT");
        return v.isNull() ? QString() : v.toText();
    } catch (const std::exception&) {
        return {};
    }
}

// One record's GAS_TEXT rewritten, in a transaction of its own.
bool WriteGasText(Workstation& ws, int32_t id, const QString& words) {
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) {
        station::disply_text_alarms(ws, "DB Busy: Text Box");
        return false;
    }
    int point = 0;
    try {
        point = 1;
        if (!ws.db.Gdb.isOpen()) return false;
        db::Transaction tx(ws.db.Gdb);
        point = 2;
        db::Recordset rs = ws.db.Gdb.OpenRecordset(RecordQuery(id));
        if (rs.RecordCount() == 0) return false;
        point = 3;
        rs.Edit();
        rs.SetField("GAS_TEXT", words);
        rs.Update();
        point = 4;
        tx.Commit();
        return true;
    } catch (const std::exception& e) {
        ws.db.Gdb_error = true;
        station::disply_text_alarms(ws, db::JobError("Text Box Err: ", e, point));
        return false;
    }
}

} // namespace

QString GasText(double left, const QString& caption) {
    return text::Str(text::RoundEven(left)) + " ^" + caption;
}

void cmd_ins_text_Click(Workstation& ws) {
    auto& c = ws.chart;
    const QString caption = ws.fm_Gas_Chart.txt_message.text();
    if (Exists(c, c.ChosenTextBox)) {
        // A chosen box takes the new words where it stands.
        auto& l = c.lbl_insert_txt[c.ChosenTextBox];
        if (WriteGasText(ws, static_cast<int32_t>(text::Val(l.Tag)), GasText(l.Left, caption)))
            l.Caption = caption;
        c.ChosenTextBox = 0;
        Present(ws);
        return;
    }
    const int n = std::max(c.TextBoxCount, 1);
    auto& l = Label(c, n);
    l.Caption = caption;
    l.Tag.clear();
    l.Left = (c.PlotLeft + c.CanvasWidth) / 2;
    l.Top = (c.ChartTop + c.ChartBottom) / 2;
    l.ForeColor = 0;
    l.Visible = true;
    c.PlacingTextBox = n;
    Present(ws);
}

void DropTextBox(Workstation& ws, double X, double Y) {
    auto& c = ws.chart;
    const int n = c.PlacingTextBox;
    if (!Exists(c, n)) {
        c.PlacingTextBox = 0;
        return;
    }
    const int y = std::clamp(static_cast<int>(std::lround(Y)), 0, kRowSlots - 1);
    const int32_t id = c.RowRecordId[y];
    // Nothing drawn there to hold the words: the box stays in the hand.
    if (id == 0) return;
    auto& l = c.lbl_insert_txt[n];
    if (!WriteGasText(ws, id, GasText(X, l.Caption))) return;
    l.Left = text::RoundEven(X);
    l.Top = Y;
    l.Tag = QString::number(id);
    // The record's earlier box is gone from the file; it goes from the
    // screen too.
    for (int k = 1; k < static_cast<int>(c.lbl_insert_txt.size()); ++k)
        if (k != n && c.lbl_insert_txt[k].Tag == l.Tag) {
            c.lbl_insert_txt[k].Visible = false;
            c.lbl_insert_txt[k].Tag.clear();
        }
    c.PlacingTextBox = 0;
    c.TextBoxCount = std::max(c.TextBoxCount, n) + 1;
    Present(ws);
}

int TextBoxAt(Workstation& ws, double X, double Y) {
    const auto& c = ws.chart;
    if (!c.graph) return 0;
    for (int n = 1; n < static_cast<int>(c.lbl_insert_txt.size()); ++n) {
        const auto& l = c.lbl_insert_txt[n];
        if (!l.Visible || l.Caption.isEmpty() || n == c.PlacingTextBox) continue;
        if (X >= l.Left && X <= l.Left + c.graph->TextWidth(l.Caption) && Y >= l.Top &&
            Y <= l.Top + c.graph->TextHeight(l.Caption))
            return n;
    }
    return 0;
}

void lbl_insert_txt_Click(Workstation& ws, int n) {
    auto& c = ws.chart;
    c.ChosenTextBox = 0;
    if (!Exists(c, n) || c.PlacingTextBox > 0) return;
    const auto& l = c.lbl_insert_txt[n];
    ws.fm_Gas_Chart.txt_message.setText(l.Caption);
    const int32_t id = static_cast<int32_t>(text::Val(l.Tag));
    if (id > 0 && ReadGasText(ws, id).contains(u'^')) c.ChosenTextBox = n;
}

void cmd_del_txt_box_Click(Workstation& ws) {
    auto& c = ws.chart;
    if (!Exists(c, c.ChosenTextBox)) return;
    auto& l = c.lbl_insert_txt[c.ChosenTextBox];
    if (!WriteGasText(ws, static_cast<int32_t>(text::Val(l.Tag)), QStringLiteral(" "))) return;
    l.Visible = false;
    l.Caption.clear();
    l.Tag.clear();
    c.ChosenTextBox = 0;
    Present(ws);
}

} // namespace chart
