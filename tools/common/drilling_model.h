#pragma once
// A deterministic model of a well being drilled, sampled every six seconds:
// what the gas instrument would send (the 40 packet fields) and what the
// rig's data recorder would send over WITS (bit and hole depth, pump
// strokes, gamma, custom channels). The instrument simulator and the
// demonstration job maker both draw from it, so what a trainee sees live and
// what the demonstration job holds tell the same story.

#include <QDateTime>
#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace drill {

struct WitsItem {
    int code; // record and item, such as 108 for 0108
    double value;
};

struct Sample {
    // The packet fields in order, index 0 (serial number) to 39 (nC5), as
    // text the instrument would send them.
    std::array<QString, 40> fields;
    // The WITS items of this moment (bit depth 0108, hole depth 0110, pump
    // rates 0123-0125, gamma 0823, custom channels ...).
    std::vector<WitsItem> wits;
    QDateTime time;
    double holeDepth = 0;
    double bitDepth = 0;
    double spm = 0;
    bool onBottom = false;
    bool pumpsOn = false;
    long packetNumber = 0;
};

struct Options {
    uint32_t seed = 1;
    QDateTime start = QDateTime(QDate(2026, 11, 1), QTime(6, 0, 0));
    double startDepth = 4500; // feet
    QString serial = QStringLiteral("KW1042");
    long firstPacket = 1;
};

class Model {
  public:
    explicit Model(const Options& opt = {});
    // The next six-second sample.
    Sample next();
    // The operator set the geolograph: drilling goes on from this depth.
    void setHoleDepth(double feet);
    double holeDepth() const;
    // The chromatograph's peak table, in the order C1, C2, C3, IC4, NC4,
    // IC5, NC5: seconds from a run's first sample to the top of each peak.
    // A new time is used from the next run on; false (nothing changed) for
    // an unknown peak or a time outside a run.
    static int PeakIndex(const QString& name); // -1 for an unknown name
    bool setPeakTime(int peak, double seconds);
    double peakTime(int peak) const;
    // The packet as the instrument sends it: "*" + fields joined by commas + CR LF.
    static QString PacketLine(const Sample& s);
    // The WITS items relayed by the instrument: "^" + five header items,
    // then four-digit code and value per item, comma separated, CR LF.
    static QString WitsLine(const Sample& s);

  private:
    struct Impl;
    std::shared_ptr<Impl> d_;
};

} // namespace drill
