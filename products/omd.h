#pragma once
// The program's own record text (OMD) and the CSV file: whole records out of
// the job and back into it.

#include <QString>
#include <array>
#include <cstdint>

class Workstation;

namespace products {

// The columns of the text forms, in their order.
inline constexpr std::array<const char*, 42> kOmdColumns = {"PACKET_NUM",  "SERIAL_NUM",
                                                            "DATE_TXT",    "TIME_TXT",
                                                            "DEPTH_RAW",   "DEPTH",
                                                            "GAS_UNITS",   "C1",
                                                            "C2",          "C3",
                                                            "IC4",         "NC4",
                                                            "O2",          "CO2",
                                                            "ATTEN",       "TEMP",
                                                            "MIN_FT",      "FT_HR",
                                                            "LPH",         "SAMPLEVAC",
                                                            "VOLTS",       "LOWGUV",
                                                            "HIGHGUV",     "CGTESTNUM",
                                                            "CGV",         "H2SV",
                                                            "H2S",         "ERR_TXT",
                                                            "EXT_AMPS",    "CHROM_VAC",
                                                            "LAG_GU",      "BIT_DEPTH",
                                                            "TOTAL_SPM",   "TOTAL_STROKES",
                                                            "INCLINATION", "AZIMUTH",
                                                            "GAMMA_LAG",   "GAMMA",
                                                            "DATA1",       "TEXT1",
                                                            "IC5",         "NC5"};

enum class TextForm { Omd, Csv };

// Writes every record of the open job to path; the count of records. Lets
// the loop run every 500 records with the count in the information box.
// Throws FileError or DbError.
long ExportRecords(Workstation& ws, const QString& path, TextForm form);

void cmd_export_txt_Click(Workstation& ws);
void cmd_export_to_csv_Click(Workstation& ws);

// What an import did with the lines of its file.
struct ImportCounts {
    long read = 0;
    long added = 0;
    long skipped = 0; // already in the job
    long refused = 0; // not a record
    int error = 0;    // the error that ended the run early, 0 when none
};

// Merges the records of an OMD file into the job of txt_db_path. A name
// shorter than 3 characters asks for the file.
ImportCounts Import_OMD_file(Workstation& ws, const QString& file_name);
void cmd_import_txt_Click(Workstation& ws);

} // namespace products
