// The settings file OM_10_config.txt as the start-up reads it.
#include "config/config_file.h"
#include "fuzz_station.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(false);
    config::ReadConfigText(
        ws, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    // A file the minute's save wrote is the file the next start reads, so
    // after one save and start the settings must hold still. (The first
    // round may change a value: the serial number is kept as number text.)
    config::ReadConfigText(ws, config::ConfigText(ws));
    const QByteArray settled = config::ConfigText(ws);
    config::ReadConfigText(ws, settled);
    if (config::ConfigText(ws) != settled) std::abort();
    return 0;
}
