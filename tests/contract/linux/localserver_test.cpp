#include "platform/localserver.h"
#include "support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace zvr {
namespace {

using std::chrono_literals::operator""ms;

sockaddr_un AddressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    return address;
}

/// The other end of the socket, as a script would hold it.
class Peer {
public:
    explicit Peer(const std::string& path) : descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        const sockaddr_un address = AddressOf(path);
        connected = connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~Peer() { close(descriptor); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    void Send(std::string_view bytes) const {
        EXPECT_EQ(send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
    }
    /// What has come so far; "<end>" at the end of a closed connection.
    [[nodiscard]] std::string Received() const {
        std::string all;
        std::array<char, 65536> buffer;
        for (;;) {
            const ssize_t count = recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT);
            if (count <= 0) {
                return count == 0 ? all + "<end>" : all;
            }
            all.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

    int descriptor;
    bool connected = false;
};

class Socket : public testing::Test {
protected:
    void SetUp() override {
        server.onLine = [this](LocalServer::Client client, const std::string& line) {
            last = client;
            log += line + "|";
        };
        server.onTooLong = [this](LocalServer::Client) { log += "<too long>"; };
        server.onGone = [this](LocalServer::Client) { log += "<gone>"; };
        ASSERT_TRUE(server.Listen(path));
    }

    const TemporaryFolder folder;
    const std::string path = folder.path + "/zvr.sock";
    EventLoop loop;
    LocalServer server{loop};
    LocalServer::Client last = 0;
    std::string log;
};

TEST_F(Socket, LinesArriveHoweverTheyAreCut) {
    const Peer peer(path);
    for (const std::string_view piece : {"app.", "volumeup\nget **TI", "ME**\r\n\nlast"}) {
        peer.Send(piece);
        loop.Wait(20ms);
    }
    EXPECT_EQ(log, "app.volumeup|get **TIME**||");
    server.Send(last, "answer");
    server.Send(last + 1, "to nobody");
    loop.Wait(20ms);
    EXPECT_EQ(peer.Received(), "answer\n");
}

TEST_F(Socket, ALineThatIsTooLongIsThrownAwayAlone) {
    const Peer peer(path);
    peer.Send(std::string(LocalServer::longestLine, 'a') + "\n");
    loop.Wait(50ms);
    EXPECT_EQ(log, std::string(LocalServer::longestLine, 'a') + "|");
    log.clear();
    for (int i = 0; i < 20; ++i) {
        peer.Send(std::string(1000, 'b'));
        loop.Wait(5ms);
    }
    EXPECT_EQ(log, "<too long>") << "told once, as soon as it is known";
    peer.Send("b\nnext\n");
    loop.Wait(50ms);
    EXPECT_EQ(log, "<too long>next|");
}

TEST_F(Socket, ADropComesAfterTheAnswer) {
    const Peer peer(path);
    peer.Send("first\nsecond\n");
    server.onLine = [this](LocalServer::Client client, const std::string& line) {
        log += line + "|";
        server.Send(client, std::string(500'000, 'x'));
        server.Drop(client);
    };
    std::string received;
    for (int i = 0; i < 100 && !received.ends_with("<end>"); ++i) {
        loop.Wait(5ms);
        received += peer.Received();
    }
    EXPECT_EQ(received.size(), 500'001 + std::strlen("<end>"));
    EXPECT_EQ(log, "first|<gone>") << "nothing is taken of a client that was dropped";
}

TEST_F(Socket, AClientThatDoesNotReadIsDropped) {
    const Peer peer(path);
    peer.Send("watch\n");
    loop.Wait(20ms);
    EXPECT_TRUE(server.Reaches(last));
    for (int i = 0; i < 40; ++i) {
        server.Send(last, std::string(100'000, 'x'));
    }
    EXPECT_FALSE(server.Reaches(last));
    loop.Wait(20ms);
    EXPECT_EQ(log, "watch|<gone>");
    const Peer other(path);
    other.Send("still there\n");
    loop.Wait(20ms);
    EXPECT_EQ(log, "watch|<gone>still there|");
}

TEST_F(Socket, TheServerMayEndInsideALine) {
    const Peer peer(path);
    server.onLine = [this](LocalServer::Client, const std::string& line) {
        log += line + "|";
        server.Close();
    };
    peer.Send("quit\nagain\n");
    loop.Wait(30ms);
    EXPECT_EQ(log, "quit|");
    EXPECT_EQ(peer.Received(), "<end>");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Socket, TheLongestSilentClientMakesRoomUnlessItIsWanted) {
    std::vector<std::unique_ptr<Peer>> peers;
    const auto arrive = [&] {
        peers.push_back(std::make_unique<Peer>(path));
        peers.back()->Send("hello\n");
        loop.Wait(5ms);
        return last;
    };
    const LocalServer::Client watcher = arrive();
    server.isWanted = [&](LocalServer::Client client) { return client == watcher; };
    for (int i = 0; i < 31; ++i) {
        arrive();
    }
    peers[1]->Send("again\n");
    loop.Wait(5ms);
    log.clear();
    arrive();
    EXPECT_EQ(log, "<gone>hello|");
    EXPECT_EQ(peers[0]->Received() + peers[1]->Received(), "");
    EXPECT_EQ(peers[2]->Received(), "<end>");
    server.isWanted = [](LocalServer::Client) { return true; };
    log.clear();
    const Peer late(path);
    loop.Wait(5ms);
    EXPECT_EQ(late.Received(), "<end>");
    EXPECT_EQ(log, "");
}

TEST_F(Socket, BelongsToItsUserAndToOneServer) {
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    LocalServer second(loop);
    EXPECT_FALSE(second.Listen(path)) << "the first one lives";
    EXPECT_TRUE(Peer(path).connected);
}

TEST_F(Socket, ReplacesADeadSocketButNoFile) {
    server.Close();
    const sockaddr_un address = AddressOf(path);
    const int dead = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(dead, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    close(dead);
    ASSERT_TRUE(std::filesystem::exists(path));
    EXPECT_TRUE(server.Listen(path));
    const std::string file = folder.Write("letter", "dear");
    EXPECT_FALSE(server.Listen(file));
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
    EXPECT_FALSE(server.Listen(folder.path + "/" + std::string(200, 'n')));
}

}  // namespace
}  // namespace zvr
