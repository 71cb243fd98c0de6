// The strokes pass: each record is lagged to the newest older record whose
// pump stroke count lies at least one lag's worth of strokes behind its own.
// The work cursor steps back one record at a time; the search runs ahead of
// it into the past and, since the target falls as the work record falls,
// never turns back: the whole pass is linear.
#include "depth/lag_pass.h"
#include "depth/zones.h"
#include "text/numbers.h"
#include "workstation/help_box.h"
#include "workstation/messages.h"
#include "workstation/workstation.h"

#include <cmath>

namespace depth {

using text::Fix;

namespace {

// Strokes that jump by more than this between the search's first record and
// a later one mean a counter reset: the search stops at the jump.
constexpr double kCounterJump = 28000;
constexpr double kStrokesJump = 10000;

// The search for the source of one work record, from the current position
// toward the start of the table. Returns false when it fell off the start.
bool FindSource(LagPass& p, double target, double startStrokes) {
    auto& rs = p.rs;
    while (!rs.Bof()) {
        p.rhythm->yield();
        if (!p.BadGas()) {
            const auto v = p.Strokes();
            if (v && Fix(*v) > 0) {
                const double s = Fix(*v);
                if (std::fabs(s - startStrokes) > kCounterJump || s <= target) return true;
            }
        }
        rs.MovePrevious();
    }
    return false;
}

} // namespace

void StrokesPass(LagPass& p) {
    Workstation& ws = p.ws;
    auto& rs = p.rs;
    long limit = p.limit;
    int workPos = rs.AbsolutePosition();
    int searchPos = workPos;
    double strokes = 0, firstLag = 0, lastDepth = 0, lastStrokes = 0, strPerFt = 0;
    double sourceDepth = 0, sourceMinFt = 0;
    long uiCountdown = 0;

    while (!rs.Bof()) {
        p.pt = 11;
        if (const auto v = p.Strokes()) strokes = Fix(*v);
        if (strokes > 0) {
            p.pt = 13;
            const double depth = p.Depth();
            // Jumps: the search starts again from the last work record.
            if (std::fabs(lastDepth - depth) > kDepthJump && firstLag != 0) {
                uiCountdown = 0;
                searchPos = workPos;
                station::disply_text_alarms(ws, "Sudden depth change at " + text::Str(depth));
            }
            lastDepth = depth;
            if (std::fabs(lastStrokes - strokes) > kStrokesJump && firstLag != 0) {
                uiCountdown = 0;
                searchPos = workPos;
                station::disply_text_alarms(ws, QStringLiteral("Sudden Strokes counter change") +
                                                    "\r\n" + "Recalculate lag for whole DB to fix");
            }
            lastStrokes = strokes;
            workPos = rs.AbsolutePosition();

            p.pt = 17;
            if (uiCountdown > 0) --uiCountdown;
            if (uiCountdown == 0) {
                uiCountdown = static_cast<long>(Fix(ws.Rnd() * 200));
                p.Progress(searchPos);
                station::help_msg(ws, "Working record Strokes: " + text::Str(workPos));
                const int zone = ZoneAt(ReadZoneRows(ws.fm_setup), depth, ZoneOne::EndAbove);
                if (zone > 0) strPerFt = ws.depth.GLagStrPerFt[zone];
                p.rhythm->yield();
            }

            p.pt = 18;
            const double target = Fix(strokes - depth * strPerFt);
            if (target < 0 && firstLag == 0) {
                // No gas from the hole has reached the surface yet.
                p.ShowLagDepth(0);
                return;
            }

            p.pt = 20;
            rs.SetAbsolutePosition(searchPos);
            // A Null count where the search starts: the work record's count
            // stands in for it.
            const auto start = p.Strokes();
            const double startStrokes = start ? Fix(*start) : strokes;
            if (FindSource(p, target, startStrokes)) {
                p.pt = 21;
                sourceDepth = p.Depth();
                sourceMinFt = p.MinFt();
            }
            p.pt = 22;
            if (firstLag == 0) {
                firstLag = sourceDepth;
                p.ShowLagDepth(sourceDepth);
            }

            p.pt = 23;
            if (rs.Bof()) return;
            rs.MovePrevious();
            if (rs.Bof()) return;
            searchPos = rs.AbsolutePosition();
            rs.SetAbsolutePosition(workPos);
            p.WriteLag(sourceDepth, sourceMinFt);
            if (limit > 0 && --limit == 0) return;
            if (p.fromDepth > 0 && depth < p.fromDepth) return;
        } else {
            // No stroke data here: this record gets nothing.
            p.rhythm->yield();
        }

        p.pt = 24;
        rs.MovePrevious();
        if (rs.Bof()) {
            rs.MoveNext();
            return;
        }
    }
}

} // namespace depth
