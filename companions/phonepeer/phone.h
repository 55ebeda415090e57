#pragma once

#include "phone/phonerecords.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace phonepeer {

struct PhoneEntry {
    std::string name;
    std::string number;
    std::string type;  ///< "/H" home, "/M" mobile, "/W" work, "/F" fax, "/@" mail
};

/// The phone that the front speaks for: what it knows, what it can be told, its news. madeupphone.cpp makes one up;
/// what drives a real one is another file for this class, and needs the part above the orders alone.
class Phone {
public:
    Phone();
    ~Phone();
    Phone(const Phone&) = delete;
    Phone& operator=(const Phone&) = delete;

    [[nodiscard]] std::vector<zvr::Phonebook> Books() const;
    [[nodiscard]] std::vector<PhoneEntry> Entries(const std::string& book) const;  ///< an empty name: the phone's own
    [[nodiscard]] std::vector<zvr::SMS> Messages() const;
    [[nodiscard]] std::vector<zvr::BTDevice> Devices() const;  ///< with their services

    void Accept();
    void Dial(const std::string& number);
    void Hangup();
    void SendSMS(const std::string& number, const std::string& text);  ///< onSMSSent follows
    void PressKey(const std::string& key);
    void LockKeys(bool lock);  ///< of the phone itself
    void ConnectService(const std::string& device, const std::string& service, bool connect);
    void Disconnect();  ///< from the phone
    void Connect();     ///< again
    void TellState();   ///< raises what somebody who has just come should know

    std::function<void(int percent)> onSignal;
    std::function<void(int percent, bool charging)> onBattery;
    std::function<void(const std::string&)> onOperator;
    std::function<void(bool active)> onCall;
    std::function<void(bool stands)> onConnection;
    std::function<void(const std::string& name, const std::string& number)> onIncomingCall;
    std::function<void(const zvr::SMS&)> onIncomingSMS;
    std::function<void(bool success)> onSMSSent;
    std::function<void(const std::string& key, bool pressed)> onKey;

    void Advance(std::chrono::milliseconds passed);  ///< what happens by itself in that time

    // Orders: what other people and the world do.
    void Ring(const std::string& name, const std::string& number);
    void Deliver(const std::string& name, const std::string& number, const std::string& text);
    void Answered();  ///< on the other side, or by hand at the phone
    void Ended();     ///< by the other side
    void SetSignal(int percent);
    void SetBattery(int percent, bool charging);

    struct State;

private:
    std::unique_ptr<State> state;
};

}  // namespace phonepeer
