#include "phone/phocoframe.h"

#include "core/numbers.h"
#include "platform/text.h"

#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace zvr {
namespace {

using Number = std::int16_t;
/// Empty: all is well.
using Cause = std::string_view;

constexpr Cause outOfRange = "a number is beyond 16 bits";
constexpr Cause noNumber = "a number is missing or none";
constexpr Cause noBoolean = "a yes or no is missing or none";
constexpr Cause entryLacks = "an entry of the phone book lacks name, number or type";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::optional<Number> Fitting(double value) {
    const long whole = RoundHalfEven(value);
    if (whole < std::numeric_limits<Number>::min() || whole > std::numeric_limits<Number>::max()) {
        return std::nullopt;
    }
    return static_cast<Number>(whole);
}

/// What the text begins with; 0 if that is no number. None beyond 16 bits.
std::optional<Number> Leading(std::string_view text) {
    return Fitting(LeadingNumber(text));
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view{} : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The whole text is a number.
std::optional<double> WholeNumber(std::string_view text) {
    text = Trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const bool hexadecimal = text.size() > 2 && text[0] == '&' && text::LowerAscii(text[1]) == 'h';
    if (hexadecimal) {
        text.remove_prefix(2);
    } else if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) {
        return std::nullopt;  // from_chars would also take a second sign, "inf" and "nan"
    }
    const char* const end = text.data() + text.size();
    double value = 0;
    const auto read =
        std::from_chars(text.data(), end, value, hexadecimal ? std::chars_format::hex : std::chars_format::general);
    const bool plainHexadecimal = text.find_first_not_of("0123456789abcdefABCDEF") == text.npos;
    if (read.ec != std::errc{} || read.ptr != end || (hexadecimal && !plainHexadecimal)) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

std::optional<bool> StrictBoolean(std::string_view text) {
    const std::string_view word = Trimmed(text);
    if (text::EqualAscii(word, "true")) {
        return true;
    }
    if (text::EqualAscii(word, "false")) {
        return false;
    }
    const auto number = WholeNumber(text);
    return number ? std::optional(*number != 0) : std::nullopt;
}

bool ParseBool(std::string_view text) {
    return text::EqualAscii(text, "true");
}

/// Puts the strictly read attribute into `value`, or says why not.
Cause ReadStrictly(const XmlElement& element, std::string_view name, Number& value) {
    const auto number = WholeNumber(GetAttribute(name, element));
    const auto fitting = number ? Fitting(*number) : std::nullopt;
    value = fitting.value_or(0);
    return !number ? noNumber : !fitting ? outOfRange : Cause{};
}

std::string TextOf(const XmlElement& element) {
    return std::string(element.Text());
}

Cause TellSignalQuality(const PhoCoInterface& phone, const XmlDocument& frame) {
    const XmlElement found = frame.First("SignalQuality");
    const std::string bars = GetAttribute("bars", found);
    if (bars.empty()) {
        return {};
    }
    const auto value = Leading(GetAttribute("value", found));
    const auto number = Leading(bars);
    if (!value || !number) {
        return outOfRange;
    }
    Raise(phone.onSignalQuality, *value, *number);
    return {};
}

Cause TellBatteryStatus(const PhoCoInterface& phone, const XmlDocument& frame) {
    const XmlElement found = frame.First("BatteryStatus");
    const std::string text = GetAttribute("value", found);
    if (text.empty()) {
        return {};
    }
    const auto value = Leading(text);
    if (!value) {
        return outOfRange;
    }
    Raise(phone.onBatteryStatus, *value, GetAttribute("charging", found) != "0");
    return {};
}

Cause TellInCall(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("InCall")) {
        Raise(phone.onInCall, ParseBool(found.Text()));
    }
    return {};
}

Cause TellSMSSent(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("SMSSent")) {
        Raise(phone.onSMSSent, ParseBool(found.Text()));
    }
    return {};
}

Cause TellInitDone(const PhoCoInterface& phone, const XmlDocument& frame) {
    const XmlElement found = frame.First("InitDone");
    if (!found) {
        return {};
    }
    const auto stage = Leading(GetAttribute("stage", found));
    if (!stage) {
        return outOfRange;
    }
    Raise(phone.onInitDone, *stage, ParseBool(GetAttribute("timedOut", found)));
    return {};
}

Cause TellConnectionLost(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (frame.First("ConnectionLost")) {
        Raise(phone.onConnectionLost);
    }
    return {};
}

Cause TellConnectionRecovered(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (frame.First("ConnectionRecovered")) {
        Raise(phone.onConnectionRecovered);
    }
    return {};
}

Cause TellIncomingCall(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("IncomingCall")) {
        Raise(phone.onIncomingCall, GetAttribute("name", found), GetAttribute("number", found),
              GetAttribute("photo", found));
    }
    return {};
}

