#include "front.h"

#include "platform/text.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace phonepeer {
namespace {

using zvr::WrittenElement;
using zvr::XmlElement;

constexpr char frameEnd = '\r';
constexpr std::size_t mostAsked = 100;

using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

WrittenElement& Fill(WrittenElement& element, Attributes attributes) {
    for (const auto& [name, value] : attributes) {
        zvr::AddAttribute(name, value, element);
    }
    return element;
}

WrittenElement Element(std::string_view name, std::string_view text = {}, Attributes attributes = {}) {
    WrittenElement element{std::string(name), std::string(text), {}, {}};
    Fill(element, attributes);
    return element;
}

/// Without a prolog: several of them in one read are one document to the other side.
std::string Frame(const WrittenElement& element) {
    return zvr::Serialised(element) + frameEnd;
}

const char* Word(bool value) {
    return value ? "true" : "false";
}

std::string BooksFrame(const Phone& phone) {
    WrittenElement list = Element("PhoneBooks");
    for (const zvr::Phonebook& book : phone.Books()) {
        Fill(zvr::AddElement("PhoneBook", {}, list), {{"id", book.Name},
                                                      {"static", Word(book.IsStatic)},
                                                      {"sorted", Word(book.IsSorted)},
                                                      {"showTime", Word(book.ShowTime)},
                                                      {"showDate", Word(book.ShowDate)}});
    }
    return Frame(list);
}

std::string BookFrame(const Phone& phone, const std::string& id) {
    WrittenElement book = Element("PhoneBook", {}, {{"id", id.empty() ? "ME" : id}});
    for (const PhoneEntry& entry : phone.Entries(id)) {
        WrittenElement& element = zvr::AddElement("PhoneBookEntry", {}, book);
        zvr::AddElement("Name", entry.name, element);
        zvr::AddElement("Number", entry.number, element);
        zvr::AddElement("Type", entry.type, element);
    }
    return Frame(book);
}

WrittenElement MessageElement(std::string_view name, const zvr::SMS& sms) {
    return Element(name, sms.Message,
                   {{"name", sms.Sender}, {"number", sms.Number}, {"date", sms.SMSDate}, {"time", sms.SMSTime}});
}

std::string MessagesFrame(const Phone& phone) {
    WrittenElement list = Element("AllSMS");
    for (const zvr::SMS& sms : phone.Messages()) {
        list.children.push_back(MessageElement("SMS", sms));
        zvr::AddAttribute("index", std::to_string(sms.Index), list.children.back());
    }
    return Frame(list);
}

std::string DevicesFrame(const Phone& phone) {
    WrittenElement list = Element("BTDevices");
    for (const zvr::BTDevice& device : phone.Devices()) {
        Fill(zvr::AddElement("BTDevice", device.Name, list), {{"BDA", device.BDA},
                                                              {"class", device.DevClass},
                                                              {"isPaired", device.Paired ? "True" : "False"},
                                                              {"services", std::to_string(device.ServiceCnt)}});
    }
    return Frame(list);
}

std::string ServicesFrame(const Phone& phone, const std::string& bda) {
    WrittenElement list = Element("BTServices", {}, {{"device", bda}});
    for (const zvr::BTDevice& device : phone.Devices()) {
        for (const zvr::BTService& service : device.Services) {
            if (device.BDA == bda) {
                Fill(zvr::AddElement("BTService", service.Name, list),
                     {{"guid", service.Guid},
                      {"state", service.State},
                      {"connectedPort", std::to_string(service.ConnectedPort)}});
            }
        }
    }
    return Frame(list);
}

std::string ConnectTo(Phone& phone, std::string_view service, const XmlElement& request) {
    const std::string device(request.Attribute("device"));
    phone.ConnectService(device, std::string(service), zvr::text::EqualAscii(request.Text(), "true"));
    return ServicesFrame(phone, device);
}

struct Request {
    std::string_view name;
    std::string (*answer)(Front&, const XmlElement&);
};

std::string Text(const XmlElement& element) {
    return std::string(element.Text());
}

std::string Named(const XmlElement& element, std::string_view attribute) {
    return std::string(element.Attribute(attribute));
}

// What has no meaning for a phone without a screen and a voice of its own is heard and not answered.
std::string Heard(Front&, const XmlElement&) {
    return {};
}

constexpr auto requests = std::to_array<Request>({
    {"GetPhoneBooks", [](Front& f, const XmlElement&) { return BooksFrame(f.phone); }},
    {"GetPhoneBook", [](Front& f, const XmlElement& e) { return BookFrame(f.phone, Named(e, "id")); }},
    {"RefreshPhoneBook", [](Front& f, const XmlElement& e) { return BookFrame(f.phone, Named(e, "id")); }},
    {"Accept", [](Front& f, const XmlElement&) { return f.phone.Accept(), std::string(); }},
    {"Dial", [](Front& f, const XmlElement& e) { return f.phone.Dial(Named(e, "number")), std::string(); }},
    {"Hangup", [](Front& f, const XmlElement&) { return f.phone.Hangup(), std::string(); }},
    {"SendKey", [](Front& f, const XmlElement& e) { return f.phone.PressKey(Text(e)), std::string(); }},
    {"SendSMS",
     [](Front& f, const XmlElement& e) { return f.phone.SendSMS(Named(e, "number"), Text(e)), std::string(); }},
    {"LockRemoteKeys",
     [](Front& f, const XmlElement& e) { return f.phone.LockKeys(Text(e) == "true"), std::string(); }},
    {"ForceDisconnect", [](Front& f, const XmlElement&) { return f.phone.Disconnect(), std::string(); }},
    {"ReInit",
     [](Front& f, const XmlElement&) {
         f.phone.Connect();
         return Frame(Element("InitDone", {}, {{"stage", "1"}, {"timedOut", "false"}}));
     }},
    {"GetAllSMS", [](Front& f, const XmlElement&) { return MessagesFrame(f.phone); }},
    {"RefreshSMS", [](Front& f, const XmlElement&) { return MessagesFrame(f.phone); }},
    {"GetConfig", [](Front&, const XmlElement&) { return Frame(Element("Config")); }},
    {"GetBTDevices", [](Front& f, const XmlElement&) { return DevicesFrame(f.phone); }},
    {"InquireBTDevices", [](Front& f, const XmlElement&) { return DevicesFrame(f.phone); }},
    {"GetBTServices", [](Front& f, const XmlElement& e) { return ServicesFrame(f.phone, Named(e, "device")); }},
    {"BTConnectHSP", [](Front& f, const XmlElement& e) { return ConnectTo(f.phone, "Voice Gateway", e); }},
    {"BTConnectSPP", [](Front& f, const XmlElement& e) { return ConnectTo(f.phone, "Serial Port", e); }},
    {"BTConnectDUN", [](Front& f, const XmlElement& e) { return ConnectTo(f.phone, "Dial-up Networking", e); }},
    {"Quit", [](Front& f, const XmlElement&) { return f.quit(), std::string(); }},
    {"Hide", Heard},
    {"Show", Heard},
    {"ReadText", Heard},
    {"SwitchKeyMap", Heard},
});

}  // namespace

