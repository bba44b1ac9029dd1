#pragma once

#include <string>

// Where a plot goes, as a user writes it on the command line or in the printer list:
//
//   PATH                                   a file, a device, a FIFO or a socket file
//   -                                      standard output
//   socket://HOST[:PORT]                   raw TCP to a printer (port 9100 when not given)
//   lp:QUEUE                               the system spooler (lp -d QUEUE -o raw); "lp:" alone
//                                          is the spooler's default queue
//   serial:DEVICE[?baud=N&flow=F]          a serial line set up with termios (raw, 8N1); baud
//                                          9600 and flow xonxoff when not given; F is xonxoff,
//                                          rtscts or none
//
// Anything else of the form "WORD://..." is refused as an unknown kind of destination, so that a
// mistyped scheme is not taken for a file name.
struct VRKDestination {
    enum class Kind { kPath, kStandardOutput, kSocket, kSpooler, kSerial };
    enum class Flow { kNone, kXonXoff, kRtsCts };

    Kind kind = Kind::kPath;
    // The destination as it was written.
    std::string text;
    // kPath: the path; kSerial: the device.
    std::string path;
    // kSocket: the host name or address (IPv6 addresses without their brackets) and the port.
    std::string host;
    int port = 9100;
    // kSpooler: the queue, empty for the spooler's default queue.
    std::string queue;
    // kSerial: the line's speed in bits per second and its flow control.
    int baud = 9600;
    Flow flow = Flow::kXonXoff;

    // Parses `text`; false with `error` saying what is wrong (for a message that starts with the
    // text itself) when it is not a destination.
    static bool Parse(const std::string& text, VRKDestination& destination, std::string& error);
    // The destination of a path taken as a path whatever it looks like (a plot file named after
    // its job), or of "-" for standard output.
    static VRKDestination ForPath(const std::string& path);

    // The destination for messages: "standard output", the path, or the text as written.
    std::string Describe() const;
};
