#include "media/playlistentries.h"
#include "media/txtlinedelete.h"
#include "platform/text.h"
#include "playerbench.h"

#include <filesystem>

namespace zvr {
namespace {

TEST(Lines, OneLineGoesAndEveryOtherByteStays) {
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_EQ(WithoutLine(mark + "a\r\nb\nc \r\n", 2), mark + "a\r\nc \r\n");
    EXPECT_EQ(WithoutLine("a\r\nb", 1), "b");
    EXPECT_EQ(WithoutLine("a\r\nb", 7), "a") << "beyond the last line it is the last";
    EXPECT_EQ(WithoutLine("a\r\n", 2), "a") << "and that may be the empty one behind the last line end";
    EXPECT_EQ(WithoutLine("a\r\nb", 0), "a\r\nb");
}

std::vector<std::string> FullNames(std::string_view content) {
    std::vector<std::string> names;
    for (const FileEntry& entry : PlaylistEntries(content, "/lists/my.m3u")) {
        names.push_back(entry.path + "|" + entry.name);
    }
    return names;
}

TEST(PlaylistEntries, EveryLineIsAnEntryCutBehindItsLastSeparator) {
    EXPECT_THAT(FullNames("/m/a.mp3\r\nb.mp3\nsub/c.mp3\rC:\\m\\d.mp3\n/m/AC\\DC.mp3"),
                ElementsAre("/m/|a.mp3", "/lists/|b.mp3", "sub/|c.mp3", "C:\\m\\|d.mp3", "/m/|AC\\DC.mp3"));
    EXPECT_THAT(FullNames("folder/\n\n#EXTM3U\n"), ElementsAre("/lists/|folder/", "/lists/|", "/lists/|#EXTM3U"));
    EXPECT_THAT(FullNames("\xEF\xBB\xBF"
                          "a.mp3"),
                ElementsAre("/lists/|a.mp3"));
    EXPECT_THAT(FullNames(""), ElementsAre());
}

TEST(PlaylistEntries, ALineThatIsNoUtf8IsLatin1UnlessAFileIsCalledSo) {
    const TemporaryFolder folder;
    const std::string raw = folder.Write("M\xFCll.mp3", "");
    const auto entries = PlaylistEntries("M\xFCll.mp3\nGr\xFC\xDF.mp3\nGr\u00FC\u00DF.mp3", folder.path + "/l.m3u");
    EXPECT_EQ(entries[0].FullName(), raw);
    EXPECT_EQ(entries[1].FullName(), folder.path + "/Gr\u00FC\u00DF.mp3");
    EXPECT_EQ(entries[2].FullName(), entries[1].FullName());
}

class PlaylistMode : public PlayerBench {
protected:
    std::string List1(const std::string& content) { return bench.folder.Write("lists/one.m3u", content); }
    [[nodiscard]] std::string Content() { return bench.folder.ReadFile("lists/one.m3u"); }
    void OpenList(const std::string& content) {
        Open("CURRENTPLAYLIST=" + List1(content));
        Do("mediaplayer.switchlistmode");
    }
};

TEST_F(PlaylistMode, ShowsTheLinesOfTheCurrentPlaylistAndGoesBack) {
    Music({"a.mp3"});
    OpenList("/m/x.mp3\r\nfilm.avi\r\n");
    EXPECT_TRUE(Player().showingPlaylist);
    EXPECT_THAT(Rows(), ElementsAre("x.mp3", "film.avi"));
    EXPECT_EQ(IconOf("x.mp3"), ListIcon::audio);
    EXPECT_EQ(IconOf("film.avi"), ListIcon::video);
    EXPECT_EQ(SelectedRow(), "x.mp3");
    Do("mediaplayer.switchlistmode");
    EXPECT_FALSE(Player().showingPlaylist);
    EXPECT_THAT(Rows(), ElementsAre("..", "a.mp3"));
    bench.loop.At(Milliseconds{50}, [this] { Do("mediaplayer.switchlistmode"); });
    Do("mediaplayer.switchlistmode");
    EXPECT_FALSE(Player().showingPlaylist) << "back while it was prepared";
    EXPECT_THAT(Rows(), ElementsAre("..", "a.mp3"));
}

TEST_F(PlaylistMode, TheStartFlagShowsThePlaylistAtTheFirstVisit) {
    Music({"a.mp3"});
    Open("SHOWINGPLAYLIST=1\nCURRENTPLAYLIST=" + List1("x.mp3\r\n"));
    EXPECT_THAT(Rows(), ElementsAre("x.mp3"));
    Do("mediaplayer.switchlistmode");
    EXPECT_THAT(Rows(), ElementsAre("..", "a.mp3"));
}

TEST_F(PlaylistMode, CommentsAndEmptyLinesAreRowsThatPlayingPassesOver) {
    bench.folder.Write("lists/#1 hit.mp3", "");
    bench.folder.Write("lists/a.mp3", "");
    OpenList("#EXTM3U\n#EXTINF:100,A/B\na.mp3\n\n#1 hit.mp3\n");
    EXPECT_THAT(Rows(), ElementsAre("#EXTM3U", "B", "a.mp3", "", "#1 hit.mp3"));
    List().Select(2);
    Player().PlaySelectedFile();
    Player().PlaySelectedFile();
    const std::string folder = bench.folder.path + "/lists/";
    EXPECT_THAT(Queue(), ElementsAre(folder + "a.mp3", folder + "#1 hit.mp3"));
    EXPECT_EQ(Playing(), folder + "a.mp3") << "the first that can be played behind the chosen comment";
}

TEST_F(PlaylistMode, LinesOfAnotherSystemPlayWhereTheFileIsFound) {
    bench.folder.Write("lists/sub/a.mp3", "");
    bench.folder.Write("lists/with space.mp3", "");
    OpenList("sub\\a.mp3\r\nsub/a.mp3\r\nfile://" + bench.folder.path + "/lists/with%20space.mp3\r\n");
    Choose("a.mp3");
    EXPECT_EQ(media.opened.back(), bench.folder.path + "/lists/sub/a.mp3");
    for (const auto& [row, file] : {std::pair{1, "sub/a.mp3"}, {3, "with space.mp3"}}) {
        List().Select(row);
        Player().PlaySelectedFile();
        EXPECT_EQ(media.opened.back(), bench.folder.path + "/lists/" + file);
    }
}

TEST_F(PlaylistMode, AListInUtf16IsReadAndGoesOnInUtf8) {
    Music({"a.mp3"});
    const auto wide = [](const std::string& text) {
        std::string file = "\xFF\xFE";
        for (const char c : text) {
            file += {c, '\0'};
        }
        return file;
    };
    OpenList(wide("/m/one.mp3\r\n/m/two.mp3"));
    EXPECT_THAT(Rows(), ElementsAre("one.mp3", "two.mp3"));
    Select("one.mp3");
    Do("mediaplayer.removefromplaylist");
    EXPECT_EQ(Content(), "/m/two.mp3");
    List1(wide("/m/two.mp3"));
    Do("mediaplayer.switchlistmode");
    Select("a.mp3");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(Content(), "/m/two.mp3\r\n" + InMusic("a.mp3") + "\r\n");
}

TEST_F(PlaylistMode, AFileAndAFolderAreAdded) {
    Music({"a.mp3", "Sub/b.mp3", "Sub/deep/c.avi", "Sub/notes.txt", "Empty/notes.txt"});
    Open("CURRENTPLAYLIST=" + List1("first"));
    Select("a.mp3");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(Content(), "first\r\n" + InMusic("a.mp3") + "\r\n") << "a file without a last line end gets one";
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSADDEDSELECTEDFILE"));
    for (const std::string before : {"\xEF\xBB\xBF", "first\n", "first\n\n", "\xEF\xBB\xBF#\r"}) {
        List1(before);
        Do("mediaplayer.add2playlist");
        EXPECT_EQ(Content(), before + InMusic("a.mp3") + "\r\n") << "what stands there is not touched";
    }
    Select("Sub");
    List1("");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(Content(), InMusic("Sub/b.mp3") + "\r\n" + InMusic("Sub/deep/c.avi") + "\r\n");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSADDEDMULTIPLEFILES") + " 2");
    Select("Empty");
    List1("");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(Content(), InMusic("Empty") + "\r\n") << "an empty folder lands in the list itself";
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSADDEDSELECTEDFILE"));
    for (int i = 0; i < 1001; ++i) {
        bench.folder.Write("music/Empty/" + std::to_string(i) + ".mp3", "");
    }
    const std::string many = Text("MEDIAPLAYER_PLSADDEDMULTIPLEFILES") + " ";
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSADDEDMANYFILES") + " " + many + "1001");
    ASSERT_EQ(files::Remove(InMusic("Empty/0.mp3")), "");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), many + "1000");
}

