#include "wits/wits_frame.h"

#include "text/numbers.h"

namespace wits {

namespace {
// Codes outside this range are no WITS item this workstation reads.
constexpr int kLowestCode = 91;
constexpr int kCodeLimit = 9900;
} // namespace

QStringList BufferLines(const QString& buffer) {
    const qsizetype first = buffer.indexOf(kCR);
    const qsizetype last = buffer.lastIndexOf(kCR);
    if (first < 0) return {};
    QString kept = buffer.mid(first + 1, last - first);
    kept.remove(kLF);
    return kept.split(kCR);
}

bool HoldsGoodFrame(const QString& buffer) {
    const bool depth = buffer.contains(QLatin1String("0110")) ||
                       buffer.contains(QLatin1String("1108")) ||
                       buffer.contains(QLatin1String("0108"));
    return depth && buffer.contains(kFrameEnd) && buffer.contains(kFrameStart);
}

ItemLine ReadItemLine(QStringView line) {
    ItemLine out;
    if (line.size() <= 5) return out;
    out.code = text::CInt(text::Val(line.left(4)));
    if (out.code < kLowestCode || out.code >= kCodeLimit) {
        out.kind = ItemLine::CodeOutOfRange;
        return out;
    }
    out.value = text::Val(line.mid(4));
    out.kind = out.value == kUnsetValue ? ItemLine::Unset : ItemLine::Item;
    return out;
}

QString ItemText(int code, const QString& value) {
    return QStringLiteral("%1").arg(code, 4, 10, QLatin1Char('0')) + value;
}

QString Frame(const std::vector<std::pair<int, QString>>& items) {
    QString f = kFrameStart + kCRLF;
    for (const auto& [code, value] : items) f += ItemText(code, value) + kCRLF;
    return f + kFrameEnd + kCRLF;
}

QString ProbeFrame() {
    return kCRLF + Frame({{111, QStringLiteral("-9999")}});
}

QString TestFrame() {
    return kCRLF + QStringLiteral("This is a test string") + ProbeFrame();
}

QString ReceivedFrame::value(int code) const {
    for (const auto& [c, v] : items)
        if (c == code) return v;
    return {};
}

void FrameReader::push(QStringView text) {
    for (QChar ch : text) {
        if (ch == kLF) continue;
        if (ch == kCR) {
            if (!cutting_) line(partial_);
            partial_.clear();
            cutting_ = false;
            continue;
        }
        if (cutting_) continue;
        if (partial_.size() >= kMaxLine) {
            // Far longer than any item: noise. The rest of it goes unread.
            ++cut_;
            partial_.clear();
            cutting_ = true;
            continue;
        }
        partial_ += ch;
    }
}

void FrameReader::line(const QString& l) {
    if (l == kFrameStart) {
        if (inFrame_) ++stray_; // a frame that never ended
        inFrame_ = true;
        current_ = {};
        return;
    }
    if (l == kFrameEnd && inFrame_) {
        done_.push_back(std::move(current_));
        current_ = {};
        inFrame_ = false;
        return;
    }
    if (!inFrame_ || l.size() < 5) {
        if (!l.isEmpty()) ++stray_;
        return;
    }
    bool ok = false;
    const int code = l.left(4).toInt(&ok);
    if (!ok) {
        ++stray_;
        return;
    }
    current_.items.emplace_back(code, l.mid(4));
}

std::vector<ReceivedFrame> FrameReader::take() {
    return std::exchange(done_, {});
}

} // namespace wits
