#include "platform/port_map.h"

#include <QDir>
#include <algorithm>

namespace platform {

namespace {
QStringList devicesOf(const QString& prefix) {
    QDir dev("/dev");
    QStringList found = dev.entryList({prefix + "*"}, QDir::System | QDir::Files);
    QStringList out;
    for (const QString& f : found) {
        bool ok = false;
        f.mid(prefix.size()).toInt(&ok);
        if (ok) out << f;
    }
    std::sort(out.begin(), out.end(), [&](const QString& a, const QString& b) {
        return a.mid(prefix.size()).toInt() < b.mid(prefix.size()).toInt();
    });
    for (QString& f : out) f = "/dev/" + f;
    return out;
}
} // namespace

QString PortMap::device(int number) const {
    if (auto it = placed_.find(number); it != placed_.end()) return it->second;
    if (!scan_ || number < 1 || number > kPorts) return {};
    QStringList all = devicesOf("ttyUSB") + devicesOf("ttyACM") + devicesOf("ttyS");
    return number <= all.size() ? all[number - 1] : QString();
}

} // namespace platform
