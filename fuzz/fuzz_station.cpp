#include "fuzz_station.h"

#include "acquisition/tick_table.h"
#include "db/file_id.h"
#include "db/schema.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <memory>

namespace fuzzkit {

namespace {

QGuiApplication& App() {
    // Painting, timers and the information box want an application object;
    // there is no screen on a fuzzing machine.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static QTemporaryDir runtime;
    if (!std::getenv("XDG_RUNTIME_DIR")) setenv("XDG_RUNTIME_DIR", qPrintable(runtime.path()), 1);
    static int argc = 1;
    static char name[] = "gaschart-fuzz";
    static char* argv[] = {name, nullptr};
    static QGuiApplication app(argc, argv);
    return app;
}

struct Held {
    QTemporaryDir dir;
    std::unique_ptr<Workstation> ws;
};

Held MakeStation(bool job) {
    App();
    Held h;
    h.ws = std::make_unique<Workstation>(h.dir.path());
    Workstation& ws = *h.ws;
    acq::Wire(ws);
    // A fixed clock: the same input does the same thing on every run.
    ws.Now = [] { return QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9)); };
    if (job) {
        QDir().mkpath(ws.programFile("DB_CUE"));
        const QString path = ws.programFile("DB_CUE/FUZZ.db");
        db::MakeBlankJob(path, ws.db.Gtable_name);
        ws.fm_Gas_Chart.txt_db_path.setText(path);
        ws.db.writerDb = db::OpenDatabase(path);
        ws.db.writerDb.Execute("PRAGMA synchronous = OFF");
        ws.db.writerPath = path;
        ws.db.writerFileId = db::FileId(path);
    }
    return h;
}

} // namespace

Workstation& Station(bool job) {
    static Held held = MakeStation(job);
    return *held.ws;
}

std::vector<QByteArray> Pieces(const uint8_t* data, size_t size, int longest) {
    FuzzedDataProvider in(data, size);
    std::vector<QByteArray> pieces;
    while (in.remaining_bytes() > 0) {
        const auto n = in.ConsumeIntegralInRange<size_t>(1, static_cast<size_t>(longest));
        const std::vector<char> bytes = in.ConsumeBytes<char>(n);
        if (bytes.empty()) break;
        pieces.emplace_back(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    return pieces;
}

void WriteFile(const Workstation& ws, const QString& name, const QByteArray& bytes) {
    QFile f(ws.programFile(name));
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(bytes);
}

} // namespace fuzzkit
