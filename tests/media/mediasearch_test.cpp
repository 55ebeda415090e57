#include "media/mediasearch.h"

#include "core/godfather.h"
#include "media/index/indexformat.h"
#include "platform/headless/eventloop.h"
#include "platform/headless/processes.h"
#include "playerbench.h"

#include <filesystem>

namespace zvr {
namespace {

using std::string_literals::operator""s;

class SearchForm : public PlayerBench {
protected:
    /// Two songs and a folder in the music folder; the last one isn't there any more.
    void WriteIndex() {
        Music({"Harbour Lights.mp3", "albums/Night Harbour.mp3"});
        const std::string folder = MusicFolder();
        bench.folder.Write(
            std::string(indexFileName),
            "ZVRIDX100Harbour Lights.mp3\0000\0\0albums\0000\0\0Night Harbour.mp3\0001\0\0gone harbour.mp3\0000\r\n"s +
                folder + "/\0\0"s + folder + "/albums/");
    }
    void Visit(const std::string& settings = {}) {
        bench.skin.labels["mediasearch"] = {"**MEDIASEARCHRESULT**"};
        Open("[mediasearch]\n" + settings, "SINGLECLICKLISTSELECT=1\n");
        bench.messages.clear();
        Again();
    }
    void Again() {
        Do("mainmenu.show");
        Do("mediasearch.show");
        bench.Advance(Milliseconds{50});
    }
    void Type(const std::string& term) {
        Do("mediasearch.text.clear");
        for (const char letter : term) {
            Do("mediasearch.text."s + letter);
        }
    }
    void SetFileTime(std::int64_t secondsFromNow) {
        // The file system's clock is the machine's, the program's here is virtual.
        const auto virtualNow = bench.platform.loop.Now().milliseconds / 1000;
        std::tm local{};
        std::time_t zero = 0;
        localtime_r(&zero, &local);
        const std::time_t time = virtualNow + secondsFromNow - local.tm_gmtoff;
        std::filesystem::last_write_time(
            bench.folder.path + "/zvrmedia.dat",
            std::chrono::file_clock::from_sys(std::chrono::system_clock::from_time_t(time)));
    }
    [[nodiscard]] MediaSearch& Form() { return bench.program->mediasearch; }
    [[nodiscard]] Grid& Results() { return *Form().resultlist->grid; }
    [[nodiscard]] std::vector<std::string> Found() { return RowsOf(Results()); }
    [[nodiscard]] const std::string& Status() { return Form().mediaSearchResult; }
    [[nodiscard]] Processes::State& Others() { return *bench.platform.processes.state; }
};

TEST_F(SearchForm, FindsAsOneTypes) {
    WriteIndex();
    Visit();
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_READY"));
    Form().form.focus = nullptr;
    Type("h");
    EXPECT_EQ(Form().form.focus, Form().txtSearchTerm);
    EXPECT_THAT(Found(), IsEmpty());
    Type("bour har");
    EXPECT_THAT(Found(), ElementsAre("Harbour Lights.mp3", "Night Harbour.mp3", "gone harbour.mp3"));
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_FILESFOUND") + " 3");
    EXPECT_EQ(Results().Row(), 1);
    Do("mediasearch.text.a");
    EXPECT_THAT(Found(), IsEmpty()) << "harbour hara";
    Type("harbour");
    Do("mediasearch.text.clear");
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_READY"));
    EXPECT_THAT(bench.messages, IsEmpty());
}

TEST_F(SearchForm, PlaysAFileAndAsksBeforeItShowsAFolder) {
    WriteIndex();
    Visit();
    const int before = Player().playstate;
    Type("lights");
    Form().resultlist->events.onClick({});
    bench.Advance(std::chrono::seconds(1));
    EXPECT_EQ(Playing(), InMusic("Harbour Lights.mp3"));
    EXPECT_EQ(Player().playstate, before);
    EXPECT_EQ(bench.Front(), "mediasearch");
    Type("albums");
    bench.program->godfather.singleClickListSelect = false;
    Form().resultlist->events.onClick({});
    Form().resultlist->events.onDoubleClick();
    EXPECT_THAT(bench.messages, ElementsAre(Text("MEDIASEARCH_DISPLAYFOLDERQUESTION") + "\n\n" + InMusic("albums")));
    EXPECT_EQ(bench.Front(), "mediasearch") << "the bench has answered no";
    bench.AnswerMessages("yes");
    Do("mediasearch.playnow");
    EXPECT_EQ(bench.Front(), "mediaplayer");
    EXPECT_EQ(Player().currentFolder, InMusic("albums"));
}

TEST_F(SearchForm, JumpsToTheFolderAddsToThePlaylistAndTellsWhatIsGone) {
    WriteIndex();
    bench.folder.Write("playlists/mine.m3u", "");
    Visit();
    Player().currentPlaylistFile = bench.folder.path + "/playlists/mine.m3u";
    Type("night");
    Do("mediasearch.jump2folder");
    EXPECT_EQ(bench.Front(), "mediaplayer");
    EXPECT_EQ(Player().currentFolder, InMusic("albums"));
    Again();
    Do("mediasearch.add2playlist");
    EXPECT_TRUE(Player().showingPlaylist);
    EXPECT_THAT(bench.folder.ReadFile("playlists/mine.m3u"), StartsWith(InMusic("albums/Night Harbour.mp3")));
    bench.messages.clear();
    Type("gone");
    for (const char* command : {"playnow", "jump2folder", "add2playlist"}) {
        Do("mediasearch."s + command);
    }
    const std::string gone = Text("MEDIASEARCH_FILEACCESSERROR");
    EXPECT_THAT(bench.messages, ElementsAre(gone, gone, gone));
}

TEST_F(SearchForm, TellsWhatIsWrongWithTheIndexAndKeepsItsRows) {
    Visit();
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_ERROR")) << "a new user has none";
    WriteIndex();
    Again();
    Type("harbour");
    const auto read = [this](const std::string& content) {
        bench.folder.Write("zvrmedia.dat", content);
        bench.messages.clear();
        Again();
        EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_ERROR"));
        return bench.messages;
    };
    EXPECT_THAT(read("ZVRIDX099xx\r\n"), ElementsAre(Text("MEDIASEARCH_ERR_WRONG_VERSION")));
    EXPECT_THAT(read(""), ElementsAre(Text("MEDIASEARCH_ERR_IS_ZERO")));
    EXPECT_THAT(read("ZVRIDX100xx\n"), ElementsAre(Text("MEDIASEARCH_ERR_INCOMPLETE")));
    EXPECT_EQ(Found().size(), 3U);
    bench.messages.clear();
    Do("mediasearch.text.x");
    EXPECT_THAT(bench.messages, ElementsAre(Text("MEDIASEARCH_ERR_NOT_READ")));
}

TEST_F(SearchForm, ReadsAnIndexThatIsNewerThanTheLastReading) {
    WriteIndex();
    Visit();
    bench.folder.Write("zvrmedia.dat", "ZVRIDX100other.mp3\0000\r\n/m/"s);
    SetFileTime(-100);
    Again();
    Type("harbour");
    EXPECT_EQ(Found().size(), 3U);
    SetFileTime(100);
    Again();
    EXPECT_THAT(Found(), IsEmpty()) << "the word stands there since the last visit";
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_FILESFOUND") + " 0");
}

TEST_F(SearchForm, HasTheIndexMadeOnceAtATime) {
    WriteIndex();
    Visit("INDEXBASEFOLDER=/my music\n");
    Type("harbour");
    bench.loop.At(std::chrono::seconds(1), [this] {
        Do("mediasearch.makeindex");  // a second one does nothing
        EXPECT_TRUE(Form().creatingIndex);
        EXPECT_THAT(bench.LabelText(Form().form, "**MEDIASEARCHRESULT**"), HasSubstr("Building\xC2\xA0index"));
        Again();
        Type("harbour");
        Type("h");
        EXPECT_EQ(Status(), "") << "nothing hides that it is being made, for whoever comes back";
        Others().End(Others().running.begin()->first);
    });
    Do("mediasearch.makeindex");
    EXPECT_FALSE(Form().creatingIndex);
    EXPECT_EQ(Status(), Text("MEDIASEARCH_STATUS_READY")) << "and not what had been found before";
    EXPECT_THAT(Others().started, ElementsAre("\"" + bench.folder.path + "/indexer\" 347 \"/my music\""));
    EXPECT_THAT(bench.messages, IsEmpty());

    Others().missing[Others().started.front()] = true;
    Do("mediasearch.makeindex");
    EXPECT_FALSE(Form().creatingIndex);
    EXPECT_THAT(bench.messages, ElementsAre(Text("MEDIASEARCH_INDEXER_ERROR")));

    Others().missing.clear();
    Form().indexBaseFolder = R"(/"both" 'kinds')";
    bench.loop.At(std::chrono::seconds(1), [this] { Do("app.exit"); });
    Do("mediasearch.makeindex");
    EXPECT_THAT(Others().started.back(), EndsWith(R"( 347 '/"both" '"'"'kinds'"'"'')"));
    EXPECT_TRUE(bench.platform.loop.IsQuitting());
}

TEST_F(SearchForm, LooksAfterTheAgeOfItsIndex) {
    Visit("REFRESHTIMESPAN=1\nASKBEFOREINDEXBUILD=1\n");
    bench.Advance(std::chrono::seconds(15));
    EXPECT_THAT(bench.messages, IsEmpty());
    bench.Advance(std::chrono::seconds(7));
    EXPECT_THAT(bench.messages, ElementsAre(Text("MEDIASEARCH_INDEX_OUTOFDATE"))) << "there is none";
    EXPECT_THAT(Others().started, IsEmpty()) << "the bench has answered no";
    WriteIndex();
    SetFileTime(0);
    bench.Advance(std::chrono::minutes(40));
    EXPECT_EQ(bench.messages.size(), 1U);
    SetFileTime(-86'400);
    bench.Advance(std::chrono::minutes(40));
    EXPECT_EQ(bench.messages.size(), 2U);
    Form().askBeforeIndexBuild = false;
    Timer indexer(bench.platform.loop, [this] {
        if (!Others().running.empty()) {
            Others().End(Others().running.begin()->first);
        }
    });
    indexer.SetInterval(std::chrono::seconds(10));
    indexer.Start();
    bench.Advance(std::chrono::minutes(20));
    EXPECT_EQ(Others().started.size(), 1U);
    Form().refreshTimespan = 0;
    bench.Advance(std::chrono::minutes(31));
    EXPECT_FALSE(Form().tmrCheckIndex.Enabled());
}

}  // namespace
}  // namespace zvr
