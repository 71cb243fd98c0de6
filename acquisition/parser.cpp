// The instrument's line parser. It is deliberately not a tokenizer: every call
// runs the same fixed list of substring searches over the whole buffer, and
// some of them throw the whole buffer away. Instruments in the field rely on
// that order (a packet that shares a buffer with a banner or a register reply
// is lost), so the list below is kept exactly as it is, quirks included.
#include "acquisition/parser.h"

#include "acquisition/live_fields.h"
#include "store/record_writer.h"
#include "text/numbers.h"
#include "wits/wits_link.h"
#include "wits/wits_roles.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <stdexcept>

namespace acq {

using forms::color::Green;
using forms::color::Red;

namespace {

// A packet that became a row has its alarm word looked at, as the last step
// of the write.
void SaveRecord(Workstation& ws) {
    if (store::SaveKWData(ws)) parse_err_str(ws);
}

constexpr QChar CR = QChar(13);
// Blocks the buffer at this size: a stream of text the parser never
// recognises can't grow it without end.
constexpr int kLineBufferLimit = 1024;
// A depth beyond this is taken for noise and the last good depth stays.
constexpr double kDepthLimit = 49990;

// Where a step found its tag (0-based) and the line end that goes with it.
struct Hit {
    int p = -1;
    int e = -1;
};

// What a step needs before it acts.
enum class Needs {
    Tag,           // the tag anywhere
    CrFromStart,   // the buffer's first CR must lie after the tag
    CrAtOrAfterTag // a CR at or after the tag
};

// What is left of the buffer after a step acted.
enum class Leaves {
    Nothing,  // the whole buffer goes
    TiCut,    // every "[TI" goes
    TagCut,   // the tag through its CR and one more character, everywhere
    ThroughCr // everything through the CR
};

using Action = void (*)(Workstation&, const QString& buf, Hit hit, int& pt);

struct Step {
    const char* tag;
    Needs needs;
    Leaves leaves;
    Action act;
};

// The number after a tag, read from a 0-based position to the buffer's end.
double NumberAt(const QString& buf, int pos) {
    return text::Val(QStringView(buf).mid(std::min<qsizetype>(pos, buf.size())));
}

void Banner(Workstation& ws, const QString&, Hit, int&) {
    ws.link.Gdetector_found = true;
}

void TcpConnect(Workstation& ws, const QString&, Hit, int&) {
    platform::InstrumentLink& link = ws.instrument();
    if (link.isSession() && link.state() == platform::LinkState::Open) link.write("STATUS\r\n");
}

void DrillDepth(Workstation& ws, const QString& buf, Hit hit, int&) {
    ws.fm_setup.txt_data[0].setText(text::Str(NumberAt(buf, hit.p + 15)));
}

void TimingSet(Workstation& ws, const QString&, Hit, int&) {
    auto& box = ws.fm_help;
    box.form.setCaption("CG Timing Setting");
    box.pgbar.setRange(0, 101);
    box.pgbar.setValue(1);
    station::help_msg(ws, "");
    station::help_msg(ws, "Chromatograph Timing Setting Has Been Confirmed");
    box.form.setVisible(true);
}

void Uptime(Workstation& ws, const QString& buf, Hit hit, int&) {
    ws.link.Guptime_percent = NumberAt(buf, hit.p + 8);
}

void TwoWay(Workstation& ws, const QString&, Hit, int&) {
    ws.fm_setup.cmd_secure.setCaption("Two Way Active");
    ws.fm_setup.cmd_secure.setBackColor(Green);
}

void OutputOnly(Workstation& ws, const QString&, Hit, int&) {
    ws.fm_setup.cmd_secure.setCaption("Two Way Inactive");
    ws.fm_setup.cmd_secure.setBackColor(Red);
}

// "Reg 25 = 7": the registers the setup panel shows, and where.
struct RegisterShown {
    int reg;
    int element;
    int factor;
};
constexpr RegisterShown kRegisters[] = {
    {25, 1, 1}, {29, 2, 1}, {30, 3, 1}, {34, 4, 1}, {45, 5, 1}, {53, 6, 100},
};

void RegisterReply(Workstation& ws, const QString& buf, Hit hit, int& pt) {
    const int r = text::CInt(NumberAt(buf, hit.p + 4));
    ++pt;
    // The value sits one place further once the register has three digits.
    const int v = text::CInt(NumberAt(buf, hit.p + (r <= 99 ? 9 : 10)));
    ++pt;
    for (const RegisterShown& shown : kRegisters) {
        if (shown.reg == r)
            ws.fm_setup.txt_data[shown.element].setText(
                QString::number(static_cast<long>(v) * shown.factor));
    }
}

void JobNumber(Workstation& ws, const QString& buf, Hit hit, int&) {
    ws.fm_setup.txt_data[7].setText(text::Str(NumberAt(buf, hit.p + 8)));
}

void DataPacket(Workstation& ws, const QString& buf, Hit hit, int& pt) {
    auto& fields = ws.packet.Gombri_data_array;

    ws.link.Glink_countdown = 61;
    ++pt;
    // The instrument learns the lag depth as of its last packet, every packet.
    const QString lagLine = LagDepthLine(ws.depth.Glag_depth_now);
    platform::InstrumentLink& link = ws.instrument();
    if (link.state() == platform::LinkState::Open) {
        link.write(lagLine);
        ++pt;
        if (link.isSession()) {
            station::disply_text(ws, lagLine);
            if (!ws.fm_setup.ck_Mainlog_NoKeepalive.checked()) link.write(QString(QChar(250)));
            ws.link.Guptime_percent = 100;
        } else {
            station::disply_text(ws, lagLine + "\r\n");
        }
    } else {
        ++pt;
    }

    ++pt;
    const QStringList split = buf.mid(hit.p, hit.e - hit.p).split(',');
    const double lastDepth = text::Val(fields[DEPTH]);
    ++pt;
    for (int i = 0; i < split.size(); ++i) {
        if (i >= kPacketFields) throw std::out_of_range("Subscript out of range");
        fields[i] = split[i];
    }

    ++pt;
    const double depth = text::Val(fields[DEPTH]);
    if (depth < 0 || depth > kDepthLimit) fields[DEPTH] = text::Str(lastDepth);
    // A blank field stays one blank, never empty: later readers count on it.
    for (int i = 0; i <= 40; ++i)
        if (fields[i].isEmpty()) fields[i] = " ";
    if (fields[SERIALNUM].startsWith('*')) fields[SERIALNUM].remove(0, 1);

    ++pt;
    const double alarm = text::Val(fields[ERRTXT]);
    if (alarm != ws.packet.Glast_alarm_number) ws.packet.Glast_alarm_number = text::CLng(alarm);

    ++pt;
    if (ApplyLocalWitsOverride(ws)) wits::Send_Serial_WITS(ws);

    ++pt;
    // With WITS relayed by the instrument the row waits for the "^" block,
    // which carries the values the row needs.
    const bool localWits = ws.fm_WITS.ck_Use_Local_WITS.checked();
    if (ws.wits.Gwits_alive == 0 || (ws.wits.Gwits_alive > 0 && localWits)) SaveRecord(ws);
}

void HealthLine(Workstation& ws, const QString& buf, Hit hit, int&) {
    if (buf.mid(hit.p, hit.e - hit.p).split(',').size() > 6) {
        ws.fm_setup.fr_sample.setCaption("Sample Gas Sensor Health: Good");
        ws.fm_setup.pg_sample_health.setForeColor(Green);
    }
}

void WitsBlock(Workstation& ws, const QString& buf, Hit hit, int& pt) {
    // The count is taken over the whole buffer, not the line: a short block
    // followed by other text still passes.
    if (buf.split(',').size() < 6) {
        if (ws.wits.Gwits_alive > 0) SaveRecord(ws);
        return;
    }
    ++pt;
    auto& list = ws.more_data.wits_info;
    list.clearItems();
    const QStringList items = buf.mid(hit.p, hit.e - hit.p).split(',');
    for (int i = 5; i < items.size(); ++i) {
        const QString& item = items[i];
        if (item.size() < 6) continue;
        ++pt;
        const int code = text::CInt(text::Val(QStringView(item).left(4)));
        const double value = text::Val(QStringView(item).mid(4));
        list.addItem(wits::WitsDisplayLine(ws, code, value));
        if (code == 108) ws.more_data.lbl_bit_depth.setCaption(text::Format(value, u"0.0"));
        ++pt;
        wits::StoreWitsItem(ws, code, value);
    }
    ++pt;
    wits::ShowPumps(ws);
    ++pt;
    // Saved before the stream is marked alive: the first block after an
    // outage saves nothing.
    if (ws.wits.Gwits_alive > 0) SaveRecord(ws);
    ws.wits.Gwits_alive = 60;
}

// The list, in the order it runs on every call.
const Step kSteps[] = {
    {"KETTLEWICK", Needs::Tag, Leaves::Nothing, &Banner},
    {"TCPCONNECT", Needs::Tag, Leaves::Nothing, &TcpConnect},
    {"DRILL DEPTH IS: ", Needs::Tag, Leaves::Nothing, &DrillDepth},
    {"[TIMING SET]", Needs::Tag, Leaves::TiCut, &TimingSet},
    {"[UPTIME ", Needs::CrFromStart, Leaves::TagCut, &Uptime},
    {"[TWO WAY]", Needs::CrFromStart, Leaves::TagCut, &TwoWay},
    {"[OUTPUT ONLY]", Needs::CrFromStart, Leaves::TagCut, &OutputOnly},
    {"Reg ", Needs::Tag, Leaves::Nothing, &RegisterReply},
    {"JOB NUM ", Needs::Tag, Leaves::Nothing, &JobNumber},
    {"*", Needs::CrAtOrAfterTag, Leaves::ThroughCr, &DataPacket},
    {"&", Needs::CrAtOrAfterTag, Leaves::ThroughCr, &HealthLine},
    {"^", Needs::CrAtOrAfterTag, Leaves::ThroughCr, &WitsBlock},
};

// Finds a step's tag and line end; false when the step has nothing to do yet.
bool Find(const QString& buf, const Step& step, Hit& hit) {
    hit.p = static_cast<int>(buf.indexOf(QLatin1String(step.tag)));
    if (hit.p < 0) return false;
    switch (step.needs) {
    case Needs::Tag:
        return true;
    case Needs::CrFromStart:
        // From the start on purpose: an older CR before the tag keeps the tag
        // waiting until that older text is gone.
        hit.e = static_cast<int>(buf.indexOf(CR));
        return hit.e > hit.p;
    case Needs::CrAtOrAfterTag:
        hit.e = static_cast<int>(buf.indexOf(CR, hit.p));
        return hit.e > hit.p;
    }
    return false;
}

void Leave(QString& buf, Leaves leaves, Hit hit) {
    switch (leaves) {
    case Leaves::Nothing:
        buf.clear();
        break;
    case Leaves::TiCut:
        // Only three characters of the tag go: "MING SET]" stays until a
        // later step clears the buffer.
        buf.remove(buf.mid(hit.p, 3));
        break;
    case Leaves::TagCut:
        // The tag through its CR and the line feed behind it, wherever that
        // exact text stands.
        buf.remove(buf.mid(hit.p, hit.e - hit.p + 2));
        break;
    case Leaves::ThroughCr:
        buf.remove(0, hit.e + 1);
        break;
    }
}

} // namespace

QString LagDepthLine(double lagDepth) {
    const QString t = "LAGDEPTH " + text::Format(lagDepth, u"0.0");
    int sum = 0;
    for (QChar c : t) sum += c.unicode();
    return t + " " + QString::number(sum % 256) + CR;
}

bool ApplyLocalWitsOverride(Workstation& ws) {
    if (!ws.fm_WITS.ck_Use_Local_WITS.checked() || ws.wits.Gwits_alive < 1) return false;
    ws.packet.Gombri_data_array[DEPTH] = text::Str(ws.wits.Gwits_values[1]);
    ws.packet.Gombri_data_array[MINFT] = text::Str(wits::WitsMinFt(ws));
    ws.packet.Gombri_data_array[FTHR] = text::Str(wits::WitsFtHr(ws));
    return true;
}

void Parse_Ombri_String(Workstation& ws) {
    ws.packet.Gparse_busy = true;
    int pt = 0;
    int stepNo = 0;
    try {
        for (const Step& step : kSteps) {
            ++stepNo;
            Hit hit;
            if (!Find(ws.packet.Gline_buffer, step, hit)) continue;
            // Progress numbers run in hundreds by step, so a report tells
            // which step and how far into it.
            pt = stepNo * 100;
            // The step reads a copy: what it calls may not touch the buffer,
            // but the copy keeps positions honest if something does.
            const QString buf = ws.packet.Gline_buffer;
            step.act(ws, buf, hit, pt);
            Leave(ws.packet.Gline_buffer, step.leaves, hit);
        }
        pt = 1300;
        if (ws.packet.Gline_buffer.size() > kLineBufferLimit) ws.packet.Gline_buffer.clear();
    } catch (const std::exception& e) {
        station::disply_text_alarms(
            ws, "Kettlewick packet parsing Err: " + QString::fromUtf8(e.what()) +
                    " Err pt: " + QString::number(pt));
        ws.packet.Gline_buffer.clear();
    } catch (...) {
        station::disply_text_alarms(ws, "Kettlewick packet parsing Err:  Err pt: " +
                                            QString::number(pt));
        ws.packet.Gline_buffer.clear();
    }
    ws.packet.Gparse_busy = false;
}

} // namespace acq
