// An OMD file merged into the job, as the import button does it.
#include "db/database.h"
#include "fuzz_station.h"
#include "products/omd.h"

#include <QFile>
#include <cstdlib>

namespace {
// Each input starts from an empty job, so what an input adds can't make a
// later one slower. The import closes the workstation's own connections, so
// the emptying has one of its own.
void EmptyJob(Workstation& ws) {
    static const db::Database own = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
    own.Execute("DELETE FROM " + ws.db.Gtable_name);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Workstation& ws = fuzzkit::Station(true);
    EmptyJob(ws);
    fuzzkit::WriteFile(
        ws, "IN.OMD",
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const products::ImportCounts n = products::Import_OMD_file(ws, ws.programFile("IN.OMD"));
    // Every line read is added, skipped or refused, unless the run ended early.
    if (n.error == 0 && n.added + n.skipped + n.refused != n.read) std::abort();
    return 0;
}
