// make-demo-job: writes the demonstration job, two days of drilling drawn
// from the shared drilling model, through the program's own intake: each
// sample's packet line and the WITS line the instrument relays after it go
// through the line parser into the record writer, as they would live.
//
//   make-demo-job <program folder>
//       the kept copy <folder>/V11_DEMO.DB, the job <folder>/DB_CUE/V11_DEMO.DB
//       and the blank job <folder>/OMBRI_010_BLANK.db that new jobs start from
//   make-demo-job --out <file> [--rows N] [--seed S] [--report]
//       one job file; --report commits every row on its own and prints
//       "<packet> <ID> <gas units>" once the row is committed
//
// The same arguments give the same rows every time.

#include "acquisition/main_loop.h"
#include "acquisition/tick_table.h"
#include "db/file_id.h"
#include "db/schema.h"
#include "store/lifecycle.h"
#include "tools/common/drilling_model.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

namespace {

struct Args {
    QString folder;
    QString out;
    long rows = 2 * 24 * 600; // two days of six-second packets
    uint32_t seed = 1;
    bool report = false;
    // The demonstration job shows link drops: now and then the instrument
    // goes on sampling while nothing reaches the workstation, which cuts the
    // chromatograph run under way short.
    bool drops = false;
};

// A drop of 29 samples (under three minutes) after every 1,000 rows written.
constexpr long kRowsBetweenDrops = 1000;
constexpr int kDroppedSamples = 29;

bool Parse(const QStringList& a, Args& args) {
    for (int i = 1; i < a.size(); ++i) {
        const QString& s = a[i];
        const bool more = i + 1 < a.size();
        if (s == "--out" && more)
            args.out = a[++i];
        else if (s == "--rows" && more)
            args.rows = a[++i].toLong();
        else if (s == "--seed" && more)
            args.seed = a[++i].toUInt();
        else if (s == "--report")
            args.report = true;
        else if (!s.startsWith("--") && args.folder.isEmpty())
            args.folder = s;
        else
            return false;
    }
    return (args.folder.isEmpty() != args.out.isEmpty()) && args.rows > 0;
}

// One line through the intake tick: the parser takes one line a tick.
void Feed(Workstation& ws, const QString& line) {
    ws.packet.Garrival_buffer += line;
    acq::tmrDataArrival_Timer(ws);
}

// Writes the job into `path`; false with the reason on stderr.
bool Write(const Args& args, const QString& path) {
    QTemporaryDir scratch; // the workstation's logs stay out of the way
    Workstation ws(scratch.path());
    acq::Wire(ws);
    db::RemoveJobFile(path);
    db::MakeBlankJob(path, ws.db.Gtable_name);
    ws.fm_Gas_Chart.txt_db_path.setText(path);
    // IDs from 1; the stream of WITS is up from the first sample, so every
    // row is written at its WITS line with strokes counting.
    ws.db.NextRecordId = 0;
    ws.wits.Gwits_alive = 60;

    // Every row is committed on its own, as live. The record writer's
    // connection is opened here first with the disk's flushes off: a job
    // that is made again whenever it is lost need not wait for the disk.
    ws.db.writerDb = db::OpenDatabase(path);
    ws.db.writerDb.Execute("PRAGMA synchronous = OFF");
    ws.db.writerPath = path;
    ws.db.writerFileId = db::FileId(path);
    drill::Options opt;
    opt.seed = args.seed;
    drill::Model model(opt);
    for (long i = 0; i < args.rows; ++i) {
        if (args.drops && i > 0 && i % kRowsBetweenDrops == 0)
            for (int lost = 0; lost < kDroppedSamples; ++lost) model.next();
        const drill::Sample s = model.next();
        Feed(ws, drill::Model::PacketLine(s));
        Feed(ws, drill::Model::WitsLine(s));
        if (ws.db.Gdb_error) {
            std::fprintf(stderr, "make-demo-job: %s\n",
                         qPrintable(ws.fm_Gas_Chart.txt_message.text()));
            return false;
        }
        if (args.report) {
            std::printf("%ld %d %s\n", s.packetNumber, ws.db.NextRecordId,
                        qPrintable(s.fields[acq::GASUNITS]));
            std::fflush(stdout);
        }
    }
    store::CloseSharedDb(ws);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    Args args;
    if (!Parse(app.arguments(), args)) {
        std::fprintf(stderr,
                     "usage: make-demo-job <program folder>\n"
                     "       make-demo-job --out <file> [--rows N] [--seed S] [--report]\n");
        return 2;
    }
    if (!args.out.isEmpty()) {
        QDir().mkpath(QFileInfo(args.out).path());
        return Write(args, args.out) ? 0 : 1;
    }
    // Built beside the finished files, then put in place, so a failed run
    // leaves the last good demonstration job.
    const QString kept = args.folder + "/V11_DEMO.DB";
    const QString job = args.folder + "/DB_CUE/V11_DEMO.DB";
    const QString part = args.folder + "/V11_DEMO.DB.part";
    QDir().mkpath(args.folder + "/DB_CUE");
    args.drops = true;
    if (!Write(args, part)) {
        db::RemoveJobFile(part);
        return 1;
    }
    db::CopyDatabase(part, job);
    if (!db::PutJobFileInPlace(part, kept)) {
        std::fprintf(stderr, "make-demo-job: could not write %s\n", qPrintable(kept));
        return 1;
    }
    // The blank job ships with the program too, made from the same schema
    // the program would make it from.
    const QString blank = args.folder + "/OMBRI_010_BLANK.db";
    const QString blankPart = blank + ".part";
    db::RemoveJobFile(blankPart);
    db::MakeBlankJob(blankPart, store::StoreState().Gtable_name);
    if (!db::PutJobFileInPlace(blankPart, blank)) {
        std::fprintf(stderr, "make-demo-job: could not write %s\n", qPrintable(blank));
        return 1;
    }
    return 0;
}
