// The time pass: the lag is counted in records, one record being six seconds
// of circulation, and records of bad gas do not count as time. A work record
// takes the depth of the record `back` good records before it.
#include "depth/lag_pass.h"
#include "depth/zones.h"
#include "text/numbers.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

#include <cmath>

namespace depth {

using text::Fix;

namespace {

// Ten records to a minute of lag.
constexpr long kRecordsPerMinute = 10;
constexpr double kSecondsPerRecord = 6;

// Walks `n` good records back from the current one: each record without bad
// gas counts one, then the walk steps back. Returns false when it ran off the
// start of the table (the cursor then rests on the first record).
bool WalkBack(LagPass& p, long n) {
    int pos = p.rs.AbsolutePosition();
    bool inTable = true;
    for (long step = 1; n >= 1; ++step) {
        if (!p.BadGasAt(pos)) --n;
        --pos;
        if (pos < 0) {
            pos = 0;
            inTable = false;
            break;
        }
        // The walk goes over the same records again at every zone look, out
        // of the cache: the clock is read now and then, not at every step.
        if (step % 1024 == 0) p.rhythm->yield();
    }
    p.rs.SetAbsolutePosition(pos);
    return inTable;
}

} // namespace

void TimePass(LagPass& p) {
    Workstation& ws = p.ws;
    auto& rs = p.rs;
    long limit = p.limit;
    p.pt = 31;
    double depth = p.Depth();
    int workPos = rs.AbsolutePosition();
    int searchPos = workPos;
    double lastDepth = 0, firstLag = 0, m = 0, sourceDepth = 0, sourceMinFt = 0;
    long uiCountdown = 0, back = 0;
    bool endFlag = false;

    while (!rs.Bof() && !endFlag) {
        p.pt = 32;
        depth = p.Depth();
        if (std::fabs(depth - lastDepth) > kDepthJump) {
            searchPos = workPos;
            uiCountdown = 0;
        }
        lastDepth = depth;

        if (uiCountdown > 0) --uiCountdown;
        if (uiCountdown == 0) {
            p.pt = 33;
            uiCountdown = static_cast<long>(Fix(ws.Rnd() * 150));
            p.rhythm->yield();
            station::help_msg(ws, "Working record Depth: " + text::Str(workPos));
            workPos = rs.AbsolutePosition();
            p.Progress(searchPos);

            p.pt = 34;
            const int zone = ZoneAt(ReadZoneRows(ws.fm_setup), depth, ZoneOne::EndAbove);
            if (zone > 0) m = depth * ws.depth.GLagMinPerFt[zone];
            // Whole minutes only. With WITS down the line lag is not known to
            // be part of the hole's lag, so it is added.
            back = static_cast<long>(Fix(m)) * kRecordsPerMinute;
            if (ws.wits.Gwits_alive == 0)
                back =
                    static_cast<long>(Fix(back + ws.depth.Gline_lag_seconds / kSecondsPerRecord));

            p.pt = 36;
            endFlag = !WalkBack(p, back);
            if (firstLag == 0) {
                if (endFlag) {
                    p.ShowLagDepth(0);
                } else {
                    sourceDepth = p.Depth();
                    firstLag = sourceDepth;
                    p.ShowLagDepth(sourceDepth);
                }
            }
            searchPos = rs.AbsolutePosition();
        }
        if (endFlag) return;

        p.pt = 39;
        rs.SetAbsolutePosition(searchPos);
        while (p.BadGasAt(searchPos)) {
            if (searchPos == 0) {
                endFlag = true;
                break;
            }
            --searchPos;
        }
        rs.SetAbsolutePosition(searchPos);
        p.rhythm->yield();
        if (endFlag) return;

        p.pt = 40;
        sourceDepth = p.Depth();
        sourceMinFt = p.MinFt();
        if (searchPos == 0) return;
        --searchPos;

        p.pt = 41;
        rs.SetAbsolutePosition(workPos);
        p.WriteLag(sourceDepth, sourceMinFt);
        if (workPos == 0) return;
        rs.MovePrevious();
        workPos = rs.AbsolutePosition();

        p.pt = 42;
        // The source must not run ahead while no time counts.
        if (p.BadGasAt(workPos)) {
            ++searchPos;
            if (searchPos < 5) return;
        }
        rs.SetAbsolutePosition(workPos);
        if (workPos - back > searchPos) searchPos = workPos - back;

        p.pt = 44;
        if (limit > 0 && --limit == 0) return;
        if (p.fromDepth > 0 && depth < p.fromDepth) return;
    }
}

} // namespace depth
