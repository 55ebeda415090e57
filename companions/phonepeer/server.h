#pragma once

#include "front.h"

#include <list>
#include <optional>
#include <string>

namespace phonepeer {

/// Listens for the programs that a phone serves, on this machine alone, and for orders.
class Server {
public:
    Server();
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    /// Why not, else none.
    [[nodiscard]] std::optional<std::string> Open(int port, const std::string& orderSocket);
    /// Until somebody wants the end, a signal comes, or the process `with` has ended; 0 for none.
    void Run(int with);

private:
    struct Client {
        int file = -1;
        bool givesOrders = false;
        bool leaves = false;  ///< once all is written
        std::string received;
        std::string unsent;
    };

    void Accept(int listener, bool givesOrders);
    void Turn(int milliseconds);
    void Read(Client& client);
    void TakeOrder(Client& client);
    void Write(Client& client);
    void TellAll(const std::string& bytes);

    Phone phone;
    Front front;
    int phoneListener = -1;
    int orderListener = -1;
    std::string orderPath;
    std::list<Client> clients;
    bool ends = false;
};

}  // namespace phonepeer
