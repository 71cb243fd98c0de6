#pragma once
// What the WITS gateway keeps for the run: the latest value of every WITS
// role, the health of the stream, the pump rate, the item names, and the
// local serial link to the rig's data recorder.

#include <QString>
#include <array>
#include <cstdint>

namespace wits {

constexpr int kWitsSlots = 41;

// What the local link met, for the log and for whoever asks how the link
// fares. Nothing here is shown to the operator.
struct WitsCounts {
    long framesRead = 0;     // "!!" lines walked by the parse
    long itemsStored = 0;    // item lines that passed the code and value tests
    long linesSkipped = 0;   // too short, code out of range, or an unset value
    long unknownCodes = 0;   // item codes with no name in the item file
    long bufferCuts = 0;     // times the receive buffer was cut to its limit
    long charsDropped = 0;   // characters lost to those cuts
    long portLosses = 0;     // times the open port went away under us
    long framesSent = 0;     // frames of gas results written to the port
    long framesReplaced = 0; // frames made while an older one still waited
};

struct WitsState {
    // Seconds of life left of the WITS stream: 60 on every good frame.
    int32_t Gwits_alive = 0;
    int32_t Gwits_custom_hold = 0;
    std::array<double, kWitsSlots> Gwits_values{};
    // Total strokes per minute, and the operator's pumps-on state that
    // counts only while WITS is down.
    double Gspm = 0;
    bool Gpumps_manual = false;

    // Item names read from WITSconfig_V10.txt, indices 0 to 250.
    std::array<int16_t, 251> WITS_item_codes{};
    std::array<QString, 251> WITS_item_names{};
    int itemCount = 0;

    // The local link on MSComm2.
    QString WITS_in_buffer;           // received, not yet parsed
    int16_t WITS_port = 1;            // port under test or in use
    int16_t WITS_probe_countdown = 0; // tenths of a second left on this port
    int64_t WITS_rop_seconds = 0;     // seconds on bottom since the last new foot
    int32_t WITS_last_foot = 0;       // last whole hole depth that ended a foot
    double WITS_min_ft = 0;
    double WITS_ft_hr = 0;
    QString WITS_out_frame;   // the frame of gas results waiting to go
    bool searching = false;   // a port search is under way
    bool portWasOpen = false; // the arrival tick saw the port open last time
    WitsCounts counts;
};

} // namespace wits
