// The intake of the local WITS stream: text from MSComm2 onto the receive
// buffer, the test that a real frame is coming in, and the parse of the
// buffer's lines into the value slots, the display list and the foot
// counting that gives the rate of penetration.
#include "text/numbers.h"
#include "wits/wits_file.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "wits/wits_roles.h"
#include "wits/wits_timers.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcWits, "gaschart.wits", QtInfoMsg)

namespace wits {

using forms::color::Green;
using forms::color::Red;

namespace {

constexpr int kBitDepthCode = 108;
// Pump rates below zero are an EDR's way of saying nothing; they count as 0.
bool IsPumpRate(int code) {
    return code == 123 || code == 124 || code == 125;
}
// A fall of the hole depth by more than this is a new hole (or a reset of
// the recorder), not noise: the foot counting starts again from there.
constexpr int kFootResetFall = 200;
// Feet made faster than this are not timed: the rates stand as they were.
constexpr int64_t kShortestFootSeconds = 10;
constexpr int64_t kRopSecondsWrap = 4000000000LL;

// Replaces the list row of the same code, or adds one at the end.
void ShowLine(Workstation& ws, const QString& line) {
    auto& list = ws.more_data.wits_info;
    const QStringView key = QStringView(line).left(4);
    const QStringList& rows = list.items();
    for (int i = 0; i < rows.size(); ++i) {
        if (QStringView(rows[i]).left(4) == key) {
            list.setItem(i, line);
            return;
        }
    }
    list.addItem(line);
}

void CountFoot(Workstation& ws) {
    auto& w = ws.wits;
    // A depth no foot counter can hold (noise on the line) stops at the
    // nearest foot it can, and the fall test is worked out wide, so neither
    // overflows.
    const int32_t h = text::CLng(text::Fix(w.Gwits_values[1]));
    if (w.WITS_last_foot == 0) w.WITS_last_foot = h;
    if (int64_t{h} < int64_t{w.WITS_last_foot} - kFootResetFall) w.WITS_last_foot = h;
    if (h > w.WITS_last_foot) {
        w.WITS_last_foot = h;
        if (w.WITS_rop_seconds > kShortestFootSeconds) {
            const double minFt = static_cast<double>(w.WITS_rop_seconds) / 60;
            w.WITS_min_ft = text::Val(text::Format(minFt, u"#.##"));
            w.WITS_ft_hr = text::Val(text::Format(60 / minFt, u"#.##"));
            w.WITS_rop_seconds = 0;
        }
    }
}

} // namespace

void AppendToRawView(forms::Control& box, const QString& text) {
    // Worked out before the control is touched, so a view never gets the
    // whole of a huge read only to be cut a moment later.
    const qsizetype total = box.text().size() + text.size();
    if (total <= kRawViewHigh) {
        box.setText(box.text() + text);
    } else if (text.size() >= kRawViewLow) {
        box.setText(text.right(kRawViewLow));
    } else {
        box.setText(box.text().right(kRawViewLow - text.size()) + text);
    }
}

namespace {
QString DisplayLine(int code, const QString& name, double value) {
    return (code < 1000 ? "0" : "") + QString::number(code) + "  " + name + "  " + text::Str(value);
}
} // namespace

QString WitsDisplayLine(const Workstation& ws, int code, double value) {
    return DisplayLine(code, WitsItemName(ws, code), value);
}

void ShowPumps(Workstation& ws) {
    auto& pumps = ws.fm_Gas_Chart.cmd_pumps;
    if (ws.wits.Gspm > 0) {
        pumps.setCaption(text::Format(ws.wits.Gspm, u"0") + " SPM");
        pumps.setBackColor(Green);
    } else {
        pumps.setCaption("Pumps Off");
        pumps.setBackColor(Red);
    }
}

void ReceiveWitsText(Workstation& ws, const QString& got) {
    auto& w = ws.wits;
    w.WITS_in_buffer += got;
    if (w.WITS_in_buffer.size() > kInBufferLimit) {
        const qsizetype drop = w.WITS_in_buffer.size() - kInBufferLimit;
        w.WITS_in_buffer.remove(0, drop);
        ++w.counts.bufferCuts;
        w.counts.charsDropped += drop;
        qCInfo(lcWits) << "receive buffer cut to its limit," << drop << "characters dropped";
    }
    AppendToRawView(ws.fm_WITS.txt_Raw_WITS_In, got);
}

void ServeWitsBuffer(Workstation& ws) {
    auto& w = ws.wits;
    if (HoldsGoodFrame(w.WITS_in_buffer)) w.Gwits_alive = 60;
    // Until a good frame vouches for the stream the buffer only grows.
    if (!w.WITS_in_buffer.isEmpty() && w.Gwits_alive > 5) Parse_WITS_String(ws);
}

void Parse_WITS_String(Workstation& ws) {
    auto& w = ws.wits;
    int pt = 0;
    try {
        const QStringList lines = BufferLines(w.WITS_in_buffer);
        ++pt;
        // The first part is never looked at: it may be what is left of a line
        // cut at the start of the read.
        for (int i = 1; i < lines.size(); ++i) {
            const QString& line = lines[i];
            if (line == kFrameEnd) ++w.counts.framesRead;
            const ItemLine item = ReadItemLine(line);
            if (item.kind != ItemLine::Item) {
                if (!line.isEmpty() && line != kFrameStart && line != kFrameEnd) {
                    ++w.counts.linesSkipped;
                    qCDebug(lcWits) << "line skipped:" << line.left(40);
                }
                continue;
            }
            const QString name = WitsItemName(ws, item.code);
            if (name == kUnknownItem) ++w.counts.unknownCodes;
            const QString shown = DisplayLine(item.code, name, item.value);
            // The list shows what came; only the stored value is made sane.
            double value = item.value;
            if (IsPumpRate(item.code) && value < 0) value = 0;
            ShowLine(ws, shown);
            if (item.code == kBitDepthCode)
                ws.more_data.lbl_bit_depth.setCaption(text::Format(value, u"0.0"));
            StoreWitsItem(ws, item.code, value);
            ++w.counts.itemsStored;
            // The hole can't be shallower than the bit.
            if (item.code == kBitDepthCode && w.Gwits_values[0] >= w.Gwits_values[1])
                w.Gwits_values[1] = w.Gwits_values[0];
        }
        pt = 2;
        CountFoot(ws);
        pt = 3;
        ShowPumps(ws);
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, "WITS Parse Err: " + QString::fromUtf8(e.what()) +
                                            " Err pt: " + QString::number(pt));
    }
    w.WITS_in_buffer.clear();
}

void tmr_WITSDataArrival_Timer(Workstation& ws) {
    auto& com = ws.MSComm2;
    const bool open = com.PortOpen();
    if (open && com.InBufferCount() >= 1) ReceiveWitsText(ws, com.Input());
    // A port that was open and is not, though nobody closed it: the device
    // went away (adapter pulled, far end of the line gone).
    if (ws.wits.portWasOpen && !com.PortOpen()) {
        ++ws.wits.counts.portLosses;
        qCWarning(lcWits) << "WITS port went away:" << com.ErrorText();
    }
    ws.wits.portWasOpen = com.PortOpen();
    ServeWitsBuffer(ws);
}

void tmr_ROP_Timer_Timer(Workstation& ws) {
    auto& w = ws.wits;
    // On bottom: the bit is at the hole's whole foot.
    if (text::Fix(w.Gwits_values[1]) == text::Fix(w.Gwits_values[0])) {
        ++w.WITS_rop_seconds;
        if (w.WITS_rop_seconds >= kRopSecondsWrap) w.WITS_rop_seconds = 0;
    }
}

} // namespace wits
