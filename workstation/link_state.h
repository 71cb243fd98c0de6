#pragma once
// What the link to the instrument keeps: the watchdog, the port or host in
// use, and the login block of the two-way session.

#include <QString>
#include <array>
#include <cstdint>

namespace acq {

struct LinkState {
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
    // Login block of the two-way session.
    std::array<uint8_t, 261> Gkey_block{};
};

} // namespace acq
