#pragma once
// The two tables of a job file, column by column, and the queries every job
// opens them with.

#include "db/database.h"

#include <QString>
#include <array>

namespace db {

struct ColumnDef {
    const char* name;
    DataType type;
};

// The record table, one row per packet, in the order of the text export with
// the late columns (IC5, NC5) beside their kin and the KW channels last but
// the two text columns.
inline constexpr std::array<ColumnDef, 49> kRecordColumns = {{
    {"ID", DataType::Long},
    {"PACKET_NUM", DataType::Long},
    {"SERIAL_NUM", DataType::Text},
    {"DATE_TXT", DataType::Text},
    {"TIME_TXT", DataType::Text},
    {"DT", DataType::Date},
    {"DEPTH", DataType::Double},
    {"DEPTH_RAW", DataType::Double},
    {"GAS_UNITS", DataType::Double},
    {"O2", DataType::Double},
    {"CO2", DataType::Double},
    {"ATTEN", DataType::Double},
    {"TEMP", DataType::Double},
    {"MIN_FT", DataType::Double},
    {"FT_HR", DataType::Double},
    {"LPH", DataType::Double},
    {"SAMPLEVAC", DataType::Double},
    {"VOLTS", DataType::Double},
    {"LOWGUV", DataType::Double},
    {"HIGHGUV", DataType::Double},
    {"CGTESTNUM", DataType::Double},
    {"CGV", DataType::Double},
    {"H2SV", DataType::Double},
    {"H2S", DataType::Double},
    {"ERR_TXT", DataType::Text},
    {"EXT_AMPS", DataType::Double},
    {"CHROM_VAC", DataType::Double},
    {"C1", DataType::Double},
    {"C2", DataType::Double},
    {"C3", DataType::Double},
    {"IC4", DataType::Double},
    {"NC4", DataType::Double},
    {"IC5", DataType::Double},
    {"NC5", DataType::Double},
    {"LAG_GU", DataType::Double},
    {"DATA1", DataType::Double},
    {"BIT_DEPTH", DataType::Double},
    {"TOTAL_SPM", DataType::Double},
    {"TOTAL_STROKES", DataType::Double},
    {"INCLINATION", DataType::Double},
    {"AZIMUTH", DataType::Double},
    {"GAMMA_LAG", DataType::Double},
    {"GAMMA", DataType::Double},
    {"KW7001", DataType::Double},
    {"KW7003", DataType::Double},
    {"KW7005", DataType::Double},
    {"KW7007", DataType::Double},
    {"TEXT1", DataType::Text},
    {"GAS_TEXT", DataType::Text},
}};

// The late columns an older file may lack, in the order they are added.
inline constexpr std::array<const char*, 6> kLateColumns = {"KW7001", "KW7003", "KW7005",
                                                            "KW7007", "IC5",    "NC5"};

inline constexpr std::array<ColumnDef, 6> kLagColumns = {{
    {"ZoneNumber", DataType::Double},
    {"StartDepth", DataType::Double},
    {"EndDepth", DataType::Double},
    {"StrPer100Ft", DataType::Double},
    {"MinPer100Ft", DataType::Double},
    {"Selection", DataType::Double},
}};

// " SELECT * FROM " + table + " ORDER BY PACKET_NUM": the leading blank is
// part of the text.
QString RecordQuery(const QString& table);
inline const QString kLagQuery = QStringLiteral(" SELECT * FROM LagPara ORDER BY ZoneNumber");
inline const QString kLagTable = QStringLiteral("LagPara");
inline const QString kRecordTable = QStringLiteral("OMBRI_DB_010");

// The record table with its unique packet number index and the index on ID.
void CreateRecordTable(const Database& db, const QString& table);
// An ID is a record's place in packet order, and the chart's row tables find
// records by it (a text box, a chromatograph run, a stretch to delete): on a
// long job each of those would read the whole table without this index.
// A job made before it gets it at its next open.
void AddIdIndex(const Database& db, const QString& table);
// The lag zone table with its six rows of a new job (zone 1 from 1 to 30000
// ft, 110 strokes and 0.6 minutes per 100 ft, lag by time per depth).
void CreateLagParaTable(const Database& db);
// A new empty job file at `path` (which must not exist) with both tables.
void MakeBlankJob(const QString& path, const QString& table);

} // namespace db
