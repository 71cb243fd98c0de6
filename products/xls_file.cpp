#include "products/xls_file.h"

#include "db/database.h"
#include "db/job_error.h"
#include "products/las_header.h"
#include "products/names.h"
#include "products/options.h"
#include "products/record_scan.h"
#include "products/staged_file.h"
#include "products/time_las.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <cmath>
#include <memory>

namespace products {

namespace {

using text::Format;

constexpr double kDeepest = 60000.0;

enum Col {
    cDepth,
    cLagGu,
    cGas,
    cGamma,
    cC1,
    cData1 = cC1 + 7,
    cMinFt,
    cO2,
    cCO2,
    cH2S,
    cKw,
    cDt = cKw + 4
};
const QStringList kColumns = {"DEPTH", "LAG_GU", "GAS_UNITS", "GAMMA",  "C1",     "C2",     "C3",
                              "IC4",   "NC4",    "IC5",       "NC5",    "DATA1",  "MIN_FT", "O2",
                              "CO2",   "H2S",    "KW7001",    "KW7003", "KW7005", "KW7007", "DT"};

// A Null DT in the date column, as the spreadsheets have always received it.
const QString kNoDate = QStringLiteral("0/0/0000 00:00:00 AM");

struct Peaks {
    double gas = 0, gamma = 0;
    std::array<double, 7> c{};
};

int32_t FootOf(const FileOptions& o, const RecordScan& r) {
    return text::CLng(std::fabs(r.number(o.xlsLagged ? cLagGu : cDepth)));
}

QString Row(const FileOptions& o, const RecordScan& r, int32_t foot, const Peaks& p) {
    const QString& d = o.separator;
    QString row = QString::number(foot);
    double rop = r.number(o.xlsLagged ? cData1 : cMinFt);
    if (o.ropIsFtHr && rop > 0) rop = 60 / rop;
    row += d + Format(rop, u"0.000");
    const double tg = o.guAsPpm ? p.gas * 100 : p.gas;
    row += d + Format(tg, u"0.00");
    std::array<double, 7> gas{};
    for (int i = 0; i < 7; ++i) gas[i] = p.c[i] * o.gasGains[i];
    for (const QString& c : CValues(o, gas, p.gas, 1)) row += d + c;
    row += d + Format(tg, u"0.00");
    row += d + Format(p.gamma, u"0.00");
    row += d + Format(r.number(cO2), u"0.000");
    row += d + Format(r.number(cCO2), u"0.000");
    row += d + Format(r.number(cH2S), u"0");
    row += d + Format(OilIndicator(o.oilIndicator, gas), u"0.0000");
    for (int i = 0; i < 4; ++i) row += d + Format(r.number(cKw + i), u"0.000");
    const QByteArray dt = UsDateTime(r.text(cDt));
    row += d + (dt.isEmpty() ? kNoDate : QString::fromLatin1(dt));
    return row;
}

} // namespace

bool Create_XLS_file(Workstation& ws, const QString& file_name) {
    int pt = 1;
    try {
        station::help_msg(ws, "Generating XLS file " + file_name);
        const FileOptions o = ReadFileOptions(ws);
        double minDepth = 1.0, maxDepth = kDeepest;
        if (!o.depthFromDb) {
            minDepth = text::Val(o.minDepth);
            if (minDepth < 0) minDepth = 1.0;
            maxDepth = text::Val(o.maxDepth) + 1;
            if (maxDepth > kDeepest) maxDepth = kDeepest;
        }
        pt = 2;
        station::BusyFlag busy(ws.db.Gdb_busy, station::BusyFlag::Borrow);
        db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        // The loop gets its turn by the clock, at every record: a long stay on
        // one foot (a trip, hours off bottom) writes no row for many records.
        station::Pulse pulse(ws);
        pt = 3;
        StagedFile main(LocalPath(file_name));
        std::unique_ptr<StagedFile> last48;
        if (o.xls48)
            last48 = std::make_unique<StagedFile>(LocalPath(BaseName(file_name) + "_Last48.xls"));
        pt = 4;
        QString top = ColumnLine(o, false) + "\r\n";
        if (o.xlsHeader) {
            top =
                Create_LAS_header(o, ws.Now().date(), ws.depth.RopMinDepth, ws.depth.RopMaxDepth) +
                top + "~ASCII\r\n";
        }
        main.put(top);
        if (last48) last48->put(top);
        const QDateTime limit48 = ws.Now().addDays(-2);

        pt = 5;
        {
            RecordScan r(db, ws.db.Gtable_name, kColumns);
            Peaks p;
            int32_t foot = 0;
            bool first = true;
            pt = 6;
            while (r.next()) {
                const double gas = o.percentGu / 100 * r.number(cGas);
                p.gas = std::max(p.gas, gas);
                if (!r.isNull(cGamma)) p.gamma = std::max(p.gamma, r.number(cGamma));
                for (int i = 0; i < 7; ++i)
                    if (!r.isNull(cC1 + i)) p.c[i] = std::max(p.c[i], r.number(cC1 + i));
                const int32_t now = FootOf(o, r);
                if (first) {
                    foot = now;
                    first = false;
                }
                pulse.beat();
                if (now == foot) continue;
                foot = now;
                if (now > minDepth && now < maxDepth) {
                    const QString row = Row(o, r, now, p) + "\r\n";
                    main.put(row);
                    const QDateTime dt = r.date(cDt);
                    if (last48 && dt.isValid() && dt > limit48) last48->put(row);
                }
                p = Peaks{};
            }
        }
        pt = 7;
        main.finish();
        if (last48) last48->finish();
        station::help_msg(ws, "XLS file complete");
        db.Close();
        return true;
    } catch (const FileError& e) {
        station::disply_text_alarms(ws, "Create XLS Filename Err: " + e.text());
        station::help_msg(ws, "Create XLS Filename Err: " + e.text());
    } catch (...) {
        station::disply_text_alarms(
            ws, "Create XLS Filename Err: " + db::ErrorText(std::current_exception()) +
                    " Err point: " + text::Str(pt));
    }
    return false;
}

} // namespace products
