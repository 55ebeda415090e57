#include "phone/phone.h"

#include "core/dialogqueue.h"
#include "core/godfather.h"
#include "core/splash.h"
#include "media/mediaplayer.h"
#include "phone/smsbox.h"
#include "platform/headless/tcpclient.h"
#include "support/bench.h"
#include "ui/stage.h"

#include <array>

using namespace zvr;
using std::chrono_literals::operator""ms;

namespace {

using std::string_literals::operator""s;

class PhoneTest : public testing::Test {
protected:
    PhoneTest() {
        bench.skin.buttons["smsbox"] = {
            {0, 200, "smsbox.close"}, {110, 200, "smsbox.send"}, {220, 200, "externalapps.onscreenkeyboard"}};
        bench.skin.buttons["phone"] = {{0, 500, "phone.getphonebook"}, {110, 500, "phone.readsms"}};
        bench.skin.labels["phone"] = {"**PHONESTATUS**", "**PHONEBATTERY**", "**PHONESIGNAL**", "**UNREADSMS**"};
        bench.skin.labels["smsbox"] = {"**SMSCHARS**"};
        socket.peerListens = true;
    }

    void Start(const std::string& phoneSettings = {}) {
        bench.folder.Write("music/a.mp3", "");
        bench.settings += "[general]\nUSEWAVEVOLUMEONLY=0\n[phone]\n" + phoneSettings;
        bench.Start();
    }
    /// The phone says it; a dialog that comes of it stands a moment later.
    void Says(std::string_view frame) {
        socket.Deliver(std::string(frame) + "\r");
        bench.loop.RunOne(bench.loop.now);
    }
    void SaysAndWaits(std::string_view frame) {
        Says(frame);
        bench.Advance(150ms);
    }
    void Visit() {
        Do("mainmenu.show");
        Do("phone.show");
    }
    void Do(const char* command) { bench.program->dispatchCommand(command); }
    /// Does it once the dialog stands that is opened meanwhile, with the driver's finger or from the wheel.
    void Later(Milliseconds delay, std::function<void()> task) { bench.loop.At(delay, std::move(task)); }
    [[nodiscard]] std::string Asked() {
        const std::string all = socket.sent;
        socket.sent.clear();
        std::string elements;
        constexpr std::string_view begin = "<PhoneControl.NET>";
        for (std::size_t at = all.find(begin); at != all.npos; at = all.find(begin, at + 1)) {
            const std::size_t from = at + begin.size();
            elements += all.substr(from, all.find("</PhoneControl.NET>", from) - from);
        }
        return elements;
    }
    [[nodiscard]] std::string OpenBox() {
        const DialogRequest* const open = bench.program->dialogs.Open();
        return open == nullptr ? "" : open->form.name;
    }
    [[nodiscard]] const std::string& Message() { return bench.program->godfather.msgBoxCommVar; }
    [[nodiscard]] std::string Shown(const char* token) {
        bench.Advance(150ms);
        return bench.LabelText(Phone_().form, token);
    }
    [[nodiscard]] std::vector<std::string> Rows() {
        const Grid& grid = *Phone_().phonebooklist->grid;
        std::vector<std::string> rows;
        for (int row = 1; row <= grid.RowCount(); ++row) {
            rows.push_back(grid.RowAt(row).text);
        }
        return rows;
    }
    void Play() {
        Do("mediaplayer.show");
        bench.program->mediaplayer.medialist->grid->Select(bench.program->mediaplayer.medialist->grid->RowCount());
        Do("mediaplayer.listselect");
        bench.Advance(500ms);
        ASSERT_EQ(Wmp().CurrentState(), PlayState::playing);
    }
    [[nodiscard]] Phone& Phone_() { return bench.program->phone; }
    [[nodiscard]] SmsBox& Box() { return bench.program->smsbox; }
    [[nodiscard]] PlayQueue& Wmp() { return bench.program->mediaplayer.wmp; }

    Bench bench;
    TcpClient::State& socket = *bench.platform.phoneSocket.state;
};

std::string Entry(const std::string& name, const std::string& number, const std::string& type) {
    return "<PhoneBookEntry><Name>" + name + "</Name><Number>" + number + "</Number><Type>" + type +
           "</Type></PhoneBookEntry>";
}
std::string Book(const std::string& entries) {
    return "<PhoneBook id=\"ME\">" + entries + "</PhoneBook>";
}
std::string Sms(const std::string& name, const std::string& number, const std::string& text) {
    return "<IncomingSMS name=\"" + name + "\" number=\"" + number + "\" date=\"24.12.\" time=\"18:00\">" + text +
           "</IncomingSMS>";
}

}  // namespace

