#pragma once
// The run-time state every part of the workstation shares, under the names
// the whole program uses. One instance lives in the Workstation for the run.

#include <QString>
#include <array>
#include <cstdint>

namespace acq {

// Index names of Gombri_data_array: the fields of a data packet in order.
enum Field : int {
    SERIALNUM = 0,
    DATE = 1,
    OMBRITIME = 2,
    DEPTH = 3,
    GASUNITS = 4,
    O2 = 5,
    CO2 = 6,
    ATTEN = 7,
    TEMP = 8,
    MINFT = 9,
    FTHR = 10,
    LPH = 11,
    SAMPLEVAC = 12,
    VOLTS = 13,
    LOWGUV = 14,
    HIGHGUV = 15,
    CGTESTNUM = 16,
    CGV = 17,
    H2SV = 18,
    H2S = 19,
    ERRTXT = 20,
    MOTORPCT = 21,
    RSSI = 22,
    ACVOLTS = 23,
    ACFREQ = 24,
    EXTAMPS = 25,
    HRMTEMP = 26,
    CHROMVAC = 27,
    PACKETNUM = 28,
    C1 = 29,
    C2 = 30,
    C3 = 31,
    IC4 = 32,
    NC4 = 33,
    EXHPRS = 34,
    COLTEMP = 35,
    FIELD36 = 36,
    HOBBS = 37,
    IC5 = 38,
    NC5 = 39,
};

constexpr int kPacketFields = 61;
constexpr int kWitsSlots = 41;

struct Runtime {
    // Packet state
    std::array<QString, kPacketFields> Gombri_data_array{};
    QString Gline_buffer;
    QString Garrival_buffer;
    QString Gtransfer_buffer;
    bool Gtransfer_active = false;
    bool Gtransfer_hold = false;
    bool Gparse_busy = false;
    QString Glast_alarm_text;
    int32_t Glast_alarm_number = 0;
    QString Gserial_number;

    // Link state
    double Glink_countdown = 5;
    double Glink_mode = 1;
    bool Gdetector_found = false;
    int16_t Gcomm_port = 1;
    bool Guse_tcp = false;
    QString Gtcp_host;
    QString Gtcp_port;
    int16_t Gsock_state = 0;
    QString Gsock_state_text;
    int32_t Gtcp_idle_count = 0;
    double Guptime_percent = 100;

    // WITS state (the counters tick in tmr_refresh)
    int32_t Gwits_alive = 0;
    int32_t Gwits_custom_hold = 0;
    std::array<double, kWitsSlots> Gwits_values{};
    double Gspm = 0;
    bool Gpumps_manual = false;

    // Lag, chart and refresh state
    double Goff_bottom_mode = 0;
    bool Gflash_state = false;
    double Gline_lag_seconds = 120;
    double Gline_lag_count = 120;
    bool Gline_lag_ok = true;
    int32_t Grefresh_seconds = 180;
    int32_t Grefresh_count = 180;
    bool Grefresh_paused = false;
    bool Gdb_busy = false;
    bool Gdb_error = false;
    int32_t Gdelay_ticks = 0;
    bool Gstarting_up = true;
    double Gtotal_strokes = 0;
    double Glag_depth_now = 0;
    double Grop_seconds_0 = 0;
    double Grop_seconds_1 = 0;
    double Grop_seconds_2 = 0;
    double Glast_whole_foot = 0;
    QString autogen_dir;
    QString Gtable_name = QStringLiteral("OMBRI_DB_010");
    QString Gdata_separator = QStringLiteral("\t");

    // The assignable WITS column of the chart (0 TOTAL_SPM .. 4 GAMMA).
    int Gwits_column = 4;

    // Chart and chromatograph re-entrancy guards.
    bool Gchart_busy = false;
    bool Gchart_drawing = false;

    // Login block of the two-way session.
    std::array<uint8_t, 261> Gkey_block{};

    // The serial number of the records last read from the job (the chart's
    // hour block reader keeps it current); logs carry it.
    QString UnitSerial;

    // The alarm monitor's current message; while it stands, the alarm box
    // is not cleared by a packet without an instrument alarm.
    QString alarmMonitorText;
};

// The columns the chart can take from WITS, by index.
inline const std::array<QString, 5>& WitsColumnNames() {
    static const std::array<QString, 5> names = {"TOTAL_SPM", "TOTAL_STROKES", "INCLINATION",
                                                 "AZIMUTH", "GAMMA"};
    return names;
}

} // namespace acq
