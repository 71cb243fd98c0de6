#include "db/database.h"
#include "db/job_error.h"
#include "products/names.h"
#include "products/omd.h"
#include "products/record_scan.h"
#include "products/staged_file.h"
#include "store/lifecycle.h"
#include "text/numbers.h"
#include "workstation/busy_guard.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QElapsedTimer>

namespace products {

namespace {

// The information box names the record every 500 records.
constexpr long kProgressRecords = 500;

struct FormWords {
    const char* title;
    const char* filter;
    const char* extension;
    const char* done;
};
const FormWords kOmd{"Save Data Base TEXT Data Where?",
                     "Ombri Data (*.OMD) | *.omd;*.OMD | All Files (*.*) | *.*", "OMD",
                     "The files have been Generated"};
const FormWords kCsv{"Save Data Base CSV File Where?",
                     "Ombri Data (*.CSV) | *.csv;*.CSV | All Files (*.*) | *.*", "CSV",
                     "The CSV file have been Generated!"};

void Export(Workstation& ws, TextForm form) {
    const FormWords& w = form == TextForm::Omd ? kOmd : kCsv;
    station::BusyFlag busy(ws.db.Gdb_busy);
    if (!busy) return;
    ws.chart.Grefresh_count = ws.chart.Grefresh_seconds;
    int pt = 2;
    try {
        QString name = ws.dialogs().SaveFile(w.title, w.filter, ws.programDir + "\\DB_CUE\\");
        station::DelaySeconds(ws, 1);
        if (name.isEmpty()) return;
        pt = 3;
        store::PrimeFirstRecord(ws);
        if (name.right(3).toUpper() != w.extension) name += QString(".") + w.extension;
        pt = 4;
        auto& help = ws.fm_help;
        help.form.setVisible(true);
        help.lbl_help.setCaption("Exporting Data To File");
        help.pgbar.setRange(0, 100);
        help.pgbar.setValue(100);
        station::help_msg(ws, "");
        pt = 5;
        ExportRecords(ws, name, form);
        pt = 7;
        station::help_msg(ws, w.done);
    } catch (const FileError& e) {
        station::disply_text_alarms(ws, "Export File Err: " + e.text());
        station::help_msg(ws, "Export File Err: " + e.text());
    } catch (...) {
        station::disply_text_alarms(ws,
                                    "Export File Err: " + db::ErrorText(std::current_exception()) +
                                        " err point: " + text::Str(pt));
    }
    store::PrimeLastRecord(ws);
}

} // namespace

long ExportRecords(Workstation& ws, const QString& path, TextForm form) {
    StagedFile out(LocalPath(path));
    if (form == TextForm::Csv) {
        QByteArray names;
        for (const char* c : kOmdColumns) names += QByteArray(c) + ',';
        out.put(names + "\r\n");
    }
    db::Database db = db::OpenDatabase(ws.fm_Gas_Chart.txt_db_path.text(), db::OpenMode::ReadOnly);
    long count = 0;
    {
        QStringList columns;
        for (const char* c : kOmdColumns) columns << c;
        RecordScan r(db, ws.db.Gtable_name, columns);
        QByteArray line;
        line.reserve(512);
        station::Pulse pulse(ws);
        while (r.next()) {
            line = form == TextForm::Omd ? QByteArrayLiteral("#,") : QByteArray();
            for (int i = 0; i < static_cast<int>(kOmdColumns.size()); ++i) {
                line += r.text(i);
                line += ',';
            }
            line += "\r\n";
            out.put(line);
            if (++count % kProgressRecords == 0) {
                station::help_msg(ws, "");
                station::help_msg(ws, "Record " + QString::number(count) + "   " + path);
            }
            pulse.beat();
        }
    }
    db.Close();
    out.finish();
    return count;
}

void cmd_export_txt_Click(Workstation& ws) {
    Export(ws, TextForm::Omd);
}

void cmd_export_to_csv_Click(Workstation& ws) {
    Export(ws, TextForm::Csv);
}

} // namespace products
