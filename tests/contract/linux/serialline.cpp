#include "contract/serialline.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>
#include <cstdlib>

namespace zvr::contract {

Receiver::Receiver(SerialPort& port) : port(port), line(posix_openpt(O_RDWR | O_NOCTTY)) {
    EXPECT_EQ(grantpt(line), 0);
    EXPECT_EQ(unlockpt(line), 0);
    device = ptsname(line);
}

Receiver::~Receiver() {
    Unplug();
}

void Receiver::Say(std::string_view bytes) {
    EXPECT_EQ(write(line, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    usleep(20'000);  // the kernel hands it over by itself
}

void Receiver::Unplug() {
    if (line >= 0) {
        close(line);
        line = -1;
    }
}

}  // namespace zvr::contract
