#pragma once
// The link tests' station: a job file, and its intake tick watched for the
// packets it takes.

#include "pty_pair.h"
#include "simulator.h"
#include "test_station.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <set>
#include <vector>

namespace linktest {

using testkit::FreePort;
using testkit::Pump;
using testkit::PumpUntil;
using testkit::Simulator;

using PortPair = testkit::PtyPair;

struct Station : testkit::Station {
    Station();
    ~Station();
    // Every packet number the parser took, in order.
    std::vector<long> parsed;
    std::unique_ptr<Simulator> sim;

    // The intake and the delay counter run as in the program; the
    // supervision tick is the test's to call.
    void startIntake();
    void useTcp(quint16 port);
    // The simulator on a free port, the workstation pointed at it and its
    // intake running (not yet connected).
    bool startTcpSimulator(const QStringList& args);
    // The same on a started pair, whose workstation end becomes port n.
    bool startSerialSimulator(PortPair& pair, int n, const QStringList& args);
    // Stops the simulator and lets the workstation take what is on its way.
    bool stopSimulatorAndDrain();
    // Calls the supervision tick until a link attempt has been made; false
    // if none came within 70 ticks.
    bool superviseUntilAttempt();
    std::set<long> parsedSet() const { return {parsed.begin(), parsed.end()}; }
    std::set<long> stored() const;
    // Nothing waits in the buffers or on the socket.
    bool drained();

  private:
    QString lastPacket_;
};

} // namespace linktest
