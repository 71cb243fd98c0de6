#pragma once
// What the job store keeps for the run: the shared connections and the
// record writer's running figures.

#include "store/database.h"
#include "store/recordset.h"

#include <QDateTime>
#include <cstdint>

namespace store {

struct StoreState {
    // The record writer's own state.
    QDateTime LastRecordTime;
    int32_t NextRecordId = 1;
    bool WritePrimaryDiag = true;
    int32_t RecordCount = 0;

    // The long-lived workspace, created at start and again after a compact.
    Workspace Gworkspace;
    // The shared connection and dynaset the chart and the geolograph edits
    // read through, on " SELECT * FROM " + Gtable_name + " ORDER BY
    // PACKET_NUM".
    Database Gdb;
    Recordset Grecords;
    // Second set: rate of penetration collection, conversion source.
    Database GdbScan;
    Recordset GrecordsScan;
    // Third set: place holders.
    Database GdbInsert;
    Recordset GrecordsInsert;

    // The chart's position marks, as record positions (AbsolutePosition):
    // the newest record but one, the top of the page, and where the next
    // hour block read starts.
    int32_t LastRecord = 0;
    int32_t ChartTopRecord = 0;
    int32_t HourPointer = 0;

    // The record writer's connection, kept between rows while the file under
    // the path stays the same one (see record_writer.cpp).
    Database writerDb;
    QString writerPath;
    uint64_t writerFileId = 0;
};

} // namespace store
