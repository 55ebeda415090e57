#include "core/godfather.h"
#include "playerbench.h"

namespace zvr {
namespace {

class MediaList : public PlayerBench {};

TEST_F(MediaList, TheWayUpSelectsTheFolderJustLeft) {
    Music({"a1/x.mp3", "a2/x.mp3", "a3/x.mp3", "a4/x.mp3", "a5/x.mp3", "a6/x.mp3", "a7/x.mp3", "a8/x.mp3"});
    Open();
    Choose("a5");
    EXPECT_EQ(Player().currentFolder, InMusic("a5"));
    Player().form.focus = nullptr;
    Choose("..");
    EXPECT_EQ(Player().form.focus, Player().medialist) << "keys go on in the list";
    EXPECT_EQ(Player().currentFolder, MusicFolder());
    EXPECT_EQ(SelectedRow(), "a5");
    EXPECT_GE(List().Top() + List().VisibleRows() - 1, List().Row() + 2) << "two rows behind it show too";
}

TEST_F(MediaList, DrivesStandBehindTheFilesOfADrivesRootAndCanBeEntered) {
    Music({"a.mp3", "Sub/b.mp3"});
    drives = {{"/", DriveType::fixed},
              {MusicFolder() + "/", DriveType::removable},
              {"/disc/", DriveType::optical},
              {"/share/", DriveType::network}};
    Open();
    EXPECT_THAT(Rows(), ElementsAre("Sub", "a.mp3", "/", MusicFolder() + "/", "/disc/", "/share/"));
    EXPECT_EQ(IconOf("/"), ListIcon::fixed);
    EXPECT_EQ(IconOf(MusicFolder() + "/"), ListIcon::removable);
    EXPECT_EQ(IconOf("/disc/"), ListIcon::cdrom);
    EXPECT_EQ(IconOf("/share/"), ListIcon::network);
    Choose("/");
    EXPECT_EQ(Player().currentFolder, "/");
    EXPECT_EQ(List().FindText(".."), 0);
    Choose(MusicFolder() + "/");
    EXPECT_EQ(Player().currentFolder, MusicFolder());
    EXPECT_EQ(Rows().front(), "Sub");
    Select("/share/");
    drives.pop_back();
    Player().PlaySelectedFile();
    EXPECT_EQ(Player().currentFolder, "/") << "of a stick that went the first folder above that can be shown";
}

TEST_F(MediaList, WhatComesWhileAFolderIsReadDoesNothingButTheEnd) {
    Music({"One/a.mp3", "Two/b.mp3"});
    bench.folder.Write("list.m3u", "/one.mp3\r\n/two.mp3\r\n/three.mp3\r\n");
    Open("CURRENTPLAYLIST=" + bench.folder.path + "/list.m3u");
    Do("mediaplayer.switchlistmode");
    List().Select(3);
    std::string during;
    bench.loop.At(Milliseconds{0}, [this, &during] {
        Player().PlaySelectedFile();
        Player().ReadDirectory(InMusic("Two"));
        during = Player().currentFolder;
    });
    Player().ReadDirectory(InMusic("One"));
    EXPECT_EQ(Wmp().Count(), 0) << "a row of the playlist is none of the folder's files";
    EXPECT_EQ(during, MusicFolder());
    EXPECT_EQ(Player().currentFolder, InMusic("One"));
    EXPECT_THAT(Rows(), ElementsAre("..", "a.mp3"));
    bench.loop.At(Milliseconds{0}, [this] { bench.program->EndAtOnce(0); });
    Player().ReadDirectory(MusicFolder());
    EXPECT_TRUE(Rows().empty()) << "nothing is read after the end began";
}

TEST_F(MediaList, TapsChooseAsTheSettingSays) {
    Music({"a.mp3"});
    Open();
    const Point onFile{bench.MiddleOf(*Player().medialist).x, bench.MiddleOf(*Player().medialist).y - 40};
    ASSERT_EQ(List().RowAtPixel(onFile.y - Player().medialist->form.Place().y - Player().medialist->Place().y), 2);
    bench.Tap(onFile);
    EXPECT_EQ(SelectedRow(), "..") << "nobody has seen these rows yet";
    bench.Advance(Milliseconds{400});
    bench.Tap(onFile);
    EXPECT_EQ(SelectedRow(), "a.mp3");
    EXPECT_EQ(Wmp().Count(), 0);
    bench.Advance(Milliseconds{1000});
    bench.DoubleTap(onFile);
    EXPECT_EQ(Wmp().Count(), 1);
    EXPECT_EQ(Player().playstate, 3);

    Wmp().NewPlaylist();
    bench.program->godfather.singleClickListSelect = true;
    bench.Advance(Milliseconds{1000});
    bench.Tap(onFile);
    EXPECT_EQ(Wmp().Count(), 1);
    Do("mediaplayer.pause");
    bench.Tap(onFile);
    EXPECT_EQ(Player().playstate, 0) << "the second tap of a pair does nothing";
}

TEST_F(MediaList, TheMarkFollowsThePlayingFile) {
    Music({"0.mp3", "1.mp3", "2.mp3", "3.mp3", "4.mp3", "5.mp3", "6.mp3", "7.mp3", "8.mp3", "Sub/x.mp3"});
    Open();
    const auto marked = [this] {
        std::vector<std::string> rows;
        for (const std::string& name : Rows()) {
            if (IconOf(name) == ListIcon::playing) {
                rows.push_back(name);
            }
        }
        return rows;
    };
    Choose("3.mp3");
    EXPECT_THAT(marked(), ElementsAre("3.mp3"));
    Select("Sub");
    while (Playing() != InMusic("5.mp3")) {
        Do("mediaplayer.next");
        bench.Advance(Milliseconds{100});
    }
    EXPECT_THAT(marked(), ElementsAre("5.mp3"));
    EXPECT_EQ(IconOf("3.mp3"), ListIcon::audio);
    EXPECT_EQ(IconOf("Sub"), ListIcon::folder);
    EXPECT_EQ(SelectedRow(), "Sub") << "the list does not follow unless it is told to";
    Choose("Sub");
    EXPECT_TRUE(marked().empty());
    Player().ReadDirectory(MusicFolder());
    EXPECT_THAT(marked(), ElementsAre("5.mp3"));
    EXPECT_EQ(SelectedRow(), "5.mp3");
    EXPECT_EQ(List().Top(), List().Row() - List().VisibleRows() / 2) << "in the middle";
}

}  // namespace
}  // namespace zvr
