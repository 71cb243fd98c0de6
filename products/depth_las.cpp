#include "products/depth_las.h"

#include "db/job_error.h"
#include "depth/lag.h"
#include "products/las_header.h"
#include "products/names.h"
#include "products/options.h"
#include "products/staged_file.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QElapsedTimer>
#include <memory>

namespace products {

namespace {

using text::Format;

const QByteArray kCrLf = QByteArrayLiteral("\r\n");

// The highest foot a file run reads when the range is typed in: the arrays
// reach further, the files never did.
constexpr int32_t kTypedDeepest = 24999;

// The values of foot i after its depth, each led by the delimiter.
QString RowValues(const FileOptions& o, const depth::DepthState& a, int i) {
    const QString& d = o.separator;
    const double tg = a.RopGasPeak[i];
    QString row;
    row.reserve(200);
    row += d + Format(o.ropIsFtHr ? a.RopFtHr[i] : a.RopMinFt[i], u"0.000");
    row += d + Format(GasUnitsOut(o, tg), u"0.00");
    const std::array<double, 7> gas{a.RopC1[i],  a.RopC2[i],  a.RopC3[i], a.RopIC4[i],
                                    a.RopNC4[i], a.RopIC5[i], a.RopNC5[i]};
    for (const QString& c : CValues(o, gas, tg, 100)) row += d + c;
    row += d + Format(GasUnitsOut(o, tg), o.guAsPpm ? u"0.000" : u"0.00");
    row += d + Format(a.RopGamma[i], u"0.000");
    row += d + Format(a.RopO2[i], u"0.000");
    row += d + Format(a.RopCO2[i], u"0.000");
    row += d + Format(a.RopH2S[i], u"0");
    row += d + Format(a.RopOilInd[i], u"0.0000");
    for (const depth::DepthArray* c : {&a.RopKW7001, &a.RopKW7003, &a.RopKW7005, &a.RopKW7007})
        row += d + Format((*c)[i], u"0.000");
    if (o.addTimeDate) row += d + text::GeneralDate(depth::RopTimeToDate(a.RopTime[i]));
    return row;
}

void Collect(Workstation& ws, bool lagged) {
    int32_t first = 0, last = 0, result = 0;
    depth::Collect_ROP_Data(ws, first, last, lagged, result);
}

} // namespace

bool Create_LAS_file(Workstation& ws, const QString& file_name) {
    int pt = 1;
    const FileOptions o = ReadFileOptions(ws);
    try {
        station::help_msg(ws, "");
        station::help_msg(ws, "Collecting chart data...");
        pt = 2;
        Collect(ws, o.lasLagged);
        pt = 3;
        station::help_msg(ws, "Generating " + file_name);
        const QString base = BaseName(file_name);
        pt = 6;
        StagedFile main(LocalPath(file_name));
        StagedFile gas(LocalPath(base + "_GasOnly.las"));
        std::unique_ptr<StagedFile> last48;
        if (o.las48) last48 = std::make_unique<StagedFile>(LocalPath(base + "_Last48.las"));

        pt = 7;
        const auto& a = ws.depth;
        int32_t first = a.RopMinDepth, last = a.RopMaxDepth;
        if (!o.depthFromDb) {
            first = text::CLng(text::Val(o.minDepth));
            last = text::CLng(text::Val(o.maxDepth) + 1);
            if (first < 0) first = 1;
            if (last > kTypedDeepest) last = kTypedDeepest;
        }
        last = std::min<int32_t>(last, depth::kDepthSlots - 1);

        pt = 8;
        const QDate today = ws.Now().date();
        if (o.lasType1) {
            const QString header =
                Create_LAS_header(o, today, first, last) + ColumnLine(o, o.addTimeDate);
            main.put(header);
            if (last48) last48->put(header);
        }
        pt = 9;
        gas.put(Create_Gas_Only_LAS_header(o, today, first, last));
        pt = 10;
        for (StagedFile* f : {&main, &gas, last48.get()})
            if (f) f->put("~ASCII\r\n");

        pt = 11;
        const double limit48 = depth::RopTimeFromDate(ws.Now().addDays(-2));
        pt = 12;
        station::Pulse pulse(ws);
        for (int32_t i = first; i <= last; ++i) {
            const QString depthText = QString::number(i);
            const QString values = RowValues(o, a, i);
            QString row = depthText + values;
            if (o.halfFoot) row += "\r\n" + depthText + ".5" + values;
            const QByteArray bytes = row.toUtf8();
            main.put(bytes);
            gas.put((depthText + o.separator + Format(GasUnitsOut(o, a.RopGasPeak[i]), u"0.00"))
                        .toUtf8());
            const bool recent = a.RopTime[i] != 0 && a.RopTime[i] > limit48;
            if (last48 && recent) last48->put(bytes);
            // Rows are separated, not ended: the last row of a file has no
            // line end of its own.
            if (i + 1 <= last) {
                main.put(kCrLf);
                gas.put(kCrLf);
                if (last48 && recent) last48->put(kCrLf);
            }
            pulse.beat();
        }

        pt = 13;
        main.finish();
        gas.finish();
        if (last48) last48->finish();
        if (o.lasLagged) Collect(ws, false);
        pt = 14;
        station::help_msg(ws, "The file " + file_name + " has been created");
        return true;
    } catch (const FileError& e) {
        station::disply_text_alarms(ws, "Create Las Filename Err: " + e.text());
        station::help_msg(ws, "Create Las Filename Err: " + e.text());
    } catch (...) {
        station::disply_text_alarms(
            ws, "Create Las Filename Err: " + db::ErrorText(std::current_exception()) +
                    "  Err point: " + text::Str(pt));
    }
    // The arrays go back to the drilled depth for every other reader, also
    // after a failure.
    if (o.lasLagged && pt < 13) Collect(ws, false);
    return false;
}

} // namespace products
