#include "platform/log.h"
#include "platform/text.h"
#include "support/matchers.h"
#include "support/phoneline.h"

#include <functional>

using namespace zvr;

namespace {

using Events = std::vector<std::string>;
using std::string_literals::operator""s;

/// What each frame, here without its end, raises; the rules that a reader can get wrong, one a line.
const std::vector<std::pair<std::string, Events>>& FrameCases() {
    static const std::vector<std::pair<std::string, Events>> cases{
        {"", {}},
        {R"(<SignalQuality value="50"/>)", {}},
        {R"(<SignalQuality value="49.5" bars="3 of 5"/>)", {"SignalQuality|50|3"}},
        {R"(<SignalQuality value="50.5" bars="x"/>)", {"SignalQuality|50|0"}},
        {R"(<BatteryStatus value="50"/>)", {"BatteryStatus|50|yes"}},
        {R"(<BatteryStatus value="0x20" charging="0"/>)", {"BatteryStatus|32|no"}},
        {R"(<BatteryStatus value="0X20" charging="00"/>)", {"BatteryStatus|0|yes"}},
        {"<ConnectionRecovered/>", {"ConnectionRecovered"}},
        {"<InCall>TrUe</InCall>", {"InCall|yes"}},
        {"<InCall>true </InCall>", {"InCall|no"}},
        {"<SMSSent>false</SMSSent>", {"SMSSent|no"}},
        {R"(<InitDone stage="-3" timedOut="True"/>)", {"InitDone|-3|yes"}},
        {R"(<RemoteKey key="1" state="Pressed"/>)", {"RemoteKey|1|no"}},
        {R"(<IncomingCall number="0x5" name="0x0xAb" photo="c"/>)", {"IncomingCall|&H&HAb|&H5|c"}},
        {R"(<IncomingCall number="1x0x2" name="0a0x3"/>)", {"IncomingCall|0a0x3|1x0x2|"}},
        {"<IncomingCall/>", {"IncomingCall|||"}},
        {R"(<IncomingSMS name="a" number="b" date="c" time="d">one &lt; <i>two</i><![CDATA[ & ]]>three</IncomingSMS>)",
         {"IncomingSMS|a|b|one < two & three|c|d"}},
        {"<PhoneBook id=\"x\"/>", {"PhonebookEntry||||"}},
        {R"(<PhoneBook id="x"><PhoneBookEntry><Type>/M</Type><Name>n</Name><Number/></PhoneBookEntry></PhoneBook>)",
         {"PhonebookEntry|x|n||/M", "PhonebookEntry||||"}},
        {R"(<PhoneBooks><PhoneBook id="a" static="true" showDate="TRUE"/><PhoneBook id="b" sorted="1"/></PhoneBooks>)",
         {"PhonebookEntry||||", "Phonebooks|ayesnonoyes bnononono"}},
        {R"(<AllSMS><SMS index=" 7 " name="a" number="b" date="c" time="d">m</SMS><SMS index="0x10">n</SMS></AllSMS>)",
         {"AllSMS|7,a,b,c,d,m 16,,,,,n"}},
        {R"(<SMS index="1">by itself</SMS>)", {}},
        {R"(<BTDevices><BTDevice BDA="00:1" class="k" isPaired="-1" services="2.5">n</BTDevice></BTDevices>)",
         {"BTDevices|n,00:1,k,yes,2"}},
        {R"(<BTServices device="d"><BTService guid="g" state="s" connectedPort="3">n</BTService></BTServices>)",
         {"BTServices|d|n,g,s,3"}},
        {"<Operator>Eins &#38; Zwei</Operator>", {"Operator|Eins & Zwei"}},
        // Not in the order of the elements, and the first of each kind counts.
        {R"(<x><Operator>o</Operator><IncomingCall/><InCall/><InCall>true</InCall><SignalQuality bars="1"/></x>)",
         {"SignalQuality|0|1", "InCall|no", "IncomingCall|||", "Operator|o"}},
        // What can't be read ends the frame: what came before has been told.
        {R"(<SignalQuality value="32768" bars="1"/><InCall>true</InCall>)", {}},
        {R"(<InCall>true</InCall><InitDone stage="99999"/><Operator>o</Operator>)", {"InCall|yes"}},
        {R"(<AllSMS><SMS>no index</SMS></AllSMS><Operator>o</Operator>)", {}},
        {R"(<BTDevices><BTDevice isPaired="maybe" services="1"/></BTDevices>)", {}},
        {R"(<BTServices device="d"><BTService/></BTServices>)", {}},
        {"<PhoneBook id=\"x\"><PhoneBookEntry><Name>n</Name><Number>1</Number><Type/></PhoneBookEntry>"
         "<PhoneBookEntry><Name>n</Name><Type/></PhoneBookEntry></PhoneBook><Operator>o</Operator>",
         {"PhonebookEntry|x|n|1|"}},
        // Not well formed, or two documents in one.
        {"<InCall>true</Incall>", {}},
        {"<Operator>a & b</Operator>", {}},
        {"<?xml version=\"1.0\"?><InCall>true</InCall>", {"InCall|yes"}},
        {"<?xml version=\"1.0\"?><InCall>true</InCall>\r<?xml version=\"1.0\"?><Operator>o</Operator>", {}},
        {"<InCall>true</InCall><?xml version=\"1.0\"?><Operator>o</Operator>", {}},
        // Bytes: UTF-8 where they are, else Latin-1, whatever the text calls itself.
        {"<Operator>\u041E\u043F\u03A9\u00E9</Operator>", {"Operator|\u041E\u043F\u03A9\u00E9"}},
        {"<Operator>Caf\xE9 \xA3</Operator>", {"Operator|Caf\u00E9 \u00A3"}},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Operator>\u041E\xC3\xA9</Operator>",
         {"Operator|\u041E\u00E9"}},
        {"<?xml version=\"1.0\" encoding=\"windows-1252\"?><Operator>\xE9</Operator>", {"Operator|\u00E9"}},
    };
    return cases;
}

}  // namespace