Cause TellIncomingSMS(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("IncomingSMS")) {
        Raise(phone.onIncomingSMS, GetAttribute("name", found), GetAttribute("number", found), TextOf(found),
              GetAttribute("date", found), GetAttribute("time", found));
    }
    return {};
}

Cause TellRemoteKey(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("RemoteKey")) {
        Raise(phone.onRemoteKey, GetAttribute("key", found), GetAttribute("state", found) == "pressed");
    }
    return {};
}

Cause TellPhonebookEntries(const PhoCoInterface& phone, const XmlDocument& frame) {
    const XmlElement found = frame.First("PhoneBook");
    if (!found) {
        return {};
    }
    const std::string id = GetAttribute("id", found);
    for (const XmlElement& entry : frame.All("PhoneBookEntry")) {
        const XmlElement name = entry.Child("Name");
        const XmlElement number = entry.Child("Number");
        const XmlElement type = entry.Child("Type");
        if (!name || !number || !type) {
            return entryLacks;
        }
        Raise(phone.onPhonebookEntry, id, TextOf(name), TextOf(number), TextOf(type));
    }
    const std::string none;
    Raise(phone.onPhonebookEntry, none, none, none, none);
    return {};
}

Cause TellPhonebooks(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (!frame.First("PhoneBooks")) {
        return {};
    }
    std::vector<Phonebook> books;
    for (const XmlElement& book : frame.All("PhoneBook")) {
        const auto is = [&book](std::string_view name) { return ParseBool(GetAttribute(name, book)); };
        books.push_back({GetAttribute("id", book), is("static"), is("sorted"), is("showTime"), is("showDate")});
    }
    if (!books.empty()) {
        Raise(phone.onPhonebooks, books);
    }
    return {};
}

Cause TellAllSMS(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (!frame.First("AllSMS")) {
        return {};
    }
    std::vector<SMS> messages;
    for (const XmlElement& found : frame.All("SMS")) {
        SMS& message =
            messages.emplace_back(SMS{GetAttribute("name", found), GetAttribute("number", found),
                                      GetAttribute("date", found), GetAttribute("time", found), TextOf(found)});
        if (const Cause cause = ReadStrictly(found, "index", message.Index); !cause.empty()) {
            return cause;
        }
    }
    if (!messages.empty()) {
        Raise(phone.onAllSMS, messages);
    }
    return {};
}

Cause TellBTDevices(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (!frame.First("BTDevices")) {
        return {};
    }
    std::vector<BTDevice> devices;
    for (const XmlElement& found : frame.All("BTDevice")) {
        const auto paired = StrictBoolean(GetAttribute("isPaired", found));
        if (!paired) {
            return noBoolean;
        }
        BTDevice& device = devices.emplace_back(
            BTDevice{TextOf(found), GetAttribute("BDA", found), GetAttribute("class", found), *paired, 0, {}});
        if (const Cause cause = ReadStrictly(found, "services", device.ServiceCnt); !cause.empty()) {
            return cause;
        }
    }
    if (!devices.empty()) {
        Raise(phone.onBTDevices, devices);
    }
    return {};
}

Cause TellBTServices(const PhoCoInterface& phone, const XmlDocument& frame) {
    const XmlElement list = frame.First("BTServices");
    if (!list) {
        return {};
    }
    std::vector<BTService> services;
    for (const XmlElement& found : frame.All("BTService")) {
        BTService& service =
            services.emplace_back(BTService{TextOf(found), GetAttribute("guid", found), GetAttribute("state", found)});
        if (const Cause cause = ReadStrictly(found, "connectedPort", service.ConnectedPort); !cause.empty()) {
            return cause;
        }
    }
    if (!services.empty()) {
        Raise(phone.onBTServices, GetAttribute("device", list), services);
    }
    return {};
}

Cause TellOperator(const PhoCoInterface& phone, const XmlDocument& frame) {
    if (const XmlElement found = frame.First("Operator")) {
        Raise(phone.onOperator, TextOf(found));
    }
    return {};
}

using Tell = Cause (*)(const PhoCoInterface&, const XmlDocument&);

constexpr std::array<Tell, 16> inOrder{
    TellSignalQuality,    TellBatteryStatus,       TellInCall,       TellSMSSent,     TellInitDone,
    TellConnectionLost,   TellConnectionRecovered, TellIncomingCall, TellIncomingSMS, TellRemoteKey,
    TellPhonebookEntries, TellPhonebooks,          TellAllSMS,       TellBTDevices,   TellBTServices,
    TellOperator,
};

}  // namespace

std::string_view TellEvents(const PhoCoInterface& phone, const XmlDocument& frame) {
    for (const Tell tell : inOrder) {
        if (const Cause cause = tell(phone, frame); !cause.empty()) {
            return cause;
        }
    }
    return {};
}

}  // namespace zvr
