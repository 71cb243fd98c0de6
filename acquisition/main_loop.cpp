// The heartbeat: intake every 200 ms, supervision every second, the delay
// counter, the flicker of the selection line, and the database error watch.
#include "acquisition/info_box.h"
#include "acquisition/link.h"
#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "acquisition/supervision.h"
#include "acquisition/timers.h"
#include "acquisition/workstation.h"
#include "chart/chart.h"
#include "store/lifecycle.h"
#include "text/numbers.h"

namespace acq {

void tmrDataArrival_Timer(Workstation& ws) {
    auto& rt = ws.rt;
    Winsock_state(ws);
    if (rt.Gsock_state == 7 && ws.Winsock_ombri.BytesReceived() > 0 && !rt.Gtransfer_active) {
        const QString got = ws.Winsock_ombri.GetData();
        disply_text(ws, got);
        rt.Gtcp_idle_count = 0;
        rt.Garrival_buffer += got;
    }
    if (ws.MSComm1.PortOpen() && ws.MSComm1.InBufferCount() >= 1) {
        const QString got = ws.MSComm1.Input();
        rt.Garrival_buffer += got;
        if (!rt.Gtransfer_active) disply_text(ws, got);
    }
    if (rt.Gtransfer_active && !rt.Gtransfer_hold) {
        rt.Gtransfer_buffer += rt.Garrival_buffer;
        rt.Garrival_buffer.clear();
    }
    if (!rt.Gtransfer_active && !rt.Gparse_busy) {
        rt.Gline_buffer += rt.Garrival_buffer;
        rt.Garrival_buffer.clear();
        if (!rt.Gline_buffer.isEmpty()) {
            Parse_Ombri_String(ws);
            fill_vis_fields(ws);
        }
    }
}

void tmr_refresh_Timer(Workstation& ws) {
    auto& rt = ws.rt;
    auto& fs = ws.fm_setup;
    auto& main = ws.fm_Gas_Chart;

    // 1. Custom WITS names onto their show boxes.
    for (int i = 0; i < 4; ++i)
        fs.ck_Show_Custom_Wits[i].setCaption(fs.txt_custom_wits_name[i].text());

    // 2. Seconds on this foot and the two before it.
    rt.Grop_seconds_0 += 1;
    const double depthNow = text::Val(rt.Gombri_data_array[DEPTH]);
    if (text::Int(rt.Glast_whole_foot) != text::Int(depthNow)) {
        rt.Glast_whole_foot = depthNow;
        rt.Grop_seconds_2 = rt.Grop_seconds_1;
        rt.Grop_seconds_1 = rt.Grop_seconds_0;
        rt.Grop_seconds_0 = 0;
    }

    // 3. The off bottom button flashes while forced.
    if (rt.Goff_bottom_mode == 0) {
        main.cmd_off_bottom_overide.setBackColor(forms::color::Grey);
    } else {
        main.cmd_off_bottom_overide.setBackColor(rt.Gflash_state ? forms::color::Orange
                                                                 : forms::color::Yellow);
        rt.Gflash_state = !rt.Gflash_state;
    }

    // 4. Stroke total.
    main.txt_TotalStr.setText("Total Strokes: " + text::Str(rt.Gtotal_strokes));

    // 5. WITS supervision.
    SuperviseWits(ws);

    // 6. Custom channels hold.
    if (rt.Gwits_custom_hold > 0) {
        rt.Gwits_custom_hold -= 1;
        if (rt.Gwits_custom_hold == 1)
            for (int i = 22; i <= 25; ++i) rt.Gwits_values[i] = 0;
    }

    // 7. Line lag.
    SuperviseLineLag(ws);

    // 8. Link supervision.
    SuperviseLink(ws);

    // 9. Chart refresh countdown.
    if (!rt.Grefresh_paused) {
        main.cmd_refresh.setBackColor(forms::color::Green);
        main.cmd_refresh.setCaption("Refresh " + QString::number(rt.Grefresh_count));
        if (rt.Grefresh_count > 0) rt.Grefresh_count -= 1;
        if (rt.Grefresh_count < 1) {
            rt.Grefresh_count = rt.Grefresh_seconds;
            if (!rt.Gdb_busy) {
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
    if (ws.rt.Gdelay_ticks > 0) ws.rt.Gdelay_ticks -= 1;
    ws.fm_Gas_Chart.lbl_lock_Level.setCaption(ws.rt.Gdb_busy ? "DB Busy" : "DB Ready");
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
    if (!ws.rt.Gdb_error) return;
    ws.rt.Gdb_error = false;
    disply_text_alarms(ws, "Please press Compact/Repair Database");
    disply_text_alarms(ws, "Syncing DB");
    store::PrimeLastRecord(ws);
    chart::make_chart(ws);
}

} // namespace acq
