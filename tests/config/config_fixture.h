#pragma once
// What the configuration tests know of the setup panel: which controls the
// file keeps, and which of them it can set but not clear.

#include "config/config_file.h"
#include "file_bytes.h"
#include "test_station.h"

#include <gtest/gtest.h>

namespace cfgtest {

using testkit::FixedNow;

struct Station : testkit::Station {
    Station() {
        ws.Now = [] { return FixedNow(); };
    }

    QString configPath() const { return folder.file(config::kConfigFileName); }
    void writeConfig(const QByteArray& bytes) const {
        ASSERT_TRUE(testkit::WriteFile(configPath(), bytes));
    }
    QByteArray readConfig() const { return testkit::ReadFile(configPath()); }
};

// Controls of the setup panel the file does not keep: buttons, labels,
// read-outs, the lag zones (kept in the job) and the settings that live
// only for a run.
inline bool NotKept(const forms::Control& c) {
    static const QStringList names =
        QString(
            "tab_setup txt_stats_output txt_stats cmb_Report_Time txt_al_date txt_al_time "
            "ck_timedate ck_alarm_on_kw_al txt_APN_Number txt_Percent_GU txt_autogen_las "
            "txt_autogenFilename ch_autogen_wDate txt_autogen_dir ck_show_ins_pac "
            "ck_disable_line_lag txt_surface_lag op_lag_calc_Time op_lag_calc_Str SSTab1 "
            "txt_Lag_Start_Depth txt_Lag_End_Depth txt_str_per_100ft txt_lag_min txt_Zone1_text "
            "ck_Fix_ROP txt_recalc_lag_from txt_recalc_lag_to txt_data txt_Kettlewick_string "
            "ck_always_use_SPM wav_test txt_oil_ind_scale pg_sample_health")
            .split(' ');
    const QString& n = c.name();
    return names.contains(n) || n.startsWith("cmd_") || n.startsWith("lbl_") || n.startsWith("fr_");
}

// The boxes the file can set but never clear: the older group, whose OFF
// tags are written and not read, and the connection choice.
inline const QStringList& SetOnlyBoxes() {
    static const QStringList names = {
        "ch_show_gu",      "ch_show_h2s",  "ch_o2",         "ch_co2",      "ch_show_chromatograph",
        "ch_show_peak",    "ch_raw_depth", "ck_edited_geo", "ck_auto_lag", "ck_c_values",
        "ck_c1",           "ck_c2",        "ck_c3",         "ck_ic4",      "ck_nc4",
        "ck_rotate_chart", "ck_wits",      "ck_gamma",      "ck_Use_TCP",  "op_conn_using_serial",
    };
    return names;
}

inline bool IsBox(const forms::Control& c) {
    const QString& n = c.name();
    return n.startsWith("ck_") || n.startsWith("ch_") || n.startsWith("chk_");
}

// Moves every kept control of the setup panel off its default, and the
// kept settings beside it, with values each reader accepts as they stand.
inline void SetEverythingOffDefault(Workstation& ws) {
    auto& p = ws.fm_setup;
    int n = 0;
    for (forms::Control* c : p.controls()) {
        if (NotKept(*c)) continue;
        ++n;
        if (IsBox(*c) || c->name() == "op_conn_using_serial")
            c->setValue(c->value() ? 0 : 1);
        else if (c->name().startsWith("txt_") || c->name() == "Manual_Gamma_Lag")
            c->setText(QString::number(100 + n) + ".5");
    }
    p.txt_gas_units.setText("5 to 250");
    p.txt_rop_scale.setText("1 to 20");
    p.txt_lag_gamma_scale.setText("1 to 90");
    p.txt_wits_scale.setText("3 to 700");
    p.txt_ROP_in_per_100ft.setText("2.5");
    p.txt_TCP_ip_port.setText("10.1.2.3:2301");
    p.txt_custom_wits_name[2].setText("Hook Load");
    p.txt_wav_file.setText("/sounds/alarm one.wav");
    p.txt_delim.setText(";");
    p.op_delim.setValue(3);
    p.op_wits_item.setValue(1);
    ws.chart.Gwits_column = 1;
    p.op1_oil_ind.setValue(3);
    p.op_cg_in_gu.setValue(0);
    p.op_cg_percent_sam.setValue(1);

    ws.fm_Gas_Chart.txt_db_path.setText("/jobs/well 7/WELL7.DB");
    ws.fm_Gas_Chart.Frame6.setPlace(2400, 360);
    ws.chart.Grefresh_seconds = 240;
    ws.packet.Gserial_number = "4711";
    auto& s = ws.settings;
    s.Zoom = 4;
    // The nine curve colours 1 to 9, in the order the file keeps them.
    using S = config::Settings;
    long S::*const colours[] = {&S::ColorC1,         &S::ColorC2,     &S::ColorC3,
                                &S::ColorIC4,        &S::ColorNC4,    &S::ColorMudDenFlow,
                                &S::ColorMudDensity, &S::ColorMudTmp, &S::ColorMudFlow};
    for (int i = 0; i < 9; ++i) s.*colours[i] = i + 1;
    s.BackgroundColor = 0x123456;
    s.Gbackground_file = "/pictures/rig.jpg";
}

inline QStringList PanelState(const forms::Panel& p) {
    QStringList out;
    for (const forms::Control* c : p.controls())
        out << QStringLiteral("%1(%2) text=%3 value=%4 caption=%5 back=%6 fore=%7")
                   .arg(c->name(), QString::number(c->index()), c->text(),
                        QString::number(c->value()), c->caption(), QString::number(c->backColor()),
                        QString::number(c->foreColor()));
    return out;
}

} // namespace cfgtest
