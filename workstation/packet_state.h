#pragma once
// The packet fields by name, and what the intake and the parser keep.

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

// The newest packet and the text on its way to the parser.
struct PacketState {
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
    // The serial number of the records last read from the job (the chart's
    // hour block reader keeps it current, and so does every packet); the
    // logs and the minimised title carry it.
    QString UnitSerial;
};

} // namespace acq
