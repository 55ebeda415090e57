#include "media/playlists.h"
#include "playerbench.h"

#include <filesystem>

namespace zvr {
namespace {

class PlaylistsForm : public PlayerBench {
protected:
    void OpenForm(std::initializer_list<const char*> names) {
        std::filesystem::create_directories(bench.folder.path + "/playlists");
        for (const char* name : names) {
            bench.folder.Write(std::string("playlists/") + name, "old\r\n");
        }
        Open();
        Do("playlists.show");
    }
    [[nodiscard]] Playlists& Form() { return bench.program->playlists; }
    [[nodiscard]] Grid& Names() { return *Form().playlistlist->grid; }
    void SelectName(const std::string& name) {
        ASSERT_GT(Names().FindText(name), 0);
        Names().Select(Names().FindText(name));
    }
    [[nodiscard]] std::string Box() { return Form().txtCurrentPlaylistName->text->text; }
    void Type(const std::string& text) { Form().txtCurrentPlaylistName->SetText(text); }
    [[nodiscard]] std::string In(const std::string& name) { return bench.folder.path + "/playlists/" + name; }
};

TEST_F(PlaylistsForm, ShowsPlaylistFilesOnlyAndNamesTheSelectedOne) {
    OpenForm({"a.m3u", "b.PLS", "c.txt", "folder.m3u/x.m3u"});
    EXPECT_THAT(RowsOf(Names()), UnorderedElementsAre("a.m3u", "b.PLS"));
    EXPECT_EQ(Names().Row(), 1);
    EXPECT_EQ(Box() + Names().RowAt(1).text.substr(1), Names().RowAt(1).text);
    Names().Select(2);
    bench.program->playlists.playlistlist->events.onClick({});
    EXPECT_EQ(Box() + Names().RowAt(2).text.substr(1), Names().RowAt(2).text);
    Do("playlists.scrolltop");
    EXPECT_EQ(Box() + Names().RowAt(1).text.substr(1), Names().RowAt(1).text);
}

TEST_F(PlaylistsForm, NamesAreChecked) {
    OpenForm({"one.m3u"});
    const auto refusal = [this](const std::string& typed) {
        bench.messages.clear();
        Type(typed);
        Do("playlists.new");
        return bench.messages.empty() ? "" : bench.messages.back();
    };
    EXPECT_EQ(refusal(""), Text("PLAYLISTS_ENTERNEWNAME"));
    EXPECT_EQ(refusal("   "), Text("PLAYLISTS_ENTERNEWNAME"));
    EXPECT_EQ(refusal("ONE"), Text("PLAYLISTS_ENTERNEWNAME")) << "a name must differ from the selected one's";
    for (const char* bad : {"a/b", "a\\b", "a:b", "a*", "a?", "a\"", "<a", "a>", "a|b", "a;b", "a\tb"}) {
        EXPECT_EQ(refusal(bad), Text("PLAYLISTS_ILLEGALFILENAME")) << bad;
    }
    EXPECT_EQ(refusal(" one"), Text("PLAYLISTS_ALREADEXISTS"));
    EXPECT_EQ(bench.folder.ReadFile("playlists/one.m3u"), "old\r\n");
    EXPECT_EQ(refusal("two"), "");
    EXPECT_THAT(RowsOf(Names()), UnorderedElementsAre("one.m3u", "two.m3u"));
}

TEST_F(PlaylistsForm, AFailureGivesTheSystemsWords) {
    OpenForm({"a.m3u"});
    std::filesystem::remove_all(bench.folder.path + "/playlists");
    const std::string reason = "\n\nNo such file or directory";
    Type("b");
    Do("playlists.new");
    EXPECT_EQ(bench.messages.back(), Text("PLAYLISTS_CREATEERROR") + reason);
    Do("playlists.rename");
    EXPECT_EQ(bench.messages.back(), Text("PLAYLISTS_RENAMEERROR") + reason);
    bench.AnswerMessages("yes");
    bench.messages.clear();
    // The failure's own box is answered with "yes" too, which closes it all the same.
    Do("playlists.delete");
    EXPECT_THAT(bench.messages,
                ElementsAre(Text("PLAYLISTS_DELETE") + "\n\na.m3u", Text("PLAYLISTS_DELETEERROR") + reason));
    bench.messages.clear();
    Do("playlists.empty");
    EXPECT_THAT(bench.messages,
                ElementsAre(Text("PLAYLISTS_EMPTY") + "\n\na.m3u", Text("PLAYLISTS_EMPTYERROR") + reason));
    EXPECT_EQ(Names().RowCount(), 1) << "the list keeps its state";
}

TEST_F(PlaylistsForm, RenameTakesTheCurrentPlaylistAlong) {
    OpenForm({"a.m3u", "b.m3u"});
    Player().currentPlaylistFile = In("a.m3u");
    SelectName("b.m3u");
    Type("c");
    Do("playlists.rename");
    EXPECT_EQ(Player().currentPlaylistFile, In("a.m3u"));
    SelectName("a.m3u");
    Type("d");
    Do("playlists.rename");
    EXPECT_EQ(Player().currentPlaylistFile, In("d.m3u"));
    EXPECT_THAT(RowsOf(Names()), UnorderedElementsAre("c.m3u", "d.m3u"));
    EXPECT_EQ(bench.folder.ReadFile("playlists/d.m3u"), "old\r\n");
}

TEST_F(PlaylistsForm, EmptyAndDeleteAskAndTheCurrentPlaylistFollows) {
    OpenForm({"a.m3u", "b.m3u"});
    Player().currentPlaylistFile = In("a.m3u");
    Do("mediaplayer.switchlistmode");
    SelectName("a.m3u");
    bench.AnswerMessages("no");
    Do("playlists.empty");
    EXPECT_EQ(bench.folder.ReadFile("playlists/a.m3u"), "old\r\n");
    EXPECT_THAT(Rows(), ElementsAre("old"));
    bench.AnswerMessages("yes");
    Do("playlists.empty");
    EXPECT_TRUE(bench.folder.Has("playlists/a.m3u"));
    EXPECT_EQ(bench.folder.ReadFile("playlists/a.m3u"), "");
    EXPECT_TRUE(Rows().empty());
    EXPECT_EQ(List().Row(), 0);
    bench.folder.Write("playlists/a.m3u", "old\r\n");
    Do("mediaplayer.switchlistmode");
    Do("playlists.show");
    SelectName("a.m3u");
    bench.AnswerMessages("no");
    Do("playlists.delete");
    EXPECT_TRUE(bench.folder.Has("playlists/a.m3u"));
    bench.AnswerMessages("yes");
    SelectName("b.m3u");
    bench.loop.At(Milliseconds{5}, [this] { SelectName("a.m3u"); });  // while the question stands
    Do("playlists.delete");
    EXPECT_FALSE(bench.folder.Has("playlists/b.m3u"));
    EXPECT_FALSE(Player().showingPlaylist) << "another playlist than the current leaves the player's list alone";
    Do("playlists.delete");
    EXPECT_FALSE(bench.folder.Has("playlists/a.m3u"));
    EXPECT_EQ(Player().currentPlaylistFile, "");
    EXPECT_TRUE(Player().showingPlaylist);
    EXPECT_EQ(Names().RowCount(), 0);
}

TEST_F(PlaylistsForm, LoadShowsItInThePlayerAndPlaysNothing) {
    OpenForm({"a.m3u", "b.m3u"});
    SelectName("b.m3u");
    Do("playlists.loadselectedplaylist");
    EXPECT_EQ(Player().currentPlaylistFile, In("b.m3u"));
    EXPECT_TRUE(Player().showingPlaylist);
    EXPECT_THAT(Rows(), ElementsAre("old"));
    EXPECT_EQ(bench.Front(), "mediaplayer");
    EXPECT_EQ(Wmp().Count(), 0);
    Do("playlists.show");
    SelectName("a.m3u");
    Do("playlists.loadselectedplaylist");
    EXPECT_TRUE(Player().showingPlaylist) << "a second one does not switch back to the folder";
    EXPECT_EQ(Player().currentPlaylistFile, In("a.m3u"));
}

}  // namespace
}  // namespace zvr
