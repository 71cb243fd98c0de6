#include "products/omd_line.h"

#include <QList>

namespace products {

namespace {

// Where the parts of an "@" line go, by column of the text forms.
enum : int {
    PACKET_NUM = 0,
    DATE_TXT = 2,
    TIME_TXT = 3,
    DEPTH_RAW = 4,
    DEPTH = 5,
    GAS_UNITS = 6,
    C1 = 7,
    C2,
    C3,
    IC4,
    NC4,
    O2 = 12,
    CO2 = 13,
    MIN_FT = 16,
    FT_HR = 17,
    CGTESTNUM = 23,
    CGV = 24,
    H2S = 26,
    BIT_DEPTH = 31,
    TOTAL_SPM = 32,
    INCLINATION = 34,
    AZIMUTH = 35,
    GAMMA = 37,
};

// Parts 4 to 21 of an "@" line; part 4 and part 9 go to two columns each.
struct AtPart {
    int part;
    int column;
};
constexpr AtPart kAtParts[] = {{4, DEPTH_RAW},  {4, DEPTH},      {5, BIT_DEPTH},    {6, GAS_UNITS},
                               {7, O2},         {8, CO2},        {9, MIN_FT},       {9, FT_HR},
                               {10, CGTESTNUM}, {11, CGV},       {12, H2S},         {13, C1},
                               {14, C2},        {15, C3},        {16, IC4},         {17, NC4},
                               {18, GAMMA},     {19, TOTAL_SPM}, {20, INCLINATION}, {21, AZIMUTH}};

} // namespace

OmdLine ReadOmdLine(const QByteArray& line, OmdFields& f, long& recordCount, bool forced) {
    if (line.startsWith('#')) {
        const QList<QByteArray> parts = line.split(',');
        // A whole record has at least 42 parts: the mark and 41 columns.
        if (parts.size() - 1 <= 40) return OmdLine::Bad;
        for (qsizetype i = 1; i < parts.size() && i - 1 < static_cast<qsizetype>(f.size()); ++i)
            f[i - 1] = parts[i].isEmpty() ? QByteArrayLiteral("0") : parts[i];
        return OmdLine::Record;
    }
    if (line.startsWith('@')) {
        const QList<QByteArray> parts = line.split(',');
        if (parts.size() - 1 <= 18) return OmdLine::Bad;
        const QByteArray& d = parts[1];
        const QByteArray& t = parts[2];
        f[DATE_TXT] = "20" + d.left(2) + '/' + d.mid(2, 2) + '/' + d.right(2);
        f[TIME_TXT] = t.left(2) + ':' + t.mid(2, 2) + ':' + t.right(2);
        recordCount += 1;
        f[PACKET_NUM] = forced ? QByteArray::number(recordCount) : parts[3];
        for (const AtPart& p : kAtParts)
            if (p.part < parts.size()) f[p.column] = parts[p.part];
        return OmdLine::Record;
    }
    return OmdLine::Bad;
}

} // namespace products