Front::Front(Phone& phone, std::function<void(const std::string&)> toAll, std::function<void()> quit)
    : phone(phone), quit(std::move(quit)), toAll(std::move(toAll)) {
    ListenToPhone();
}

void Front::ListenToPhone() {
    phone.onSignal = [this](int percent) {
        TellAll(Element("SignalQuality", {},
                        {{"value", std::to_string(percent)}, {"bars", std::to_string((percent + 10) / 20)}}));
    };
    phone.onBattery = [this](int percent, bool charging) {
        TellAll(Element("BatteryStatus", {}, {{"value", std::to_string(percent)}, {"charging", charging ? "1" : "0"}}));
    };
    phone.onOperator = [this](const std::string& name) { TellAll(Element("Operator", name)); };
    phone.onCall = [this](bool active) { TellAll(Element("InCall", Word(active))); };
    phone.onConnection = [this](bool stands) { TellAll(Element(stands ? "ConnectionRecovered" : "ConnectionLost")); };
    phone.onIncomingCall = [this](const std::string& name, const std::string& number) {
        TellAll(Element("IncomingCall", {}, {{"name", name}, {"number", number}, {"photo", ""}}));
    };
    phone.onIncomingSMS = [this](const zvr::SMS& sms) { TellAll(MessageElement("IncomingSMS", sms)); };
    phone.onSMSSent = [this](bool success) { TellAll(Element("SMSSent", Word(success))); };
    phone.onKey = [this](const std::string& key, bool pressed) {
        TellAll(Element("RemoteKey", {}, {{"key", key}, {"state", pressed ? "pressed" : "released"}}));
    };
}

void Front::TellAll(const WrittenElement& element) {
    toAll(Frame(element));
}

std::string Front::Greeting() {
    std::string greeting = Frame(Element("InitDone", {}, {{"stage", "1"}, {"timedOut", "false"}}));
    const auto others = std::exchange(toAll, [&greeting](const std::string& frame) { greeting += frame; });
    phone.TellState();
    toAll = others;
    return greeting;
}

std::string Front::Answer(std::string& received) {
    std::string answers;
    for (std::size_t end = received.find(frameEnd); end != received.npos; end = received.find(frameEnd)) {
        const std::string request = received.substr(0, end);
        received.erase(0, end + 1);
        answers += AnswerOne(request);
    }
    return answers;
}

std::string Front::AnswerOne(std::string_view request) {
    const auto document = zvr::XmlDocument::ParseUtf8(zvr::text::FromUtf8OrLatin1(request), {longestRequest, 1000});
    std::string answers;
    for (const XmlElement& element : document.IsEmpty() ? std::vector<XmlElement>() : document.Root().Children()) {
        const auto known = std::find_if(requests.begin(), requests.end(),
                                        [&](const Request& row) { return row.name == element.Name(); });
        if (known != requests.end()) {
            answers += known->answer(*this, element);
        }
    }
    if (asked.size() == mostAsked) {
        asked.pop_front();
    }
    asked.emplace_back(request);
    return answers;
}

std::vector<std::string> Front::Asked() {
    const std::deque<std::string> since = std::exchange(asked, {});
    return {since.begin(), since.end()};
}

}  // namespace phonepeer
