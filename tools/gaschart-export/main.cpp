// gaschart-export: the files of the office from a job file, without a
// screen, through the same writers as the buttons of the workstation.
//
//   gaschart-export JOB.db --las OUT.las [--time-las F] [--xls F] [--omd F] [--stats F]
//                   [--csv F] [--import-omd F] [--config F]
//
// The settings (delimiter, C values, gains, names ...) come from the
// configuration file beside the job, or the one given with --config.
// Exit codes: 0 done, 2 bad arguments, 3 the job is missing or not a job,
// 4 the job is locked, 5 a file could not be written, 6 the import failed.

#include "config/config_file.h"
#include "db/database.h"
#include "db/schema.h"
#include "products/depth_las.h"
#include "products/omd.h"
#include "products/staged_file.h"
#include "products/time_las.h"
#include "products/xls_file.h"
#include "stats/statistics.h"
#include "workstation/workstation.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>
#include <unistd.h>

namespace {

enum Exit { Done = 0, BadArguments = 2, NoJob = 3, Locked = 4, WriteFailed = 5, ImportFailed = 6 };

void Say(const QString& text) {
    std::fprintf(stderr, "gaschart-export: %s\n", qPrintable(text));
}

// A bar on the terminal from the information box's bar and its last line.
class Progress {
  public:
    explicit Progress(Workstation& ws) : ws_(ws), tty_(isatty(STDERR_FILENO) == 1) {
        if (!tty_) return;
        ws.fm_help.pgbar.listen([this](const forms::Control&, forms::Prop) { draw(); });
        ws.fm_help.txt_help.listen([this](const forms::Control&, forms::Prop) { draw(); });
    }
    ~Progress() {
        if (tty_ && drawn_) std::fprintf(stderr, "\n");
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

  private:
    void draw() {
        const auto& bar = ws_.fm_help.pgbar;
        const int span = std::max(1, bar.max() - bar.min());
        const int filled = std::clamp((bar.value() - bar.min()) * 30 / span, 0, 30);
        QStringList lines = ws_.fm_help.txt_help.text().split("\r\n", Qt::SkipEmptyParts);
        const QString last = lines.isEmpty() ? QString() : lines.last().left(60);
        std::fprintf(stderr, "\r[%s%s] %-60s", QByteArray(filled, '#').constData(),
                     QByteArray(30 - filled, ' ').constData(), qPrintable(last));
        drawn_ = true;
    }
    Workstation& ws_;
    bool tty_;
    bool drawn_ = false;
};

// Whether the file is a job this program can read; the exit code when not.
int CheckJob(const QString& path) {
    if (!QFileInfo::exists(path)) {
        Say("Could not find the file '" + path + "'");
        return NoJob;
    }
    db::Database db;
    if (auto e = db::TryOpenDatabase(path, db, db::OpenMode::ReadOnly)) {
        Say(e->description());
        return e->number() == db::err::Locked ? Locked : NoJob;
    }
    try {
        if (!db.HasTable(db::kRecordTable)) {
            Say("'" + path + "' is not a job file: it has no table " + db::kRecordTable);
            return NoJob;
        }
        db.Execute("SELECT count(*) FROM " + db::kRecordTable);
    } catch (const db::DbError& e) {
        Say(e.description());
        return e.number() == db::err::Locked ? Locked : NoJob;
    }
    return Done;
}

// The last message of the run in the program's words.
QString LastMessage(Workstation& ws) {
    QStringList l = ws.fm_Gas_Chart.txt_message.text().split("\r\n", Qt::SkipEmptyParts);
    return l.isEmpty() ? QStringLiteral("failed") : l.last();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("gaschart-export"));
    QCommandLineParser p;
    p.setApplicationDescription(
        "Writes the log files of a gas chart job: depth LAS (with its gas only file), time LAS, "
        "XLS, OMD and CSV; and merges an OMD file into the job.\n"
        "Exit codes: 0 done, 2 bad arguments, 3 missing or not a job, 4 job locked, 5 a file "
        "could not be written, 6 the import failed.");
    p.addHelpOption();
    p.addPositionalArgument("JOB", "The job file (.db).");
    const QCommandLineOption las("las", "Depth LAS file.", "FILE");
    const QCommandLineOption timeLas("time-las", "Time LAS file.", "FILE");
    const QCommandLineOption xls("xls", "XLS file.", "FILE");
    const QCommandLineOption omd("omd", "OMD text of every record.", "FILE");
    const QCommandLineOption csv("csv", "CSV file of every record.", "FILE");
    const QCommandLineOption importOmd("import-omd", "Merge this OMD file into the job first.",
                                       "FILE");
    const QCommandLineOption configFile(
        "config", "Settings file (default: OM_10_config.txt beside the job).", "FILE");
    const QCommandLineOption statsReport("stats", "Statistics and tally report.", "FILE");
    p.addOptions({las, timeLas, xls, omd, csv, importOmd, configFile, statsReport});
    p.process(app);

