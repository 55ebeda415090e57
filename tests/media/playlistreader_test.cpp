#include "media/playlistreader.h"
#include "support/matchers.h"

namespace zvr {
namespace {

TEST(PlaylistFile, GivesTheFilesOfAKeyedList) {
    EXPECT_THAT(ReadPlaylist("[playlist]\nNumberOfEntries=3\nFile1=a.mp3\nTitle1=file\nLength1=-1\nfile2=/b=c.mp3\n"
                             "File10=#1 hit.mp3\nFile=\nFiles1=no.mp3\nVersion=2\n",
                             "/lists/MY.PLS"),
                ElementsAre("/lists/a.mp3", "/b=c.mp3", "/lists/#1 hit.mp3"));
}

TEST(PlaylistFile, DecodesFileAddresses) {
    EXPECT_THAT(
        ReadPlaylist(
            "file:///music/a%20b%25c%C3%A4.mp3\nFILE://localhost/x.mp3\nfile:///50%\nfile:///%zz%4\nfile:///a%41\n"
            "file://",
            "/l.m3u"),
        ElementsAre("/music/a b%c\xC3\xA4.mp3", "/x.mp3", "/50%", "/%zz%4", "/aA", "file://"));
}

}  // namespace
}  // namespace zvr
