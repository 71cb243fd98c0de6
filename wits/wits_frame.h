#pragma once
// The one home of the WITS level 0 wire format, both ways.
//
// A frame is plain text, one item a line: "&&", then per item four decimal
// digits of record and item ("0108") with the value right behind them, then
// "!!". Lines go out ending in CR LF; coming in, CR ends a line and LF is
// ignored.
//
// The workstation's own reading of its receive buffer is deliberately
// simple (BufferLines): it keeps no partial line between ticks. The
// FrameReader below is the careful reader of whole frames that the rig
// recorder simulator and the tests use to check what was sent.

#include <QString>
#include <QStringList>
#include <QStringView>
#include <utility>
#include <vector>

namespace wits {

inline constexpr QChar kCR = QChar(13);
inline constexpr QChar kLF = QChar(10);
inline constexpr auto kCRLF = QLatin1String("\r\n");
inline constexpr auto kFrameStart = QLatin1String("&&");
inline constexpr auto kFrameEnd = QLatin1String("!!");
// The EDR's mark of an item that has no value.
inline constexpr double kUnsetValue = -9999;

// --- reading -------------------------------------------------------------

// The lines of a receive buffer the way the parse walks them: everything
// up to and including the first CR goes (it may be the tail of a line whose
// head was never seen), so does everything after the last CR (a line not yet
// ended), LFs are dropped and the rest is split at CR. The parse starts at
// index 1 of the result.
QStringList BufferLines(const QString& buffer);

// A buffer vouches for a live stream when it holds a depth item (hole depth
// "0110" or "1108", bit depth "0108") together with both frame marks,
// anywhere in it.
bool HoldsGoodFrame(const QString& buffer);

// One item line read from the wire.
struct ItemLine {
    enum Kind { Item, TooShort, CodeOutOfRange, Unset } kind = TooShort;
    int code = 0;
    double value = 0;
};
// Lines of five characters or less, codes below 91 or from 9900 up, and the
// unset value are not items.
ItemLine ReadItemLine(QStringView line);

// --- writing -------------------------------------------------------------

// "0139" + value text: the code as four digits.
QString ItemText(int code, const QString& value);
// "&&", the items, "!!", each line followed by CR LF.
QString Frame(const std::vector<std::pair<int, QString>>& items);
// A frame with one unset item behind a blank line: wakes a two-way EDR and
// carries no value ("0111-9999").
QString ProbeFrame();
// The test string sent by a double click on the outgoing view.
QString TestFrame();

// --- whole frames --------------------------------------------------------

struct ReceivedFrame {
    std::vector<std::pair<int, QString>> items; // code, value text as sent
    // The value text of a code, or an empty string.
    QString value(int code) const;
};

// Reads frames out of a stream that arrives in pieces of any size: keeps
// the unfinished line, starts a frame at "&&", ends it at "!!". Text
// outside a frame and lines that are not items are counted and dropped. A
// line longer than kMaxLine is cut off where it stands, so a stream of
// noise with no line end can't grow the reader.
class FrameReader {
  public:
    static constexpr int kMaxLine = 256;
    void push(QStringView text);
    // Frames completed since the last take.
    std::vector<ReceivedFrame> take();
    long strayLines() const { return stray_; }
    long cutLines() const { return cut_; }

  private:
    void line(const QString& l);
    QString partial_;
    bool inFrame_ = false;
    bool cutting_ = false;
    ReceivedFrame current_;
    std::vector<ReceivedFrame> done_;
    long stray_ = 0;
    long cut_ = 0;
};

} // namespace wits
