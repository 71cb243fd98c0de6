// A WITS stream in pieces of any size, through both of its readers: the
// workstation's intake and parse of the local link, and the whole frame
// reader the rig recorder simulator and the tests use.
#include "fuzz_station.h"
#include "platform/serial_link.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(false);
    ws.wits.WITS_in_buffer.clear();
    wits::FrameReader reader;
    for (const QByteArray& piece : fuzzkit::Pieces(data, size, 512)) {
        const QString text = platform::bytesToText(piece);
        wits::ReceiveWitsText(ws, text);
        if (ws.wits.WITS_in_buffer.size() > wits::kInBufferLimit) std::abort();
        wits::ServeWitsBuffer(ws);
        reader.push(text);
    }
    reader.take();
    return 0;
}
