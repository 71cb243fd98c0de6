#include "products/las_header.h"

#include "text/datetime.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

namespace products {

namespace {

const char* const kCrLf = "\r\n";

// The header's fixed lines, spaced as the readers of these files expect them.
const char* const kTop[] = {
    "~VERSION INFORMATION",
    "VERS      .     2                                    : CWLS Log ASCII Standard Version",
    "WRAP      .           NO                             : One Line per Depth Step",
    ("DLM       .           SPACE                          : Delimiter between data columns - one "
     "or more spaces"),
    "~WELL INFORMATION"};
const char* const kStrtFt = "STRT      .ft   ";
const char* const kStrtMet = "STRT      .met  ";
const char* const kStrtTail = "                                    : First Depth";
const char* const kStopFt = "STOP      .ft   ";
const char* const kStopMet = "STOP      .met  ";
const char* const kStopTail = "                                : Last Depth";
const char* const kStepFt =
    "STEP      .ft   1                                    : Depth Increment";
const char* const kStepMet =
    "STEP      .met  1                                    : Depth Increment";
const char* const kWell[] = {
    "NULL      .     -999.25                              : NULL Value",
    "COMP      .                                          : Well Operator",
    "WELL      .                                          : Well Name",
    "FLD       .                                          : Field",
    "LOC       .                                          : Location",
    "SRVC      .                                          : Ombri Instruments (R)"};
const char* const kDateHead = "DATE      .           ";
const char* const kDateTail = "                     : LAS Export Date";
const char* const kRegion[] = {
    "CTRY      .                                          : Country",
    "PROV      .                                          : Province       (required if CTRY = CA)",
    "UWI       .                                          : Unique Well ID (required if CTRY = CA)",
    "LIC       .                                          : License        (required if CTRY = CA)",
    "STAT      .                                          : State          (required if CTRY = US)",
    ("CNTY      .                                          : County         (required if CTRY = "
     "US)")};
const char* const kApiHead = "API       . ";
const char* const kApiTail = "                     : API Number     (required if CTRY = US)";
const char* const kApiEmpty =
    "API       .                                          : API Number     (required if CTRY = US)";
const char* const kBottom[] = {
    "# Surface Coords:",
    "LATI      .DEG                                       : Latitude  - see Surface Coords comment "
    "above",
    "LONG      .DEG                                       : Longitude - see Surface Coords comment "
    "above",
    "GDAT      .                                          : Geodetic Datum",
    "~PARAMETER",
    "# There are no parameters",
    "~CURVE"};
const char* const kDepthMet =
    "Depth     .met                                       : Depth channel";
const char* const kDepthFt = "Depth     .ft                                        : Depth channel";
const char* const kRopMet = "ROP       .min/met                                   : Rate Of "
                            "Penetration - Min Per Meter as received";
const char* const kRopFtHr = "ROP       .ft/Hr                                     : Rate Of "
                             "Penetration - Foot Per Hour as received";
const char* const kRopMinFt = "ROP       .min/ft                                    : Rate Of "
                              "Penetration - Min Per Foot as received";
const char* const kTgPpm =
    "TG        .ppm                                       : Total Sum Detected Gasses";
const char* const kTgUnits =
    "TG        .Units                                     : Total Sum Detected Gasses";
const char* const kCPpm[] = {
    "C1        .ppm                                       : Methane ppm",
    "C2        .ppm                                       : Ethane ppm",
    "C3        .ppm                                       : Propane ppm",
    "iC4       .ppm                                       : Iso Butane ppm",
    "nC4       .ppm                                       : Normal Butane ppm",
    "iC5       .ppm                                       : Iso Pentane ppm",
    "nC5       .ppm                                       : Normal Pentane ppm",
    "C4        .ppm                                       : Iso + Normal Butane ppm",
    "C5        .ppm                                       : Iso + Normal Pentane ppm"};
const char* const kCUnits[] = {
    "C1        .Units                                     : Methane Gas Units",
    "C2        .Units                                     : Ethane Gas Units",
    "C3        .Units                                     : Propane Gas Units",
    "iC4       .Units                                     : Iso Butane Gas Units",
    "nC4       .Units                                     : Normal Butane Gas Units",
    "iC5       .Units                                     : Iso Pentane Gas Units",
    "nC5       .Units                                     : Normal Pentane Gas Units",
    "C4        .Units                                     : Iso + Normal Butane Gas Units",
    "C5        .Units                                     : Iso + Normal Pentane Gas Units"};
// The iso and normal lines say Units in the percent header too: the office's
// templates were made against it.
const char* const kCPercent[] = {
    "C1        .Percent                                   : Methane Percent",
    "C2        .Percent                                   : Ethane Percent",
    "C3        .Percent                                   : Propane Percent",
    "iC4       .Units                                     : Iso Butane Percent",
    "nC4       .Units                                     : Normal Butane Percent",
    "iC5       .Units                                     : Iso Pentane Percent",
    "nC5       .Units                                     : Normal Pentane Percent",
    "C4        .Percent                                   : Iso + Normal Butane Percent",
    "C5        .Percent                                   : Iso + Normal Pentane Percent"};
const char* const kTg2Ppm =
    "TG2       .ppm                                       : Total Sum Detected Gasses";
const char* const kTg2Units =
    "TG2       .Units                                     : Total Sum Detected Gasses";
const char* const kFixed[] = {
    "GAMMA     .APIUnits                                  : Gamma Ray",
    "O2        .Percent                                   : Oxygen percent of total",
    "CO2       .Percent                                   : Carbon Dioxide percent of total",
    "H2S       .ppm                                       : Hydrogen Sulfide (Sulphide) ppm",
    "OILIND    .Units                                     : Oil Indicator"};
const char* const kCustomMid = "    .units                : ";
const char* const kTimeDate =
    "TIMEDATE  .Date                                      : Most Current Time And Date Of Ft "
    "Drilled";

class Lines {
  public:
    void operator<<(const QString& line) {
        text_ += line;
        text_ += kCrLf;
    }
    void operator<<(const char* line) { *this << QString::fromLatin1(line); }
    QString take() { return std::move(text_); }

