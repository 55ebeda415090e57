#include "phone/phone.h"

#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/moduleform.h"
#include "core/program.h"
#include "media/mediaplayer.h"
#include "phone/smsbox.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zvr {
namespace {

constexpr const char* thisMachine = "127.0.0.1";
constexpr int phoneControlPort = 17015;
constexpr const char* unknownLevel = "---";
constexpr const char* connectedText = "Connected";
constexpr const char* disconnectedText = "Disconnected";
constexpr char separator = '\0';

// More than any phone has: a peer that has gone mad shall not fill the memory.
constexpr std::size_t mostEntries = 100'000;
constexpr int mostUnread = 10'000;
constexpr std::size_t mostUnreadBytes = 16U << 20U;

struct IconOfType {
    std::string_view type;
    ListIcon icon;
};

constexpr std::array iconsOfTypes{
    IconOfType{"/H", ListIcon::home}, IconOfType{"/M", ListIcon::mobile}, IconOfType{"/W", ListIcon::work},
    IconOfType{"/F", ListIcon::fax},  IconOfType{"/@", ListIcon::mail},
};

ListIcon IconOf(std::string_view type) {
    const auto row = std::find_if(iconsOfTypes.begin(), iconsOfTypes.end(),
                                  [type](const IconOfType& candidate) { return candidate.type == type; });
    return row == iconsOfTypes.end() ? ListIcon::other : row->icon;
}

/// Who calls or writes, as the driver is told.
std::string DisplayText(const std::string& name, const std::string& number) {
    if (number.empty()) {
        return unknownLevel;
    }
    return name.empty() ? number : name + " (" + number + ")";
}

std::string WithoutTabs(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text;
}

/// A message as it waits to be read: sender, a tab, the text with date and time.
std::string QueuedMessage(const std::string& name, const std::string& number, const std::string& text,
                          const std::string& date, const std::string& time) {
    const bool nobody = name.empty() && number.empty();
    const std::string sender = nobody ? unknownLevel : WithoutTabs(name) + " (" + WithoutTabs(number) + ")";
    return sender + "\t" + WithoutTabs(text) + "\r\n\r\n" + date + " " + time;
}

}  // namespace

Phone::Phone(Program& program) : wskMain(program.platform.phoneSocket), program(program) {}

Phone::~Phone() {
    PhoCo.Deinit();
}

void Phone::Load() {
    LoadModuleForm(program, form);
    form.onActivate = [this] { Activated(); };
    phonebooklist = &form.Add(ControlKind::grid, "phonebooklist");
    numberbox = &form.Add(ControlKind::textBox, "numberbox");
    numberbox->text->digits = true;
    form.focus = phonebooklist;
    phonebooklist->grid->onRowChange = [this] { RowChanged(); };
    phoneBattery = unknownLevel;
    phoneSignal = unknownLevel;
    PhoCo.Init(wskMain);
    ListenToPhone();
    Connect();
}

void Phone::ListenToPhone() {
    using Text = PhoCoInterface::Text;
    PhoCo.onConnected = [this] { Connected(); };
    PhoCo.onDisconnected = [this] { Disconnected(); };
    PhoCo.onSignalQuality = [this](int value, int) { phoneSignal = std::to_string(value) + "%"; };
    PhoCo.onBatteryStatus = [this](int value, bool charging) {
        phoneBattery = std::to_string(value) + (charging ? "%*" : "%");
    };
    PhoCo.onPhonebooks = [this](const std::vector<Phonebook>& books) {
        phonebooksString.clear();
        for (const Phonebook& book : books) {
            phonebooksString += book.Name;
            phonebooksString += separator;
        }
        phonebooksString.pop_back();
    };
    PhoCo.onPhonebookEntry = [this](Text id, Text name, Text number, Text type) {
        if (number.empty()) {
            phonebooklist->grid->SetTop(1);
            if (id.empty() && name.empty() && type.empty()) {
                EndOfBook();
            }
        } else {
            AddEntry(name, number, type);
        }
    };
    PhoCo.onSMSSent = [this](bool success) {
        Tell(program.languageText(success ? "PHONE_SMSSENT" : "PHONE_SMSNOTSENT"));
    };
    PhoCo.onIncomingCall = [this](Text name, Text number, Text) {
        program.mediaplayer.WhenRestored([this, name, number] { IncomingCall(name, number); });
    };
    PhoCo.onIncomingSMS = [this](Text name, Text number, Text text, Text date, Text time) {
        IncomingSMS(name, number, text, date, time);
    };
}

