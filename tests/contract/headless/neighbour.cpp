#include "contract/backend.h"

#include "platform/headless/tcpclient.h"

namespace zvr::contract {
namespace {

constexpr Milliseconds moment{1};

}  // namespace

struct Neighbour::State {
    EventLoop& loop;
    TcpClient::State& client;
};

Neighbour::Neighbour(EventLoop& loop, TcpClient& client) : state(std::make_unique<State>(State{loop, *client.state})) {
    state->client.peerListens = true;
}

Neighbour::~Neighbour() = default;

int Neighbour::Port() const {
    return 1;
}

void Neighbour::Send(std::string_view bytes) {
    state->client.Deliver(bytes);
    state->loop.Wait(moment);
}

std::string Neighbour::Received() {
    return state->client.sent;
}

void Neighbour::HangUp() {
    state->client.CloseFromPeer();
    state->loop.Wait(moment);
}

void Neighbour::StopListening() {
    state->client.peerListens = false;
}

}  // namespace zvr::contract