  private:
    QString text_;
};

// Entries 1 to 21: version, well and region, the same in both headers.
void WellSection(Lines& out, const FileOptions& o, const QDate& today, int32_t first,
                 int32_t last) {
    for (const char* l : kTop) out << l;
    out << QString::fromLatin1(o.metric ? kStrtMet : kStrtFt) + text::Format(first, u"0") +
               kStrtTail;
    out << QString::fromLatin1(o.metric ? kStopMet : kStopFt) + text::Format(last, u"0") +
               kStopTail;
    out << (o.metric ? kStepMet : kStepFt);
    for (const char* l : kWell) out << l;
    out << kDateHead + text::FormatDate(QDateTime(today, QTime(0, 0)), u"MM/DD/YYYY") + kDateTail;
    for (const char* l : kRegion) out << l;
}

void DepthAndGasCurves(Lines& out, const FileOptions& o) {
    out << (o.metric ? kDepthMet : kDepthFt);
}

} // namespace

QString Create_LAS_header(const FileOptions& o, const QDate& today, int32_t first, int32_t last) {
    Lines out;
    WellSection(out, o, today, first, last);
    // A number of 20 characters or more has no room: the line is left out.
    if (o.apn.size() < 20) out << kApiHead + o.apn.leftJustified(20, u' ') + kApiTail;
    for (const char* l : kBottom) out << l;
    DepthAndGasCurves(out, o);
    out << (o.metric ? kRopMet : o.ropIsFtHr ? kRopFtHr : kRopMinFt);
    out << (o.guAsPpm ? kTgPpm : kTgUnits);
    const char* const* c = o.cUnit == CUnit::Ppm        ? kCPpm
                           : o.cUnit == CUnit::GasUnits ? kCUnits
                                                        : kCPercent;
    for (int i = 0; i < 9; ++i) out << c[i];
    out << (o.guAsPpm ? kTg2Ppm : kTg2Units);
    for (const char* l : kFixed) out << l;
    for (const QString& name : o.customNames) out << name + kCustomMid + name;
    if (o.addTimeDate) out << kTimeDate;
    return out.take();
}

QString Create_Gas_Only_LAS_header(const FileOptions& o, const QDate& today, int32_t first,
                                   int32_t last) {
    Lines out;
    WellSection(out, o, today, first, last);
    out << kApiEmpty;
    for (const char* l : kBottom) out << l;
    DepthAndGasCurves(out, o);
    out << (o.guAsPpm ? kTgPpm : kTgUnits);
    return out.take();
}

QString Create_LAS_header(const Workstation& ws, int32_t& first, int32_t& last) {
    return Create_LAS_header(ReadFileOptions(ws), ws.Now().date(), first, last);
}

QString Create_Gas_Only_LAS_header(const Workstation& ws, int32_t& first, int32_t& last) {
    return Create_Gas_Only_LAS_header(ReadFileOptions(ws), ws.Now().date(), first, last);
}

QString ColumnLine(const FileOptions& o, bool withTimeDate) {
    static const char* const kNames[] = {"#Depth", "ROP",   "TG",  "C1",  "C2",  "C3",
                                         "iC4",    "nC4",   "iC5", "nC5", "C4",  "C5",
                                         "TG2",    "GAMMA", "O2",  "CO2", "H2S", "OILIND"};
    QString line;
    for (const char* n : kNames) line += QString::fromLatin1(n) + o.separator;
    for (int i = 0; i < 4; ++i) line += o.customNames[i] + (i < 3 ? o.separator : QString());
    if (withTimeDate) line += o.separator + "TimeDate";
    return line + kCrLf;
}

} // namespace products
