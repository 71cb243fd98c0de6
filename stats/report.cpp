// The statistics and tally report: the heading, the daily statistics and the
// tally into a new report file, then the report shown on the setup panel.
#include "db/recordset.h"
#include "stats/report_file.h"
#include "stats/report_writers.h"
#include "stats/statistics.h"
#include "stats/stats_data.h"
#include "text/datetime.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QFileInfo>
#include <cmath>

namespace stats {

namespace {

const char* const kStars = "*************************************************************";

// The bit depth of the fourth record: none means the job has no WITS, and a
// report of depths and connections has nothing to go on. Any failure reads
// as none.
double FourthBitDepth(Workstation& ws) {
    StatsData d;
    double bit = 0;
    if (!Open_Stats_Database(ws, d)) return 0;
    try {
        d.rs.MoveFirst();
        for (int i = 0; i < 3; ++i) d.rs.MoveNext();
        bit = std::fabs(d.rs.Fields(d.bit).toDouble());
    } catch (...) {
        bit = 0;
    }
    Close_Stats_Database(d);
    return bit;
}

void ReadBack(Workstation& ws, const QString& name) {
    QFile f(name);
    if (!f.open(QIODevice::ReadOnly)) {
        Stats_Output_Line(ws, "Error in opening file: " + name);
        return;
    }
    QStringList lines = QString::fromUtf8(f.readAll()).split(u'\n');
    // The last line ends with its CR LF: no empty line after it.
    if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    QString shown;
    for (QString& l : lines) {
        if (l.endsWith(u'\r')) l.chop(1);
        shown += l + "\r\n";
    }
    Stats_Output_Text(ws, shown);
}

void Report(Workstation& ws, const QString& name) {
    ReportFile file(name);
    Stats_Status(ws, "Removing old report file");
    // The old report goes only when the new one is whole.
    if (!file.open()) {
        Stats_Status(ws, "Unable to write the report file " + name + ": " + file.error());
        Stats_Output_Line(ws, "Error in opening file: " + name);
        return;
    }
    file.lines({kStars, "Ombri Instruments general Stats report and tally generator",
                "Date of report generated: " + text::GeneralDate(ws.Now()),
                "Database used: " + ws.fm_Gas_Chart.txt_db_path.text(), kStars, QString()});
    if (!(FourthBitDepth(ws) > 0)) {
        file.lines({"Database does not contain enough WITS information",
                    "Unable to generate reports", QString()});
    } else {
        Write_Daily_Stats(ws, file);
        Write_Tally(ws, file);
    }
    if (!file.commit()) {
        Stats_Status(ws, "Unable to write the report file " + name + ": " + file.error());
        Stats_Output_Line(ws, "Error in opening file: " + name);
        return;
    }
    Stats_Status(ws, "Job Done");
    ReadBack(ws, name);
}

} // namespace

void Generate_Stats_Report(Workstation& ws) {
    auto& st = ws.stats;
    if (st.running) return;
    st.running = true;
    const bool byHand = st.byHand;
    st.byHand = false;

    auto& help = ws.fm_help;
    help.form.setVisible(true);
    station::help_msg(ws, "");
    help.lbl_help.setCaption("Statistics and tally report");
    help.pgbar.setRange(0, 100);
    help.pgbar.setValue(0);
    // The name is taken once: a change of the box during the run is for the
    // next one.
    const QString name = ws.fm_setup.txt_stats_filename.text();
    station::help_msg(ws, "Writing " + name);
    try {
        Report(ws, name);
    } catch (...) {
        // The run's own failures are reported where they happen; what is
        // left (out of memory) must not escape the timer.
        Stats_Status(ws, "Unable to complete the report");
    }
    help.pgbar.setValue(0);
    if (!byHand) help.form.setVisible(false);
    st.running = false;
}

} // namespace stats
