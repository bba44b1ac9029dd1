// The destinations a user writes: every form, and every way to write one wrong.

#include <gtest/gtest.h>

#include <string>

#include "host/output/VRKDestination.h"

namespace {

using Kind = VRKDestination::Kind;
using Flow = VRKDestination::Flow;

VRKDestination Parsed(const std::string& text) {
    VRKDestination destination;
    std::string error;
    EXPECT_TRUE(VRKDestination::Parse(text, destination, error)) << text << ": " << error;
    EXPECT_EQ(destination.text, text);
    return destination;
}

std::string ErrorOf(const std::string& text) {
    VRKDestination destination;
    std::string error;
    EXPECT_FALSE(VRKDestination::Parse(text, destination, error)) << text;
    return error;
}

TEST(Destination, PathsAreWhateverHasNoOtherForm) {
    for (const std::string text : {"/dev/usb/lp0", "plot.plt", "./lp:x", "dir/serial:x", "lp",
                                   "ftp:/x", "C:\\plots\\a.plt", "-x", "--"}) {
        const VRKDestination destination = Parsed(text);
        EXPECT_EQ(destination.kind, Kind::kPath) << text;
        EXPECT_EQ(destination.path, text);
    }
}

TEST(Destination, DashIsStandardOutput) {
    EXPECT_EQ(Parsed("-").kind, Kind::kStandardOutput);
}

TEST(Destination, EmptyIsAnError) {
    EXPECT_EQ(ErrorOf(""), "the destination is empty");
}

TEST(Destination, SocketWithAndWithoutPort) {
    VRKDestination destination = Parsed("socket://printer.local");
    EXPECT_EQ(destination.kind, Kind::kSocket);
    EXPECT_EQ(destination.host, "printer.local");
    EXPECT_EQ(destination.port, 9100);

    destination = Parsed("socket://10.0.0.7:9101");
    EXPECT_EQ(destination.host, "10.0.0.7");
    EXPECT_EQ(destination.port, 9101);

    destination = Parsed("socket://plotter:1/");
    EXPECT_EQ(destination.host, "plotter");
    EXPECT_EQ(destination.port, 1);

    destination = Parsed("socket://plotter/");
    EXPECT_EQ(destination.host, "plotter");
    EXPECT_EQ(destination.port, 9100);

    EXPECT_EQ(Parsed("socket://h:65535").port, 65535);
    EXPECT_EQ(Parsed("socket://h:09100").port, 9100);
}

TEST(Destination, SocketIPv6InBrackets) {
    VRKDestination destination = Parsed("socket://[::1]");
    EXPECT_EQ(destination.kind, Kind::kSocket);
    EXPECT_EQ(destination.host, "::1");
    EXPECT_EQ(destination.port, 9100);

    destination = Parsed("socket://[2001:db8::7]:515/");
    EXPECT_EQ(destination.host, "2001:db8::7");
    EXPECT_EQ(destination.port, 515);

    destination = Parsed("socket://[fe80::1%eth0]:9100");
    EXPECT_EQ(destination.host, "fe80::1%eth0");
}

TEST(Destination, SocketErrors) {
    EXPECT_EQ(ErrorOf("socket://"), "the host is missing; write socket://HOST[:PORT]");
    EXPECT_EQ(ErrorOf("socket:///"), "the host is missing; write socket://HOST[:PORT]");
    EXPECT_EQ(ErrorOf("socket://:9100"), "the host is missing; write socket://HOST[:PORT]");
    EXPECT_EQ(ErrorOf("socket://h:"), "the port is missing after ':'");
    EXPECT_EQ(ErrorOf("socket://h:0"), "the port 0 is not between 1 and 65535");
    EXPECT_EQ(ErrorOf("socket://h:65536"), "the port 65536 is not between 1 and 65535");
    EXPECT_EQ(ErrorOf("socket://h:99999999999999999999"),
              "the port 99999999999999999999 is not between 1 and 65535");
    EXPECT_EQ(ErrorOf("socket://h:0x10"), "the port '0x10' is not a decimal number");
    EXPECT_EQ(ErrorOf("socket://h:+91"), "the port '+91' is not a decimal number");
    EXPECT_EQ(ErrorOf("socket://h:-1"), "the port '-1' is not a decimal number");
    EXPECT_EQ(ErrorOf("socket://h:9100/queue"),
              "nothing may follow the host and port, but '/queue' does; write "
              "socket://HOST[:PORT]");
    EXPECT_EQ(ErrorOf("socket://h//"),
              "nothing may follow the host and port, but '/' does; write socket://HOST[:PORT]");
    EXPECT_EQ(ErrorOf("socket://::1"),
              "an IPv6 address must be written in brackets: socket://[ADDRESS]:PORT");
    EXPECT_EQ(ErrorOf("socket://[::1"), "the IPv6 address has no closing ']'");
    EXPECT_EQ(ErrorOf("socket://[]:9100"), "the host is missing between '[' and ']'");
    EXPECT_EQ(ErrorOf("socket://[printer]"),
              "'printer' between '[' and ']' is not an IPv6 address");
    EXPECT_EQ(ErrorOf("socket://[::1]x"),
              "nothing but ':PORT' may follow the address, but 'x' does; write "
              "socket://[ADDRESS]:PORT");
    EXPECT_EQ(ErrorOf("socket://[::1]:"), "the port is missing after ':'");
    EXPECT_EQ(ErrorOf("socket://[::1]:70000"), "the port 70000 is not between 1 and 65535");
    EXPECT_EQ(ErrorOf("socket://my printer"),
              "the host name contains a blank or a control character");
    EXPECT_EQ(ErrorOf("socket://a\tb"), "the host name contains a blank or a control character");
    EXPECT_EQ(ErrorOf("socket://user@printer"), "the host name contains '@'");
    EXPECT_EQ(ErrorOf("socket://printer?x"), "the host name contains '?'");
}

TEST(Destination, Spooler) {
    VRKDestination destination = Parsed("lp:DesignJet_1055");
    EXPECT_EQ(destination.kind, Kind::kSpooler);
    EXPECT_EQ(destination.queue, "DesignJet_1055");

    destination = Parsed("lp:");
    EXPECT_EQ(destination.kind, Kind::kSpooler);
    EXPECT_EQ(destination.queue, "");
}

TEST(Destination, SpoolerErrors) {
    EXPECT_EQ(ErrorOf("lp:my queue"), "the queue name 'my queue' contains a blank");
    EXPECT_EQ(ErrorOf("lp:q\t"), "the queue name 'q\t' contains a blank");
    EXPECT_EQ(ErrorOf(std::string("lp:q\x01")), "the queue name contains a control character");
    EXPECT_EQ(ErrorOf("lp:a/b"), "the queue name 'a/b' contains '/'");
}

TEST(Destination, SerialWithDefaults) {
    const VRKDestination destination = Parsed("serial:/dev/ttyUSB0");
    EXPECT_EQ(destination.kind, Kind::kSerial);
    EXPECT_EQ(destination.path, "/dev/ttyUSB0");
    EXPECT_EQ(destination.baud, 9600);
    EXPECT_EQ(destination.flow, Flow::kXonXoff);
}

TEST(Destination, SerialOptions) {
    VRKDestination destination = Parsed("serial:/dev/ttyS0?baud=19200&flow=rtscts");
    EXPECT_EQ(destination.path, "/dev/ttyS0");
    EXPECT_EQ(destination.baud, 19200);
    EXPECT_EQ(destination.flow, Flow::kRtsCts);

    destination = Parsed("serial:/dev/ttyS1?flow=none");
    EXPECT_EQ(destination.baud, 9600);
    EXPECT_EQ(destination.flow, Flow::kNone);

    destination = Parsed("serial:ttyS1?flow=xonxoff&baud=50");
    EXPECT_EQ(destination.path, "ttyS1");
    EXPECT_EQ(destination.baud, 50);
    EXPECT_EQ(destination.flow, Flow::kXonXoff);

    for (int baud :
         {50,     75,     110,     134,     150,     200,     300,     600,     1200,    1800,
          2400,   4800,   9600,    19200,   38400,   57600,   115200,  230400,  460800,  500000,
          576000, 921600, 1000000, 1152000, 1500000, 2000000, 2500000, 3000000, 3500000, 4000000}) {
        EXPECT_EQ(Parsed("serial:/dev/ttyS0?baud=" + std::to_string(baud)).baud, baud);
    }
}

TEST(Destination, SerialErrors) {
    const std::string speeds =
        "50, 75, 110, 134, 150, 200, 300, 600, 1200, 1800, 2400, 4800, 9600, 19200, 38400, "
        "57600, 115200, 230400, 460800, 500000, 576000, 921600, 1000000, 1152000, 1500000, "
        "2000000, 2500000, 3000000, 3500000, 4000000";
    EXPECT_EQ(ErrorOf("serial:"), "the device is missing; write serial:DEVICE[?baud=N&flow=F]");
    EXPECT_EQ(ErrorOf("serial:?baud=9600"),
              "the device is missing; write serial:DEVICE[?baud=N&flow=F]");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=9601"),
              "the baud rate '9601' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=0"),
              "the baud rate '0' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=fast"),
              "the baud rate 'fast' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud="),
              "the baud rate '' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=+9600"),
              "the baud rate '+9600' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=40000000"),
              "the baud rate '40000000' is not one of the standard speeds " + speeds);
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?flow=dtrdsr"),
              "the flow control 'dtrdsr' is none of xonxoff, rtscts, none");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?flow=XONXOFF"),
              "the flow control 'XONXOFF' is none of xonxoff, rtscts, none");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?parity=even"),
              "unknown option 'parity'; known: baud, flow");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=9600&baud=19200"),
              "the option 'baud' is given twice");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?flow=none&flow=none"), "the option 'flow' is given twice");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud"), "the option 'baud' has no value; write KEY=VALUE");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?"),
              "an option after '?' is empty; write serial:DEVICE?baud=N&flow=F");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=9600&"),
              "an option after '?' is empty; write serial:DEVICE?baud=N&flow=F");
    EXPECT_EQ(ErrorOf("serial:/dev/ttyS0?baud=9600&&flow=none"),
              "an option after '?' is empty; write serial:DEVICE?baud=N&flow=F");
}

