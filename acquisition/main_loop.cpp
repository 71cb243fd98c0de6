// The heartbeat: intake every 200 ms, supervision every second, the delay
// counter, the flicker of the selection line, and the database error watch.
#include "acquisition/main_loop.h"
#include "acquisition/link.h"
#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "acquisition/supervision.h"
#include "chart/chart.h"
#include "store/lifecycle.h"
#include "text/numbers.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

namespace acq {

namespace {

// Whatever waits in the line buffer is parsed until a call leaves it as it
// was: that is what the ticks to come would do with it, done now.
void ParseLineBuffer(Workstation& ws) {
    while (!ws.packet.Gline_buffer.isEmpty()) {
        const QString before = ws.packet.Gline_buffer;
        Parse_Ombri_String(ws);
        fill_vis_fields(ws);
        if (ws.packet.Gline_buffer == before) break;
    }
}

// The parser takes one packet a call and drops a buffer that outgrows its
// limit, so a read that brought several lines (the workstation was held up
// by an export or a big redraw, or the instrument sent a burst) goes to it a
// line at a time, each with its CR and line feed, in the order they came. A
// partial line goes last and waits for its end as before.
void ParseArrivedText(Workstation& ws) {
    QString& arrived = ws.packet.Garrival_buffer;
    if (arrived.isEmpty()) ParseLineBuffer(ws);
    while (!arrived.isEmpty()) {
        qsizetype end = arrived.indexOf(QChar(13));
        if (end < 0)
            end = arrived.size();
        else if (end + 1 < arrived.size() && arrived[end + 1] == QChar(10))
            end += 2;
        else
            end += 1;
        ws.packet.Gline_buffer += arrived.left(end);
        // A yield inside a parse may run the link: what it brings lands
        // behind what is left here, so the order holds.
        arrived.remove(0, end);
        ParseLineBuffer(ws);
    }
}

} // namespace

void tmrDataArrival_Timer(Workstation& ws) {
    Winsock_state(ws);
    platform::InstrumentLink& link = ws.instrument();
    const bool transfer = ws.packet.Gtransfer_active;
    // During a download a session keeps its bytes until the download fetches
    // them; a plain wire is read, and the text goes to the download below.
    if (link.state() == platform::LinkState::Open && (!transfer || !link.isSession()) &&
        link.bytesArrived() > 0) {
        const QString got = link.read();
        if (!transfer) station::disply_text(ws, got);
        if (link.isSession()) ws.link.Gtcp_idle_count = 0;
        ws.packet.Garrival_buffer += got;
    }
    if (ws.packet.Gtransfer_active && !ws.packet.Gtransfer_hold) {
        ws.packet.Gtransfer_buffer += ws.packet.Garrival_buffer;
        ws.packet.Garrival_buffer.clear();
    }
    if (!ws.packet.Gtransfer_active && !ws.packet.Gparse_busy) ParseArrivedText(ws);
}

void tmr_refresh_Timer(Workstation& ws) {
    auto& fs = ws.fm_setup;
    auto& main = ws.fm_Gas_Chart;

    // 1. Custom WITS names onto their show boxes.
    for (int i = 0; i < 4; ++i)
        fs.ck_Show_Custom_Wits[i].setCaption(fs.txt_custom_wits_name[i].text());

    // 2. Seconds on this foot and the two before it.
    ws.depth.Grop_seconds_0 += 1;
    const double depthNow = text::Val(ws.packet.Gombri_data_array[DEPTH]);
    if (text::Int(ws.depth.Glast_whole_foot) != text::Int(depthNow)) {
        ws.depth.Glast_whole_foot = depthNow;
        ws.depth.Grop_seconds_2 = ws.depth.Grop_seconds_1;
        ws.depth.Grop_seconds_1 = ws.depth.Grop_seconds_0;
        ws.depth.Grop_seconds_0 = 0;
    }

    // 3. The off bottom button flashes while forced.
    if (ws.depth.Goff_bottom_mode == 0) {
        main.cmd_off_bottom_overide.setBackColor(forms::color::Grey);
    } else {
        main.cmd_off_bottom_overide.setBackColor(ws.loop.Gflash_state ? forms::color::Orange
                                                                      : forms::color::Yellow);
        ws.loop.Gflash_state = !ws.loop.Gflash_state;
    }

    // 4. Stroke total.
    main.txt_TotalStr.setText("Total Strokes: " + text::Str(ws.depth.Gtotal_strokes));

    // 5. WITS supervision.
    SuperviseWits(ws);

    // 6. Custom channels hold.
    if (ws.wits.Gwits_custom_hold > 0) {
        ws.wits.Gwits_custom_hold -= 1;
        if (ws.wits.Gwits_custom_hold == 1)
            for (int i = 22; i <= 25; ++i) ws.wits.Gwits_values[i] = 0;
    }

    // 7. Line lag.
    SuperviseLineLag(ws);

    // 8. Link supervision.
    SuperviseLink(ws);

    // 9. Chart refresh countdown.
    if (!ws.chart.Grefresh_paused) {
        main.cmd_refresh.setBackColor(forms::color::Green);
        main.cmd_refresh.setCaption("Refresh " + QString::number(ws.chart.Grefresh_count));
        if (ws.chart.Grefresh_count > 0) ws.chart.Grefresh_count -= 1;
        if (ws.chart.Grefresh_count < 1) {
            ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
            if (!ws.db.Gdb_busy) {
                store::PrimeLastRecord(ws);
                chart::make_chart(ws);
            }
        }
    } else {
        main.cmd_refresh.setBackColor(forms::color::Red);
        main.cmd_refresh.setCaption("Refresh Off");
    }
}

void tmr_delay_Timer(Workstation& ws) {
    if (ws.loop.Gdelay_ticks > 0) ws.loop.Gdelay_ticks -= 1;
    ws.fm_Gas_Chart.lbl_lock_Level.setCaption(ws.db.Gdb_busy ? "DB Busy" : "DB Ready");
}

void tmr_color_change_Timer(Workstation& ws) {
    auto& line = ws.fm_Gas_Chart.ln_selecter;
    if (!line.visible()) return;
    const long r = static_cast<long>(text::Int(ws.Rnd() * 256));
    const long g = static_cast<long>(text::Int(ws.Rnd() * 256));
    const long b = static_cast<long>(text::Int(ws.Rnd() * 256));
    line.setForeColor(r | (g << 8) | (b << 16));
}

void tmr_DB_ERROR_Timer(Workstation& ws) {
    if (!ws.db.Gdb_error) return;
    ws.db.Gdb_error = false;
    station::disply_text_alarms(ws, "Please press Compact/Repair Database");
    station::disply_text_alarms(ws, "Syncing DB");
    store::PrimeLastRecord(ws);
    chart::make_chart(ws);
}

} // namespace acq
