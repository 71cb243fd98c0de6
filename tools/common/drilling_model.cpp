#include "tools/common/drilling_model.h"

#include "text/datetime.h"
#include "text/numbers.h"

#include <algorithm>
#include <cmath>
#include <deque>

namespace drill {

namespace {

// splitmix64: the same numbers from the same seed on every machine and
// standard library, which std:: distributions do not promise.
class Random {
  public:
    explicit Random(uint64_t seed) : s_(seed * 0x9E3779B97F4A7C15ull + 0x1234567ull) {}
    uint64_t bits() {
        uint64_t z = (s_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    double unit() { return double(bits() >> 11) * (1.0 / 9007199254740992.0); }
    double range(double lo, double hi) { return lo + (hi - lo) * unit(); }
    int whole(int lo, int hi) { return lo + int(bits() % uint64_t(hi - lo + 1)); }
    bool chance(double p) { return unit() < p; }

  private:
    uint64_t s_;
};

// What the rig is doing, in the order of one connection.
enum class Phase {
    Drilling, // bit on bottom, pumps on
    PickUp,   // pumps on, bit lifted off bottom to circulate
    PumpsOff, // the connection itself: pumps off, a stand added
    PumpsUp,  // pumps back on, bit still off bottom
    RunIn,    // lowering back to bottom
};

struct Formation {
    double base = 40;       // ft/hr
    double bottom = 0;      // ft
    double background = 20; // gas units
};

struct Show {
    double top = 0, thick = 0, peak = 0, wetness = 0;
};

struct Returned {
    double depth = 0;   // hole depth when this mud left the bit
    double connGas = 0; // gas the connection left at the bit
};

// Sample numbers within one chromatograph run where each peak window opens,
// peaks and closes; C1, C2, C3, IC4, NC4, IC5, NC5.
struct Window {
    int from, top, to;
};
constexpr std::array<Window, 7> kWindows{
    {{3, 4, 6}, {7, 8, 10}, {11, 13, 15}, {16, 17, 19}, {20, 21, 23}, {25, 27, 29}, {30, 32, 34}}};
constexpr int kRunSamples = 40; // four minutes a run
constexpr double kSampleSeconds = 6;

std::array<double, 7> DefaultPeakSeconds() {
    std::array<double, 7> t{};
    for (size_t i = 0; i < 7; ++i) t[i] = kWindows[i].top * kSampleSeconds;
    return t;
}

constexpr std::array<double, 7> kDryGas{0.90, 0.06, 0.025, 0.006, 0.007, 0.001, 0.001};
constexpr std::array<double, 7> kWetGas{0.65, 0.15, 0.10, 0.03, 0.04, 0.015, 0.015};

QString F(double v, const char* pattern) {
    return text::Format(v, QString::fromLatin1(pattern));
}

} // namespace

struct Model::Impl {
    Options opt;
    Random rnd;
    QDateTime time;
    long packet = 0;
    long samples = 0;

    // drilling
    double hole = 0, bit = 0;
    Phase phase = Phase::Drilling;
    int phaseLeft = 0;
    double liftTo = 0;
    double nextConnection = 0;
    Formation form;
    double ropNoise = 0;
    double rop = 40;
    double lastFoot = 0;    // whole foot last closed
    double footSeconds = 0; // time on the foot being drilled
    double minFt = 1.5, ftHr = 40;
    double spmSet[3] = {0, 0, 0};
    bool pumps = true;
    bool justRestarted = false;
    double strokes = 0;

    // gas
    std::deque<Returned> annulus;
    std::deque<Show> shows; // ahead of the bit and still in the annulus
    double gas = 20;
    double wetNow = 0;
    double h2s = 0;
    int h2sLeft = 0;

    // chromatograph
    long testNum = 0;
    int runSample = 0;
    double injectGas = 20;
    double injectWet = 0;
    std::array<double, 7> split{};
    std::array<double, 7> runHeights{};
    double cgBase = 1.1;
    // Seconds from a run's first sample to each peak: the taught table, and
    // the copy the run under way keeps so a lesson never splits a run.
    std::array<double, 7> peakSeconds = DefaultPeakSeconds();
    std::array<double, 7> runPeaks = peakSeconds;

