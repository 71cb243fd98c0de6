#pragma once
// What the job store keeps for the run: the shared connections and the
// record writer's running figures.

#include <QDateTime>
#include <cstdint>

namespace store {

struct StoreState {
    // The record writer's own state.
    QDateTime LastRecordTime;
    int32_t NextRecordId = 1;
    bool WritePrimaryDiag = true;
    int32_t RecordCount = 0;
};

} // namespace store
