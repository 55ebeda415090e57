#pragma once

#include "phone/phocointerface.h"
#include "ui/form.h"

#include <string>
#include <vector>

namespace zvr {

class Program;

/// The phone screen, and the line to the phone control program with all that it tells.
class Phone {
public:
    explicit Phone(Program& program);
    ~Phone();
    Phone(const Phone&) = delete;
    Phone& operator=(const Phone&) = delete;

    Form form{"phone"};
    Control* phonebooklist = nullptr;
    Control* numberbox = nullptr;
    TcpClient& wskMain;
    PhoCoInterface PhoCo;

    bool onCallShowMessage = true;  ///< at a short message too; the two below decide nothing
    bool onCallShowWindow = true;
    bool onSMSShowMessage = true;
    bool onSMSShowWindow = true;
    bool onCallPause = true;
    bool onHangupPlay = true;
    std::string phonebookName;  ///< that is asked for; empty: the phone chooses

    std::string phoneBattery;      ///< such as "50%", "50%*" while charging, "---" while unknown
    std::string phoneSignal;       ///< the same
    std::string phoneStatus;       ///< "Connected" or "Disconnected", empty before the first of the two
    int unreadSMS = 0;             ///< messages in the queue below
    std::string unreadSMSStr;      ///< the oldest first, joined by character 0; see QueuedMessage
    std::string phonebooksString;  ///< names of the phone books told last, joined by character 0
    std::string smsBoxCommVar;  ///< what the message writer shows: "1", number; or "2", sender, text; joined the same

    void Load();

    void AcceptCall();
    void HangupCall();     ///< and plays on what an incoming call has paused
    void GetPhonebook();   ///< empties the list and asks for the book; without a connection tries to get one first
    void GetPhonebooks();  ///< the answer comes into `phonebooksString`
    void DialNumber();     ///< the one in the number box
    /// Into the number box, in place of a number that the chosen row has put there.
    void TypeCharacter(std::string_view character);
    void GetSMS();  ///< shows the oldest message not read yet, until it is closed
    /// Opens the message writer and waits until it is closed. Without a number it takes that of the number box.
    void SendSMS(std::string number);
    void SendSMS2PhoCo();  ///< sends what stands in the message writer and closes it; nothing while a box is empty

private:
    void Activated();
    void Connect();
    void AskForPhonebook();
    void ListenToPhone();
    void Connected();
    void Disconnected();
    void AddEntry(const std::string& name, const std::string& number, const std::string& type);
    void EndOfBook();
    void EmptyList();
    [[nodiscard]] const std::string* NumberOfRow() const;  ///< null for none
    void RowChanged();
    void IncomingCall(const std::string& name, const std::string& number);
    void IncomingSMS(const std::string& name, const std::string& number, const std::string& text,
                     const std::string& date, const std::string& time);
    void ComeForward(const char* messageKey, const std::string& name, const std::string& number);
    void Tell(std::string message);
    void ShowConnection(bool stands);
    [[nodiscard]] bool ShowSmsBox(const std::string& commVar);

    Program& program;
    std::vector<std::string> numbers;  ///< of the list's rows
    bool phonebookRequested = false;   ///< once is enough: by the first visit, else by the driver
    bool asksOnceConnected = false;    ///< the driver asked for the book while there was nobody to ask
    int booksAwaited = 0;              ///< asked for, not told to their end
    bool bookIsOutdated = false;       ///< the one in the list is the answer to an earlier question
    bool pausedByCall = false;
};

}  // namespace zvr