TEST(Destination, UnknownSchemesAreRefused) {
    const std::string known = "; known: a path, -, socket://HOST[:PORT], lp:QUEUE, serial:DEVICE";
    EXPECT_EQ(ErrorOf("ftp://host/plot"), "unknown kind of destination 'ftp://'" + known);
    EXPECT_EQ(ErrorOf("ipp://printer:631/queue"), "unknown kind of destination 'ipp://'" + known);
    EXPECT_EQ(ErrorOf("sockets://h"), "unknown kind of destination 'sockets://'" + known);
    EXPECT_EQ(ErrorOf("SOCKET://h"), "unknown kind of destination 'SOCKET://'" + known);
    EXPECT_EQ(ErrorOf("x+y.z-w://"), "unknown kind of destination 'x+y.z-w://'" + known);
    EXPECT_EQ(ErrorOf("lp://queue"), "unknown kind of destination 'lp://'" + known);
    EXPECT_EQ(ErrorOf("serial://dev/ttyS0"), "unknown kind of destination 'serial://'" + known);
    // Not a scheme: these are paths.
    EXPECT_EQ(Parsed("1ftp://x").kind, Kind::kPath);
    EXPECT_EQ(Parsed("a_b://x").kind, Kind::kPath);
    EXPECT_EQ(Parsed("./ftp://x").kind, Kind::kPath);
}

TEST(Destination, ParsingStartsAfresh) {
    VRKDestination destination;
    std::string error;
    ASSERT_TRUE(VRKDestination::Parse("serial:/dev/ttyS0?baud=300&flow=none", destination, error));
    ASSERT_TRUE(VRKDestination::Parse("socket://h", destination, error));
    EXPECT_EQ(destination.path, "");
    EXPECT_EQ(destination.baud, 9600);
    EXPECT_EQ(destination.flow, Flow::kXonXoff);
    EXPECT_EQ(destination.port, 9100);
}

}  // namespace
