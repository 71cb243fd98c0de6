// Parser and live fields before they are built.
#include "acquisition/info_box.h"
#include "acquisition/live_fields.h"
#include "acquisition/parser.h"
#include "acquisition/timers.h"
#include "wits/wits_file.h"

namespace acq {
void Parse_Ombri_String(Workstation&) {}
QString LagDepthLine(double) {
    return {};
}
void parse_err_str(Workstation&) {}
void fill_vis_fields(Workstation&) {}
void clear_vis_fields(Workstation&) {}
void disply_text(Workstation&, const QString&) {}
void disply_text_alarms(Workstation&, const QString&) {}
void write_function_log(Workstation&, const QString&) {}
QString AlarmLogText(int) {
    return {};
}
QString AlarmDisplayText(int) {
    return {};
}
void help_msg(Workstation&, const QString&) {}
void fm_help_Timer1_Timer(Workstation&) {}
} // namespace acq

namespace wits {
void LoadWitsFile(Workstation&) {}
QString WitsItemName(const Workstation&, int) {
    return QStringLiteral("Unknown");
}
} // namespace wits