void Phone::Connect() {
    wskMain.Connect(thisMachine, phoneControlPort);
    ShowConnection(false);
}

void Phone::Activated() {
    program.commanddispatcher.pushModuleHistory(form.name);
    const SocketState state = wskMain.CurrentState();
    if (state == SocketState::closed || state == SocketState::error) {
        wskMain.Close();
        Connect();
    }
    if (!phonebookRequested) {
        AskForPhonebook();
    }
}

void Phone::Connected() {
    phoneStatus = connectedText;
    ShowConnection(true);
    if (std::exchange(asksOnceConnected, false)) {
        AskForPhonebook();
    }
}

void Phone::Disconnected() {
    phoneStatus = disconnectedText;
    phoneBattery = unknownLevel;
    phoneSignal = unknownLevel;
    booksAwaited = 0;
    bookIsOutdated = false;
    ShowConnection(false);
}

/// The status is empty until there was a connection: an empty list says it then.
void Phone::ShowConnection(bool stands) {
    phonebooklist->grid->SetNotice(stands ? "" : disconnectedText);
}

void Phone::AcceptCall() {
    PhoCo.Accept();
}

void Phone::HangupCall() {
    PhoCo.Hangup();
    if (onHangupPlay && pausedByCall) {
        pausedByCall = false;
        program.dispatchCommand("mediaplayer.play");
    }
}

void Phone::DialNumber() {
    if (const std::string& number = numberbox->text->text; !number.empty()) {
        PhoCo.Dial(number);
    } else {
        program.showMessage(program.languageText("PHONE_NOSELECT"));
    }
}

void Phone::GetPhonebook() {
    const SocketState state = wskMain.CurrentState();
    if (state == SocketState::closed || state == SocketState::error) {
        Connect();
    }
    asksOnceConnected = state != SocketState::connected;
    AskForPhonebook();
}

void Phone::AskForPhonebook() {
    EmptyList();
    if (wskMain.CurrentState() == SocketState::connected) {
        ++booksAwaited;
    }
    bookIsOutdated = false;
    PhoCo.GetPhonebook(phonebookName);
    phonebookRequested = true;
}

void Phone::GetPhonebooks() {
    PhoCo.GetPhonebooks();
}

void Phone::EmptyList() {
    phonebooklist->grid->Clear();
    numbers.clear();
}

void Phone::AddEntry(const std::string& name, const std::string& number, const std::string& type) {
    if (std::exchange(bookIsOutdated, false)) {
        EmptyList();
    }
    if (numbers.size() == mostEntries) {
        Log::Warning("the phone book has more than {} entries: the rest is not shown", mostEntries);
        return;
    }
    phonebooklist->grid->AddRow(name, static_cast<std::int32_t>(numbers.size()), IconOf(type));
    numbers.push_back(number);
}

/// Who asks again while the phone still reads the book gets two answers. The later one takes the place of the first.
void Phone::EndOfBook() {
    bookIsOutdated = booksAwaited > 1;
    booksAwaited = std::max(0, booksAwaited - 1);
}

const std::string* Phone::NumberOfRow() const {
    const int row = phonebooklist->grid->Row();
    const auto entry = static_cast<std::size_t>(row > 0 ? phonebooklist->grid->RowAt(row).data : -1);
    return entry < numbers.size() ? &numbers[entry] : nullptr;
}

