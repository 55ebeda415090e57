#pragma once

#include "platform/screen.h"
#include "platform/tcpclient.h"

#include <memory>
#include <string>
#include <string_view>

namespace zvr::contract {

/// The driver's hand on a backend's screen; one implementation each. Every act runs events until it has arrived.
class Hand {
public:
    Hand(EventLoop& loop, Screen& screen, Stage& stage) : loop(loop), screen(screen), stage(stage) {}

    void Press(Point inRoot);
    void Drag(Point inRoot);
    void Lift(Point inRoot);
    void Tap(Point inRoot) {
        Press(inRoot);
        Lift(inRoot);
    }
    void Strike(Key key);
    void Type(Control& box, std::string_view text);  ///< into the box, which has the keys
    /// The text that the box shows.
    [[nodiscard]] std::string ShownText(Control& box);

    EventLoop& loop;
    Screen& screen;
    Stage& stage;
};

/// The program on the other side of a connection; one implementation each. Every act runs events until it has arrived.
class Neighbour {
public:
    Neighbour(EventLoop& loop, TcpClient& client);  ///< listens
    ~Neighbour();
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    [[nodiscard]] int Port() const;
    void Send(std::string_view bytes);
    [[nodiscard]] std::string Received();  ///< in this connection, all of it
    void HangUp();                         ///< closes the connection that stands
    void StopListening();

    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zvr::contract
