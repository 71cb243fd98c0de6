// The rate of penetration pass of a whole-file lag recalculation: MIN_FT and
// FT_HR of every record from the time its foot took. A record takes the rate
// of its foot's end, and each record up to the next depth change repeats it.
#include "depth/lag_pass.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

#include <cmath>

namespace depth {

void RopPass(LagPass& p) {
    Workstation& ws = p.ws;
    auto& rs = p.rs;
    p.pt = 51;
    rs.MoveFirst();
    ws.fm_help.pgbar.setRange(0, rs.RecordCount());
    ws.fm_help.pgbar.setValue(1);
    if (rs.RecordCount() >= 100) p.ShowHelp("Recalculating ROP", "Recalculating the ROP");

    p.pt = 52;
    double lastAbsDepth = std::fabs(p.Depth());
    QDateTime lastTime = p.Dt();
    double minFt = 1, ftHr = 1;
    int counter = 1;
    long uiCountdown = static_cast<long>(text::Fix(ws.Rnd() * 150));

    while (!rs.Eof()) {
        p.pt = 53;
        const double absDepth = std::fabs(p.Depth());
        if (absDepth != lastAbsDepth) {
            const QDateTime t = p.Dt();
            minFt = double(lastTime.secsTo(t)) / 60;
            if (minFt == 0) minFt = 0.0001;
            ftHr = 60 / minFt;
            lastAbsDepth = absDepth;
            lastTime = t;
        }
        p.pt = 54;
        p.WriteRop(minFt, ftHr);
        ++counter;
        if (--uiCountdown <= 0) {
            p.Progress(counter);
            uiCountdown = static_cast<long>(text::Fix(ws.Rnd() * 150));
            p.rhythm->yield();
        }
        rs.MoveNext();
    }
}

} // namespace depth
