#pragma once

#include "zvr_osk/look.h"

#include <chrono>
#include <optional>
#include <string>

namespace zvr::osk {

/// The line to zvr: how it looks and where the driver types, now and at each change.
class ZvrLink {
public:
    ZvrLink() = default;
    ~ZvrLink();
    ZvrLink(const ZvrLink&) = delete;
    ZvrLink& operator=(const ZvrLink&) = delete;

    /// The first answer; none when zvr doesn't run, or doesn't answer within the limit: what it says later comes by
    /// Read.
    [[nodiscard]] std::optional<ZvrLook> Open(std::chrono::milliseconds limit);
    [[nodiscard]] int Descriptor() const { return file; }  ///< readable when there is news; -1 without zvr
    /// The latest news, if any. Closes when zvr has gone.
    [[nodiscard]] std::optional<ZvrLook> Read();

private:
    int file = -1;
    std::string received;
};

}  // namespace zvr::osk
