// The instrument's byte stream through the intake tick and the line parser,
// arriving in pieces of any size, as a serial port or a socket delivers it.
#include "acquisition/main_loop.h"
#include "fuzz_station.h"
#include "platform/serial_link.h"

#include <cstdlib>

namespace {
// The parser clears a buffer that grows past this with nothing it knows.
constexpr qsizetype kLineBufferLimit = 1024;
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(true);
    auto& pk = ws.packet;
    pk.Garrival_buffer.clear();
    pk.Gline_buffer.clear();
    for (const QByteArray& piece : fuzzkit::Pieces(data, size, 256)) {
        pk.Garrival_buffer += platform::bytesToText(piece);
        acq::tmrDataArrival_Timer(ws);
        // Whatever came, the buffer stays bounded and the guard is down, or
        // the next tick would never parse again.
        if (pk.Gline_buffer.size() > kLineBufferLimit || pk.Gparse_busy) std::abort();
    }
    // The ticks after the stream ends take the packets still waiting.
    for (int i = 0; i < 16 && !pk.Gline_buffer.isEmpty(); ++i) acq::tmrDataArrival_Timer(ws);
    return 0;
}
