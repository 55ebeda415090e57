#include "people.h"
#include "phone.h"

#include <algorithm>
#include <ctime>
#include <random>
#include <string_view>
#include <utility>

namespace phonepeer {
namespace {

using std::chrono_literals::operator""s;
using Milliseconds = std::chrono::milliseconds;

constexpr Milliseconds signalPace = 5s;
constexpr Milliseconds batteryPace = 30s;
constexpr Milliseconds toAnswer = 3s;  ///< till whoever was dialled takes the call
constexpr Milliseconds toSend = 1s;    ///< till the network has taken a message
constexpr int emptyBattery = 15;       ///< then it is plugged in
constexpr std::size_t mostMessages = 100;

template <typename... Parameters, typename... Values>
void Raise(const std::function<void(Parameters...)>& handler, const Values&... values) {
    if (handler) {
        handler(values...);
    }
}

std::string Now(const char* format) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    char text[32] = "";
    std::strftime(text, sizeof text, format, &parts);
    return text;
}

zvr::SMS Message(const std::string& name, const std::string& number, const std::string& text, int index) {
    return {name, number, Now("%d.%m.%Y"), Now("%H:%M"), text, static_cast<std::int16_t>(index)};
}

std::vector<zvr::BTDevice> MadeUpDevices() {
    using Services = std::vector<zvr::BTService>;
    return {
        {"Made-up Phone", "00:00:5E:00:53:01", "5A0204", true, 3,
         Services{{"Voice Gateway", "0000111f-0000-1000-8000-00805f9b34fb", "0", 0},
                  {"Serial Port", "00001101-0000-1000-8000-00805f9b34fb", "0", 0},
                  {"Dial-up Networking", "00001103-0000-1000-8000-00805f9b34fb", "0", 0}}},
        {"Somebody's Headset", "00:00:5E:00:53:02", "240404", false, 1,
         Services{{"Headset", "00001108-0000-1000-8000-00805f9b34fb", "0", 0}}},
    };
}

}  // namespace

struct Phone::State {
    enum class Call { none, rings, dials, talks };

    const std::vector<PhoneEntry> people = MadeUpPeople();
    std::vector<PhoneEntry> dialled;
    std::vector<zvr::SMS> messages;
    std::vector<zvr::BTDevice> devices = MadeUpDevices();
    Call call = Call::none;
    int signal = 80;
    int battery = 80;
    bool charging = false;
    bool connected = true;
    bool keysLocked = false;
    std::minstd_rand random{1};
    Milliseconds now{0};
    Milliseconds nextSignal = signalPace;
    Milliseconds nextBattery = batteryPace;
    Milliseconds answersAt = Milliseconds::max();
    std::vector<std::pair<Milliseconds, bool>> sent;  ///< what is under way: when it is told, and how it went

    void Keep(const zvr::SMS& message) {
        if (messages.size() == mostMessages) {
            messages.erase(messages.begin());
        }
        messages.push_back(message);
    }
    void SignalMoves() {
        const int step = static_cast<int>(random() % 31) - 15;
        signal = std::clamp(signal + step, 10, 100);
    }
    void BatteryMoves() {
        charging = charging ? battery < 100 : battery <= emptyBattery;
        battery = std::clamp(battery + (charging ? 1 : -1), 0, 100);
    }
};

Phone::Phone() : state(std::make_unique<State>()) {
    const auto& people = state->people;
    const char* const texts[] = {"I am at the corner by the bakery.", "Σε πέντε λεπτά είμαι εκεί.",
                                 "Купи, пожалуйста, хлеб & молоко <2 л>.", "Your parcel waits at the shop.",
                                 "Grüße aus Zürich!\nBis Sonntag."};
    int index = 0;
    for (const char* text : texts) {
        const PhoneEntry& sender = people[static_cast<std::size_t>(index) * people.size() / std::size(texts)];
        ++index;
        state->Keep(Message(sender.name, sender.number, text, index));
    }
}

Phone::~Phone() = default;

std::vector<zvr::Phonebook> Phone::Books() const {
    return {{"ME", false, true, false, false}, {"SM", false, true, false, false}, {"DC", true, false, false, false}};
}

std::vector<PhoneEntry> Phone::Entries(const std::string& book) const {
    if (book == "DC") {
        return state->dialled;
    }
    if (book == "SM") {
        return {state->people.begin(), state->people.begin() + 20};
    }
    return book.empty() || book == "ME" ? state->people : std::vector<PhoneEntry>();
}

std::vector<zvr::SMS> Phone::Messages() const {
    return state->messages;
}

