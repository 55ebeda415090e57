#pragma once

#include "phone/modxml.h"
#include "phone/phonerecords.h"
#include "platform/tcpclient.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zvr {

/// The phone control program as seen from here: requests out, events in. It knows nothing of screens, keeps no request
/// in mind and never connects by itself.
class PhoCoInterface {
public:
    PhoCoInterface() = default;
    PhoCoInterface(const PhoCoInterface&) = delete;
    PhoCoInterface& operator=(const PhoCoInterface&) = delete;

    /// Beyond this a frame without an end is thrown away, and the connection with it: bytes.
    static constexpr std::size_t longestFrame = 64U << 20U;

    void Init(TcpClient& socket);  ///< takes over the socket's events; it outlives this object or Deinit
    void Deinit();                 ///< closes the socket and lets go of it

    // Requests. Each is one frame, sent at once; a failure raises onError and is not tried again.
    void GetPhonebooks();
    void GetPhonebook(std::string_view id);  ///< an empty id lets the phone choose
    void Hide();
    void Show(std::int32_t handle, bool copyBackground, bool resize);
    void Quit();
    void Accept();
    void Dial(std::string_view number);  ///< nothing without a number
    void Hangup();
    void RefreshPhonebook(std::string_view id);
    void SendKey(std::string_view key);
    void SendSMS(std::string_view number, std::string_view text);  ///< nothing without a number
    void ForceDisconnect();
    void RefreshSMS();
    void LockRemoteKeys(bool lock);
    void ReInit();
    void GetAllSMS();
    void GetConfig();
    void GetBTDevices();
    void InquireBTDevices();
    void GetBTServices(std::string_view device);
    void BTConnectHSP(std::string_view device, bool connect);
    void BTConnectSPP(std::string_view device, bool connect);
    void BTConnectDUN(std::string_view device, bool connect);
    void ReadText(std::string_view text);
    void SwitchKeyMap(std::string_view name);

    using Text = const std::string&;
    // Events: plain calls from the socket's event, one after the other. Those of one frame come in the order below, not
    // in that of its elements.
    std::function<void(std::int16_t value, std::int16_t bars)> onSignalQuality;
    std::function<void(std::int16_t value, bool charging)> onBatteryStatus;
    std::function<void(bool active)> onInCall;
    std::function<void(bool success)> onSMSSent;
    std::function<void(std::int16_t stage, bool timedOut)> onInitDone;
    std::function<void()> onConnectionLost;  ///< of the phone itself, not of its control program
    std::function<void()> onConnectionRecovered;
    std::function<void(Text name, Text number, Text photo)> onIncomingCall;
    std::function<void(Text name, Text number, Text text, Text date, Text time)> onIncomingSMS;
    std::function<void(Text key, bool pressed)> onRemoteKey;
    std::function<void(Text id, Text name, Text number, Text type)> onPhonebookEntry;  ///< at the end four empty texts
    std::function<void(const std::vector<Phonebook>&)> onPhonebooks;
    std::function<void(const std::vector<SMS>&)> onAllSMS;
    std::function<void(const std::vector<BTDevice>&)> onBTDevices;
    std::function<void(Text device, const std::vector<BTService>&)> onBTServices;
    std::function<void(Text name)> onOperator;
    // Of the connection.
    std::function<void()> onConnected;
    std::function<void()> onDisconnected;
    std::function<void(int number, Text description)> onError;

private:
    using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

    void Request(std::string_view name, std::string_view text = {}, Attributes attributes = {});
    void SendRequest(const WrittenElement& root);

    void DataArrival();
    void ProcessFrame(std::string_view frame);
    void RefuseTooLong();

    TcpClient* m_oWSock = nullptr;
    std::string receiveBuffer;
};

}  // namespace zvr