    if (p.positionalArguments().size() != 1) {
        Say("give one job file (see --help)");
        return BadArguments;
    }
    const QString job = QFileInfo(p.positionalArguments()[0]).absoluteFilePath();
    if (!p.isSet(las) && !p.isSet(timeLas) && !p.isSet(xls) && !p.isSet(omd) && !p.isSet(csv) &&
        !p.isSet(importOmd) && !p.isSet(statsReport)) {
        Say("nothing to do: give at least one of --las, --time-las, --xls, --omd, --csv, "
            "--stats, --import-omd");
        return BadArguments;
    }
    if (const int e = CheckJob(job); e != Done) return e;

    // A program folder of its own: the error log of the run lands there.
    QTemporaryDir programDir;
    Workstation ws(programDir.path());
    const QString settings = p.isSet(configFile)
                                 ? p.value(configFile)
                                 : QFileInfo(job).absolutePath() + "/" + config::kConfigFileName;
    QFile f(settings);
    if (f.open(QIODevice::ReadOnly)) {
        config::ReadConfigText(ws, f.readAll());
    } else if (p.isSet(configFile)) {
        Say("Could not read the settings file '" + settings + "'");
        return BadArguments;
    }
    ws.fm_Gas_Chart.txt_db_path.setText(job);
    Progress progress(ws);

    if (p.isSet(importOmd)) {
        const products::ImportCounts n = products::Import_OMD_file(ws, p.value(importOmd));
        std::fprintf(stdout, "imported %s: read %ld, added %ld, skipped %ld, refused %ld\n",
                     qPrintable(p.value(importOmd)), n.read, n.added, n.skipped, n.refused);
        if (n.error != 0) {
            Say(LastMessage(ws));
            return ImportFailed;
        }
    }
    struct Job {
        const QCommandLineOption& option;
        bool (*write)(Workstation&, const QString&);
    };
    const Job writers[] = {{las, &products::Create_LAS_file},
                           {timeLas, &products::Create_LAS_TIME_file},
                           {xls, &products::Create_XLS_file}};
    for (const Job& w : writers) {
        if (!p.isSet(w.option)) continue;
        const QString out = QFileInfo(p.value(w.option)).absoluteFilePath();
        if (!w.write(ws, out)) {
            Say(LastMessage(ws));
            return WriteFailed;
        }
        std::fprintf(stdout, "wrote %s\n", qPrintable(out));
    }
    for (const auto& [option, form] :
         {std::pair{&omd, products::TextForm::Omd}, std::pair{&csv, products::TextForm::Csv}}) {
        if (!p.isSet(*option)) continue;
        const QString out = QFileInfo(p.value(*option)).absoluteFilePath();
        try {
            const long n = products::ExportRecords(ws, out, form);
            std::fprintf(stdout, "wrote %s: %ld records\n", qPrintable(out), n);
        } catch (const products::FileError& e) {
            Say(e.text());
            return WriteFailed;
        } catch (const db::DbError& e) {
            Say(e.description());
            return e.number() == db::err::Locked ? Locked : WriteFailed;
        }
    }
    if (p.isSet(statsReport)) {
        const QString out = QFileInfo(p.value(statsReport)).absoluteFilePath();
        ws.fm_setup.txt_stats_filename.setText(out);
        stats::Generate_Stats_Report(ws);
        // The report says in its own box when it could not be written.
        const QString shown = ws.fm_setup.txt_stats_output.text();
        if (shown.startsWith(QStringLiteral("Error in opening file")) || !QFileInfo::exists(out)) {
            const QStringList status =
                ws.fm_setup.txt_stats.text().split("\r\n", Qt::SkipEmptyParts);
            Say(status.isEmpty() ? shown.trimmed() : status.last());
            return WriteFailed;
        }
        std::fprintf(stdout, "wrote %s\n", qPrintable(out));
    }
    return Done;
}