std::vector<zvr::BTDevice> Phone::Devices() const {
    return state->devices;
}

void Phone::Accept() {
    if (state->call == State::Call::rings) {
        Answered();
    }
}

void Phone::Dial(const std::string& number) {
    if (!state->connected || state->call != State::Call::none) {
        return;
    }
    state->call = State::Call::dials;
    state->answersAt = state->now + toAnswer;
    const auto known = std::find_if(state->people.begin(), state->people.end(),
                                    [&](const PhoneEntry& entry) { return entry.number == number; });
    state->dialled.insert(state->dialled.begin(),
                          known != state->people.end() ? *known : PhoneEntry{number, number, ""});
    state->dialled.resize(std::min<std::size_t>(state->dialled.size(), 10));
}

void Phone::Hangup() {
    Ended();
}

void Phone::SendSMS(const std::string& number, const std::string& text) {
    const bool dialable = number.find_first_of("0123456789") != number.npos && number.find('@') == number.npos;
    state->sent.emplace_back(state->now + toSend, state->connected && dialable && !text.empty());
}

void Phone::PressKey(const std::string& key) {
    if (!state->keysLocked) {
        Raise(onKey, key, true);
        Raise(onKey, key, false);
    }
}

void Phone::LockKeys(bool lock) {
    state->keysLocked = lock;
}

void Phone::ConnectService(const std::string& device, const std::string& service, bool connect) {
    for (zvr::BTDevice& known : state->devices) {
        for (zvr::BTService& offered : known.Services) {
            if (known.BDA == device && offered.Name == service) {
                offered.State = connect ? "1" : "0";
                offered.ConnectedPort = connect ? 7 : 0;
            }
        }
    }
}

void Phone::Disconnect() {
    if (std::exchange(state->connected, false)) {
        Ended();
        Raise(onConnection, false);
    }
}

void Phone::Connect() {
    if (!std::exchange(state->connected, true)) {
        Raise(onConnection, true);
        TellState();
    }
}

void Phone::TellState() {
    Raise(onOperator, std::string(state->connected ? "Made-up Mobile" : ""));
    Raise(onSignal, state->connected ? state->signal : 0);
    Raise(onBattery, state->battery, state->charging);
    if (state->call == State::Call::talks) {
        Raise(onCall, true);
    }
}

void Phone::Advance(Milliseconds passed) {
    state->now += passed;
    for (; state->now >= state->nextSignal; state->nextSignal += signalPace) {
        state->SignalMoves();
        if (state->connected) {
            Raise(onSignal, state->signal);
        }
    }
    for (; state->now >= state->nextBattery; state->nextBattery += batteryPace) {
        state->BatteryMoves();
        Raise(onBattery, state->battery, state->charging);
    }
    if (state->now >= state->answersAt) {
        Answered();
    }
    // One at a time: of two in one read the other side takes the first alone.
    if (!state->sent.empty() && state->now >= state->sent.front().first) {
        const bool success = state->sent.front().second;
        state->sent.erase(state->sent.begin());
        Raise(onSMSSent, success);
    }
}

void Phone::Ring(const std::string& name, const std::string& number) {
    // A call that waits behind another one rings too.
    if (state->call == State::Call::none) {
        state->call = State::Call::rings;
    }
    Raise(onIncomingCall, name, number);
}

void Phone::Deliver(const std::string& name, const std::string& number, const std::string& text) {
    const int index = state->messages.empty() ? 1 : state->messages.back().Index % 30'000 + 1;
    const zvr::SMS message = Message(name, number, text, index);
    state->Keep(message);
    Raise(onIncomingSMS, message);
}

void Phone::Answered() {
    state->answersAt = Milliseconds::max();
    if (state->call != State::Call::none && state->call != State::Call::talks) {
        state->call = State::Call::talks;
        Raise(onCall, true);
    }
}

void Phone::Ended() {
    state->answersAt = Milliseconds::max();
    if (std::exchange(state->call, State::Call::none) != State::Call::none) {
        Raise(onCall, false);
    }
}

void Phone::SetSignal(int percent) {
    state->signal = std::clamp(percent, 0, 100);
    state->nextSignal = state->now + 12 * signalPace;  // long enough to look at it
    Raise(onSignal, state->signal);
}

void Phone::SetBattery(int percent, bool charging) {
    state->battery = std::clamp(percent, 0, 100);
    state->charging = charging;
    state->nextBattery = state->now + 2 * batteryPace;
    Raise(onBattery, state->battery, state->charging);
}

}  // namespace phonepeer