    // slow instrument values
    double o2 = 20.9, co2 = 0.1, caseTemp = 38, lph = 65, vac = 6.2, volts = 13.4;
    double hrmTemp = 34, acVolts = 120, extAmps = 2.4, chromVac = 11, exhPrs = 1.4, colTemp = 60;
    double hobbs = 1234.5;
    double motor = 65;
    int alarmLeft = 0;
    QString alarmText;

    // survey and gamma
    double inc = 2.5, azi = 135, gamma = 60;

    explicit Impl(const Options& o) : opt(o), rnd(o.seed) {
        time = opt.start;
        packet = opt.firstPacket - 1;
        hole = bit = opt.startDepth;
        lastFoot = std::floor(hole);
        nextConnection = std::floor(hole / 90.0) * 90.0 + 90.0 + rnd.range(-2, 2);
        newFormation();
        newShow(hole + rnd.range(40, 250));
        rop = form.base;
        ftHr = rop;
        minFt = 60.0 / rop;
        for (double& s : spmSet) s = rnd.range(30, 40);
        gas = form.background;
        injectGas = gas;
        split = mix(gas, 0);
    }

    void newFormation() {
        form.base = rnd.range(20, 120);
        form.bottom = hole + rnd.range(25, 220);
        form.background = rnd.range(10, 40);
    }
    void newShow(double top) {
        Show show;
        show.top = top;
        show.thick = rnd.range(4, 25);
        show.peak = rnd.range(200, 2000);
        show.wetness = rnd.unit();
        shows.push_back(show);
    }
    static std::array<double, 7> mix(double g, double wet) {
        std::array<double, 7> out{};
        for (int i = 0; i < 7; ++i)
            out[size_t(i)] = g * (kDryGas[size_t(i)] * (1 - wet) + kWetGas[size_t(i)] * wet);
        return out;
    }

    // Gas that the formation at depth d gives off, and how wet it is.
    double showGas(double d, double& wet) {
        wet = 0;
        while (shows.size() > 1 && shows.front().top + shows.front().thick < d) shows.pop_front();
        for (const Show& show : shows) {
            if (d < show.top || d > show.top + show.thick) continue;
            wet = show.wetness;
            return show.peak * std::pow(std::sin(M_PI * (d - show.top) / show.thick), 0.7);
        }
        return 0;
    }

    void stepRig() {
        switch (phase) {
        case Phase::Drilling: {
            ropNoise = std::clamp(ropNoise * 0.97 + rnd.range(-0.08, 0.08), -1.0, 1.0);
            rop = std::max(5.0, form.base * (1 + 0.25 * ropNoise));
            hole += rop / 600.0;
            bit = hole;
            if (hole >= form.bottom) newFormation();
            if (hole > shows.back().top)
                newShow(shows.back().top + shows.back().thick + rnd.range(80, 400));
            if (hole >= nextConnection) {
                phase = Phase::PickUp;
                phaseLeft = rnd.whole(6, 15);
                liftTo = hole - rnd.range(5, 30);
                nextConnection += rnd.range(88, 94);
            }
            break;
        }
        case Phase::PickUp:
            bit = std::max(liftTo, bit - 8);
            if (--phaseLeft <= 0) {
                phase = Phase::PumpsOff;
                phaseLeft = rnd.whole(25, 50);
                pumps = false;
            }
            break;
        case Phase::PumpsOff:
            if (--phaseLeft <= 0) {
                phase = Phase::PumpsUp;
                phaseLeft = rnd.whole(5, 10);
                pumps = true;
                justRestarted = true;
                for (double& s : spmSet) s = std::clamp(s + rnd.range(-2, 2), 28.0, 40.0);
                // a survey is taken at each connection
                inc = std::clamp(inc + rnd.range(-0.3, 0.4), 0.0, 12.0);
                azi = std::fmod(azi + rnd.range(-2, 2) + 360, 360);
            }
            break;
        case Phase::PumpsUp:
            if (--phaseLeft <= 0) {
                phase = Phase::RunIn;
                phaseLeft = 4;
            }
            break;
        case Phase::RunIn:
            bit = std::min(hole, bit + (hole - liftTo) / 3.0);
            if (--phaseLeft <= 0) {
                bit = hole;
                phase = Phase::Drilling;
            }
            break;
        }

        footSeconds += 6;
        if (std::floor(hole) > lastFoot) {
            double feet = std::floor(hole) - lastFoot;
            minFt = std::max(0.05, footSeconds / 60.0 / feet);
            ftHr = 60.0 / minFt;
            lastFoot = std::floor(hole);
            footSeconds = 0;
        }
    }

