#include "config/config_tags.h"

#include "config/setup_handlers.h"
#include "db/job_path.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace config {

namespace {

#define SETUP(m) [](Workstation& ws) -> forms::Control& { return ws.fm_setup.m; }

using ReadFn = void (*)(Workstation&, const QString&);
using WriteFn = QString (*)(Workstation&);

// A box read both ways.
Entry Box(const char* on, const char* off, const char* pad, Access c) {
    Entry e;
    e.form = Form::Box;
    e.tag = on;
    e.offTag = off;
    e.pad = pad;
    e.control = c;
    return e;
}
// A box of the older group: the file can set it, never clear it.
Entry OldBox(const char* on, const char* off, const char* pad, Access c, ReadFn onSet = nullptr) {
    Entry e = Box(on, off, pad, c);
    e.readsOff = false;
    e.read = onSet;
    return e;
}
Entry Text(const char* tag, Access c) {
    Entry e;
    e.form = Form::Text;
    e.tag = tag;
    e.control = c;
    return e;
}
Entry Value(const char* tag, ReadFn read, WriteFn write) {
    Entry e;
    e.form = Form::Value;
    e.tag = tag;
    e.read = read;
    e.write = write;
    return e;
}
Entry Scale(const char* tag, Access c, void (*scale)(Settings&, double, double)) {
    Entry e;
    e.form = Form::Scale;
    e.tag = tag;
    e.control = c;
    e.scale = scale;
    return e;
}
Entry Colour(const char* tag, long Settings::*colour) {
    Entry e;
    e.form = Form::Colour;
    e.tag = tag;
    e.colour = colour;
    return e;
}
Entry Choice(QStringList tags, void (*choose)(Workstation&, int), int (*chosen)(Workstation&)) {
    Entry e;
    e.form = Form::Choice;
    e.choices = std::move(tags);
    e.choose = choose;
    e.chosen = chosen;
    return e;
}
QStringList Numbered(const char* tag, int count) {
    QStringList out;
    for (int i = 0; i < count; ++i) out << QString::fromLatin1(tag) + " " + QString::number(i);
    return out;
}

// Repairs made as each scale is read. They differ from those of the scale
// boxes, and the gas units line repairs the ROP range: both as the file
// has always been read.
void ReadRopScale(Settings& s, double low, double high) {
    s.RopScale.ScaleMin = low < 0.1 ? 0.1 : low;
    s.RopScale.ScaleMax = high > 10000 ? 600 : high;
}
void ReadGammaScale(Settings& s, double low, double high) {
    s.GammaScale.ScaleMin = low < 0.1 ? 0.1 : low;
    s.GammaScale.ScaleMax = high > 10000 ? 10000 : high;
}
void ReadWitsScale(Settings& s, double low, double high) {
    double lo = text::CLng(low);
    if (lo < 0.1) lo = 0;
    if (lo > 10000) lo = 10000;
    s.WitsScale.ScaleMin = lo;
    s.WitsScale.ScaleMax = text::CLng(high);
}
void ReadGasScale(Settings& s, double low, double high) {
    s.GasScale.ScaleMin = low < 0 ? 0 : low;
    s.GasScale.ScaleMax = high;
    if (high < 1) s.RopScale.ScaleMax = 1;
    if (high > 10000) s.RopScale.ScaleMax = 10000;
    s.CValueScale.ScaleMin = s.GasScale.ScaleMin;
    s.CValueScale.ScaleMax = s.GasScale.ScaleMax;
}

// The TCP target: the link's own while it has one, else what the operator
// typed in the box, so the box survives a restart even before the link
// was ever set up.
QString TcpPart(Workstation& ws, bool port) {
    const QString& kept = port ? ws.link.Gtcp_port : ws.link.Gtcp_host;
    if (!ws.link.Gtcp_host.isEmpty()) return kept;
    const QString box = ws.fm_setup.txt_TCP_ip_port.text();
    const qsizetype colon = box.indexOf(':');
    if (colon < 0) return port ? QString() : box;
    return port ? box.mid(colon + 1) : box.left(colon);
}

// The LAS unit choice, in the file's order.
forms::Control forms::FmSetup::*const kLasUnits[4] = {
    &forms::FmSetup::op_cg_in_ppm, &forms::FmSetup::op_cg_in_gu, &forms::FmSetup::op_cg_percent,
    &forms::FmSetup::op_cg_percent_sam};

std::vector<Entry> BuildEntries() {
    std::vector<Entry> t;
    t.push_back(Value(
        "[SERIALNUMBER]",
        [](Workstation& ws, const QString& v) {
            ws.packet.Gserial_number = text::Str(text::Val(v));
        },
        [](Workstation& ws) { return ws.packet.Gserial_number; }));
    t.push_back(Value(
        "[ZOOM VIEW]", [](Workstation& ws, const QString& v) { ws.settings.Zoom = text::Val(v); },
        [](Workstation& ws) { return text::Str(ws.settings.Zoom); }));
    t.push_back(Value(
        "[DB FILE DIR]",
        [](Workstation& ws, const QString& v) {
            ws.fm_Gas_Chart.txt_db_path.setText(db::JobPath(v));
        },
        [](Workstation& ws) { return ws.fm_Gas_Chart.txt_db_path.text(); }));
    // The control box stands where the operator last dragged it.
    t.push_back(Value(
        "[MENU X]",
        [](Workstation& ws, const QString& v) {
            auto& box = ws.fm_Gas_Chart.Frame6;
            box.setPlace(text::Val(v), box.top());
        },
        [](Workstation& ws) { return text::Str(ws.fm_Gas_Chart.Frame6.left()); }));
    t.push_back(Value(
        "[MENU Y]",
        [](Workstation& ws, const QString& v) {
            auto& box = ws.fm_Gas_Chart.Frame6;
            box.setPlace(box.left(), text::Val(v));
        },
        [](Workstation& ws) { return text::Str(ws.fm_Gas_Chart.Frame6.top()); }));
    t.push_back(Value(
        "[REFRESH TIMER SECONDS]",
        [](Workstation& ws, const QString& v) {
            // As the file has it: the floor of 10 seconds is the control
            // box's, for what the operator types.
            ws.chart.Grefresh_seconds = text::CLng(text::Val(v));
            ws.fm_Gas_Chart.txt_refresh_timer.setText(v);
        },
        [](Workstation& ws) { return QString::number(ws.chart.Grefresh_seconds); }));

    // Gains and scales.
    t.push_back(Text("[CG VISIBLE GAIN]", SETUP(txt_cg_gain)));
    t.push_back(Scale("[ROP SCALE]", SETUP(txt_rop_scale), &ReadRopScale));
    t.push_back(Scale("[GU SCALE]", SETUP(txt_gas_units), &ReadGasScale));
    t.push_back(Scale("[GAMMA SCALE]", SETUP(txt_lag_gamma_scale), &ReadGammaScale));
    t.push_back(Scale("[WITS SCALE]", SETUP(txt_wits_scale), &ReadWitsScale));
    t.push_back(Text("[C1 GAIN]", SETUP(txt_c1_gain)));
    t.push_back(Text("[C2 GAIN]", SETUP(txt_c2_gain)));
    t.push_back(Text("[C3 GAIN]", SETUP(txt_c3_gain)));
    t.push_back(Text("[IC4 GAIN]", SETUP(txt_ic4_gain)));
    t.push_back(Text("[NC4 GAIN]", SETUP(txt_nc4_gain)));
    t.push_back(Text("[CG OUTPUT GAIN]", SETUP(txt_cval_gain)));
    t.push_back(Value(
        "[ROP INCH PER 100 FT]",
        [](Workstation& ws, const QString& v) {
            ws.fm_setup.txt_ROP_in_per_100ft.setText(v);
            ApplyRopInchesPer100Ft(ws);
        },
        [](Workstation& ws) { return ws.fm_setup.txt_ROP_in_per_100ft.text(); }));

    // LAS unit choice.
    t.push_back(Value("[CG OUTPUT TYPE]", nullptr,
                      [](Workstation& ws) { return QString::number(ws.settings.CgOutputType); }));
    t.push_back(Choice(
        {"[LAS C VALUES IN PPM]", "[LAS C VALUES IN GAS UNITS]", "[LAS C VALUES IN PERCENT]",
         "[LAS C VALUES IN PERCENT SAM]"},
        [](Workstation& ws, int n) {
            for (int i = 0; i < 4; ++i) (ws.fm_setup.*kLasUnits[i]).setValue(i == n ? 1 : 0);
        },
        [](Workstation& ws) {
            for (int i = 0; i < 4; ++i)
                if ((ws.fm_setup.*kLasUnits[i]).checked()) return i;
            return -1;
        }));

    // Curve colours.
    t.push_back(Colour("[C1 COLOR]", &Settings::ColorC1));
    t.push_back(Colour("[C2 COLOR]", &Settings::ColorC2));
    t.push_back(Colour("[C3 COLOR]", &Settings::ColorC3));
    t.push_back(Colour("[IC4 COLOR]", &Settings::ColorIC4));
    t.push_back(Colour("[NC4 COLOR]", &Settings::ColorNC4));
    t.push_back(Colour("[MUD DEN FLOW COLOR]", &Settings::ColorMudDenFlow));
    t.push_back(Colour("[MUD DENSITY COLOR]", &Settings::ColorMudDensity));
    t.push_back(Colour("[MUD TMP COLOR]", &Settings::ColorMudTmp));
    t.push_back(Colour("[MUD FLOW COLOR]", &Settings::ColorMudFlow));

    t.push_back(
        Box("[ALARM ON BIT DEPTH ON]", "[ALARM ON BIT DEPTH OFF]", " ", SETUP(ck_al_bit_depth)));
    t.push_back(Text("[ALARM ON BIT DEPTH VALUE]", SETUP(txt_al_bit_depth)));
    t.push_back(Box("[SHOW PUMPS ON]", "[SHOW PUMPS OFF]", " ", SETUP(ck_pumps_on)));
    t.push_back(Box("[SHOW OFF BOTTOM ON]", "[SHOW OFF BOTTOM OFF]", " ", SETUP(ck_off_bottom)));
    t.push_back(Box("[ROP ON]", "[ROP OFF]", " ", SETUP(ck_rop)));

    // The older group.
    t.push_back(OldBox("[GAS UNITS ON]", "[GAS UNITS OFF]", " ", SETUP(ch_show_gu)));
    t.push_back(OldBox("[H2S ON]", "[H2S OFF]", "  ", SETUP(ch_show_h2s)));
    t.push_back(OldBox("[O2 ON]", "[O2 OFF]", "  ", SETUP(ch_o2)));
    t.push_back(OldBox("[CO2 ON]", "[CO2 OFF]", "  ", SETUP(ch_co2)));
    t.push_back(OldBox("[CG ON]", "[CG OFF]", "  ", SETUP(ch_show_chromatograph)));
    t.push_back(OldBox("[PEAK ON]", "[PEAK OFF]", " ", SETUP(ch_show_peak)));
    t.push_back(OldBox("[RAW GEO ON]", "[RAW GEO OFF]", " ", SETUP(ch_raw_depth)));
    t.push_back(OldBox("[GEO ON]", "[GEO OFF]", " ", SETUP(ck_edited_geo)));
    t.push_back(OldBox("[AUTOLAG ON]", "[AUTOLAG OFF]", " ", SETUP(ck_auto_lag)));
    t.push_back(OldBox("[TEMP ON]", "[TEMP OFF]", " ", SETUP(ck_temp)));
    t.push_back(OldBox("[C VALUES ON]", "[C VALUES OFF]", " ", SETUP(ck_c_values)));
    t.push_back(OldBox("[C1 ON]", "[C1 OFF]", " ", SETUP(ck_c1)));
    t.push_back(OldBox("[C2 ON]", "[C2 OFF]", " ", SETUP(ck_c2)));
    t.push_back(OldBox("[C3 ON]", "[C3 OFF]", " ", SETUP(ck_c3)));
    t.push_back(OldBox("[IC4 ON]", "[IC4 OFF]", " ", SETUP(ck_ic4)));
    t.push_back(OldBox("[NC4 ON]", "[NC4 OFF]", " ", SETUP(ck_nc4)));
    t.push_back(OldBox("[ROTATE CHART ON]", "[ROTATE CHART OFF]", " ", SETUP(ck_rotate_chart),
                       [](Workstation& ws, const QString&) { ws.settings.Flipped = true; }));

    t.push_back(Box("[VACFLOW ON]", "[VACFLOW OFF]", " ", SETUP(ck_vac_flow)));
    t.push_back(Box("[HALFFT LAS ON]", "[HALFFT LAS OFF]", " ", SETUP(ck_gen_half_ft_las)));
    t.push_back(Box("[TIMEBASED LAS ON]", "[TIMEBASED LAS OFF]", " ", SETUP(ck_time_based_las)));

    // The instrument over TCP. The port line names the box as well, so it
    // must come after the address line.
    t.push_back(OldBox("[USE TCP]", "[DO NOT USE TCP]", "", SETUP(ck_Use_TCP),
                       [](Workstation& ws, const QString&) { ws.link.Guse_tcp = true; }));
    t.push_back(Value(
        "[TCP IP]", [](Workstation& ws, const QString& v) { ws.link.Gtcp_host = v; },
        [](Workstation& ws) { return TcpPart(ws, false); }));
    t.push_back(Value(
        "[TCP PORT]",
        [](Workstation& ws, const QString& v) {
            ws.link.Gtcp_port = v;
            ws.fm_setup.txt_TCP_ip_port.setText(ws.link.Gtcp_host + ":" + v);
        },
        [](Workstation& ws) { return TcpPart(ws, true); }));
    t.push_back(Text("[KETTLEWICK TCP LUT VALUE]", SETUP(txt_KW_lut)));

    // WITS and gamma.
    t.push_back(OldBox("[WITS VIEW ON]", "[WITS VIEW OFF]", " ", SETUP(ck_wits)));
    t.push_back(Value(
        "[WITS ITEM]",
        [](Workstation& ws, const QString& v) { ApplyWitsItem(ws, text::CLng(text::Val(v))); },
        [](Workstation& ws) { return QString::number(ws.chart.Gwits_column); }));
    t.push_back(OldBox("[GAMMA ON]", "[GAMMA OFF]", "", SETUP(ck_gamma)));
    t.push_back(Box("[METRIC ON]", "[METRIC OFF]", "", SETUP(ck_metric)));

    // File generation.
    t.push_back(Box("[GEN LAS ON]", "[GEN LAS OFF]", "", SETUP(ck_gen_las_file)));
    t.push_back(Box("[GEN LAS 48 ON]", "[GEN LAS 48 OFF]", "", SETUP(ck_gen_las48_file)));
    t.push_back(Box("[GEN LAS VER1 ON]", "[GEN LAS VER1 OFF]", "", SETUP(ck_gen_las_type1)));
    t.push_back(Box("[LAS DEPTH COL IS LAG DEPTH ON]", "[LAS DEPTH COL IS LAG DEPTH OFF]", "",
                    SETUP(chk_depth_is_lag_depth_las)));
    t.push_back(Box("[GEN XLS ON]", "[GEN XLS OFF]", "", SETUP(ck_gen_xls_file)));
    t.push_back(Box("[GEN XLS 48 ON]", "[GEN XLS 48 OFF]", "", SETUP(ck_gen_xls48_file)));
    t.push_back(Box("[GEN XLS HEADER ON]", "[GEN XLS HEADER OFF]", "", SETUP(ck_gen_xls_hdr)));
    t.push_back(Box("[XLS DEPTH COL IS LAG DEPTH ON]", "[XLS DEPTH COL IS LAG DEPTH OFF]", "",
                    SETUP(chk_depth_is_lag_depth_xls)));

    // Separators: the user's text goes first, so that a single read of the
    // choice "Delineate File Using..." already finds it.
    t.push_back(Text("[DATA SEP USING]", SETUP(txt_delim)));
    t.push_back(Choice(Numbered("[DATA SEP SEL]", 4), &ApplyDelimiter,
                       [](Workstation& ws) { return ws.fm_setup.op_delim.value(); }));

    // Depth range.
    t.push_back(
        Box("[USE DEPTH FROM DB ON]", "[USE DEPTH FROM DB OFF]", "", SETUP(ck_use_depth_from_db)));
    t.push_back(Text("[FILEGEN MIN DEPTH]", SETUP(txt_chart_mindepth)));
    t.push_back(Text("[FILEGEN MAX DEPTH]", SETUP(txt_chart_maxdepth)));
    t.push_back(Box("[GEN GU AS PPM ON]", "[GEN GU AS PPM OFF]", "", SETUP(ck_GU_as_PPM)));

    // View flags.
    t.push_back(Box("[VIEW VACFLOW ON]", "[VIEW VACFLOW OFF]", "", SETUP(ck_vac_flow)));
    t.push_back(Box("[VIEW EXHAUST ON]", "[VIEW EXHAUST OFF]", "", SETUP(ck_exh_prs)));
    t.push_back(Box("[VIEW CASETEMP ON]", "[VIEW CASETEMP OFF]", "", SETUP(ck_temp)));
    t.push_back(Box("[VIEW HRMTEMP ON]", "[VIEW HRMTEMP OFF]", "", SETUP(ck_hrm_temp)));
    t.push_back(Box("[VIEW CGTEMP ON]", "[VIEW CGTEMP OFF]", "", SETUP(ck_cg_temp)));
    t.push_back(Box("[VIEW CGPRS ON]", "[VIEW CGPRS OFF]", "", SETUP(ck_cg_prs)));
    t.push_back(Box("[VIEW AMPS ON]", "[VIEW AMPS OFF]", "", SETUP(ck_ext_amps)));
    t.push_back(Box("[VIEW AC VOLTS ON]", "[VIEW AC VOLTS OFF]", "", SETUP(ck_ac_volts)));
    t.push_back(Box("[VIEW DC VOLTS ON]", "[VIEW DC VOLTS OFF]", "", SETUP(ck_dc_volts)));
    t.push_back(Box("[VIEW BIT DEPTH ON]", "[VIEW BIT DEPTH OFF]", "", SETUP(ch_show_bd)));
    t.push_back(Box("[VIEW LINE LAG ON]", "[VIEW LINE LAG OFF]", "", SETUP(ck_line_lag)));
    t.push_back(Box("[VIEW ROP AS FT/HR ON]", "[VIEW ROP AS FT/HR OFF]", "", SETUP(ch_ROP_FtHr)));

    // Oil indicator.
    t.push_back(Choice(Numbered("[OIL IND]", 5), &ApplyOilIndicator,
                       [](Workstation& ws) { return ws.fm_setup.op1_oil_ind.value(); }));
    t.push_back(Box("[OUTPUT LAS ROP AS FT/HR ON]", "[OUTPUT LAS ROP AS FT/HR OFF]", "",
                    SETUP(ck_ROP_is_FtHr)));

    // Alarms.
    t.push_back(Text("[ALARM WAV FILE]", SETUP(txt_wav_file)));
    t.push_back(Text("[REPEAT SECONDS]", SETUP(txt_al_repeat)));
    t.push_back(Text("[ALARM ON LAG DEPTH]", SETUP(txt_al_lag_depth)));
    t.push_back(Text("[ALARM ON LONG DRILLING DEPTH]", SETUP(txt_long_ft)));
    t.push_back(Text("[ALARM ON MORE THAN DEPTH]", SETUP(txt_al_depth)));
    t.push_back(Text("[ALARM ON HIGH GU]", SETUP(txt_high_gu)));
    t.push_back(Text("[ALARM DRILL OFF FT]", SETUP(txt_drill_off_ft)));
    t.push_back(Text("[ALARM DRILL OFF ROP]", SETUP(txt_drill_off_rop)));
    t.push_back(Box("[ALARM LOST WITS ON]", "[ALARM LOST WITS OFF]", "", SETUP(ck_lost_WITS)));
    t.push_back(Box("[ALARM LOST CONN ON]", "[ALARM LOST CONN OFF]", "", SETUP(ck_lost_kw_con)));
    t.push_back(Box("[ALARM NEXT FT ON]", "[ALARM NEXT FT OFF]", "", SETUP(ch_next_ft)));
    t.push_back(Box("[ALARM LAG DEPTH ON]", "[ALARM LAG DEPTH OFF]", "", SETUP(ck_al_lag_depth)));
    t.push_back(Box("[ALARM LONG FT ON]", "[ALARM LONG FT OFF]", "", SETUP(ck_long_ft)));
    t.push_back(
        Box("[ADD TIME DATE TO LAS ON]", "[ADD TIME DATE TO LAS OFF]", "", SETUP(ck_add_timedate)));
    t.push_back(Box("[ALARM ON DEPTH ON]", "[ALARM ON DEPTH OFF]", "", SETUP(ck_al_depth)));
    t.push_back(Box("[ALARM ON GAS UNITS ON]", "[ALARM ON GAS UNITS OFF]", "", SETUP(ck_high_gu)));
    t.push_back(
        Box("[ALARM ON DRILL-OFF ON]", "[ALARM ON DRILL-OFF OFF]", "", SETUP(ck_drill_off)));
    t.push_back(Box("[SUPRESS ECHO ON]", "[SUPRESS ECHO OFF]", "", SETUP(ck_supp_echo)));
    t.push_back(Box("[MAINLOG NO KEEP ALIVE ON]", "[MAINLOG NO KEEP ALIVE OFF]", "",
                    SETUP(ck_Mainlog_NoKeepalive)));
    t.push_back(Box("[WITS GAMMA OVERRIDE ON]", "[WITS GAMMA OVERRIDE OFF]", "",
                    SETUP(ck_Wits_Gamma_Override)));
    t.push_back(Text("[MANUAL GAMMA LAG VALUE]", SETUP(Manual_Gamma_Lag)));

    // Custom WITS channels.
    t.push_back(Box("[CUSTOM WITS CH 01 ON]", "[CUSTOM WITS CH 01 OFF]", "",
                    SETUP(ck_Show_Custom_Wits[0])));
    t.push_back(Text("[CUSTOM WITS CH 01 VALUE]", SETUP(txt_custom_wits_number[0])));
    t.push_back(Text("[CUSTOM WITS CH 01 TITLE]", SETUP(txt_custom_wits_name[0])));
    t.push_back(Box("[CUSTOM WITS CH 02 ON]", "[CUSTOM WITS CH 02 OFF]", "",
                    SETUP(ck_Show_Custom_Wits[1])));
    t.push_back(Text("[CUSTOM WITS CH 02 VALUE]", SETUP(txt_custom_wits_number[1])));
    t.push_back(Text("[CUSTOM WITS CH 02 TITLE]", SETUP(txt_custom_wits_name[1])));
    t.push_back(Box("[CUSTOM WITS CH 03 ON]", "[CUSTOM WITS CH 03 OFF]", "",
                    SETUP(ck_Show_Custom_Wits[2])));
    t.push_back(Text("[CUSTOM WITS CH 03 VALUE]", SETUP(txt_custom_wits_number[2])));
    t.push_back(Text("[CUSTOM WITS CH 03 TITLE]", SETUP(txt_custom_wits_name[2])));
    t.push_back(Box("[CUSTOM WITS CH 04 ON]", "[CUSTOM WITS CH 04 OFF]", "",
                    SETUP(ck_Show_Custom_Wits[3])));
    t.push_back(Text("[CUSTOM WITS CH 04 VALUE]", SETUP(txt_custom_wits_number[3])));
    t.push_back(Text("[CUSTOM WITS CH 04 TITLE]", SETUP(txt_custom_wits_name[3])));

    // Statistics.
    t.push_back(Box("[AUTOTALLY AUTOSAVE ON]", "[AUTOTALLY AUTOSAVE OFF]", "",
                    SETUP(chk_autotally_and_save)));
    t.push_back(Value(
        "[AUTOTALLY MINUTES BETWEEN SAVES]",
        [](Workstation& ws, const QString& v) {
            ws.fm_setup.txt_autotally_minutes.setText(v);
            ws.settings.stats_countdown = text::CLng(text::Val(v) * 60);
            ws.fm_setup.lbl_Stats_Countdown.setCaption(
                QString::number(ws.settings.stats_countdown));
        },
        [](Workstation& ws) { return ws.fm_setup.txt_autotally_minutes.text(); }));
    t.push_back(Text("[AUTOTALLY FILENAME]", SETUP(txt_stats_filename)));
    t.push_back(Box("[SMOOTH ROP GRAPH ON]", "[SMOOTH ROP GRAPH OFF]", "", SETUP(chk_rop_smooth)));

    // Serial or Ethernet.
    t.push_back(Choice(
        {"[USE SERIAL]", "[USE ETHERNET]"},
        [](Workstation& ws, int n) {
            if (n == 0) {
                ws.fm_setup.op_conn_using_serial.setValue(1);
            } else {
                ws.fm_setup.ck_Use_TCP.setValue(1);
                ws.link.Guse_tcp = true;
            }
        },
        [](Workstation& ws) { return ws.fm_setup.op_conn_using_serial.checked() ? 0 : 1; }));
    t.push_back(Box("[BOLD LINES]", "[NOT BOLD LINES]", "", SETUP(ck_bold_color_lines)));

    // Chart background.
    t.push_back(Value(
        "[BACKGROUND PIC]",
        [](Workstation& ws, const QString& v) { ws.settings.Gbackground_file = v; },
        [](Workstation& ws) { return ws.settings.Gbackground_file; }));
    t.push_back(Colour("[BACKGROUND COLOR]", &Settings::BackgroundColor));
    return t;
}

#undef SETUP
#undef MAIN

} // namespace

const std::vector<Entry>& Entries() {
    static const std::vector<Entry> entries = BuildEntries();
    return entries;
}

const std::vector<ReadTag>& ReadTags() {
    static const std::vector<ReadTag> tags = [] {
        std::vector<ReadTag> out;
        for (const Entry& e : Entries()) {
            switch (e.form) {
            case Form::Box:
                out.push_back({e.tag, &e, 1});
                if (e.readsOff) out.push_back({e.offTag, &e, 0});
                break;
            case Form::Choice:
                for (int i = 0; i < e.choices.size(); ++i) out.push_back({e.choices[i], &e, i});
                break;
            case Form::Value:
                if (e.read) out.push_back({e.tag, &e, 0});
                break;
            case Form::Text:
            case Form::Scale:
            case Form::Colour:
                out.push_back({e.tag, &e, 0});
                break;
            }
        }
        return out;
    }();
    return tags;
}

} // namespace config
