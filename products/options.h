#pragma once
// What every file writer takes from the setup panel at the start of a run:
// units, gains, the C value choice and the custom curve names. Read once, so
// a change on the panel half way through a file does not split it in two.

#include <QString>
#include <array>

class Workstation;

namespace products {

// "Output Of C Values In The LAS And XLS Files"
enum class CUnit { Ppm, GasUnits, Percent, PercentOfSample };

struct FileOptions {
    bool metric = false;
    bool ropIsFtHr = false;
    bool guAsPpm = false;
    double percentGu = 100;
    CUnit cUnit = CUnit::GasUnits;
    double cvalGain = 1;
    std::array<QString, 4> customNames;
    bool addTimeDate = false;
    bool halfFoot = false;
    bool lasType1 = false;
    bool las48 = false;
    bool xls48 = false;
    bool xlsHeader = false;
    bool lasLagged = false;
    bool xlsLagged = false;
    bool depthFromDb = true;
    QString minDepth, maxDepth;
    QString apn;
    QString separator;
    // C1 .. NC4 gains of the chromatograph panel; the pentanes have no box
    // and count as they come.
    std::array<double, 7> gasGains{1, 1, 1, 1, 1, 1, 1};
    int oilIndicator = 0;
};

FileOptions ReadFileOptions(const Workstation& ws);

// The gas units column: in ppm, or the chosen percentage of the units.
double GasUnitsOut(const FileOptions& o, double tg);

// The nine C value columns (C1, C2, C3, iC4, nC4, iC5, nC5, C4, C5) as text,
// from the seven gases and the total gas. fractionOfNothing: the share C1
// takes of a sample with no gas at all (100 in the depth LAS, 1 in the XLS).
std::array<QString, 9> CValues(const FileOptions& o, const std::array<double, 7>& gas, double tg,
                               double fractionOfNothing);

// The oil indicator of a foot from its C1 .. NC4 peaks, by option 1 to 4; 0
// for none.
double OilIndicator(int option, const std::array<double, 7>& gas);

} // namespace products
