#pragma once

#include "phone/phocointerface.h"
#include "platform/headless/eventloop.h"
#include "platform/headless/tcpclient.h"

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace zvr {

/// The protocol by itself, the other end in the test's hand, and a line for each event: its name and its values.
class PhoneLine {
public:
    PhoneLine() {
        phone.Init(socket);
        phone.onSignalQuality = Noted<std::int16_t, std::int16_t>("SignalQuality");
        phone.onBatteryStatus = Noted<std::int16_t, bool>("BatteryStatus");
        phone.onInCall = Noted<bool>("InCall");
        phone.onSMSSent = Noted<bool>("SMSSent");
        phone.onInitDone = Noted<std::int16_t, bool>("InitDone");
        phone.onConnectionLost = Noted<>("ConnectionLost");
        phone.onConnectionRecovered = Noted<>("ConnectionRecovered");
        phone.onIncomingCall = Noted<Text, Text, Text>("IncomingCall");
        phone.onIncomingSMS = Noted<Text, Text, Text, Text, Text>("IncomingSMS");
        phone.onRemoteKey = Noted<Text, bool>("RemoteKey");
        phone.onPhonebookEntry = Noted<Text, Text, Text, Text>("PhonebookEntry");
        phone.onPhonebooks = Noted<const std::vector<Phonebook>&>("Phonebooks");
        phone.onAllSMS = Noted<const std::vector<SMS>&>("AllSMS");
        phone.onBTDevices = Noted<const std::vector<BTDevice>&>("BTDevices");
        phone.onBTServices = Noted<Text, const std::vector<BTService>&>("BTServices");
        phone.onOperator = Noted<Text>("Operator");
        phone.onConnected = Noted<>("Connected");
        phone.onDisconnected = Noted<>("Disconnected");
        phone.onError = [this](int, Text) { events.emplace_back("Error"); };
        socket.state->peerListens = true;
        socket.Connect("127.0.0.1", 1);
        Turn();
        events.clear();
    }

    EventLoop loop;
    TcpClient socket{loop};
    PhoCoInterface phone;
    std::vector<std::string> events;

    void Turn() { loop.state->Advance(Milliseconds{0}); }
    void Feed(std::string_view bytes) {
        socket.state->Deliver(bytes);
        Turn();
    }
    /// What a frame raises by itself.
    std::vector<std::string> EventsOf(std::string_view frame) {
        Feed(frame);
        return std::exchange(events, {});
    }

private:
    using Text = const std::string&;

    template <typename... Values>
    std::function<void(Values...)> Noted(std::string name) {
        return [this, name](Values... values) { events.push_back((name + ... + ("|" + Word(values)))); };
    }
    static std::string Word(Text text) { return text; }
    static std::string Word(std::same_as<bool> auto value) { return value ? "yes" : "no"; }
    static std::string Word(std::same_as<std::int16_t> auto value) { return std::to_string(value); }
    static std::string Word(const Phonebook& book) {
        return book.Name + Word(book.IsStatic) + Word(book.IsSorted) + Word(book.ShowTime) + Word(book.ShowDate);
    }
    static std::string Word(const SMS& sms) {
        return Word(sms.Index) + "," + sms.Sender + "," + sms.Number + "," + sms.SMSDate + "," + sms.SMSTime + "," +
               sms.Message;
    }
    static std::string Word(const BTDevice& device) {
        return device.Name + "," + device.BDA + "," + device.DevClass + "," + Word(device.Paired) + "," +
               Word(device.ServiceCnt);
    }
    static std::string Word(const BTService& service) {
        return service.Name + "," + service.Guid + "," + service.State + "," + Word(service.ConnectedPort);
    }
    template <typename Record>
    static std::string Word(const std::vector<Record>& records) {
        std::string words;
        for (const Record& record : records) {
            words += (words.empty() ? "" : " ") + Word(record);
        }
        return words;
    }
};

}  // namespace zvr
