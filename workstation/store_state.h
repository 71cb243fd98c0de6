#pragma once
// What the job store keeps for the run: the shared connections and the
// record writer's running figures.

#include "db/database.h"
#include "db/recordset.h"

#include <QDateTime>
#include <cstdint>
#include <vector>

namespace store {

struct StoreState {
    // A job holds the shared connections ("DB Busy"); another job finds it
    // set and returns at once. Take it with DbBusy (busy_guard.h).
    bool Gdb_busy = false;
    // A database job failed; tmr_DB_ERROR serves it.
    bool Gdb_error = false;
    QString Gtable_name = QStringLiteral("OMBRI_DB_010");

    // The record writer's own state.
    QDateTime LastRecordTime;
    int32_t NextRecordId = 1;
    bool WritePrimaryDiag = true;
    int32_t RecordCount = 0;

    // The long-lived workspace, created at start and again after a compact.
    db::Workspace Gworkspace;
    // The shared connection and dynaset the chart and the geolograph edits
    // read through, on " SELECT * FROM " + Gtable_name + " ORDER BY
    // PACKET_NUM".
    db::Database Gdb;
    db::Recordset Grecords;
    // Second set: rate of penetration collection, conversion source.
    db::Database GdbScan;
    db::Recordset GrecordsScan;
    // Third set: place holders.
    db::Database GdbInsert;
    db::Recordset GrecordsInsert;

    // The record writer's connection, kept between rows while the file under
    // the path stays the same one (see record_writer.cpp).
    db::Database writerDb;
    QString writerPath;
    uint64_t writerFileId = 0;
    // The failure of the file (not of a packet) the writer last reported,
    // as number and description; empty once a row is stored again.
    QString writerFailure;

    // An edit of the whole job (store/edit_transaction.h) holds the file's
    // write lock while it lets the loop run. Meanwhile the writer keeps each
    // packet's row here, ready to go, and writes them in order once the edit
    // has committed or rolled back.
    struct HeldField {
        const char* column;
        db::Variant value;
        int point; // the writer's step counter at this column
    };
    struct HeldRow {
        std::vector<HeldField> fields;
        QString serial;
    };
    bool writesHeld = false;
    std::vector<HeldRow> heldRows;
};

} // namespace store
