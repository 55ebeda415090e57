#include "platform/processes.h"
#include "support/bench.h"

#include <filesystem>

namespace zvr {
namespace {

using Arguments = std::vector<std::string>;

TEST(CommandLines, NameTheShortestPathOfAProgramThenItsArguments) {
    const TemporaryFolder folder;
    const auto program = [&](const std::string& name) {
        folder.Write(name, "#!/bin/sh\n");
        std::filesystem::permissions(folder.path + "/" + name, std::filesystem::perms::owner_all);
        return folder.path + "/" + name;
    };
    const std::string plain = program("nav");
    const std::string blanks = program("my nav/the nav");
    const std::string note = folder.Write("note", "not a program");

    EXPECT_EQ(ReadCommandLine(plain), (ProgramCall{plain, {}}));
    EXPECT_EQ(ReadCommandLine("  " + plain + "  -f  \"a b\"'c d' It's \"\" "),
              (ProgramCall{plain, Arguments{"-f", "a bc d", "It's", ""}}));
    EXPECT_EQ(ReadCommandLine(blanks + " x"), (ProgramCall{blanks, {"x"}})) << "blanks without quotes";
    EXPECT_EQ(ReadCommandLine("\"" + blanks + "\" x"), (ProgramCall{blanks, {"x"}}));
    EXPECT_EQ(ReadCommandLine("\"" + blanks + "\"x"), (ProgramCall{blanks, {"x"}}));
    EXPECT_EQ(ReadCommandLine(plain + ".EXE -f"), (ProgramCall{plain, {"-f"}}));
    program("my");  // shorter than "my nav/the nav"
    EXPECT_EQ(ReadCommandLine(folder.path + "/my nav/the nav"), (ProgramCall{folder.path + "/my", {"nav/the", "nav"}}));

    const auto shell = ReadCommandLine("sh -c 'exit 1'");
    ASSERT_TRUE(shell);
    EXPECT_TRUE(shell->file.ends_with("bin/sh"));
    EXPECT_EQ(shell->arguments, (Arguments{"-c", "exit 1"}));
    for (const std::string& line :
         {std::string(), std::string(" \t"), note, folder.path, std::string("\"\""), std::string("no-such-program x"),
          std::string("/no/such"), std::string("sh\0-c", 5)}) {
        EXPECT_EQ(ReadCommandLine(line), std::nullopt) << line;
    }
}

}  // namespace
}  // namespace zvr