TEST(PhoCo, RaisesWhatStandsInAFrameWhereverItIsCut) {
    PhoneLine line;
    for (const auto& [text, events] : FrameCases()) {
        const std::string frame = text + "\r";
        EXPECT_EQ(line.EventsOf(frame), events) << frame;
        EXPECT_THAT(line.EventsOf("<ConnectionLost/>\r"), ElementsAre("ConnectionLost"))
            << "something was left of " << frame;
        for (std::size_t cut = 1; cut < frame.size() && frame.find('\r') + 1 == frame.size(); ++cut) {
            EXPECT_THAT(line.EventsOf(frame.substr(0, cut)), IsEmpty()) << frame << " cut at " << cut;
            EXPECT_EQ(line.EventsOf(frame.substr(cut)), events) << frame << " cut at " << cut;
        }
    }
}

TEST(PhoCo, WhatArrivesWhileAHandlerWaitsIsReadBehindTheFrameAtHand) {
    PhoneLine line;
    int depth = 0;
    const auto note = line.phone.onIncomingCall;
    line.phone.onIncomingCall = [&](const std::string& name, const std::string& number, const std::string& photo) {
        note(name, number, photo);
        if (++depth == 1) {
            line.Feed("<Operator>o</Operator>\r");
            line.Feed("<Operator>ha");
        }
    };
    EXPECT_THAT(line.EventsOf("<IncomingCall name=\"n\"/>\r"),
                ElementsAre("IncomingCall|n||", "IncomingCall|n||", "Operator|o"));
    EXPECT_THAT(line.EventsOf("<InCall/>\r"), ElementsAre("InCall|no")) << "the half frame went with the buffer";
}

TEST(PhoCo, AFrameWithoutAnEndEndsTheConnection) {
    PhoneLine line;
    const std::string piece(PhoCoInterface::longestFrame / 8, 'x');
    for (int i = 0; i < 8; ++i) {
        ASSERT_THAT(line.EventsOf(piece), IsEmpty());
    }
    EXPECT_THAT(line.EventsOf("x"), ElementsAre("Error", "Disconnected"));
    EXPECT_EQ(line.socket.CurrentState(), SocketState::closed);
}

