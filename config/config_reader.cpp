// The reader of OM_10_config.txt. A line is matched by its first characters
// against each whole tag, every tag in turn, so the order of the lines does
// not matter (except that the TCP port line names the address read before
// it). Whatever a line holds, the worst it can do is give a 0.
#include "config/config_file.h"
#include "config/config_tags.h"
#include "config/gas_rows.h"
#include "text/numbers.h"
#include "workstation/workstation.h"

#include <QFile>
#include <QStringDecoder>

namespace config {

namespace {

// Lines of five characters or fewer carry no tag worth reading.
constexpr qsizetype kShortestLine = 6;

QString Decode(const QByteArray& bytes) {
    // Written as UTF-8; a file made elsewhere may be in a one-byte code.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8(bytes);
    if (utf8.hasError()) text = QString::fromLatin1(bytes);
    return text;
}

void Apply(Workstation& ws, const ReadTag& t, const QString& value) {
    const Entry& e = *t.entry;
    switch (e.form) {
    case Form::Box:
        e.control(ws).setValue(t.which);
        if (t.which == 1 && e.read) e.read(ws, value);
        break;
    case Form::Text:
        e.control(ws).setText(value);
        break;
    case Form::Value:
        e.read(ws, value);
        break;
    case Form::Scale: {
        const QStringList parts = value.split(QStringLiteral("to"));
        if (parts.size() < 2) break;
        e.control(ws).setText(value);
        e.scale(ws.settings, text::Val(parts[0]), text::Val(parts[1]));
        break;
    }
    case Form::Colour:
        ws.settings.*e.colour = text::CLng(text::Val(value));
        break;
    case Form::Choice:
        e.choose(ws, t.which);
        break;
    }
}

void ReadLine(Workstation& ws, QStringView line) {
    if (line.size() < kShortestLine) return;
    for (const ReadTag& t : ReadTags()) {
        if (!line.startsWith(t.tag)) continue;
        // The value is everything behind the tag and its one blank.
        Apply(ws, t, line.mid(qMin(line.size(), t.tag.size() + 1)).toString());
    }
}

// What follows the last line: the colours onto the panel, the gas units
// box written back from its scale, and the gains from their boxes.
void AfterRead(Workstation& ws) {
    ShowCurveColors(ws);
    const ChartScale& gas = ws.settings.GasScale;
    ws.fm_setup.txt_gas_units.setText(text::Str(gas.ScaleMin) + " to " + text::Str(gas.ScaleMax));
    ws.settings.CgVisibleGain = text::Val(ws.fm_setup.txt_cg_gain.text());
    for (const GasRow& g : GasRows())
        ws.settings.*g.gainValue = text::Val((ws.fm_setup.*g.gain).text());
}

} // namespace

void ReadConfigText(Workstation& ws, const QByteArray& contents) {
    const QString all = Decode(contents);
    const QStringView text(all);
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && text[end] != u'\r' && text[end] != u'\n') ++end;
        ReadLine(ws, text.mid(start, end - start));
        // CR LF, a lone CR or a lone LF ends a line.
        if (end < text.size() && text[end] == u'\r' && end + 1 < text.size() &&
            text[end + 1] == u'\n')
            ++end;
        start = end + 1;
    }
    AfterRead(ws);
}

void ReadConfigFile(Workstation& ws) {
    QFile f(ws.programFile(kConfigFileName));
    if (!f.exists()) return; // no file: the defaults stand
    if (!f.open(QIODevice::ReadOnly)) return;
    const QByteArray contents = f.readAll();
    f.close();
    ReadConfigText(ws, contents);
}

} // namespace config
