#include "contract/backend.h"

#include <gtest/gtest.h>

namespace zvr::contract {
namespace {

using std::chrono_literals::operator""ms;

constexpr const char* here = "127.0.0.1";

class Tcp : public testing::Test {
protected:
    Tcp() {
        client.onConnect = [this] { log += "connect|"; };
        client.onDataArrival = [this] { log += client.GetData() + "|"; };
        client.onClose = [this] { log += "close|"; };
        client.onError = [this](const SocketFault& fault) {
            log += fault.number != 0 && !fault.description.empty() ? "error|" : "error without a cause|";
        };
    }
    void Connect() {
        client.Connect(here, neighbour.Port());
        EXPECT_EQ(log, "") << "not before the call is over";
        loop.Wait(50ms);
        ASSERT_EQ(log, "connect|");
        log.clear();
    }

    EventLoop loop;
    TcpClient client{loop};
    Neighbour neighbour{loop, client};
    std::string log;
};

TEST_F(Tcp, CarriesBytesBothWaysAndTellsTheEnd) {
    EXPECT_EQ(client.CurrentState(), SocketState::closed);
    Connect();
    EXPECT_EQ(client.CurrentState(), SocketState::connected);
    EXPECT_FALSE(client.SendData(std::string("a\0b\r", 4)));
    neighbour.Send("one\r");
    neighbour.Send("two");
    EXPECT_EQ(log, "one\r|two|");
    EXPECT_EQ(neighbour.Received(), std::string("a\0b\r", 4));
    log.clear();
    neighbour.HangUp();
    EXPECT_EQ(log, "close|");
    EXPECT_EQ(client.CurrentState(), SocketState::closed);
    EXPECT_TRUE(client.SendData("x"));
    log.clear();
    Connect();
    EXPECT_EQ(neighbour.Received(), "") << "a connection of its own";
}

TEST_F(Tcp, NobodyThereIsAnErrorAndTheNextTryMaySucceed) {
    EXPECT_TRUE(client.SendData("x"));
    neighbour.StopListening();
    client.Connect(here, neighbour.Port());
    EXPECT_EQ(client.CurrentState(), SocketState::connecting);
    loop.Wait(50ms);
    EXPECT_EQ(log, "error|");
    EXPECT_EQ(client.CurrentState(), SocketState::error);
    log.clear();
    Neighbour later(loop, client);
    client.Connect(here, later.Port());
    loop.Wait(50ms);
    EXPECT_EQ(log, "connect|");
}

TEST_F(Tcp, AnOwnCloseIsSilentAndDropsWhatWasOnItsWay) {
    client.Connect(here, neighbour.Port());
    client.Close();
    loop.Wait(50ms);
    EXPECT_EQ(log, "");
    Connect();
    client.onDataArrival = [this] {
        log += "first|";
        client.Close();
    };
    neighbour.Send("x");
    loop.Wait(50ms);
    EXPECT_EQ(log, "first|");
    EXPECT_EQ(client.GetData(), "");
    EXPECT_EQ(client.CurrentState(), SocketState::closed);
}

TEST_F(Tcp, BytesArriveWhileTheHandlerOfEarlierOnesWaits) {
    Connect();
    int depth = 0;
    client.onDataArrival = [&] {
        ++depth;
        log += client.GetData() + std::to_string(depth) + "|";
        if (depth == 1) {
            neighbour.Send("inner");
            loop.Wait(50ms);
            neighbour.HangUp();
        }
        --depth;
    };
    neighbour.Send("outer");
    loop.Wait(50ms);
    EXPECT_EQ(log, "outer1|inner2|close|");
}

TEST_F(Tcp, MuchGoesThroughWhole) {
    Connect();
    std::string much(900'000, '\0');
    for (std::size_t i = 0; i < much.size(); ++i) {
        much[i] = static_cast<char>('a' + i % 23);
    }
    EXPECT_FALSE(client.SendData(much));
    EXPECT_EQ(neighbour.Received(), much);
    std::string arrived;
    client.onDataArrival = [&] { arrived += client.GetData(); };
    neighbour.Send(much);
    loop.Wait(50ms);
    EXPECT_EQ(arrived, much);
}

}  // namespace
}  // namespace zvr::contract