TEST_F(PhoneTest, ConnectsAtTheStartAndAtEachVisitWhereTheConnectionHasGone) {
    Start("PHONEBOOKNAME=ME\n");
    EXPECT_EQ(socket.attempts, 1);
    EXPECT_EQ(socket.address + ":" + std::to_string(socket.port), "127.0.0.1:17015");
    EXPECT_EQ(Asked(), "") << "the book is asked for at the first visit";
    Do("phone.show");
    EXPECT_EQ(Asked(), "<GetPhoneBook id=\"ME\"/>");
    Visit();
    EXPECT_EQ(Asked(), "") << "and at no later one";
    EXPECT_EQ(socket.attempts, 1);
    SaysAndWaits(R"(<SignalQuality value="70" bars="3"/><BatteryStatus value="50"/>)");
    SaysAndWaits(Book(Entry("Anna", "1", "/M")));
    EXPECT_EQ(Shown("**PHONESTATUS**"), "Connected");
    EXPECT_EQ(Shown("**PHONEBATTERY**") + Shown("**PHONESIGNAL**"), "50%*70%");
    socket.CloseFromPeer();
    EXPECT_EQ(Shown("**PHONESTATUS**"), "Disconnected");
    EXPECT_EQ(Shown("**PHONEBATTERY**") + Shown("**PHONESIGNAL**"), "------");
    bench.Advance(60'000ms);
    EXPECT_EQ(socket.attempts, 1) << "nothing tries behind the driver's back";
    Visit();
    EXPECT_EQ(Shown("**PHONESTATUS**"), "Connected");
    EXPECT_THAT(Rows(), ElementsAre("Anna"));
    EXPECT_EQ(Asked(), "");
}

TEST_F(PhoneTest, WithoutAPhoneProgramTheListSaysSoAndTheBookKeyTriesAgain) {
    socket.peerListens = false;
    Start();
    EXPECT_EQ(Shown("**PHONESTATUS**"), "");
    Do("phone.show");
    bench.Advance(100ms);
    EXPECT_EQ(socket.attempts, 2);
    EXPECT_EQ(Phone_().phonebooklist->grid->Notice(), "Disconnected");
    socket.peerListens = true;
    Visit();
    bench.Advance(100ms);
    EXPECT_EQ(Phone_().phonebooklist->grid->Notice(), "");
    EXPECT_EQ(Asked(), "") << "the first visit has asked; nobody heard it";
    socket.CloseFromPeer();
    bench.Advance(100ms);
    Do("phone.getphonebook");
    Do("phone.getphonebook");
    EXPECT_EQ(Asked(), "");
    bench.Advance(100ms);
    EXPECT_EQ(Asked(), "<GetPhoneBook/>") << "once the connection stands";
    bench.Tap("phone.getphonebook");
    EXPECT_EQ(Asked(), "<GetPhoneBook/>");
}

TEST_F(PhoneTest, ShowsTheBookAndTakesTheNumberOfTheChosenRow) {
    Start();
    Do("phone.show");
    const std::string entries = Entry("Anna", "1", "/H") + Entry("", "2", "/M") + Entry("Nobody", "", "/W") +
                                Entry("C\tc", "3", "/W") + Entry("D", "4", "/F") + Entry("E", "e@example.org", "/@") +
                                Entry("F", "6", "/h");
    SaysAndWaits(Book(entries));
    EXPECT_THAT(Rows(), ElementsAre("Anna", "", "C\tc", "D", "E", "F"));
    Grid& grid = *Phone_().phonebooklist->grid;
    std::vector<ListIcon> icons;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        icons.push_back(grid.RowAt(row).icon);
    }
    EXPECT_THAT(icons, ElementsAre(ListIcon::home, ListIcon::mobile, ListIcon::work, ListIcon::fax, ListIcon::mail,
                                   ListIcon::other));
    EXPECT_EQ(grid.Row(), 0);
    (void)Asked();
    Do("phone.scrollbottom");
    EXPECT_EQ(Phone_().numberbox->text->text, "6");
    bench.Advance(500ms);  // new rows take no touch at once
    bench.Tap(bench.MiddleOf(*Phone_().phonebooklist));
    EXPECT_EQ(Phone_().numberbox->text->text, "4");
    for (const char* key : {"phone.text.+", "phone.text.4", "phone.text.5", "phone.text.back", "phone.text.9"}) {
        Do(key);
    }
    Do("phone.dial");
    EXPECT_EQ(Asked(), "<Dial number=\"+49\"/>") << "typed digits take the place of the row's number";
    Phone_().numberbox->SetText("");
    bench.AnswerMessages();
    Do("phone.dial");
    EXPECT_EQ(Asked(), "");
    EXPECT_THAT(bench.messages, ElementsAre(bench.program->languageText("PHONE_NOSELECT")));
    Do("phone.accept");
    Do("phone.hangup");
    EXPECT_EQ(Asked(), "<Accept/><Hangup/>");
}

