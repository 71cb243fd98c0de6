// The newest packet as the operator sees it: the data viewer, the alarm box,
// the raw terminal and the message box, and the two logs beside the program.
#include "acquisition/live_fields.h"

#include "acquisition/parser.h"
#include "platform/files.h"
#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

#include <stdexcept>

namespace acq {

using forms::color::Black;
using forms::color::Green;
using forms::color::Orange;
using forms::color::Red;
using forms::color::White;
using forms::color::Yellow;

namespace {

// The instrument's alarm numbers. The log words and the screen words are two
// vocabularies on purpose: several alarms read differently in each.
struct Alarm {
    int number;
    const char* log;
    const char* display;
};
constexpr Alarm kAlarms[] = {
    {1, "HIGH SAMPLE PRESSURE / ", "High Pressure"},
    {2, "BLOCKED SAMPLE LINE / ", "Blocked Sample Line"},
    {3, "HRM SENSOR VOLTAGE HIGH / ", "Detector High Voltage"},
    {4, "HRM SENSOR VOLTAGE LOW / ", "Detector Low Voltage"},
    {5, "HIGH SAMPLE FLOW RATE / ", "High Sample Flow Rate"},
    {6, "LOW SAMPLE FLOW RATE / ", "Low Sample Flow Rate"},
    {7, "LOW POWER SUPPLY VOLTAGE / ", "Low Power Supply Voltage"},
    {8, "HIGH POWER SUPPLY VOLTAGE / ", "High Power Supply Voltage"},
    {9, "HIGH POWER SUPPLY AMPERAGE / ", "High Extractor Amperage"},
    {10, "HIGH EQUIPMENT TEMPERATURE / ", "High Equipment Temp"},
    {11, "LOW EQUIPMENT TEMPERATURE / ", "Low Equipment Temp"},
    {12, "HIGH GAS UNITS / ", "High Gas Units"},
    {13, "HRM WARMING UP / ", "HRM Warming up"},
    {14, "UNIT IN SHUTDOWN MODE / ", "UNIT IN SHUTDOWN MODE"},
    {15, "NOISY GEOLOGRAPH / ", "NOISY GEOLOGRAPH"},
    {16, "CHROMATOGRAPH PRESSURE FAILURE / ", "Low Chromatograph Pressure"},
    {17, "HIGH H2S LEVELS / ", "HIGH H2S"},
    {18, "BLOCKED EXHAUST / ", "BLOCKED EXHAUST"},
    {255, "5000 Hour Maintenance / ", "Unit is due for 5000 Hr Maintenance"},
};
constexpr Alarm kUnknownAlarm = {0, "UNKNOWN ALARM / ", "Unknown Kettlewick Alarm"};

const Alarm& FindAlarm(int number) {
    for (const Alarm& a : kAlarms)
        if (a.number == number) return a;
    return kUnknownAlarm;
}

QString NowTime(Workstation& ws) {
    return text::ShortTime(ws.Now().time());
}
QString NowDate(Workstation& ws) {
    return text::ShortDate(ws.Now().date());
}

} // namespace

QString AlarmLogText(int number) {
    return QString::fromLatin1(FindAlarm(number).log);
}

QString AlarmDisplayText(int number) {
    return QString::fromLatin1(FindAlarm(number).display);
}

void parse_err_str(Workstation& ws) {
    const QString field = ws.packet.Gombri_data_array[ERRTXT];
    if (field == ws.packet.Glast_alarm_text) return;
    ws.packet.Glast_alarm_text = field;
    if (text::Val(field) <= 0) return;
    // The instrument ends the field with a blank, so one alarm already splits
    // in two; a bare number with no blank gives an empty line.
    const QStringList numbers = field.split(' ');
    QString line;
    if (numbers.size() > 1) {
        line = NowTime(ws) + "  " + NowDate(ws) + " ** ";
        for (const QString& n : numbers)
            if (!n.isEmpty()) line += AlarmLogText(text::CLng(text::Val(n)));
    }
    platform::AppendLine(ws.programFile(QStringLiteral("ERR_LOG.TXT")), line);
}

void fill_vis_fields(Workstation& ws) {
    auto& view = ws.more_data;
    const auto& fields = ws.packet.Gombri_data_array;
    int pt = 0;
    try {
        ApplyLocalWitsOverride(ws);
        ++pt;
        view.lbl_Time_Since_Last_Rop_01.setCaption(
            text::Format(ws.depth.Grop_seconds_0, u"0") + " " +
            text::Format(ws.depth.Grop_seconds_1, u"0") + " " +
            text::Format(ws.depth.Grop_seconds_2, u"0"));
        ++pt;
        view.form.setCaption("REAL TIME DATA " + fields[SERIALNUM] + " " + fields[DATE] + " " +
                             fields[OMBRITIME]);
        ws.packet.Gserial_number = fields[SERIALNUM];
        ++pt;
        for (const auto& f : forms::MoreData::fieldLabels()) {
            const QString& value = fields[f.field];
            (view.*(f.label))
                .setCaption(f.field == GASUNITS ? text::Format(text::Val(value), u"0.0") : value);
        }
        ++pt;
        // The component labels wear the chart colours of their curves; the
        // pentanes borrow the butanes'.
        const auto& c = ws.settings;
        view.lbl_c1.setForeColor(c.ColorC1);
        view.lbl_c2.setForeColor(c.ColorC2);
        view.lbl_c3.setForeColor(c.ColorC3);
        view.lbl_ic4.setForeColor(c.ColorIC4);
        view.lbl_nc4.setForeColor(c.ColorNC4);
        view.lbl_ic5.setForeColor(c.ColorIC4);
        view.lbl_nc5.setForeColor(c.ColorNC4);
        ++pt;
        view.lbl_Bottoms_Up.setCaption(text::Format(ws.depth.bottomsUpMinutes, u"##0.0"));
        ++pt;
        const double gas = text::Val(fields[GASUNITS]);
        long gasColor = Green;
        if (gas > 1000) gasColor = Yellow;
        if (gas > 2500) gasColor = Red;
        view.lbl_GasUnits.setForeColor(gasColor);
        view.lbl_GasUnits.setToolTip("Yellow = High  Red = Very High");
        ++pt;
        const double bit = text::Val(view.lbl_bit_depth.caption());
        auto& bitFrame = view.frameOf("lbl_bit_depth");
        if (bit > 10 && ws.wits.Gwits_alive > 0) {
            const double b = text::Fix(bit) + 2;
            if (b >= text::Fix(text::Val(view.lbl_DrillDepth.caption()))) {
                bitFrame.setCaption("Bit Depth");
                view.lbl_bit_depth.setBackColor(Black);
            } else {
                bitFrame.setCaption("Bit Depth  OFF BOTTOM");
                view.lbl_bit_depth.setBackColor(Orange);
            }
        } else {
            view.lbl_bit_depth.setBackColor(Black);
        }
        ++pt;
        auto& alarmBox = ws.fm_Gas_Chart.txt_KW_err;
        if (ws.packet.Glast_alarm_number >= 1) {
            // Only the first number of the field reaches the screen.
            const QString words = AlarmDisplayText(ws.packet.Glast_alarm_number);
            alarmBox.setBackColor(Red);
            alarmBox.setText(words);
            view.lbl_err_desc.setCaption(words);
        } else if (ws.alarms.alarmMonitorText.isEmpty()) {
            // The box also carries the alarm monitor's messages: it is only
            // cleared when neither the instrument nor the monitor has one.
            if (!alarmBox.text().isEmpty())
                station::disply_text_alarms(ws, "Last Kettlewick Alarm: " + alarmBox.text());
            view.lbl_err_desc.setCaption("No Errors");
            alarmBox.setText("");
            alarmBox.setBackColor(White);
        }
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, "Populate Display Err: " + QString::fromUtf8(e.what()) +
                                            " Err pt: " + QString::number(pt));
    }
}

void clear_vis_fields(Workstation& ws) {
    auto& view = ws.more_data;
    view.form.setCaption("REAL TIME DATA ");
    view.lbl_err_desc.setCaption("No Errors");
    for (const auto& f : forms::MoreData::fieldLabels()) (view.*(f.label)).setCaption("");
}

} // namespace acq
