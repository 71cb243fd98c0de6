// The local WITS intake over an hour of simulated time: frames of the
// drilling model at 1 and at 20 a second, handed to the receive side as the
// 200 ms arrival tick would find them, through the frame test and the
// parse. Reports frames and items a second of work, and whether anything
// grows: the receive buffer, the incoming view, the display list and the
// process's resident memory from the first simulated minute to the last.
#include "tools/common/drilling_model.h"
#include "wits/wits_frame.h"
#include "wits/wits_link.h"
#include "workstation/workstation.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kSecondsInHour = 3600;
constexpr int kTicksPerSecond = 5; // the arrival tick runs every 200 ms

// Resident memory of this process in kB.
long ResidentKb() {
    QFile f("/proc/self/statm");
    if (!f.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> parts = f.readAll().split(' ');
    return parts.size() > 1 ? parts[1].toLong() * 4 : 0;
}

// An hour of frames, made once per rate: the model moves one sample every
// six seconds and each frame carries that sample's items.
std::vector<QString> HourOfFrames(int perSecond) {
    drill::Model model;
    std::vector<QString> frames;
    frames.reserve(size_t(kSecondsInHour * perSecond));
    drill::Sample s = model.next();
    for (int i = 0; i < kSecondsInHour * perSecond; ++i) {
        if (i % (6 * perSecond) == 0) s = model.next();
        std::vector<std::pair<int, QString>> items;
        for (const drill::WitsItem& w : s.wits)
            items.emplace_back(w.code, QString::number(w.value, 'f', 2));
        frames.push_back(wits::kCRLF + wits::Frame(items));
    }
    return frames;
}

void BM_WitsHour(benchmark::State& state) {
    const int perSecond = int(state.range(0));
    const std::vector<QString> frames = HourOfFrames(perSecond);
    QTemporaryDir dir;
    long framesRead = 0;
    long items = 0;
    long rssAfterMinute = 0;
    long rssAtEnd = 0;
    qsizetype maxBuffer = 0;
    for (auto _ : state) {
        Workstation ws(dir.path());
        ws.wits.Gwits_alive = 60;
        size_t next = 0;
        const int perTick = std::max(1, perSecond / kTicksPerSecond);
        for (int tick = 0; tick < kSecondsInHour * kTicksPerSecond; ++tick) {
            // At 1 a second a frame comes every fifth tick; at 20, four a tick.
            QString got;
            if (perSecond >= kTicksPerSecond) {
                for (int k = 0; k < perTick && next < frames.size(); ++k) got += frames[next++];
            } else if (tick % (kTicksPerSecond / perSecond) == 0 && next < frames.size()) {
                got = frames[next++];
            }
            if (!got.isEmpty()) wits::ReceiveWitsText(ws, got);
            maxBuffer = std::max(maxBuffer, ws.wits.WITS_in_buffer.size());
            wits::ServeWitsBuffer(ws);
            // The supervision's second: the stream stays alive on its frames.
            if (tick % kTicksPerSecond == 0 && ws.wits.Gwits_alive > 0) --ws.wits.Gwits_alive;
            if (tick == 60 * kTicksPerSecond) rssAfterMinute = ResidentKb();
        }
        rssAtEnd = ResidentKb();
        framesRead = ws.wits.counts.framesRead;
        items = ws.wits.counts.itemsStored;
        state.counters["raw_view_chars"] = double(ws.fm_WITS.txt_Raw_WITS_In.text().size());
        state.counters["list_rows"] = double(ws.more_data.wits_info.items().size());
    }
    state.counters["frames_sent"] = double(frames.size());
    state.counters["frames_read"] = double(framesRead);
    state.counters["frames_per_s"] =
        benchmark::Counter(double(framesRead), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["items_per_s"] =
        benchmark::Counter(double(items), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["max_buffer_chars"] = double(maxBuffer);
    state.counters["rss_growth_kb"] = double(rssAtEnd - rssAfterMinute);
}
BENCHMARK(BM_WitsHour)->Arg(1)->Arg(20)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