TEST_F(PhoneTest, ABookThatWasAskedForTwiceIsShownOnce) {
    Start();
    Do("phone.show");
    Do("phone.getphonebook");
    SaysAndWaits(Book(Entry("Anna", "1", "/H") + Entry("Boris", "2", "/M")));
    Do("phone.scrollbottom");
    SaysAndWaits(Book(Entry("Anna", "1", "/H") + Entry("Cleo", "3", "/M")));
    EXPECT_THAT(Rows(), ElementsAre("Anna", "Cleo"));
    EXPECT_EQ(Phone_().phonebooklist->grid->Row(), 0);
    SaysAndWaits(Book(Entry("Dora", "4", "/H")));
    EXPECT_THAT(Rows(), ElementsAre("Anna", "Cleo", "Dora")) << "nobody has asked for a new one";
    Phone_().GetPhonebooks();
    SaysAndWaits(R"(<PhoneBooks><PhoneBook id="ME"/><PhoneBook id="SM"/></PhoneBooks>)");
    EXPECT_EQ(Phone_().phonebooksString, "ME\0SM"s);
}

TEST_F(PhoneTest, ACallPausesTheMusicAndTheOwnHangUpPlaysOnWithTheFade) {
    Start();
    Play();
    Wmp().SetVolume(40);
    Later(100ms, [&] {
        EXPECT_EQ(bench.Front(), "phone");
        EXPECT_EQ(Message(), bench.program->languageText("PHONE_INCOMINGCALL") + " \n\nAnna (1)\tok");
        Do("messagebox.ok");
    });
    Says(R"(<IncomingCall name="Anna" number="1" photo="p"/>)");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused) << "at once, not with the message";
    bench.Advance(200ms);
    Do("phone.hangup");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    EXPECT_EQ(Wmp().Volume(), 0);
    bench.Advance(5000ms);
    EXPECT_EQ(Wmp().Volume(), 40);
    Do("mediaplayer.pause");
    Do("app.goback");
    EXPECT_EQ(bench.Front(), "mediaplayer");
    bench.AnswerMessages();
    SaysAndWaits("<IncomingCall/>");
    Do("phone.hangup");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused) << "no call has paused it";
}

TEST_F(PhoneTest, ACallDoesWhatTheSettingsSay) {
    Start("ONCALLSHOWMESSAGE=0\nONCALLSHOWWINDOW=0\nONCALLPAUSE=0\nONSMSSHOWMESSAGE=1\nONSMSSHOWWINDOW=1\n");
    Play();
    SaysAndWaits(R"(<IncomingCall name="Anna" number="1"/>)");
    SaysAndWaits(Sms("Anna", "1", "text"));
    EXPECT_EQ(bench.Front() + OpenBox(), "mediaplayer") << "a message asks what a call asks";
    EXPECT_EQ(Wmp().CurrentState(), PlayState::playing);
    Phone_().onCallPause = true;
    Phone_().onHangupPlay = false;
    SaysAndWaits("<IncomingCall/>");
    Do("phone.hangup");
    EXPECT_EQ(Wmp().CurrentState(), PlayState::paused);
}

TEST_F(PhoneTest, ACallDuringTheStartComesBehindItAndLeavesTheSongItsPlace) {
    Start("ONCALLSHOWMESSAGE=1\n");
    Play();
    Wmp().SetCurrentPosition(30);
    bench.program->UnloadRoot(true);
    Later(1500ms, [&] {
        ASSERT_TRUE(Wmp().Mute()) << "in the silent second";
        socket.Deliver(Sms("Anna", "1", "text") + "\r<IncomingCall number=\"1\"/>\r");
    });
    Later(3000ms, [&] {
        EXPECT_EQ(bench.Front() + OpenBox(), "phonemessagebox");
        EXPECT_FALSE(bench.program->splash.form.loaded);
        EXPECT_EQ(Wmp().CurrentState(), PlayState::paused) << "by the call";
        bench.AnswerMessages();
    });
    bench.Restart();
    bench.Advance(2500ms);
    Do("phone.hangup");
    EXPECT_NEAR(Wmp().CurrentPosition(), 31, 2);
}

