#pragma once
// One wire to the instrument, whichever carries it: the serial port or the
// socket. The intake, the parser, the supervision and the commands talk
// through this and never ask which one they have; only the serial scan and
// the TCP connect, which set a wire up, know the difference.

#include <QString>

namespace platform {

enum class LinkState { Closed, Opening, Open, Closing, Failed };

class InstrumentLink {
  public:
    virtual ~InstrumentLink() = default;

    // Opens the wire to the target set beforehand (a port number, a host and
    // port). 0, or an error number the caller reports; never throws.
    virtual int open() = 0;
    virtual void close() = 0;
    virtual LinkState state() = 0;
    // Text out; nothing happens while the wire is not open.
    virtual void write(const QString& text) = 0;
    // How many bytes wait to be read, and all of them as text.
    virtual int bytesArrived() = 0;
    virtual QString read() = 0;

    // A session (the socket) answers every packet with the keep-alive byte,
    // carries the login, and leaves what a download sends where it is until
    // the download fetches it. A plain wire (the serial port) does none of
    // that: the intake reads it even during a download.
    virtual bool isSession() const = 0;
};

} // namespace platform