    void stepGas() {
        // Mud is only returned while the pumps run; the gas the detector
        // sees is what the bit cut a lag's worth of pumping ago.
        size_t lag = size_t(100 + hole / 50.0);
        if (pumps) {
            Returned r{hole, 0};
            if (justRestarted) r.connGas = rnd.range(30, 120);
            annulus.push_back(r);
            while (annulus.size() > lag + 1) annulus.pop_front();
        }
        double target;
        if (!pumps) {
            target = form.background * 0.3;
            wetNow = 0;
        } else {
            Returned at = annulus.size() > lag ? annulus.front() : Returned{opt.startDepth, 0};
            double wet = 0;
            target = form.background + showGas(at.depth, wet) + at.connGas;
            wetNow = wet;
        }
        gas += (target - gas) * 0.5;
        gas = std::max(0.5, gas * (1 + rnd.range(-0.03, 0.03)));
        justRestarted = false;

        if (h2sLeft > 0) {
            --h2sLeft;
            if (h2sLeft == 0) h2s = 0;
        } else if (rnd.chance(0.002)) {
            h2sLeft = rnd.whole(3, 20);
            h2s = rnd.whole(1, 15);
        }
    }

    // One sample of the chromatograph trace with its two digit fields.
    QString stepChromatograph(long& testOut) {
        if (runSample == 0) {
            // The split of the run just ended comes with this first packet.
            split = mix(injectGas, injectWet);
            ++testNum;
            injectGas = gas;
            injectWet = wetNow;
            auto frac = mix(1, injectWet);
            for (size_t i = 0; i < 7; ++i)
                runHeights[i] = 1.5 * std::log10(1 + injectGas * frac[i]);
            cgBase = std::clamp(cgBase + rnd.range(-0.01, 0.01), 1.0, 1.3);
            runPeaks = peakSeconds;
        }
        double v = cgBase + rnd.range(-0.002, 0.002);
        int found = 0, window = 0;
        for (size_t i = 0; i < 7; ++i) {
            // The window keeps its width around wherever the peak was taught.
            const Window& w = kWindows[i];
            const double top = runPeaks[i] / kSampleSeconds;
            const double dx = runSample - top;
            v += runHeights[i] * std::exp(-dx * dx / 1.3);
            if (runSample >= top) found = int(i) + 1;
            if (dx >= w.from - w.top && dx <= w.to - w.top) window = int(i) + 1;
        }
        v = std::clamp(v, 1.0, 9.99999);
        testOut = testNum;
        runSample = (runSample + 1) % kRunSamples;
        QString t = F(v, "0.00000") + QString::number(found) + QString::number(window);
        return text::Str(text::Val(t));
    }

