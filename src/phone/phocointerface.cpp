#include "phone/phocointerface.h"

#include "phone/phocoframe.h"
#include "platform/log.h"
#include "platform/text.h"

#include <cerrno>

namespace zvr {
namespace {

constexpr std::string_view prolog = "<?xml version=\"1.0\"?>";
constexpr char frameEnd = '\r';

constexpr std::string_view TrueFalse(bool value) {
    return value ? "True" : "False";
}

}  // namespace

void PhoCoInterface::Init(TcpClient& socket) {
    m_oWSock = &socket;
    socket.onConnect = [this] {
        receiveBuffer.clear();  // half a frame of a program that was killed is no beginning of the next one's
        Raise(onConnected);
    };
    socket.onDataArrival = [this] { DataArrival(); };
    socket.onClose = [this] { Raise(onDisconnected); };
    socket.onError = [this](const SocketFault& fault) {
        Log::Note("no connection to the phone: {}", fault.description);
        Raise(onError, fault.number, fault.description);
    };
}

void PhoCoInterface::Deinit() {
    if (m_oWSock == nullptr) {
        return;
    }
    m_oWSock->Close();
    m_oWSock->onConnect = nullptr;
    m_oWSock->onDataArrival = nullptr;
    m_oWSock->onClose = nullptr;
    m_oWSock->onError = nullptr;
    m_oWSock = nullptr;
}

void PhoCoInterface::GetPhonebooks() {
    Request("GetPhoneBooks");
}

void PhoCoInterface::GetPhonebook(std::string_view id) {
    if (id.empty()) {
        Request("GetPhoneBook");
    } else {
        Request("GetPhoneBook", {}, {{"id", id}});
    }
}

void PhoCoInterface::Hide() {
    Request("Hide");
}

void PhoCoInterface::Show(std::int32_t handle, bool copyBackground, bool resize) {
    if (handle == 0) {
        Request("Show");
        return;
    }
    Request("Show", {},
            {{"handle", std::to_string(handle)},
             {"copyBackground", TrueFalse(copyBackground)},
             {"resize", TrueFalse(resize)}});
}

void PhoCoInterface::Quit() {
    Request("Quit");
}

void PhoCoInterface::Accept() {
    Request("Accept");
}

void PhoCoInterface::Dial(std::string_view number) {
    if (!number.empty()) {
        Request("Dial", {}, {{"number", number}});
    }
}

void PhoCoInterface::Hangup() {
    Request("Hangup");
}

void PhoCoInterface::RefreshPhonebook(std::string_view id) {
    if (id.empty()) {
        Request("RefreshPhoneBook");
    } else {
        Request("RefreshPhoneBook", {}, {{"id", id}});
    }
}

void PhoCoInterface::SendKey(std::string_view key) {
    Request("SendKey", key);
}

void PhoCoInterface::SendSMS(std::string_view number, std::string_view text) {
    if (!number.empty()) {
        Request("SendSMS", text, {{"number", number}});
    }
}

void PhoCoInterface::ForceDisconnect() {
    Request("ForceDisconnect");
}

void PhoCoInterface::RefreshSMS() {
    Request("RefreshSMS");
}

void PhoCoInterface::LockRemoteKeys(bool lock) {
    Request("LockRemoteKeys", lock ? "true" : "false");  // in small letters, unlike every other
}

void PhoCoInterface::ReInit() {
    Request("ReInit");
}

void PhoCoInterface::GetAllSMS() {
    Request("GetAllSMS");
}

void PhoCoInterface::GetConfig() {
    Request("GetConfig");
}

void PhoCoInterface::GetBTDevices() {
    Request("GetBTDevices");
}

void PhoCoInterface::InquireBTDevices() {
    Request("InquireBTDevices");
}

void PhoCoInterface::GetBTServices(std::string_view device) {
    Request("GetBTServices", {}, {{"device", device}});
}

void PhoCoInterface::BTConnectHSP(std::string_view device, bool connect) {
    Request("BTConnectHSP", TrueFalse(connect), {{"device", device}});
}

void PhoCoInterface::BTConnectSPP(std::string_view device, bool connect) {
    Request("BTConnectSPP", TrueFalse(connect), {{"device", device}});
}

void PhoCoInterface::BTConnectDUN(std::string_view device, bool connect) {
    Request("BTConnectDUN", TrueFalse(connect), {{"device", device}});
}

void PhoCoInterface::ReadText(std::string_view text) {
    Request("ReadText", text);
}

void PhoCoInterface::SwitchKeyMap(std::string_view name) {
    Request("SwitchKeyMap", name);
}

void PhoCoInterface::Request(std::string_view name, std::string_view text, Attributes attributes) {
    WrittenElement root{"PhoneControl.NET", {}, {}, {}};
    WrittenElement& element = AddElement(name, text, root);
    for (const auto& [key, value] : attributes) {
        AddAttribute(key, value, element);
    }
    SendRequest(root);
}

void PhoCoInterface::SendRequest(const WrittenElement& root) {
    const std::string frame = std::string(prolog) + Serialised(root) + frameEnd;
    const auto fault = m_oWSock == nullptr ? SocketFault{ENOTCONN, "there is no socket"} : m_oWSock->SendData(frame);
    if (fault) {
        Log::Note("the request {} to the phone was not sent: {}", root.children.front().name, fault->description);
        Raise(onError, fault->number, fault->description);
    }
}

void PhoCoInterface::DataArrival() {
    receiveBuffer += m_oWSock->GetData();
    if (receiveBuffer.size() > longestFrame) {
        RefuseTooLong();
        return;
    }
    if (!receiveBuffer.ends_with(frameEnd)) {
        return;
    }
    receiveBuffer.pop_back();
    if (receiveBuffer.starts_with("<?")) {
        ProcessFrame(std::string(receiveBuffer));
    } else {
        // So several short news in one read are one document.
        ProcessFrame("<PhoCoRemote>" + receiveBuffer + "</PhoCoRemote>");
    }
    // Not before: what arrives while a handler waits is read behind this frame's text, as one document with it.
    receiveBuffer.clear();
}

void PhoCoInterface::RefuseTooLong() {
    Log::Warning("the phone sends a frame of more than {} bytes: the connection is closed", longestFrame);
    receiveBuffer = {};
    m_oWSock->Close();
    Raise(onError, EMSGSIZE, "the frame is too long");
    Raise(onDisconnected);
}

void PhoCoInterface::ProcessFrame(std::string_view frame) {
    constexpr XmlLimits limits{.bytes = 2 * longestFrame, .elements = 1'000'000};
    const XmlDocument document = XmlDocument::ParseUtf8(text::FromUtf8OrLatin1(frame), limits);
    if (document.IsEmpty()) {
        Log::Warning("a frame of {} bytes from the phone is dropped: it is not well formed", frame.size());
        return;
    }
    if (const std::string_view cause = TellEvents(*this, document); !cause.empty()) {
        Log::Warning("a frame from the phone is read no further: {}", cause);
    }
}

}  // namespace zvr