TEST_F(PhoneTest, TheCallerIsToldByNumberAndName) {
    Start();
    bench.AnswerMessages();
    for (const char* frame : {R"(<IncomingCall number="1"/>)", R"(<IncomingCall name="Anna"/>)",
                              "<SMSSent>true</SMSSent>", "<SMSSent>no</SMSSent>"}) {
        SaysAndWaits(frame);
    }
    SaysAndWaits(Sms("Anna", "1", "t"));
    const std::string call = bench.program->languageText("PHONE_INCOMINGCALL") + " \n\n";
    EXPECT_THAT(bench.messages, ElementsAre(call + "1", call + "---", bench.program->languageText("PHONE_SMSSENT"),
                                            bench.program->languageText("PHONE_SMSNOTSENT"),
                                            bench.program->languageText("PHONE_RECEIVEDSMS") + " \n\nAnna (1)"));
}

TEST_F(PhoneTest, MessagesAreReadInTheOrderOfTheirArrival) {
    Start("ONCALLSHOWMESSAGE=0\n");
    SaysAndWaits(Sms("A&#9;a", "1&#9;2", "one\ttwo"));
    SaysAndWaits(Sms("B", "3", "second"));
    SaysAndWaits("<IncomingSMS name=\"C\" number=\"4\" date=\"a&#9;tab\" time=\"t\">is dropped</IncomingSMS>");
    SaysAndWaits(Sms("", "", "last"));
    EXPECT_EQ(Shown("**UNREADSMS**"), "4");
    socket.CloseFromPeer();
    EXPECT_EQ(Shown("**UNREADSMS**"), "4");
    std::vector<std::string> read;
    for (int i = 0; i < 5; ++i) {
        Later(100ms, [&] {
            if (OpenBox() == "smsbox") {
                read.push_back(Box().smsnumberbox->text->text + "|" + Box().smstextbox->text->text);
                EXPECT_TRUE(Box().smsnumberbox->text->readOnly && Box().smstextbox->text->readOnly);
                EXPECT_EQ(bench.ButtonOf("externalapps.onscreenkeyboard"), nullptr);
                EXPECT_EQ(Box().form.focus, Box().smstextbox);
                bench.TypeKey(Key::escape);
            }
        });
        Do("phone.readsms");
        bench.Advance(500ms);
    }
    const std::string end = "\r\n\r\n24.12. 18:00";
    EXPECT_THAT(read, ElementsAre("A a (1 2)|one two" + end, "B (3)|second" + end, "---|last" + end));
    EXPECT_EQ(Shown("**UNREADSMS**"), "0");
}

TEST_F(PhoneTest, AMessageIsWrittenAndSentOnceBothBoxesAreFilled) {
    Start();
    (void)Asked();
    Later(100ms, [&] {
        EXPECT_EQ(OpenBox(), "smsbox");
        EXPECT_EQ(Box().smsnumberbox->text->text, "0");
        EXPECT_EQ(Box().form.focus, Box().smsnumberbox) << "the number is missing";
        EXPECT_NE(bench.ButtonOf("externalapps.onscreenkeyboard"), nullptr);
        Do("smsbox.send");
        EXPECT_EQ(OpenBox(), "smsbox") << "without a text";
        bench.program->stage.TextEdited(*Box().smstextbox, "\u0414\u0430\nOK", 5, 0);
        bench.Advance(150ms);
        EXPECT_EQ(bench.LabelText(Box().form, "**SMSCHARS**"), "5");
        bench.program->stage.TextEdited(*Box().smsnumberbox, "", 0, 0);
        Do("smsbox.send");
        EXPECT_EQ(OpenBox(), "smsbox") << "without a number";
        bench.program->stage.TextEdited(*Box().smsnumberbox, "12", 2, 0);
        bench.Tap("smsbox.send");
        EXPECT_EQ(OpenBox(), "");
        Do("smsbox.send");
    });
    Do("phone.sendsms");
    EXPECT_EQ(Asked(), "<SendSMS number=\"12\">\u0414\u0430\nOK</SendSMS>");
}

