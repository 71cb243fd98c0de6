// Gas results back to the rig's data recorder: one frame per instrument
// packet, made when the packet is parsed and sent by a one-second tick, so
// at most one frame a second leaves and the newest wins.
#include "text/numbers.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "wits/wits_timers.h"
#include "workstation/packet_state.h"
#include "workstation/workstation.h"

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(lcWits)

namespace wits {

namespace {

// The packet fields sent, by WITS code, after the lag depth (0139).
struct SentField {
    int code;
    int field;
};
constexpr SentField kSentFields[] = {
    {140, acq::GASUNITS}, {1212, acq::C1},  {1213, acq::C2},  {1214, acq::C3},
    {1215, acq::IC4},     {1216, acq::NC4}, {1217, acq::IC5}, {1218, acq::NC5},
    {1222, acq::CO2},     {1225, acq::O2},  {1826, acq::H2S},
};

// A field goes out as the instrument sent it, in the frame's one decimal
// when it reads as a number; text that is no number (a blank) goes as it is.
QString FieldValue(const QString& field) {
    bool number = false;
    const double v = field.trimmed().toDouble(&number);
    return number ? text::Format(v, u"0.0") : field;
}

} // namespace

double WitsMinFt(Workstation& ws) {
    return ws.wits.WITS_min_ft;
}

double WitsFtHr(Workstation& ws) {
    return ws.wits.WITS_ft_hr;
}

void Send_Serial_WITS(Workstation& ws) {
    const auto& fields = ws.packet.Gombri_data_array;
    std::vector<std::pair<int, QString>> items;
    items.reserve(std::size(kSentFields) + 1);
    items.emplace_back(139, text::Format(ws.depth.Glag_depth_now, u"0.0"));
    for (const SentField& f : kSentFields) items.emplace_back(f.code, FieldValue(fields[f.field]));
    if (!ws.wits.WITS_out_frame.isEmpty()) ++ws.wits.counts.framesReplaced;
    ws.wits.WITS_out_frame = Frame(items);
}

void tmr_Send_WITS_Timer(Workstation& ws) {
    auto& w = ws.wits;
    // Nothing goes while the EDR is not heard: the frame waits for it.
    if (!ws.MSComm2.PortOpen() || w.WITS_out_frame.isEmpty() || w.Gwits_alive < 1) return;
    ws.MSComm2.Output(w.WITS_out_frame);
    AppendToRawView(ws.fm_WITS.txt_Raw_WITS_Out, w.WITS_out_frame);
    w.WITS_out_frame.clear();
    ++w.counts.framesSent;
}

void txt_Raw_WITS_Out_DblClick(Workstation& ws) {
    ws.wits.WITS_out_frame = TestFrame();
}

} // namespace wits