TEST_F(PlaylistMode, WhatCanNotBeAddedIsSaid) {
    Music({"a.mp3", "list.m3u"});
    Open("FILEEXTENSIONSAUDIO=mp3;m3u");
    Select("a.mp3");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSNOPLAYLIST"));
    Player().currentPlaylistFile = bench.folder.path + "/nowhere/x.m3u";
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLSCOULDNOTADD"));
    Select("list.m3u");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_PLAYLISTADDERROR"));
    Do("mediaplayer.removefromplaylist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_JUSTFORPLAYLISTMODE"));
    ASSERT_EQ(bench.messages.size(), 4U);
    Select("..");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.size(), 4U) << "the way up is nothing to add";
    Do("mediaplayer.switchlistmode");
    Do("mediaplayer.add2playlist");
    EXPECT_EQ(bench.messages.back(), Text("MEDIAPLAYER_JUSTFORDIRECTORYMODE"));
}

TEST_F(PlaylistMode, ALineIsRemovedAndTheSelectionStaysAtItsPlace) {
    OpenList("a.mp3\nb.mp3\r\nc.mp3");
    List().Select(2);
    Do("mediaplayer.removefromplaylist");
    EXPECT_EQ(Content(), "a.mp3\nc.mp3");
    EXPECT_EQ(SelectedRow(), "c.mp3");
    Do("mediaplayer.removefromplaylist");
    EXPECT_EQ(Content(), "a.mp3");
    EXPECT_EQ(SelectedRow(), "a.mp3") << "the new last row";
    Do("mediaplayer.removefromplaylist");
    EXPECT_EQ(Content(), "");
    EXPECT_TRUE(Rows().empty());
    Do("mediaplayer.removefromplaylist");
    EXPECT_TRUE(bench.messages.empty());
}

}  // namespace
}  // namespace zvr
