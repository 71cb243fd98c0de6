#pragma once
// Packets of the drilling model fed through the parser and onto the screens,
// as the intake tick does with what the instrument sends.

#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "tools/common/drilling_model.h"
#include "workstation/workstation.h"

namespace uitest {

inline void feedPackets(Workstation& ws, int count) {
    drill::Model model;
    for (int i = 0; i < count; ++i) {
        const QString line = drill::Model::PacketLine(model.next());
        station::disply_text(ws, line);
        ws.packet.Gline_buffer += line;
        acq::Parse_Ombri_String(ws);
        acq::fill_vis_fields(ws);
    }
}

} // namespace uitest
