#include "core/json.h"
#include "media/mediasearch.h"
#include "phone/phone.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "skin/skinner.h"
#include "support/bench.h"
#include "ui/stage.h"
#include "zvr_osk/look.h"

#include <regex>

using namespace zvr;

namespace {

class RemoteControlTest : public testing::Test {
protected:
    RemoteControlTest() { bench.Start(); }

    std::string Ask(const std::string& line, LocalServer::Client client = 1) {
        auto& answers = bench.platform.server.state->answers[client];
        answers.clear();
        bench.platform.server.onLine(client, line);
        bench.Advance(Milliseconds{10});
        return answers.empty() ? "(no answer)" : answers.front();
    }

    Bench bench;
};

/// "v" of a whole value; of anything else what is left of it when all whole values inside are taken out.
std::string Collapsed(std::string json) {
    json = std::regex_replace(json, std::regex(R"("(\\.|[^"\\])*")"), "s");
    json = std::regex_replace(json, std::regex("-?[0-9.]+|true|false|null"), "v");
    const std::regex whole(R"(\{\}|\[\]|\{s:[sv](,s:[sv])*\}|\[[sv](,[sv])*\])");
    for (std::string before; before != json;) {
        before = json;
        json = std::regex_replace(json, whole, "v");
    }
    return json;
}

}  // namespace

TEST_F(RemoteControlTest, CommandsEnterAtTheDispatcher) {
    EXPECT_EQ(Ask("do Radio.Show"), R"({"ok":true})");
    EXPECT_EQ(bench.Front(), "radio");
    const auto& said = bench.platform.server.state->answers;
    for (const char* line : {"do mediaplayer.show", "state", "do radio.show"}) {
        bench.platform.server.onLine(2, line);
        bench.platform.server.onLine(3, line);
    }
    bench.platform.server.state->gone = {3};
    bench.Advance(Milliseconds{10});
    EXPECT_THAT(said.at(2), ElementsAre(testing::_, HasSubstr(R"("front":"mediaplayer")"), testing::_))
        << "as the command before left it";
    EXPECT_THAT(said.at(3), Not(Contains(HasSubstr("front")))) << "nobody is there to read it";
    bench.loop.At(Milliseconds{200}, [this] {
        EXPECT_EQ(bench.platform.server.state->answers[1].size(), 1U) << "answered though a box is open now";
        EXPECT_THAT(Ask("state"), HasSubstr(R"("front":"radio","dialog":"messagebox")"));
        Ask("do messagebox.ok");
    });
    Ask("do app.nonsense");
    EXPECT_THAT(Ask("state"), HasSubstr(R"("dialog":null)"));
}

TEST_F(RemoteControlTest, LookIsToldAtEachChangeAndWithTheBoxThatIsTypedInto) {
    bench.program->dispatchCommand("phone.show");
    bench.program->phone.form.focus = bench.program->phone.numberbox;
    bench.screen.origin = {30, 40};
    EXPECT_EQ(Collapsed(Ask("look")), "v");
    const auto look = osk::ReadLook(Ask("look"));  // as the keyboard reads it
    ASSERT_TRUE(look);
    EXPECT_EQ(look->skinFolder, bench.folder.path + "/skins/" + bench.program->skinner.loadedSkin + "/");
    EXPECT_EQ(look->background, RgbColor(0x10, 0x10, 0x10));
    EXPECT_EQ(look->selection, RgbColor(0x84, 0x46, 0x1B));
    EXPECT_EQ(look->box, (Rect{430, 50, 300, 40})) << "on the screen, not in the window";
    EXPECT_TRUE(look->digits);
    bench.program->dispatchCommand("mainmenu.show");
    EXPECT_THAT(Ask("look follow", 3), HasSubstr(R"("box":null)"));
    auto& news = bench.platform.server.state->answers[3];
    news.clear();
    Ask("do mediasearch.show");
    bench.program->mediasearch.form.focus = bench.program->mediasearch.txtSearchTerm;
    bench.Advance(Milliseconds{1000});
    ASSERT_EQ(news.size(), 1U) << "once, not at each tick";
    EXPECT_THAT(news.front(), HasSubstr(R"("box":{"x":)"));
    bench.program->mediasearch.txtSearchTerm->SetReadOnly(true);
    bench.Advance(Milliseconds{200});
    EXPECT_THAT(news.back(), HasSubstr(R"("box":null)"));
    bench.platform.server.onGone(3);
    news.clear();
    bench.program->mediasearch.txtSearchTerm->SetReadOnly(false);
    bench.Advance(Milliseconds{200});
    EXPECT_TRUE(news.empty());
}

TEST_F(RemoteControlTest, StateTellsPlacesRowsAndTexts) {
    Grid& grid = *bench.program->phone.phonebooklist->grid;
    for (int i = 1; i <= 9; ++i) {
        grid.AddRow("Name " + std::to_string(i), i);
    }
    grid.Select(7);
    bench.program->mediasearch.txtSearchTerm->SetText("say \"hi\"");
    bench.screen.origin = {30, 40};
    Ask("do Radio.Show");
    const std::string state = Ask("state");
    EXPECT_EQ(Collapsed(state), "v");
    EXPECT_THAT(state, HasSubstr(R"(,"lastCommand":"radio.show","forms":{"godfather":{"visible":true,"x":0,)"));
    EXPECT_THAT(state,
                HasSubstr(R"("name":"phonebooklist","index":0,"kind":"grid","tag":"","caption":"","x":40,"y":50,)"
                          R"("width":300,"height":200,"visible":true,"rows":9,"row":7,"top":3,"rowHeight":40,)"));
    EXPECT_THAT(state, HasSubstr(R"("texts":["Name 3","Name 4","Name 5","Name 6","Name 7"])"));
    EXPECT_THAT(state, HasSubstr(R"("text":"say \"hi\"")"));
}

TEST_F(RemoteControlTest, ValuesAreReadOnceOrWatched) {
    EXPECT_EQ(Ask("get **UNREADSMS**\t**GPS_SATNUM**"),
              R"({"ok":true,"values":{"**UNREADSMS**":"0","**GPS_SATNUM**":"---"}})");
    const std::string first = Ask("watch **UNREADSMS**", 7);
    EXPECT_THAT(first, StartsWith(R"({"ok":true)"));
    auto& answers = bench.platform.server.state->answers[7];
    bench.Advance(Milliseconds{500});
    EXPECT_EQ(answers.size(), 1U);
    bench.program->phone.unreadSMS = 3;
    bench.Advance(Milliseconds{500});
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_THAT(answers[1], HasSubstr(R"("**UNREADSMS**":"3")"));
    bench.platform.server.onGone(7);
    bench.program->phone.unreadSMS = 4;
    bench.Advance(Milliseconds{500});
    EXPECT_EQ(answers.size(), 2U);
}

TEST_F(RemoteControlTest, SkinIsAppliedAnewFromItsFolder) {
    Ask("do radio.show");
    TestSkin next = bench.skin;
    next.buttons["radio"] = {{300, 200, "mainmenu.show"}};
    next.WriteTo(bench.folder, bench.program->skinner.loadedSkin);
    EXPECT_EQ(bench.ButtonOf("mainmenu.show"), nullptr);
    EXPECT_EQ(Ask("skin reload"), R"({"ok":true})");
    ASSERT_NE(bench.ButtonOf("mainmenu.show"), nullptr);
    EXPECT_EQ(bench.ButtonOf("mainmenu.show")->Place().x, 300);
    EXPECT_EQ(bench.Front(), "radio");
    EXPECT_TRUE(bench.dialogs.critical.empty());
}

TEST_F(RemoteControlTest, SkinThatWouldNotLoadIsToldAndNotApplied) {
    Ask("do radio.show");
    TestSkin next = bench.skin;
    next.buttons["radio"] = {{300, 200, "mainmenu.show"}};
    next.extra["mediaplayer"] = "<vis><posx>0</posx><posy>0</posy><width>0</width><height>9</height></vis>";
    next.WriteTo(bench.folder, bench.program->skinner.loadedSkin);
    const std::string answer = Ask("skin reload");
    EXPECT_THAT(answer, StartsWith(R"({"error":"the skin would not load","faults":[")"));
    EXPECT_THAT(answer, HasSubstr("skindata.xml:1: mediaplayer/vis: "));
    EXPECT_THAT(answer, HasSubstr("=WMP_POS_INVALID"));
    EXPECT_EQ(Collapsed(answer), "v");
    EXPECT_EQ(bench.ButtonOf("mainmenu.show"), nullptr);
    EXPECT_TRUE(bench.dialogs.critical.empty());
    EXPECT_FALSE(bench.program->skinner.skinFailed);
}

TEST_F(RemoteControlTest, LogIsReadOnceOrFollowed) {
    Log::Warning("a stick has gone: {}", bench.folder.path);
    EXPECT_THAT(Ask("log"), StartsWith(R"({"ok":true,"lines":[")"));
    EXPECT_EQ(Collapsed(Ask("log")), "v");
    EXPECT_THAT(Ask("log follow", 7), HasSubstr("a stick has gone: " + bench.folder.path));
    auto& answers = bench.platform.server.state->answers[7];
    bench.Advance(Milliseconds{500});
    EXPECT_EQ(answers.size(), 1U) << "what was told is not news";
    Log::Note("it is back at {}", bench.folder.path);
    for (int i = 0; i < 8; ++i) {
        Log::Warning("a stick has gone: {}", bench.folder.path);
    }
    bench.Advance(Milliseconds{500});
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_THAT(answers[1], HasSubstr("it is back"));
    EXPECT_THAT(answers[1], Not(HasSubstr("has gone"))) << "nine times is a flood";
    bench.platform.server.onGone(7);
    Log::Note("nobody listens at {}", bench.folder.path);
    bench.Advance(Milliseconds{500});
    EXPECT_EQ(answers.size(), 2U);
}

TEST_F(RemoteControlTest, BadRequestsGetAnErrorAndDoNothing) {
    for (const std::string line : {"", "do", "do ", "state now", "get", "get nonsense", "get **TIME_SHORT", "jump",
                                   "watch **NO**", "skin", "skin load", "do app.\x07"}) {
        EXPECT_THAT(Ask(line), StartsWith(R"({"error":)")) << line;
    }
    std::string many = "get";
    for (int i = 0; i < 40; ++i) {
        many += " **UNREADSMS**";
    }
    EXPECT_THAT(Ask(many), StartsWith(R"({"error":)"));
    for (const std::string line : {"watch **UNREADSMS**", "log follow", "look follow"}) {
        int refused = 0;
        for (LocalServer::Client client = 1; client <= 18; ++client) {
            refused += static_cast<int>(Ask(line, client).starts_with(R"({"error":"too many)"));
        }
        EXPECT_EQ(refused, 2) << line;
        EXPECT_THAT(Ask(line, 1), StartsWith(R"({"ok":true)")) << "again by who does already";
    }
    LocalServer& server = bench.platform.server;
    EXPECT_TRUE(server.isWanted(1));
    EXPECT_FALSE(server.isWanted(18)) << "refused";
    server.onTooLong(2);
    EXPECT_EQ(server.state->answers[2].back(), R"({"error":"the line is too long"})");
    EXPECT_EQ(bench.Front(), "mainmenu");
    EXPECT_EQ(bench.program->stage.ModalForm(), nullptr);
    Ask("do app.options");
    EXPECT_THAT(Ask("state"), HasSubstr(R"("role":")"));
    EXPECT_EQ(Collapsed(Ask("state")), "v");
}

TEST(Json, TextsAreQuotedWhateverBytesTheyHold) {
    JsonWriter json;
    json.BeginList();
    json.String("a\"\\\n\t\x01\u00E4\x80\xFF");
    json.Number(-3);
    json.EndList();
    EXPECT_EQ(json.text, "[\"a\\\"\\\\\\u000a\\u0009\\u0001\u00E4\\u0080\\u00ff\",-3]");
}
