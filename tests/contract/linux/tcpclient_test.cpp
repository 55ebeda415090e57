#include "contract/backend.h"

#include <gtest/gtest.h>

namespace zvr::contract {
namespace {

using std::chrono_literals::operator""ms;

TEST(TcpOnTheRealMachine, APeerThatDoesNotReadIsNoReasonToGrowOrToWait) {
    EventLoop loop;
    TcpClient client(loop);
    Neighbour neighbour(loop, client);
    client.Connect("127.0.0.1", neighbour.Port());
    loop.Wait(50ms);
    const std::string piece(100'000, 'x');
    int taken = 0;
    while (!client.SendData(piece) && taken < 1000) {
        ++taken;
    }
    EXPECT_GE(taken, 10);
    EXPECT_LT(taken, 1000) << "it keeps all of it";
    EXPECT_EQ(neighbour.Received().size(), static_cast<std::size_t>(taken) * piece.size())
        << "nothing that it took is lost";
    EXPECT_FALSE(client.SendData("more"));
}

}  // namespace
}  // namespace zvr::contract
