#include "products/autogen.h"

#include "db/job_error.h"
#include "products/depth_las.h"
#include "products/time_las.h"
#include "products/xls_file.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QDir>
#include <QTimer>

namespace products {

namespace {

// The shortest interval between automatic runs: a run over a long job takes
// minutes of its own.
constexpr double kMinimumMinutes = 10;

bool FolderExists(const QString& path) {
    return !path.isEmpty() && QDir(QDir::fromNativeSeparators(path)).exists();
}

// The main name of the run, or empty when there is none to make.
QString MainName(Workstation& ws) {
    auto& p = ws.products;
    auto& s = ws.fm_setup;
    if (p.autogen_running) {
        if (!FolderExists(p.autogen_dir)) {
            auto& help = ws.fm_help;
            help.form.setVisible(true);
            station::help_msg(ws, "");
            help.lbl_help.setCaption("Auto Generate LAS/XLS directory does not exist");
            help.pgbar.setRange(0, 100);
            help.pgbar.setValue(100);
            return {};
        }
        // The short date goes in as the system writes it: with "/" in it
        // the name cannot be made, which the run then says.
        QString name = p.autogen_dir + "/" + s.txt_autogenFilename.text();
        if (s.ch_autogen_wDate.checked()) name += " " + text::ShortDate(ws.Now().date());
        return name + ".LAS";
    }
    p.file_dialog_open = true;
    const QString name = ws.dialogs().SaveFile(
        "CREATE LAS FILE", "LAS file (*.LAS) | *.las;*.LAS | All Files (*.*) | *.*",
        ws.programDir + "\\DB_CUE\\");
    station::DelaySeconds(ws, 1);
    p.file_dialog_open = false;
    return name;
}

} // namespace

void cmd_gen_log_files_Click(Workstation& ws) {
    auto& s = ws.fm_setup;
    auto& help = ws.fm_help;
    try {
        QString name = MainName(ws);
        if (name.isEmpty()) return;
        const QString ext = name.right(3);
        if (ext != "las" && ext != "LAS") name += ".LAS";
        help.form.setVisible(true);
        station::help_msg(ws, "");
        help.lbl_help.setCaption("Generating XLS/LAS files");
        help.pgbar.setRange(0, 100);
        if (s.ck_gen_las_file.checked()) Create_LAS_file(ws, name);
        if (s.ck_gen_xls_file.checked()) Create_XLS_file(ws, name.left(name.size() - 3) + "XLS");
        if (s.ck_time_based_las.checked())
            Create_LAS_TIME_file(ws, name.left(name.size() - 4) + "_TIME.LAS");
        // The depth collection hides the box when it is done; a run by hand
        // ends with the box up, an automatic one with it out of the way.
        help.form.setVisible(!ws.products.autogen_running);
        station::help_msg(ws, "");
        station::help_msg(ws, "LAS/XLS file generation Complete.");
        help.pgbar.setValue(help.pgbar.max());
    } catch (...) {
        station::disply_text_alarms(ws, "Generate Log Files Err: " +
                                            db::ErrorText(std::current_exception()));
    }
}

void tmr_autogen_Timer(Workstation& ws) {
    auto& p = ws.products;
    auto& s = ws.fm_setup;
    if (!(p.autogen_seconds_left > 0)) return;
    p.autogen_seconds_left -= 1;
    s.lbl_AutoLas.setCaption(text::Str(p.autogen_seconds_left));
    s.txt_autogen_dir.setBackColor(FolderExists(s.txt_autogen_dir.text()) ? forms::color::White
                                                                          : forms::color::Red);
    if (p.autogen_seconds_left <= 0) {
        // The count starts again before the run: a run that outlasts the
        // interval is followed by the next one as soon as the count ends.
        p.autogen_seconds_left = p.autogen_minutes * 60;
        // A run still yielding when the count ends again is not run twice.
        if (p.autogen_running) return;
        p.autogen_dir = s.txt_autogen_dir.text();
        p.autogen_running = true;
        cmd_gen_log_files_Click(ws);
        p.autogen_running = false;
    }
}

void txt_autogen_las_LostFocus(Workstation& ws) {
    auto& p = ws.products;
    auto& s = ws.fm_setup;
    double minutes = text::Val(s.txt_autogen_las.text());
    if (minutes > 0 && minutes < kMinimumMinutes) {
        minutes = kMinimumMinutes;
        s.txt_autogen_las.setText("10");
    } else if (minutes < 0) {
        minutes = 0;
        s.txt_autogen_las.setText("0");
    }
    p.autogen_minutes = minutes;
    p.autogen_seconds_left = minutes * 60;
    QTimer* timer = ws.timer("tmr_autogen");
    if (p.autogen_minutes <= 0) {
        if (timer) timer->stop();
        s.txt_autogen_dir.setBackColor(forms::color::White);
    } else if (timer) {
        timer->start();
    }
}

void ck_gen_file_Click(Workstation& ws) {
    auto& s = ws.fm_setup;
    if (!s.ck_gen_las_file.checked()) s.ck_gen_las48_file.setChecked(false);
    if (!s.ck_gen_xls_file.checked()) s.ck_gen_xls48_file.setChecked(false);
}

} // namespace products
