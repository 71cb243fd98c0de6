// WITSconfig_V10.txt, the item names, as the start-up reads it from the
// program folder.
#include "fuzz_station.h"
#include "wits/wits_file.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(false);
    fuzzkit::WriteFile(
        ws, "WITSconfig_V10.txt",
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    wits::LoadWitsFile(ws);
    if (ws.wits.itemCount < 0 ||
        ws.wits.itemCount > static_cast<int>(ws.wits.WITS_item_codes.size()))
        std::abort();
    // Every name lookup the receive list makes.
    for (int code : {0, 108, 110, 1108, 9899, -1}) (void)wits::WitsItemName(ws, code);
    return 0;
}
