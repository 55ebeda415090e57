#pragma once

#include "platform/localserver.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zvr {

class Form;
class Program;

/// Wheel buttons, scripts and tests: lines from the control socket, answered in JSON. They enter at the same
/// dispatcher as a touch and can do nothing that a touch could not.
class RemoteControl {
public:
    explicit RemoteControl(Program& program);
    ~RemoteControl();  ///< hears of the clients no more
    RemoteControl(const RemoteControl&) = delete;
    RemoteControl& operator=(const RemoteControl&) = delete;

    void Listen();
    /// After each tick: tells the watching clients what has changed.
    void NotifyWatchers();
    /// The answer to one request line other than a command, without its line end.
    [[nodiscard]] std::string Answer(LocalServer::Client client, const std::string& line);

private:
    struct Watch {
        std::vector<std::string> tokens;
        std::string lastAnswer;
    };
    using LookFollowers = std::map<LocalServer::Client, std::string>;  ///< and the last answer
    using Followers = std::map<LocalServer::Client, std::uint64_t>;    ///< and the number of the last line told

    void Received(LocalServer::Client client, const std::string& line);
    /// Waits as long as the command does. Changes the answer when it doesn't run it.
    void Run(const std::string& command, std::string& answer);
    [[nodiscard]] std::string Values(const std::vector<std::string>& tokens);
    [[nodiscard]] std::string FollowLog(LocalServer::Client client);
    void NotifyFollowers();
    [[nodiscard]] std::string FollowLook(LocalServer::Client client);
    void NotifyLookFollowers();
    [[nodiscard]] std::string StateText() const;
    [[nodiscard]] std::string ReloadSkin();

    Program& program;
    std::map<LocalServer::Client, Watch> watches;
    Followers followers;  ///< of the log
    LookFollowers lookFollowers;
    int running = 0;  ///< commands that have begun and not ended
};

}  // namespace zvr
