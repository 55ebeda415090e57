#include "contract/serialline.h"

#include <gtest/gtest.h>

namespace zvr {
namespace {

class SerialLine : public testing::Test {
protected:
    SerialPort port;
    contract::Receiver receiver{port};
};

TEST_F(SerialLine, GivesWhatHasComeInAsItCame) {
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(port.Read(), "");
    receiver.Say("before it was open");
    ASSERT_EQ(port.Open(receiver.device, "4800,N,8,1"), "");
    EXPECT_TRUE(port.IsOpen());
    EXPECT_EQ(port.Read(), "") << "nothing has come since, and it does not wait";
    receiver.Say("$GPRMC,\r\n\n");
    receiver.Say(std::string("\0\x03\x04\x11\x13\x7F\xFF", 7));
    EXPECT_EQ(port.Read(), "$GPRMC,\r\n\n" + std::string("\0\x03\x04\x11\x13\x7F\xFF", 7))
        << "no byte means anything to the line";
    EXPECT_EQ(port.Read(), "");
    port.Close();
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(port.Open(receiver.device, "115200,e,7,2"), "") << "again, in another way";
}

TEST_F(SerialLine, IsGoneOnceItsLastBytesAreRead) {
    ASSERT_EQ(port.Open(receiver.device, "9600,N,8,1"), "");
    receiver.Unplug();
    EXPECT_TRUE(port.IsOpen()) << "nobody has looked yet";
    EXPECT_EQ(port.Read(), "");
    EXPECT_FALSE(port.IsOpen());
    EXPECT_NE(port.Open(receiver.device, "9600,N,8,1"), "");
    EXPECT_FALSE(port.IsOpen());
}

TEST_F(SerialLine, OpensOnlyWhatThereIsWithSettingsThatMakeSense) {
    ASSERT_EQ(port.Open(receiver.device, "4800,N,8,1"), "");
    EXPECT_NE(port.Open("/dev/no such line", "4800,N,8,1"), "");
    EXPECT_FALSE(port.IsOpen()) << "the former one isn't open any more";
    for (const char* settings : {"", "4800", "4800,N,8", "4800,N,8,1,", "0,N,8,1", "x,N,8,1", "4800,X,8,1", "4800,,8,1",
                                 "4800,N,9,1", "4800,N,8,3", "4800N81", "99999999999,N,8,1"}) {
        EXPECT_NE(port.Open(receiver.device, settings), "") << settings;
    }
    EXPECT_EQ(ParseSerialSettings(" 38400, o ,7 , 1.5"), (SerialSettings{38400, Parity::odd, 7, true}));
}

}  // namespace
}  // namespace zvr
