#include "platform/applications.h"

#include "support/bench.h"

using namespace zvr;

TEST(Applications, AreThoseOfTheMenusUnderTheirNamesHere) {
    const TemporaryFolder folder;
    const auto write = [&](const char* file, const std::string& lines) {
        folder.Write(file, "[Desktop Entry]\nType=Application\n" + lines + "[Desktop Action New]\nExec=other\n");
    };
    write("own/map.desktop", "Name=Map\nName[de]=Karte\nExec=map --at %f 100%% %U\n");
    write("all/map.desktop", "Name=The machine's\nExec=no\n");
    write("all/Notes.desktop", "Name=apples\nExec=\"/opt/my notes/run\" -a\n");
    write("all/shell.desktop", "Name=Shell\nExec=sh\nTerminal=true\n");
    write("all/hidden.desktop", "Name=Hidden\nExec=hidden\nNoDisplay=true\n");
    write("all/nothing.desktop", "Name=Nothing\nExec=%F\n");
    write("all/text.txt", "Name=Text\nExec=text\n");
    folder.Write("all/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\nExec=link\n");
    std::string found;
    for (const Application& one :
         ApplicationsIn({folder.path + "/own", folder.path + "/none", folder.path + "/all"}, "de")) {
        found += one.name + ": " + one.commandLine + "|";
    }
    EXPECT_EQ(found, "apples: \"/opt/my notes/run\" -a|Karte: map --at  100%|");
}