TEST(PhoCo, WhatGoesWrongLeavesALineWithoutAnythingOfTheFrame) {
    PhoneLine line;
    const std::uint64_t before = Log::LastNumber();
    for (const char* frame : {"<Operator>secret &secret;</Operator>\r", "<secret\r",
                              "<AllSMS><SMS index=\"secret\" name=\"secret\">secret</SMS></AllSMS>\r",
                              "<IncomingCall name=\"secret\"/><InitDone stage=\"1e9\"/>\r"}) {
        line.Feed(frame);
    }
    line.socket.Close();
    line.phone.SendSMS("secret", "secret");
    EXPECT_EQ(Log::LastNumber() - before, 5U);
    for (const std::string& said : Log::Lines()) {
        EXPECT_EQ(said.find("secret"), said.npos) << said;
    }
}

TEST(PhoCo, WritesEachRequestAsOneLine) {
    PhoneLine line;
    using P = PhoCoInterface;
    const auto written = [&line](const std::function<void(P&)>& request) {
        line.socket.state->sent.clear();
        request(line.phone);
        return line.socket.state->sent;
    };
    const std::pair<std::string, std::function<void(P&)>> cases[] = {
        {"<GetPhoneBook/>", [](P& p) { p.GetPhonebook(""); }},
        {"<GetPhoneBook id=\"a\"/>", [](P& p) { p.GetPhonebook("a"); }},
        {"<Show handle=\"-70000\" copyBackground=\"True\" resize=\"False\"/>",
         [](P& p) { p.Show(-70000, true, false); }},
        {"", [](P& p) { p.Dial(""); }},
        {"<RefreshPhoneBook id=\"a\"/>", [](P& p) { p.RefreshPhonebook("a"); }},
        {"<SendKey/>", [](P& p) { p.SendKey(""); }},
        {"<SendSMS number=\"b\">message</SendSMS>", [](P& p) { p.SendSMS("b", "message"); }},
        {"", [](P& p) { p.SendSMS("", "message"); }},
        {"<LockRemoteKeys>true</LockRemoteKeys>", [](P& p) { p.LockRemoteKeys(true); }},
        {"<RefreshSMS/>", [](P& p) { p.RefreshSMS(); }},
        {"<ReInit/>", [](P& p) { p.ReInit(); }},
        {"<SwitchKeyMap>a</SwitchKeyMap>", [](P& p) { p.SwitchKeyMap("a"); }},
        {"<BTConnectSPP device=\"d\">False</BTConnectSPP>", [](P& p) { p.BTConnectSPP("d", false); }},
        {"<BTConnectHSP device=\"d\">True</BTConnectHSP>", [](P& p) { p.BTConnectHSP("d", true); }},
        {"<BTConnectDUN device=\"\">True</BTConnectDUN>", [](P& p) { p.BTConnectDUN("", true); }},
        // Texts: pairs of CR and LF go, line feeds stay, nothing of a text can end a frame or break it.
        {"<ReadText>onetwo\nthree&#13;four</ReadText>", [](P& p) { p.ReadText("one\r\ntwo\nthree\rfour"); }},
        {"<SendSMS number=\"&quot;&lt;&#10;\">&lt;\"&gt;&amp;</SendSMS>", [](P& p) { p.SendSMS("\"<\n", "<\">&"); }},
        {"<ReadText>ab\u00E9\u0416</ReadText>", [](P& p) { p.ReadText("a\0\x1F"s + "b\uFFFE\u00E9\u0416"); }},
        {"<ReadText>\u00E9</ReadText>", [](P& p) { p.ReadText("\xE9"); }},
    };
    for (const auto& [element, request] : cases) {
        const std::string frame = "<?xml version=\"1.0\"?><PhoneControl.NET>" + element + "</PhoneControl.NET>\r";
        EXPECT_EQ(written(request), element.empty() ? "" : frame);
    }
    EXPECT_THAT(line.events, IsEmpty());
    line.phone.Deinit();
    line.phone.Accept();
    EXPECT_THAT(line.events, ElementsAre("Error"));
    EXPECT_EQ(line.socket.CurrentState(), SocketState::closed);
}
