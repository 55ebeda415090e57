#include "target.h"

#include "platform/processes.h"

// Anybody may write a list of programs by hand. What is found is a file, and no argument is made up.
void zvr::Try(std::string_view input) {
    if (const auto call = ReadCommandLine(input)) {
        Require(call->file.find('/') != std::string::npos);
        std::size_t letters = 0;
        for (const std::string& argument : call->arguments) {
            letters += argument.size();
        }
        Require(letters <= input.size());
    }
}
