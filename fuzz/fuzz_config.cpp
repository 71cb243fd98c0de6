// The settings file OM_10_config.txt as the start-up reads it.
#include "config/config_file.h"
#include "fuzz_station.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(false);
    config::ReadConfigText(
        ws, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    // What the program writes back must read back to itself: a file the
    // minute's save wrote is the file the next start reads.
    const QByteArray written = config::ConfigText(ws);
    config::ReadConfigText(ws, written);
    if (config::ConfigText(ws) != written) std::abort();
    return 0;
}
