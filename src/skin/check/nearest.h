#pragma once

#include <string>
#include <string_view>

namespace zvr {

/// Keeps the name that is nearest to a mistyped one: two slips at most, and fewer in a short name.
class NearestName {
public:
    explicit NearestName(std::string_view wanted);
    void Consider(std::string_view name);
    [[nodiscard]] const std::string& Found() const { return found; }  ///< empty for none

private:
    const std::string wanted;
    std::string found;
    std::size_t slips;  ///< fewer than these will do
};

}  // namespace zvr
