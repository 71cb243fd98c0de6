#include "depth/zones.h"

#include "forms/fm_setup.h"
#include "text/numbers.h"

namespace depth {

ZoneRows ReadZoneRows(const forms::FmSetup& setup) {
    ZoneRows z;
    for (int i = 1; i <= 6; ++i) {
        z.start[i] = text::Val(setup.txt_Lag_Start_Depth[i].text());
        z.end[i] = text::Val(setup.txt_Lag_End_Depth[i].text());
        z.strPer100Ft[i] = text::Val(setup.txt_str_per_100ft[i].text());
        z.minPer100Ft[i] = text::Val(setup.txt_lag_min[i].text());
    }
    return z;
}

int ZoneAt(const ZoneRows& z, double depth, ZoneOne rule) {
    int zone = 0;
    if (rule == ZoneOne::EndAbove ? z.end[1] > depth : z.start[1] < depth) zone = 1;
    for (int i = 2; i <= 6; ++i)
        if (z.start[i] > 0 && z.start[i] < depth) zone = i;
    return zone;
}

} // namespace depth
