#include "acquisition/commands.h"
#include "acquisition/link.h"

#include "acquisition/live_fields.h"
#include "text/numbers.h"
#include "workstation/events.h"
#include "workstation/workstation.h"

#include <QStringList>
#include <algorithm>
#include <exception>
#include <stdexcept>

namespace acq {

namespace {

const QString kReadBackCaption = QStringLiteral("Get Data From Kettlewick");
constexpr int kReadBackRow = 9;
constexpr int kFreeRow = 8;

// The rows that send a box: the words before the value, and the highest
// value the instrument takes (0: no limit).
struct Row {
    const char* prefix;
    int limit;
};
constexpr Row kRows[8] = {
    {"setdepth ", 0},    {"setreg 25 ", 250}, {"setreg 29 ", 250}, {"setreg 30 ", 250},
    {"setreg 34 ", 250}, {"setreg 45 ", 25},  {"setreg 53 ", 0},   {"setjobnum ", 0},
};
constexpr int kGasAlarmRow = 6; // register 53 holds hundreds of gas units

bool LinkOpen(Workstation& ws) {
    return ws.instrument().state() == platform::LinkState::Open;
}

} // namespace

const QStringList& ReadBackCommands() {
    static const QStringList list = {"SETDEPTH",   "READREG 25", "READREG 29",
                                     "READREG 30", "READREG 34", "READREG 45",
                                     "READREG 53", "SETJOBNUM",  "STATUS"};
    return list;
}

QString CommandOfRow(Workstation& ws, int index) {
    auto& setup = ws.fm_setup;
    if (index == kFreeRow) return setup.txt_Kettlewick_string.text();
    if (index < 0 || index >= kFreeRow) return {};
    auto& box = setup.txt_data[static_cast<size_t>(index)];
    const Row& row = kRows[index];
    if (row.limit > 0 && text::Val(box.text()) > row.limit) box.setText(QString::number(row.limit));
    QString value = box.text();
    if (index == kGasAlarmRow) value = text::Str(text::Int(text::Val(value) / 100));
    return QString::fromLatin1(row.prefix) + value;
}

void cmd_KW_command_Click(Workstation& ws, int index) {
    if (!LinkOpen(ws)) return;
    auto& readBack = ws.fm_setup.cmd_KW_command[kReadBackRow];
    readBack.setCaption(QStringLiteral("Working..."));

    // The instrument sleeps between packets: a lone CR wakes it.
    ws.instrument().write(QStringLiteral("\r"));
    station::DelaySeconds(ws, 1);

    if (index >= 0 && index <= kFreeRow) {
        const QString command = CommandOfRow(ws, index);
        SendToInstrument(ws, command + QStringLiteral("\r"));
        station::write_function_log(ws, "COMMAND OUTPUT TO KW: " + command);
    } else if (index == kReadBackRow) {
        for (const QString& c : ReadBackCommands()) SendToInstrument(ws, c + QStringLiteral("\r"));
    }
    readBack.setCaption(kReadBackCaption);
}

QString KeyMessage(Workstation& ws, const QString& name, const QString& password) {
    auto& block = ws.link.Gkey_block;
    ws.Randomize();
    auto draw = [&](double scale) {
        // rounded through its decimal text, as the block has always been made
        return static_cast<uint8_t>(
            std::clamp<int>(text::CInt(text::Val(text::Str(ws.Rnd() * scale))), 0, 255));
    };
    for (int i = 0; i <= 254; ++i) {
        if (i == 5) {
            uint8_t k = 0;
            do k = draw(200);
            while (k < 30);
            block[5] = k;
        } else {
            block[static_cast<size_t>(i)] = draw(255);
        }
    }
    const size_t k = block[5];
    for (size_t i = 0; i < 20; ++i) block[k + i] = 0;
    auto put = [&](size_t at, const QString& s) {
        const QByteArray bytes = s.toLatin1();
        if (at + static_cast<size_t>(bytes.size()) > block.size())
            throw std::out_of_range("Subscript out of range");
        for (qsizetype j = 0; j < bytes.size(); ++j)
            block[at + static_cast<size_t>(j)] = static_cast<uint8_t>(bytes[j]);
    };
    put(k, name);
    // a name of more than 10 characters runs into this field, and the
    // password then overwrites it
    put(k + 10, password);
    for (size_t i = 0; i < 20; ++i) block[k + i] = block[i + 6] ^ block[k + i];

    QString message = QStringLiteral("[PGP KEY ");
    for (int i = 0; i <= 254; ++i) message += text::Format(block[static_cast<size_t>(i)], u"000");
    return message + QStringLiteral("]\r\n");
}

void send_key(Workstation& ws) {
    auto& form = ws.fm_secure;
    const QString name = form.txt_username.text();
    const QString password = form.txt_pwe.text();
    if (name.size() < 3) {
        ws.dialogs().MsgBox(QStringLiteral("The username must be at least 3 characters long"),
                            platform::Buttons::Ok, QStringLiteral("USERNAME TOO SHORT"),
                            platform::Icon::Exclamation);
        return;
    }
    if (password.size() < 3) {
        ws.dialogs().MsgBox(QStringLiteral("The password must be at least 3 characters long"),
                            platform::Buttons::Ok, QStringLiteral("PASSWORD TOO SHORT"),
                            platform::Icon::Exclamation);
        return;
    }
    form.form.setVisible(false);
    try {
        QString message = KeyMessage(ws, name, password);
        // The login works over Ethernet only.
        platform::InstrumentLink& link = ws.instrument();
        if (link.isSession() && link.state() == platform::LinkState::Open) link.write(message);
        message.fill(QChar(0));
        message.clear();
    } catch (const std::exception& e) {
        station::disply_text_alarms(ws, QString::fromLocal8Bit(e.what()));
    }
}

void cmd_send_key_Click(Workstation& ws) {
    send_key(ws);
}

void txt_pwe_KeyPress(Workstation& ws, int keyAscii) {
    if (keyAscii == 13) send_key(ws);
}

void cmd_secure_Click(Workstation& ws) {
    ws.fm_secure.form.setVisible(true);
}

void tmr_stay_logged_in_Timer(Workstation& ws) {
    // A name of exactly three characters logs in but is not kept logged in.
    if (ws.fm_secure.txt_username.text().size() > 3) send_key(ws);
}

} // namespace acq