void Phone::RowChanged() {
    if (const std::string* const number = NumberOfRow()) {
        numberbox->SetText(*number, static_cast<int>(text::Length(*number)));
    }
}

void Phone::TypeCharacter(std::string_view character) {
    if (const std::string* const number = NumberOfRow(); number != nullptr && *number == numberbox->text->text) {
        numberbox->SetText("");
    }
    numberbox->TypeText(character);
}

void Phone::IncomingCall(const std::string& name, const std::string& number) {
    if (onCallPause && program.mediaplayer.wmp.CurrentState() == PlayState::playing) {
        pausedByCall = true;
        program.dispatchCommand("mediaplayer.pause");
    }
    ComeForward("PHONE_INCOMINGCALL", name, number);
}

void Phone::IncomingSMS(const std::string& name, const std::string& number, const std::string& text,
                        const std::string& date, const std::string& time) {
    const std::string message = QueuedMessage(name, number, text, date, time);
    if (unreadSMS >= mostUnread || unreadSMSStr.size() + message.size() > mostUnreadBytes) {
        Log::Warning("a short message is dropped: {} are not read yet", unreadSMS);
    } else {
        if (!unreadSMSStr.empty()) {
            unreadSMSStr += separator;
        }
        unreadSMSStr += message;
        ++unreadSMS;
    }
    program.mediaplayer.WhenRestored([this, name, number] { ComeForward("PHONE_RECEIVEDSMS", name, number); });
}

void Phone::ComeForward(const char* messageKey, const std::string& name, const std::string& number) {
    if (onCallShowWindow) {
        program.dispatchCommand("phone.show");
    }
    if (onCallShowMessage) {
        Tell(program.languageText(messageKey) + " \n\n" + DisplayText(name, number));
    }
}

/// From the loop: while the message stands what comes from the phone goes on, each frame by itself.
void Phone::Tell(std::string message) {
    program.platform.loop.Post([this, message = std::move(message)] { program.showMessage(message); });
}

void Phone::GetSMS() {
    if (unreadSMS <= 0) {
        return;
    }
    const std::size_t end = unreadSMSStr.find(separator);
    const std::string message = unreadSMSStr.substr(0, end);
    unreadSMSStr.erase(0, end == std::string::npos ? end : end + 1);
    --unreadSMS;
    const auto parts = text::Split(message, '\t');
    if (parts.size() != 2) {
        return;
    }
    const std::string commVar =
        std::string("2") + separator + std::string(parts[0]) + separator + std::string(parts[1]);
    if (!ShowSmsBox(commVar) && !program.platform.loop.IsQuitting()) {
        // Too many dialogs wait: it is the first to be read when they are gone.
        unreadSMSStr = message + (unreadSMSStr.empty() ? std::string() : separator + unreadSMSStr);
        ++unreadSMS;
    }
}

void Phone::SendSMS(std::string number) {
    if (number.empty()) {
        number = numberbox->text->text.empty() ? "0" : numberbox->text->text;
    }
    (void)ShowSmsBox(std::string("1") + separator + number);
}

bool Phone::ShowSmsBox(const std::string& commVar) {
    SmsBox& smsbox = program.smsbox;
    if (!smsbox.CanBeClosed()) {
        Log::Warning("the message writer is not shown: the skin has no key to close it");
        return false;
    }
    bool prepared = false;
    DialogRequest request{smsbox.form, [&] {
                              smsBoxCommVar = commVar;
                              if (!std::exchange(prepared, true)) {
                                  smsbox.Prepare();
                              }
                              smsbox.Dress();
                          }};
    return program.dialogs.Show(request);
}

void Phone::SendSMS2PhoCo() {
    const std::string& number = program.smsbox.smsnumberbox->text->text;
    const std::string& text = program.smsbox.smstextbox->text->text;
    if (number.empty() || text.empty()) {
        return;
    }
    PhoCo.SendSMS(number, text);
    program.dialogs.Settle(program.smsbox.form, "");
}

}  // namespace zvr
