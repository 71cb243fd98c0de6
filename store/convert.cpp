// From the older generation: table OMBRI_DB_005, whose columns had other
// names and partly other meanings, into a new file of the current schema.
#include "db/job_error.h"
#include "db/schema.h"
#include "store/lifecycle.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <memory>

namespace store {

namespace {

enum class As { Same, Double, Text };

struct Mapping {
    const char* column;
    const char* old;
    As as;
};

// ID and PACKET_NUM are running counters; everything else comes from here.
constexpr Mapping kMappings[] = {
    {"SERIAL_NUM", "SERIAL_NUM", As::Same},
    {"DT", "DT", As::Same},
    {"GAS_UNITS", "GAS_UNITS", As::Same},
    {"TEMP", "TEMP", As::Same},
    {"MIN_FT", "MIN_FT", As::Same},
    {"FT_HR", "FT_HR", As::Same},
    {"LPH", "LPH", As::Same},
    {"VOLTS", "VOLTS", As::Same},
    {"H2S", "H2S", As::Same},
    {"DATE_TXT", "DATE", As::Same},
    {"TIME_TXT", "TIME", As::Same},
    {"DEPTH", "DEPTH", As::Double},
    {"DEPTH_RAW", "DEPTH", As::Double},
    {"O2", "LEL", As::Same},
    {"CO2", "METHANE", As::Same},
    {"ATTEN", "PPM", As::Double},
    {"SAMPLEVAC", "INLET_PRS", As::Same},
    {"LOWGUV", "VQ21", As::Same},
    {"HIGHGUV", "VQ6", As::Same},
    {"CGTESTNUM", "CG_TEST_NUM", As::Same},
    {"CGV", "VQ6CG", As::Same},
    {"H2SV", "VQ101", As::Same},
    {"ERR_TXT", "ERR", As::Text},
};

const QString kOldQuery = QStringLiteral(" SELECT * FROM OMBRI_DB_005 ORDER BY ID");

db::Variant Converted(const db::Variant& v, As as) {
    if (v.isNull()) return v;
    switch (as) {
    case As::Double:
        return v.toDouble();
    case As::Text:
        return v.toText();
    case As::Same:
        break;
    }
    return v;
}

} // namespace

int ConvertDatabase(Workstation& ws, const QString& path) {
    auto& st = ws.db;
    auto& help = ws.fm_help;
    // 1-2. The new file beside the old one.
    const QString fresh = path + ".new";
    int pt = 1;
    try {
        db::CopyDatabase(EnsureTemplate(ws), fresh);
        // 3.
        pt = 3;
        st.Gdb = st.Gworkspace.OpenDatabase(fresh);
        st.Grecords = st.Gdb.OpenRecordset(db::RecordQuery(ws.db.Gtable_name));
        st.GdbScan = st.Gworkspace.OpenDatabase(path);
        st.GrecordsScan = st.GdbScan.OpenRecordset(kOldQuery);
        // 4.
        pt = 4;
        db::Recordset& from = st.GrecordsScan;
        const int32_t total = from.RecordCount();
        help.form.setCaption("Converting Data Base \r\nDon't Touch Any Buttons.");
        help.pgbar.setRange(0, total + 1);
        help.pgbar.setValue(0);
        help.form.setVisible(true);
        // 5-6.
        pt = 5;
        auto batch = std::make_unique<db::Transaction>(st.Gdb);
        int32_t counter = 0;
        for (from.MoveFirst(); total > 0 && !from.Eof(); from.MoveNext()) {
            ++counter;
            st.Grecords.AddNew();
            st.Grecords.SetField("ID", counter);
            st.Grecords.SetField("PACKET_NUM", counter);
            for (const Mapping& m : kMappings)
                st.Grecords.SetField(m.column, Converted(from.Fields(m.old), m.as));
            st.Grecords.Update();
            if (counter % 10 == 0) {
                // The loop runs only between two batches, never inside one.
                batch->Commit();
                station::DoEvents(ws);
                station::DoEvents(ws);
                help.lbl_help.setCaption(text::Format(100.0 * counter / total, u"0#.00") +
                                         "% done  ");
                help.pgbar.setValue(counter);
                station::DoEvents(ws);
                batch = std::make_unique<db::Transaction>(st.Gdb);
            }
        }
        // 7.
        pt = 7;
        batch->Commit();
        batch.reset();
        CloseSharedDb(ws);
        db::CopyDatabase(path, path + ".old");
        if (!db::PutJobFileInPlace(fresh, path))
            throw db::DbError(db::err::DiskError, "Could not put the converted file in place");
        help.form.setVisible(false);
        return 1;
    } catch (const std::exception& e) {
        help.form.setVisible(false);
        CloseSharedDb(ws);
        db::RemoveJobFile(fresh);
        station::disply_text_alarms(ws, db::JobError("Open DB Err: ", e, pt));
        return 0;
    }
}

} // namespace store