    void stepSlow() {
        auto drift = [&](double& x, double step, double lo, double hi) {
            x = std::clamp(x + rnd.range(-step, step), lo, hi);
        };
        drift(o2, 0.02, 20.5, 21.0);
        drift(co2, 0.01, 0.03, 0.5);
        drift(caseTemp, 0.05, 30, 45);
        drift(lph, 0.3, 58, 72);
        drift(vac, 0.05, 5, 8);
        drift(volts, 0.02, 12.6, 13.8);
        drift(hrmTemp, 0.05, 30, 40);
        drift(acVolts, 0.3, 116, 124);
        drift(extAmps, 0.02, 2.0, 3.0);
        drift(chromVac, 0.05, 9.5, 12.5);
        drift(exhPrs, 0.02, 1.0, 2.0);
        drift(colTemp, 0.05, 58, 62);
        drift(motor, 0.2, 60, 70);
        drift(gamma, 4, 20, 150);
        hobbs += 6.0 / 3600.0;
    }

    QString alarms() {
        if (alarmLeft > 0) {
            --alarmLeft;
        } else {
            alarmText.clear();
            static const char* kRare[] = {"6 ", "2 ", "16 ", "5 "};
            if (rnd.chance(0.001)) {
                alarmText = QString::fromLatin1(kRare[rnd.whole(0, 3)]);
                alarmLeft = rnd.whole(3, 20);
            }
        }
        QString t = alarmText;
        if (gas > 1500 && !t.contains(QLatin1String("12 "))) t += QStringLiteral("12 ");
        if (h2s > 10) t += QStringLiteral("17 ");
        return t.isEmpty() ? QStringLiteral("0 ") : t;
    }
};

Model::Model(const Options& opt) : d_(std::make_shared<Impl>(opt)) {}

int Model::PeakIndex(const QString& name) {
    static const char* kNames[] = {"C1", "C2", "C3", "IC4", "NC4", "IC5", "NC5"};
    for (int i = 0; i < 7; ++i)
        if (name.trimmed().compare(QLatin1String(kNames[i]), Qt::CaseInsensitive) == 0) return i;
    return -1;
}

bool Model::setPeakTime(int peak, double seconds) {
    // A peak must fall inside the run for the run to find it.
    if (peak < 0 || peak > 6 || !(seconds > 0) || seconds >= kRunSamples * kSampleSeconds)
        return false;
    d_->peakSeconds[size_t(peak)] = seconds;
    return true;
}

double Model::peakTime(int peak) const {
    return d_->peakSeconds.at(size_t(peak));
}

Sample Model::next() {
    Impl& m = *d_;
    if (m.samples > 0) m.time = m.time.addSecs(6);
    ++m.samples;
    ++m.packet;
    m.stepRig();
    m.stepGas();
    m.stepSlow();
    long test = 0;
    QString cgv = m.stepChromatograph(test);

    double spm[3];
    for (int i = 0; i < 3; ++i)
        spm[i] = m.pumps ? std::round(m.spmSet[i] + m.rnd.range(-0.6, 0.6)) : 0;
    double total = spm[0] + spm[1] + spm[2];
    m.strokes += total / 10.0;

    Sample s;
    s.time = m.time;
    s.holeDepth = m.hole;
    s.bitDepth = m.bit;
    s.spm = total;
    s.onBottom = m.bit >= m.hole;
    s.pumpsOn = m.pumps;
    s.packetNumber = m.packet;

    double gu = m.gas;
    auto& f = s.fields;
    f[0] = m.opt.serial;
    f[1] = text::FormatDate(m.time, u"MM/DD/YYYY");
    f[2] = text::FormatDate(m.time, u"HH:MM:SS");
    f[3] = text::Str(std::floor(m.hole));
    f[4] = F(gu, "0.0");
    f[5] = F(m.o2 - std::min(0.5, gu / 10000.0), "0.00");
    f[6] = F(m.co2, "0.00");
    f[7] = QStringLiteral("1");
    f[8] = F(m.caseTemp, "0.0");
    f[9] = F(m.minFt, "0.00");
    f[10] = F(m.ftHr, "0.0");
    f[11] = F(m.lph, "0.0");
    f[12] = F(m.vac, "0.00");
    f[13] = F(m.volts, "0.00");
    f[14] = F(std::min(4.95, 0.2 + gu * 0.0008), "0.000");
    f[15] = F(std::min(4.95, 0.05 + gu * 0.0002), "0.000");
    f[16] = QString::number(test);
    f[17] = cgv;
    f[18] = F(0.4 + m.h2s * 0.02, "0.000");
    f[19] = text::Str(m.h2s);
    f[20] = m.alarms();
    f[21] = F(m.motor, "0");
    f[22] = F(-65 + m.rnd.range(-3, 3), "0");
    f[23] = F(m.acVolts, "0.0");
    f[24] = QStringLiteral("60");
    f[25] = F(m.extAmps, "0.00");
    f[26] = F(m.hrmTemp, "0.0");
    f[27] = F(m.chromVac, "0.00");
    f[28] = QString::number(m.packet);
    for (int i = 0; i < 5; ++i) f[size_t(29 + i)] = F(m.split[size_t(i)], "0.00");
    f[34] = F(m.exhPrs, "0.00");
    f[35] = F(m.colTemp, "0.0");
    f[36] = QStringLiteral("0");
    f[37] = F(m.hobbs, "0.0");
    f[38] = F(m.split[5], "0.00");
    f[39] = F(m.split[6], "0.00");

    s.wits = {
        {108, std::round(m.bit * 10) / 10},
        {110, std::round(m.hole * 10) / 10},
        {113, m.phase == Phase::Drilling ? std::round(m.rop * 10) / 10 : 0},
        {117, m.phase == Phase::Drilling ? std::round(m.rnd.range(18, 30) * 10) / 10 : 0},
        {120, m.phase == Phase::Drilling ? std::round(m.rnd.range(110, 130)) : 0},
        {121, m.pumps ? std::round(m.rnd.range(2800, 3000)) : 0},
        {123, spm[0]},
        {124, spm[1]},
        {125, spm[2]},
        {126, std::round((480 + m.rnd.range(-1, 1)) * 10) / 10},
        {137, std::floor(m.strokes)},
        {713, std::round(m.inc * 100) / 100},
        {715, std::round(m.azi * 100) / 100},
        {821, std::round((m.hole - 40) * 10) / 10},
        {823, std::round(m.gamma * 10) / 10},
    };
    return s;
}

void Model::setHoleDepth(double feet) {
    Impl& m = *d_;
    m.hole = m.bit = std::max(0.0, feet);
    m.lastFoot = std::floor(m.hole);
    m.footSeconds = 0;
    m.nextConnection = std::floor(m.hole / 90.0) * 90.0 + 90.0;
    if (m.phase != Phase::PumpsOff) m.phase = Phase::Drilling;
    m.form.bottom = m.hole + m.rnd.range(25, 220);
    m.shows.clear();
    m.newShow(m.hole + m.rnd.range(40, 250));
}

double Model::holeDepth() const {
    return d_->hole;
}

QString Model::PacketLine(const Sample& s) {
    QString line = QStringLiteral("*");
    for (size_t i = 0; i < s.fields.size(); ++i) {
        if (i) line += QLatin1Char(',');
        line += s.fields[i];
    }
    return line + QStringLiteral("\r\n");
}

QString Model::WitsLine(const Sample& s) {
    // Header items 0 to 4 (serial, date, time, depth, packet) are not read
    // as WITS items by the receiver; the items proper start at index 5.
    QString line = QStringLiteral("^") + s.fields[0] + QLatin1Char(',') + s.fields[1] +
                   QLatin1Char(',') + s.fields[2] + QLatin1Char(',') + s.fields[3] +
                   QLatin1Char(',') + QString::number(s.packetNumber);
    // Fixed decimals keep every item at six characters or more, the least a
    // receiver reads: a pump at rest is "01230.0", never "01230".
    for (const WitsItem& w : s.wits)
        line += QLatin1Char(',') + QStringLiteral("%1").arg(w.code, 4, 10, QLatin1Char('0')) +
                F(w.value, w.code / 100 == 7 ? "0.00" : "0.0");
    return line + QStringLiteral("\r\n");
}

} // namespace drill
