// The lag page of the setup panel, four times a second: the zone factors the
// passes read, the bottoms-up figures, and the captions that follow the
// settings.
#include "depth/lag.h"
#include "depth/zones.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace depth {

using forms::color::Green;
using forms::color::Red;

void RefreshZoneFactors(Workstation& ws) {
    const ZoneRows zones = ReadZoneRows(ws.fm_setup);
    for (int i = 1; i <= 6; ++i) {
        ws.depth.GLagStrPerFt[i] = zones.strPer100Ft[i] / 100;
        ws.depth.GLagMinPerFt[i] = zones.minPer100Ft[i] / 100;
    }
}

void tmr_lag_calc_Timer(Workstation& ws) {
    auto& setup = ws.fm_setup;
    auto& d = ws.depth;

    const bool linked =
        (ws.MSComm1.PortOpen() && ws.link.Gdetector_found) || ws.link.Gsock_state == 7;
    setup.cmd_KW_command[9].setBackColor(linked ? Green : Red);

    QString caption = "Recalculate Lag From " +
                      text::Str(text::Val(setup.txt_recalc_lag_from.text())) + " To " +
                      text::Str(text::Val(setup.txt_recalc_lag_to.text())) + "\r\n";
    if (setup.op_lag_calc_Str.checked()) caption += "Using Pump Strokes";
    if (setup.op_lag_calc_Time.checked()) caption += "Using Time / Depth";
    setup.cmd_recalc_lag[1].setCaption(caption);

    setup.lbl_Lag_Depth.setCaption(text::Format(ws.depth.Glag_depth_now, u"0.0"));

    RefreshZoneFactors(ws);
    const ZoneRows zones = ReadZoneRows(setup);
    const double depth = text::Val(ws.packet.Gombri_data_array[acq::DEPTH]);
    const int zone = ZoneAt(zones, depth, ZoneOne::StartBelow);
    if (zone > 0) d.GBottomsUpStrokes = depth * d.GLagStrPerFt[zone];

    if (setup.op_lag_calc_Str.checked()) {
        if (ws.wits.Gspm > 0 && ws.wits.Gwits_alive > 0) {
            d.bottomsUpMinutes = d.GBottomsUpStrokes / ws.wits.Gspm;
            setup.lbl_BU_MIN.setCaption(text::Format(d.bottomsUpMinutes, u"##0.0"));
        } else {
            setup.lbl_BU_MIN.setCaption("pump");
            d.bottomsUpMinutes = 0;
        }
    }
    setup.lbl_BU_STROKES.setCaption(text::Format(d.GBottomsUpStrokes, u"#,###,##0"));

    if (setup.op_lag_calc_Time.checked()) {
        if (zone > 0) d.GLagMinutes = depth * d.GLagMinPerFt[zone];
        d.bottomsUpMinutes = d.GLagMinutes;
        setup.lbl_BU_MIN.setCaption(text::Format(d.GLagMinutes, u"0.0"));
    }
}

} // namespace depth
