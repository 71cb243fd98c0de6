#include "products/time_las.h"

#include "db/database.h"
#include "db/job_error.h"
#include "products/names.h"
#include "products/options.h"
#include "products/record_scan.h"
#include "products/staged_file.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <cmath>

namespace products {

namespace {

using text::Format;

// The progress bar moves every thousand rows; the loop runs every few
// milliseconds in between (the pulse keeps the time).
constexpr int kProgressRows = 1000;

enum Col { cDt, cDepth, cLagGu, cMinFt, cFtHr, cGas, cC1, cGamma = cC1 + 7, cO2, cCO2, cH2S, cKw };
const QStringList kColumns = {"DT", "DEPTH", "LAG_GU", "MIN_FT", "FT_HR",  "GAS_UNITS", "C1",
                              "C2", "C3",    "IC4",    "NC4",    "IC5",    "NC5",       "GAMMA",
                              "O2", "CO2",   "H2S",    "KW7001", "KW7003", "KW7005",    "KW7007"};

QString Row(const FileOptions& o, const RecordScan& r) {
    const QString tab = QStringLiteral("\t");
    QString row = QString::fromLatin1(UsDateTime(r.text(cDt)));
    const int depthCol = o.lasLagged ? cLagGu : cDepth;
    row += tab +
           (r.isNull(depthCol) ? QStringLiteral("0.0") : text::Str(std::fabs(r.number(depthCol))));
    const int ropCol = o.ropIsFtHr ? cFtHr : cMinFt;
    row += tab + (r.isNull(ropCol) ? QStringLiteral("0.0") : Format(r.number(ropCol), u"0.000"));
    const double tg = r.number(cGas);
    row += tab + (r.isNull(cGas) ? QStringLiteral("0.0") : Format(GasUnitsOut(o, tg), u"0.00"));
    std::array<double, 7> gas{};
    for (int i = 0; i < 7; ++i) gas[i] = r.number(cC1 + i);
    for (const QString& c : CValues(o, gas, tg, 100)) row += tab + c;
    row += tab + Format(GasUnitsOut(o, tg), o.guAsPpm ? u"0.000" : u"0.00");
    row += tab + Format(r.number(cGamma), u"0.000");
    row += tab + Format(r.number(cO2), u"0.000");
    row += tab + Format(r.number(cCO2), u"0.000");
    row += tab + Format(r.number(cH2S), u"0");
    for (int i = 0; i < 4; ++i) row += tab + Format(r.number(cKw + i), u"0.000");
    return row;
}

} // namespace

QByteArray UsDateTime(const QByteArray& iso) {
    if (iso.isEmpty()) return {};
    if (iso.size() == 19 && iso[4] == '-' && iso[7] == '-' && iso[10] == ' ') {
        return iso.mid(5, 2) + '/' + iso.mid(8, 2) + '/' + iso.left(4) + iso.mid(10);
    }
    const auto dt = text::FromIso(QString::fromUtf8(iso));
    return dt ? text::FormatDate(*dt, u"MM/DD/YYYY HH:MM:SS").toLatin1() : QByteArray();
}

bool Create_LAS_TIME_file(Workstation& ws, const QString& file_name) {
    int pt = 1;
    auto& help = ws.fm_help;
    try {
        station::help_msg(ws, "Creating Time LAS...");
        help.form.setVisible(true);
        help.pgbar.setRange(0, 1000);
        help.pgbar.setValue(1);
        pt = 2;
        station::help_msg(ws, "Generating " + file_name);
        pt = 3;
        const FileOptions o = ReadFileOptions(ws);
        StagedFile out(LocalPath(file_name));
        QString names =
            "MM/DD/YY HH:MM:SS\tDepth\tROP\tTG\tC1\tC2\tC3\tiC4\tnC4\tiC5\tnC5\tC4\tC5\t"
            "TG2\tGAMMA\tO2\tCO2\tH2S";
        for (const QString& n : o.customNames) names += "\t" + n;
        out.put(names + "\r\n");
        pt = 4;
        station::BusyFlag busy(ws.db.Gdb_busy, station::BusyFlag::Borrow);
        pt = 5;
        db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text());
        station::Pulse pulse(ws);
        {
            RecordScan r(db, ws.db.Gtable_name, kColumns);
            pt = 6;
            long rows = 0;
            while (r.next()) {
                // Rows are separated, not ended, as in the depth file.
                if (rows > 0) out.put("\r\n");
                out.put(Row(o, r));
                pulse.beat();
                if (++rows % kProgressRows == 0) {
                    help.pgbar.setValue(help.pgbar.value() >= 1000 ? 1 : help.pgbar.value() + 1);
                }
            }
        }
        pt = 7;
        out.finish();
        station::help_msg(ws, "The file " + file_name + " has been created");
        db.Close();
        return true;
    } catch (const FileError& e) {
        station::disply_text_alarms(ws, "Create Time Based Las Filename Err: " + e.text());
        station::help_msg(ws, "Create Time Based Las Filename Err: " + e.text());
    } catch (...) {
        station::disply_text_alarms(
            ws, "Create Time Based Las Filename Err: " + db::ErrorText(std::current_exception()) +
                    " Err point: " + text::Str(pt));
    }
    return false;
}

} // namespace products