TEST_F(PhoneTest, AnAnswerGoesToTheNumberInTheSender) {
    Start("ONCALLSHOWMESSAGE=0\n");
    const std::array<std::string, 3> cases[] = {{"Anna", "1", "1"}, {"A (B)", "0123", "B) (0123"},
                                                {"", "", "---"},    {"", "7", "7"},
                                                {"Anna", "", "0"},  {"x)", "(", "("}};
    for (const auto& [name, sender, answered] : cases) {
        SaysAndWaits(Sms(name, sender, "t"));
        std::string number;
        Later(100ms, [&] { bench.Tap("smsbox.send"); });
        Later(600ms, [&] {
            number = Box().smsnumberbox->text->text;
            EXPECT_FALSE(Box().smstextbox->text->readOnly);
            bench.Tap("smsbox.close");
        });
        Do("phone.readsms");
        bench.Advance(1000ms);
        EXPECT_EQ(number, answered) << name;
        EXPECT_EQ(OpenBox(), "");
    }
}

// Many things at once.

TEST_F(PhoneTest, TwoCallsAndAMessageWhileABoxStandsComeInOrderAndOnce) {
    Start();
    std::vector<std::string> shown;
    const auto note = [&] {
        shown.push_back(OpenBox() == "messagebox" ? Message().substr(0, Message().find('\t')) : OpenBox());
    };
    Later(50ms, [&] {
        for (const std::string& frame :
             {R"(<IncomingCall number="1"/>)"s, R"(<SignalQuality value="9" bars="1"/>)"s, Sms("Anna", "2", "text"),
              R"(<BatteryStatus value="9" charging="0"/>)"s, R"(<IncomingCall number="1"/>)"s}) {
            socket.Deliver(frame + "\r");
        }
    });
    Later(400ms, [&] {
        EXPECT_EQ(Phone_().unreadSMS, 1) << "what comes while its message waits is no second message";
        EXPECT_EQ(Phone_().phoneSignal + Phone_().phoneBattery, "9%9%");
        Do("phone.hangup");
        note();
        Do("smsbox.close");
    });
    for (const Milliseconds moment : {800ms, 1200ms}) {
        Later(moment, [&] {
            note();
            bench.Tap("messagebox.ok");
        });
    }
    Do("phone.sendsms");
    bench.Advance(2000ms);
    EXPECT_THAT(shown, ElementsAre("smsbox", EndsWith("\n1"), HasSubstr("Anna")));
    EXPECT_EQ(OpenBox(), "");
}

TEST_F(PhoneTest, ANewSkinKeepsTheTextTheCaretAndTheKeysThatShow) {
    bench.settings += "[general]\nUSENIGHTSKIN=1\nUSEDNIGHTSKIN=Night\n";
    bench.skin.WriteTo(bench.folder, "Night");
    Start();
    Later(100ms, [&] {
        bench.program->stage.TextEdited(*Box().smstextbox, "half a mess", 4, 3);
        bench.program->stage.TextEdited(*Box().smsnumberbox, "99", 1, 0);
        Do("app.night");
        const TextBox& text = *Box().smstextbox->text;
        EXPECT_EQ(text.text + std::to_string(text.selectionStart) + std::to_string(text.selectionLength),
                  "half a mess43");
        EXPECT_EQ(Box().smsnumberbox->text->text, "99");
        EXPECT_NE(bench.ButtonOf("externalapps.onscreenkeyboard"), nullptr);
        bench.Tap("smsbox.close");
    });
    Do("phone.sendsms");
}

TEST_F(PhoneTest, TheEndMayComeInsideAnyOfIt) {
    for (const char* first : {"", "<IncomingCall number=\"1\"/>\r", "<SMSSent>true</SMSSent>\r"}) {
        for (const char* command : {"phone.sendsms", "phone.readsms", "phone.getphonebook"}) {
            Bench other;
            other.skin.buttons["smsbox"] = bench.skin.buttons["smsbox"];
            other.platform.phoneSocket.state->peerListens = true;
            other.Start();
            Phone& phone = other.program->phone;
            other.platform.phoneSocket.state->Deliver(Sms("A", "1", "t") + "\r");
            other.loop.At(50ms, [&] { other.program->dispatchCommand(command); });
            other.loop.At(100ms, [&] { other.platform.phoneSocket.state->Deliver(first); });
            other.loop.At(200ms, [&] { other.program->UnloadRoot(true); });
            other.Advance(1000ms);
            EXPECT_TRUE(other.loop.quitting);
            EXPECT_LE(phone.unreadSMS, 1);
            other.Restart();
            EXPECT_EQ(other.program->phone.phoneStatus, "Connected");
        }
    }
}
